#pragma once

#include "platform/toolkit/SwatchGrid.h"
#include "qt/Export.h"
#include "qt/controls/Bridge.h"

#include <QWidget>

namespace tv::qt {

// Paints a table of colours and reports what the pointer does to its cells. Empty until a bridge ties it to a
// control.
class KXGUIQT_EXPORT KxSwatchGrid : public QWidget {
    Q_OBJECT
  public:
    explicit KxSwatchGrid(QWidget* parent = nullptr);
    void setControl(const CSwatchGrid* control);
    // The cells or their number changed.
    void cellsChanged();
    int cellAt(QPoint point) const; // -1: none
    QRect cellRect(int index) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    void chosen(int index);
    void doubleClicked(int index);
    void hovered(int index); // -1: the pointer left

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;

  private:
    int columns() const;
    int rows() const;
    int side() const; // of a cell, logical pixels
    const CSwatchGrid* m_control = nullptr;
    int m_hovered = -1;
};

class SwatchGridBridge : public Bridge {
  public:
    SwatchGridBridge(CSwatchGrid& grid, KxSwatchGrid& widget);
    bool key(const ui::KeyEvent& key) override;

  protected:
    void show(ui::Change change) override;

  private:
    CSwatchGrid& m_control;
    KxSwatchGrid& m_grid;
};

} // namespace tv::qt
