#pragma once

#include "platform/host/TavoSelection.h"
#include "tavocad/ZoomRequest.h"
#include "tavocad/scene/Scene.h"
#include "tavocad/window/ScenePainter.h"

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

// The drawing area. The wheel zooms about the pointer, the middle button pans, and so does the left one while
// Space is held. A click takes the object under the pointer, one beside all objects begins a window: to the
// right it takes what lies inside, to the left also what it touches. The picture is kept, so that only what
// changes it costs more than copying it to the screen.
class DrawingView : public QWidget {
    Q_OBJECT
  public:
    explicit DrawingView(QWidget* parent = nullptr);

    // Shows another scene through the same view.
    void setScene(std::shared_ptr<const tv::scene::Scene> scene);
    // Holds none any more; another one is about to be set.
    void dropScene();
    void setSelection(const TavoSelectionSet& selection);
    void setLineweights(bool shown);
    // Half the side of the square in which objects are found, pixels.
    void setPickBox(int pixels) { m_pickBox = pixels; }
    // Whether objects light up under the pointer.
    void setPreview(bool shown);
    // Paints the picture anew.
    void redraw();

    void zoom(const ZoomRequest& request);
    void zoomExtents() { zoom({}); }
    // Logical pixels per drawing unit.
    double pixelsPerUnit() const { return m_scale; }

    // While a point is awaited a click answers it; a line is drawn from `base` to the pointer.
    void beginPick(std::optional<OdGePoint2d> base);
    void endPick();

    // What the tooltip says about an object.
    std::function<QString(const OdDbObjectId&)> hint;

    QSize minimumSizeHint() const override { return {200, 150}; }

  Q_SIGNALS:
    void pointed(double x, double y); // the pointer moved; drawing units
    void picked(double x, double y);
    void pickCancelled();
    // Objects are to be added to the selection, or taken out.
    void chosen(const TavoSelectionQuery& query, bool remove);
    void finished();    // Enter, or the right button
    void cancelled();   // Escape with nothing begun
    void viewChanged(); // another scale

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent*) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    struct Place {
        OdGePoint2d center; // drawing units, shown in the middle
        double scale = 1;
    };
    ScenePainter view() const;
    QColor markColor() const; // of what is selected or under the pointer
    OdGePoint2d toDrawing(QPointF point) const;
    void moveTo(const Place& place);
    void showBox(tv::scene::Box box, double free);
    void fitAll();
    void zoomAbout(QPointF fixed, double factor);
    void panBy(QPointF pixels);
    void rememberPlace(bool byHand);
    void press(QPointF at, bool remove);
    void finishBox(QPointF at, bool remove);
    void dropBox();
    void updateHover();
    void markSelected();
    void makePicture();
    bool isSmall(const tv::scene::Box& box) const; // on the screen
    void markSmall(QPainter& painter, const ScenePainter& view) const;
    void paintBox(QPainter& painter) const;
    void paintPick(QPainter& painter) const;

    std::shared_ptr<const tv::scene::Scene> m_scene;
    OdGePoint2d m_center;
    double m_scale = 1;
    bool m_untouched = true;     // nobody moved the view since zoomExtents: it follows the window's size
    std::vector<Place> m_places; // shown before
    QElapsedTimer m_sinceMove;

    QImage m_picture;
    bool m_stale = true; // the picture is to be made anew
    bool m_lineweights = false;

    std::optional<QPointF> m_dragFrom, m_pointer;
    std::optional<QPointF> m_boxFrom; // a window was begun there
    bool m_space = false;
    int m_pickBox = 3;
    std::vector<bool> m_selected; // by entity of the scene
    TavoSelectionSet m_selection;
    bool m_anySelected = false;

    bool m_preview = true;
    QTimer m_hoverTimer;
    std::optional<tv::scene::Scene::Hit> m_hover;

    bool m_picking = false;
    std::optional<OdGePoint2d> m_pickBase;
};
