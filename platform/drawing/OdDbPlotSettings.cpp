#include "platform/drawing/OdDbPlotSettings.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/dxf/NewObject.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/Subclass.h"

#include <array>
#include <cmath>

using namespace tv::dwg;
using OdDb::DxfVersion;

namespace {

constexpr const char* kPart = "AcDbPlotSettings";

// The paper-by-drawing values of the scale numbers; 0 is whatever fits.
constexpr std::array<double, 33> kStandardScales = {
    1,        1.0 / 1536, 1.0 / 768, 1.0 / 384, 1.0 / 192, 1.0 / 128, 1.0 / 96, 1.0 / 64, 1.0 / 48,
    1.0 / 32, 1.0 / 24,   1.0 / 16,  1.0 / 12,  1.0 / 4,   1.0 / 2,   1,        1,        1.0 / 2,
    1.0 / 4,  1.0 / 8,    1.0 / 10,  1.0 / 16,  1.0 / 20,  1.0 / 30,  1.0 / 40, 1.0 / 50, 1.0 / 100,
    2,        4,          8,         10,        100,       1000};

// The order files have the tags in: a new one goes behind those before it.
constexpr std::array<int, 31> kOrder = {1,   2,   4,  6,  40, 41, 42, 43, 44,  45, 46, 47, 48,  49,  140, 141,
                                        142, 143, 70, 72, 73, 74, 7,  75, 147, 76, 77, 78, 148, 149, 333};

std::size_t rank(int code) {
    std::size_t i = 0;
    while (i < kOrder.size() && kOrder[i] != code)
        ++i;
    return i;
}

std::size_t placeFor(const RecordEditor& record, const std::vector<std::size_t>& part, int code) {
    for (auto i = part.rbegin(); i != part.rend(); ++i)
        if (record.code(*i) == 100 || rank(record.code(*i)) < rank(code)) return *i + 1;
    return part.empty() ? record.size() : part.back() + 1;
}

Tavo::ErrorStatus setInOrder(OdDbObject& object, const char* name, const std::vector<TagValue>& values) {
    if (const auto status = checkWritable(object); status != Tavo::eOk) return status;
    RecordStore& store = object.database()->store();
    RecordEditor record(object.format(), store.text(object.objectId().record()));
    for (const TagValue& wanted : values) {
        const std::vector<std::size_t> part = tagsIn(record, name);
        if (part.empty()) return Tavo::eNotHandled;
        std::size_t there = RecordEditor::npos;
        for (const std::size_t i : part)
            if (record.code(i) == wanted.code && there == RecordEditor::npos) there = i;
        const bool good = there != RecordEditor::npos
                              ? record.set(there, wanted.value)
                              : record.insert(placeFor(record, part, wanted.code), wanted.code, wanted.value);
        if (!good) return Tavo::eWrongType;
    }
    if (record.edited()) store.replace(object.objectId().record(), record.bytes());
    return Tavo::eOk;
}

} // namespace

double OdDbPlotSettings::plotReal(int code, double otherwise) const {
    return realIn(*this, kPart, code, otherwise);
}
int OdDbPlotSettings::plotInteger(int code, int otherwise) const {
    return integerIn(*this, kPart, code, otherwise);
}
OdString OdDbPlotSettings::plotText(int code) const { return textIn(*this, kPart, code); }

Tavo::ErrorStatus OdDbPlotSettings::setPlot(int code, const Value& value) {
    return setInOrder(*this, kPart, {{code, value}});
}

OdDbPlotSettings::Margins OdDbPlotSettings::getPlotPaperMargins() const {
    return {plotReal(40), plotReal(41), plotReal(42), plotReal(43)};
}

Tavo::ErrorStatus OdDbPlotSettings::setPlotPaperMargins(const Margins& margins) {
    return setInOrder(*this, kPart,
                      {{40, margins.left}, {41, margins.bottom}, {42, margins.right}, {43, margins.top}});
}

Tavo::ErrorStatus OdDbPlotSettings::setPlotPaperSize(OdGePoint2d size) {
    if (!(size.x >= 0 && size.y >= 0)) return Tavo::eOutOfRange;
    return setInOrder(*this, kPart, {{44, size.x}, {45, size.y}});
}

Tavo::ErrorStatus OdDbPlotSettings::setPlotOrigin(OdGePoint2d origin) {
    return setInOrder(*this, kPart, {{46, origin.x}, {47, origin.y}});
}

Tavo::ErrorStatus OdDbPlotSettings::setPlotWindowArea(OdGePoint2d min, OdGePoint2d max) {
    return setInOrder(*this, kPart, {{48, min.x}, {49, min.y}, {140, max.x}, {141, max.y}});
}

