// The sheets of a drawing, with the model seen through their viewports.
#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/text/Unicode.h"
#include "tavocad/scene/DrawingTables.h"
#include "tavocad/scene/Flatten.h"
#include "tavocad/scene/SceneBuilder.h"

#include <cmath>
#include <unordered_map>
#include <utility>

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

std::vector<OdGePoint2d> boxOf(OdGePoint2d low, OdGePoint2d high) {
    if (!isSomewhere(low) || !isSomewhere(high) || !(high.x > low.x && high.y > low.y)) return {};
    return {low, {high.x, low.y}, high, {low.x, high.y}};
}

// The corners of the sheet of paper: the layout's origin is where its margins meet, moved by the plot's origin.
// Where no paper has been chosen the limits stand for it.
std::vector<OdGePoint2d> paperOf(const OdDbLayout& layout) {
    constexpr double millimetresPerInch = 25.4;
    OdGePoint2d size = layout.getPlotPaperSize();
    const OdDbPlotSettings::Margins margins = layout.getPlotPaperMargins();
    OdGePoint2d corner;
    if (!(size.x > 0 && size.y > 0)) return boxOf(layout.limitsMin(), layout.limitsMax());
    switch (layout.plotRotation()) {
    case OdDbPlotSettings::k0degrees:
        corner = {margins.left, margins.bottom};
        break;
    case OdDbPlotSettings::k90degrees:
        corner = {margins.top, margins.left};
        break;
    case OdDbPlotSettings::k180degrees:
        corner = {margins.right, margins.top};
        break;
    case OdDbPlotSettings::k270degrees:
        corner = {margins.bottom, margins.right};
        break;
    }
    if (layout.plotRotation() == OdDbPlotSettings::k90degrees ||
        layout.plotRotation() == OdDbPlotSettings::k270degrees)
        std::swap(size.x, size.y);
    const OdGePoint2d origin = layout.getPlotOrigin();
    double scale = layout.customScaleDenominator() / layout.customScaleNumerator();
    if (!(scale > 0) || !isSomewhere(scale)) scale = 1;
    if (layout.plotPaperUnits() == OdDbPlotSettings::kInches) scale /= millimetresPerInch;
    const OdGePoint2d low{-(corner.x + origin.x) * scale, -(corner.y + origin.y) * scale};
    const OdGePoint2d high{low.x + size.x * scale, low.y + size.y * scale};
    return boxOf(low, high);
}

// The polygon that the first line of the entity, or its arc, goes round; empty when that is none.
std::vector<OdGePoint2d> outlineOf(const Scene& scene, const Entity& entity) {
    std::vector<OdGePoint2d> outline;
    if (entity.itemCount == 0) return outline;
    const Item& item = scene.items[entity.firstItem];
    if (item.kind == Item::Kind::arc) {
        const OdGePoint2d* const arc = scene.points.data() + item.first;
        std::vector<OdGePoint3d> points;
        flattenArc(points, {arc[0].x, arc[0].y, 0}, {arc[1].x, arc[1].y, 0}, {arc[2].x, arc[2].y, 0}, arc[3].x,
                   arc[3].y);
        for (const OdGePoint3d& point : points)
            outline.push_back({point.x, point.y});
    } else if (item.kind == Item::Kind::stroke || item.kind == Item::Kind::area) {
        for (const OdGePoint2d& point : scene.pointsOf(item)) {
            if (isBreak(point)) break;
            outline.push_back(point);
        }
    }
    if (outline.size() < 3) outline.clear();
    return outline;
}

} // namespace

Scene buildScene(const OdDbDatabase& database, const OdDbObjectId& layout, std::shared_ptr<const Scene> model,
                 tv::dwg::ExternalReferences* references) {
    const auto opened = layout.open<OdDbLayout>();
    if (!opened || opened->isModelLayout()) return buildScene(database, references);
    Scene scene = buildScene(database, opened->entities(), references);
    scene.paper = paperOf(*opened);
    std::unordered_map<tv::dwg::RecordId, std::uint32_t> numbers; // of the entities, when something is clipped
    const auto outlineOfClip = [&](const OdDbViewport& viewport) -> std::vector<OdGePoint2d> {
        const OdDbObjectId clip = viewport.nonRectClipEntityId();
        if (!viewport.isNonRectClipOn() || clip.isNull()) return {};
        if (numbers.empty())
            for (std::uint32_t i = 0; i < scene.entities.size(); ++i)
                numbers.try_emplace(scene.entities[i].record, i);
        const auto found = numbers.find(clip.record());
        return found == numbers.end() ? std::vector<OdGePoint2d>()
                                      : outlineOf(scene, scene.entities[found->second]);
    };
    const auto viewports = opened->viewports();
    for (std::size_t i = 1; i < viewports.size(); ++i) { // the first is the sheet itself
        const auto viewport = viewports[i].open<OdDbViewport>();
        if (!viewport) continue;
        const OdGePoint3d center = viewport->centerPoint();
        const double wide = viewport->width() / 2, high = viewport->height() / 2;
        if (!isSomewhere(center.x) || !isSomewhere(center.y) || !isSomewhere(wide) || !isSomewhere(high) ||
            !(wide > 0 && high > 0))
            continue;
        std::vector<OdGePoint2d> corners{{center.x - wide, center.y - high},
                                         {center.x + wide, center.y - high},
                                         {center.x + wide, center.y + high},
                                         {center.x - wide, center.y + high}};
        std::vector<OdGePoint2d> clip = outlineOfClip(*viewport);
        // The frame, on the viewport's layer; what clips it to another shape is there by itself.
        std::vector<LayerState> layers = scene.styles.layers();
        const LayerState* layer = layerNamed(layers, viewport->layer().view());
        StyleSource source;
        source.layer = layer ? static_cast<std::uint32_t>(layer - layers.data()) : 0;
        source.paintLayer = source.lineweightLayer = source.alphaLayer = source.layer;
        const auto entity = static_cast<std::uint32_t>(scene.entities.size());
        const auto first = static_cast<std::uint32_t>(scene.points.size());
        scene.entities.push_back(
            {viewports[i].record(), static_cast<std::uint32_t>(scene.items.size()), clip.empty() ? 1U : 0U});
        if (clip.empty()) {
            scene.items.push_back(
                {first, 5, scene.styles.intern(source), entity, Item::Kind::stroke, Item::solidLine});
            scene.points.insert(scene.points.end(), corners.begin(), corners.end());
            scene.points.push_back(corners.front());
            clip = std::move(corners);
        }

        auto picture = pictureOf(*viewport);
        if (!picture) continue;
        if (!model) model = std::make_shared<Scene>(buildScene(database, references));
        picture->model = model;
        picture->styles = stylesIn(database, *viewport, model->styles);
        picture->clip = std::move(clip);
        picture->entity = entity;
        scene.viewports.push_back(std::move(*picture));
    }
    scene.finish();
    return scene;
}

} // namespace tv::scene
