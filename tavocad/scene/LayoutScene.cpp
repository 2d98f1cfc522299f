// The sheets of a drawing, with the model seen through their viewports.
#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/text/Unicode.h"
#include "tavocad/scene/DrawingTables.h"
#include "tavocad/scene/SceneBuilder.h"

#include <cmath>

namespace tv::scene {

namespace {

constexpr double straightDown = 1e-9; // how far a view from above may lean

LayerState* layerNamed(std::vector<LayerState>& layers, std::wstring_view name) {
    for (LayerState& layer : layers)
        if (tv::text::equalNoCase(layer.name, name)) return &layer;
    return nullptr;
}

OdString nameOf(const OdDbObjectId& record) {
    const auto opened = record.open<OdDbSymbolTableRecord>();
    return opened ? opened->getName() : OdString();
}

// The model's styles with the layers as they are in one viewport.
StyleTable stylesIn(const OdDbDatabase& database, const OdDbViewport& viewport, const StyleTable& model) {
    StyleTable styles = model;
    std::vector<LayerState> layers = styles.layers();
    for (const OdDbObjectId& id : viewport.frozenLayers())
        if (LayerState* layer = layerNamed(layers, nameOf(id).view())) layer->frozen = true;
    for (const auto& [id, overrides] : tv::dwg::overridesInViewport(database, viewport.objectId())) {
        LayerState* layer = layerNamed(layers, nameOf(id).view());
        if (!layer) continue;
        if (overrides.color) layer->paint = paintOf(*overrides.color);
        if (overrides.lineWeight && *overrides.lineWeight >= 0) layer->lineweight = *overrides.lineWeight;
        if (overrides.transparency) layer->alpha = overrides.transparency->alpha();
        if (overrides.linetype) {
            const OdString name = nameOf(*overrides.linetype);
            const auto& linetypes = styles.linetypes();
            for (std::uint32_t i = 0; i < linetypes.size(); ++i)
                if (tv::text::equalNoCase(linetypes[i].name, name.view())) layer->linetype = i;
        }
    }
    styles.setLayers(std::move(layers));
    return styles;
}

// Where the model lands; nothing for a viewport that is off or does not look straight down.
std::optional<ViewportPicture> pictureOf(const OdDbViewport& viewport) {
    const OdGeVector3d direction = viewport.viewDirection();
    const double scale = viewport.viewHeight() > 0 ? viewport.height() / viewport.viewHeight() : 0;
    const double length = direction.length();
    if (!viewport.isOn() || viewport.isPerspectiveOn() || !(scale > 0) || !isSomewhere(scale) ||
        !(length > 0) || direction.z <= 0 || std::hypot(direction.x, direction.y) > straightDown * length)
        return std::nullopt;
    const double twist = viewport.twistAngle();
    const OdGePoint3d center = viewport.centerPoint(), target = viewport.viewTarget();
    const OdGePoint2d view = viewport.viewCenter();
    ViewportPicture picture;
    picture.x = {scale * std::cos(twist), scale * std::sin(twist)};
    picture.y = {-scale * std::sin(twist), scale * std::cos(twist)};
    picture.origin = {center.x - scale * view.x - picture.x.x * target.x - picture.y.x * target.y,
                      center.y - scale * view.y - picture.x.y * target.x - picture.y.y * target.y};
    if (!isSomewhere(picture.origin.x) || !isSomewhere(picture.origin.y) || !isSomewhere(twist))
        return std::nullopt;
    return picture;
}

} // namespace

Scene buildScene(const OdDbDatabase& database, const OdDbObjectId& layout, std::shared_ptr<const Scene> model,
                 tv::dwg::ExternalReferences* references) {
    const auto opened = layout.open<OdDbLayout>();
    if (!opened || opened->isModelLayout()) return buildScene(database, references);
    Scene scene = buildScene(database, opened->entities(), references);
    const auto viewports = opened->viewports();
    for (std::size_t i = 1; i < viewports.size(); ++i) { // the first is the sheet itself
        const auto viewport = viewports[i].open<OdDbViewport>();
        if (!viewport) continue;
        const OdGePoint3d center = viewport->centerPoint();
        const double wide = viewport->width() / 2, high = viewport->height() / 2;
        if (!isSomewhere(center.x) || !isSomewhere(center.y) || !isSomewhere(wide) || !isSomewhere(high) ||
            !(wide > 0 && high > 0))
            continue;
        const std::vector<OdGePoint2d> corners{{center.x - wide, center.y - high},
                                               {center.x + wide, center.y - high},
                                               {center.x + wide, center.y + high},
                                               {center.x - wide, center.y + high}};
        // The frame, on the viewport's layer.
        std::vector<LayerState> layers = scene.styles.layers();
        const LayerState* layer = layerNamed(layers, viewport->layer().view());
        StyleSource source;
        source.layer = layer ? static_cast<std::uint32_t>(layer - layers.data()) : 0;
        source.paintLayer = source.lineweightLayer = source.alphaLayer = source.layer;
        const auto entity = static_cast<std::uint32_t>(scene.entities.size());
        const auto first = static_cast<std::uint32_t>(scene.points.size());
        scene.entities.push_back({viewports[i].record(), static_cast<std::uint32_t>(scene.items.size()), 1});
        scene.items.push_back(
            {first, 5, scene.styles.intern(source), entity, Item::Kind::stroke, Item::solidLine});
        scene.points.insert(scene.points.end(), corners.begin(), corners.end());
        scene.points.push_back(corners.front());

        auto picture = pictureOf(*viewport);
        if (!picture) continue;
        if (!model) model = std::make_shared<Scene>(buildScene(database, references));
        picture->model = model;
        picture->styles = stylesIn(database, *viewport, model->styles);
        picture->clip = corners;
        picture->entity = entity;
        scene.viewports.push_back(std::move(*picture));
    }
    scene.finish();
    return scene;
}

} // namespace tv::scene
