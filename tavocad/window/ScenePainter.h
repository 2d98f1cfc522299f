#pragma once

#include "tavocad/scene/Scene.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QRectF>

// Paints a scene. Everything but the painter is told here, so that a picture can be made without a window.
struct ScenePainter {
    QRectF area;              // of the painter, logical pixels
    OdGePoint2d center;       // drawing units, in the area's middle
    double scale = 1;         // logical pixels per drawing unit
    QColor foreground;        // for the colour that is white or black
    QColor background;        // for what hides others
    QFont font;               // for texts whose own font is missing
    bool lineweights = false; // lines as wide as they say, else one pixel

    // What of the scene is in view.
    tv::scene::Scene::Seen look(const tv::scene::Scene& scene) const;
    // Onto an image of 32 bits a pixel, which may have a device pixel ratio; `area` is the image's.
    void paint(QImage& image, const tv::scene::Scene& scene, const tv::scene::Scene::Seen& seen) const;
    void paint(QImage& image, const tv::scene::Scene& scene) const { paint(image, scene, look(scene)); }
    // The given items only, in the painter's pen: for highlights.
    void outline(QPainter& painter, const tv::scene::Scene& scene, std::span<const std::uint32_t> items) const;

    QPointF toScreen(OdGePoint2d point) const;
    OdGePoint2d toDrawing(QPointF point) const;
    tv::scene::Box visibleBox() const;
    // Told apart from the background.
    QColor colorOf(const tv::scene::Paint& paint) const;
};