Tavo::ErrorStatus OdDbPlotSettings::setCustomPrintScale(double numerator, double denominator) {
    if (!(numerator > 0 && denominator > 0) || !std::isfinite(numerator / denominator))
        return Tavo::eOutOfRange;
    return setInOrder(*this, kPart,
                      {{142, numerator},
                       {143, denominator},
                       {70, std::int64_t{plotFlags() & ~kUseStandardScale}},
                       {147, numerator / denominator}});
}

Tavo::ErrorStatus OdDbPlotSettings::setStdScaleType(int type) {
    if (type < 0 || type >= static_cast<int>(kStandardScales.size())) return Tavo::eOutOfRange;
    return setInOrder(*this, kPart,
                      {{75, std::int64_t{type}},
                       {70, std::int64_t{plotFlags() | kUseStandardScale}},
                       {147, kStandardScales[static_cast<std::size_t>(type)]}});
}

Tavo::ErrorStatus OdDbPlotSettings::setPlotPaperUnits(PlotPaperUnits units) {
    return units > kPixels ? Tavo::eOutOfRange : setPlot(72, std::int64_t{units});
}
Tavo::ErrorStatus OdDbPlotSettings::setPlotRotation(PlotRotation rotation) {
    return rotation > k270degrees ? Tavo::eOutOfRange : setPlot(73, std::int64_t{rotation});
}
Tavo::ErrorStatus OdDbPlotSettings::setPlotType(PlotType type) {
    return type > kLayout ? Tavo::eOutOfRange : setPlot(74, std::int64_t{type});
}

Tavo::ErrorStatus OdDbPlotSettings::setShadePlot(ShadePlotType type, ShadePlotResLevel level, int customDpi) {
    if (type > kRendered || level > kCustom || customDpi < 100 || customDpi > 32767) return Tavo::eOutOfRange;
    if (database()->form() < DxfVersion::kR2004) return Tavo::eNotHandled;
    return setInOrder(*this, kPart,
                      {{76, std::int64_t{type}}, {77, std::int64_t{level}}, {78, std::int64_t{customDpi}}});
}

Tavo::ErrorStatus OdDbPlotSettings::setPlotFlag(PlotFlag flag, bool on) {
    const int now = plotFlags();
    return setPlot(70, std::int64_t{on ? now | flag : now & ~flag});
}

Tavo::ErrorStatus OdDbPlotSettings::copyFrom(const OdDbPlotSettings& other) {
    std::vector<TagValue> values;
    const bool shades = database()->form() >= DxfVersion::kR2004;
    for (const int code : kOrder) {
        // What only this drawing's versions and handles make sense of stays behind.
        if (code == 1 || code == 333 || (!shades && code >= 76 && code <= 78)) continue;
        const auto tag = findIn(other, kPart, code);
        if (!tag) continue;
        Value value = valueOf(other.format(), *tag);
        if (std::holds_alternative<std::monostate>(value)) continue;
        if (code == 70) {
            // Whether it is the model's is no setting.
            const auto* flags = std::get_if<std::int64_t>(&value);
            value = std::int64_t{(static_cast<int>(*flags) & ~kModelType) | (plotFlags() & kModelType)};
        }
        values.push_back({code, std::move(value)});
    }
    return setInOrder(*this, kPart, values);
}

OdDbObjectId tv::dwg::addPlotSettings(OdDbDatabase& database, std::wstring_view name, bool modelType) {
    if (name.empty() || database.form() < DxfVersion::kR2000) return {};
    const OdDbUndoScope step(database, L"PAGESETUP");
    const auto setups = database.getPlotSettingsDictionaryId(true).open<OdDbDictionary>(OdDb::kForWrite);
    if (!setups || setups->has(name)) return {};
    NewObject made(database, "PLOTSETTINGS", setups->handle());
    TagWriter& tags = made.tags();
    tags.name(100, "AcDbPlotSettings").tag(1, name).name(2, "none_device").name(4, "").name(6, "");
    for (const int code : {40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 140, 141})
        tags.tag(code, Value(0.0));
    tags.tag(142, Value(1.0)).tag(143, Value(1.0));
    tags.tag(70, OdDbPlotSettings::kUseStandardScale | OdDbPlotSettings::kPlotPlotStyles |
                     OdDbPlotSettings::kPrintLineweights | OdDbPlotSettings::kDrawViewportsFirst |
                     (modelType ? OdDbPlotSettings::kModelType : 0));
    tags.tag(72, 1).tag(73, 0).tag(74, modelType ? 0 : 5).name(7, "").tag(75, 16).tag(147, Value(1.0));
    if (database.form() >= DxfVersion::kR2004) tags.tag(76, 0).tag(77, 2).tag(78, 300);
    tags.tag(148, Value(0.0)).tag(149, Value(0.0));
    const OdDbObjectId id = made.add(setups->objectId());
    if (!id.isNull()) setups->setAt(name, id);
    return id;
}
