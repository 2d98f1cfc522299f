#pragma once

#include "platform/toolkit/DrawArea.h"
#include "qt/Export.h"
#include "qt/controls/Bridge.h"

#include <QTransform>
#include <QWidget>

namespace tv::qt {

// Paints a display list, scaled to fit with its aspect ratio kept. Empty until a bridge ties it to a control.
class KXGUIQT_EXPORT KxDrawArea : public QWidget {
    Q_OBJECT
  public:
    explicit KxDrawArea(QWidget* parent = nullptr);
    void setControl(const CDrawArea* control) { m_control = control; }
    // From drawing units to logical pixels of the widget.
    QTransform toPixels() const;
    QSize sizeHint() const override { return {160, 120}; }
    QSize minimumSizeHint() const override { return {40, 30}; }

  signals:
    void clicked(QPointF drawingPoint);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    const CDrawArea* m_control = nullptr;
};

class DrawAreaBridge : public Bridge {
  public:
    DrawAreaBridge(CDrawArea& area, KxDrawArea& widget);

  protected:
    void show(ui::Change change) override;

  private:
    KxDrawArea& m_area;
};

} // namespace tv::qt
