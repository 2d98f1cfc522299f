#pragma once

#include "tavocad/scene/Scene.h"
#include "tavocad/window/ScenePainter.h"

#include <QWidget>

#include <memory>
#include <optional>

// The drawing area. The wheel zooms about the pointer, dragging with the left or middle button pans.
class DrawingView : public QWidget {
    Q_OBJECT
  public:
    explicit DrawingView(QWidget* parent = nullptr);

    // Shows another scene through the same view.
    void setScene(std::shared_ptr<const tv::scene::Scene> scene);
    void zoomExtents();

    // While a point is awaited a click answers it; a line is drawn from `base` to the pointer.
    void beginPick(std::optional<OdGePoint2d> base);
    void endPick();

    QSize minimumSizeHint() const override { return {200, 150}; }

  Q_SIGNALS:
    void pointed(double x, double y); // the pointer moved; drawing units
    void picked(double x, double y);
    void pickCancelled();

  protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent*) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    ScenePainter view() const;
    QPointF toScreen(OdGePoint2d point) const;
    OdGePoint2d toDrawing(QPointF point) const;
    void paintPick(QPainter& painter) const;

    std::shared_ptr<const tv::scene::Scene> m_scene;
    OdGePoint2d m_center;    // drawing units, shown in the middle
    double m_scale = 1;      // logical pixels per drawing unit
    bool m_untouched = true; // nobody moved the view since zoomExtents: it follows the window's size
    std::optional<QPointF> m_dragFrom, m_pointer;
    bool m_picking = false;
    std::optional<OdGePoint2d> m_pickBase;
};
