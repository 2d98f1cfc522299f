#include "platform/host/sysvars/DrawingVars.h"

#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/host/sysvars/RecordLookup.h"
#include "platform/text/Unicode.h"

#include <algorithm>

namespace tv::host {

namespace {

// The values of CEPSNTYPE.
enum PlotStyleKind : int { kByLayer = 0, kByBlock = 1, kNormal = 2, kById = 3 };
constexpr const wchar_t* kPlotStyleNames[] = {L"ByLayer", L"ByBlock", L"Normal"};
constexpr std::wstring_view kPlotStyleDictionary = L"ACAD_PLOTSTYLENAME";

constexpr std::wstring_view kDimTalnApp = L"ACAD_DSTYLE_DIMTALN";
constexpr int kDimTalnMark = 392; // stands in front of the value

std::int64_t integerVar(const OdDbDatabase& database, std::wstring_view name, std::int64_t otherwise) {
    const auto value = database.headerVar(name);
    return value ? value->asInteger().value_or(otherwise) : otherwise;
}

bool plotStylesFollowColors(const OdDbDatabase& database) {
    return integerVar(database, L"PSTYLEMODE", 1) != 0;
}

OdDbDictionaryPtr plotStyles(const OdDbDatabase& database) {
    const auto root = database.getNamedObjectsDictionaryId().open<OdDbDictionary>();
    return root ? root->getAt(kPlotStyleDictionary).open<OdDbDictionary>() : nullptr;
}

OdDbObjectId currentDimStyle(const OdDbDatabase& database) {
    const auto name = database.headerVar(L"DIMSTYLE");
    const auto text = name ? name->asText() : std::nullopt;
    return text ? findRecord(database, SysvarRecord::kDimStyle, text->view()) : OdDbObjectId();
}

// The buffer behind the mark in the style's extended data; null when there is none.
OdResBuf* valueBuffer(const OdResBufPtr& data) {
    for (OdResBuf* buffer = data.get(); buffer; buffer = buffer->next().get()) {
        const bool isMark =
            buffer->restype() == OdResBuf::kDxfXdInteger16 && buffer->getInt32() == kDimTalnMark;
        OdResBuf* value = buffer->next().get();
        if (isMark && value && value->restype() == OdResBuf::kDxfXdInteger16) return value;
    }
    return nullptr;
}

} // namespace

OdString readPlotStyle(const OdDbDatabase& database) {
    if (plotStylesFollowColors(database)) return L"ByColor";
    const std::int64_t kind = integerVar(database, L"CEPSNTYPE", kByLayer);
    if (kind >= kByLayer && kind <= kNormal) return kPlotStyleNames[kind];
    const auto id = database.headerVar(L"CEPSNID");
    const auto wanted = id ? id->asText() : std::nullopt;
    if (const auto styles = plotStyles(database); styles && wanted)
        for (const auto& [name, handle] : styles->entries())
            if (OdDbHandle::fromText(wanted->view()) == handle) return name;
    return kPlotStyleNames[kByLayer];
}

tv::Problem writePlotStyle(const SysvarInfo& info, OdDbDatabase& database, const OdString& name) {
    if (plotStylesFollowColors(database)) return refusal(info, Tavo::eReadOnly, name.view());
    for (int kind = kByLayer; kind <= kNormal; ++kind)
        if (text::equalNoCase(name.view(), kPlotStyleNames[kind]))
            return database.setHeaderVar(L"CEPSNTYPE", dwg::HeaderValue::integer(kind));
    const auto styles = plotStyles(database);
    const OdDbObjectId style = styles ? styles->getAt(name.view()) : OdDbObjectId();
    if (style.isNull()) return refusal(info, Tavo::eKeyNotFound, name.view());
    const OdDbUndoScope undo(database, L"CPLOTSTYLE");
    if (auto problem = database.setHeaderVar(L"CEPSNID", dwg::HeaderValue{0, style.handle()})) return problem;
    return database.setHeaderVar(L"CEPSNTYPE", dwg::HeaderValue::integer(kById));
}

std::int64_t readDimTaln(const OdDbDatabase& database) {
    const auto style = currentDimStyle(database).openObject();
    if (!style) return 0;
    const auto data = style->xData(kDimTalnApp);
    const OdResBuf* value = valueBuffer(data);
    return value ? value->getInt32() : 0;
}

tv::Problem writeDimTaln(const SysvarInfo& info, OdDbDatabase& database, std::int64_t value) {
    const auto style = currentDimStyle(database).openObject(OdDb::kForWrite);
    if (!style) return refusal(info, Tavo::eKeyNotFound, textOf(info, value));
    const OdDbUndoScope undo(database, info.name);
    const auto applications = database.getRegAppTableId().open<OdDbRegAppTable>(OdDb::kForWrite);
    if (applications && !applications->has(kDimTalnApp)) applications->add(kDimTalnApp);
    OdResBufPtr data = style->xData(kDimTalnApp);
    if (!data) data = OdResBuf::newRb(OdResBuf::kDxfRegAppName, OdString(kDimTalnApp));
    if (OdResBuf* held = valueBuffer(data)) {
        held->setValue(value);
    } else {
        data->append(OdResBuf::newRb(OdResBuf::kDxfXdInteger16, std::int64_t{kDimTalnMark}));
        data->append(OdResBuf::newRb(OdResBuf::kDxfXdInteger16, value));
    }
    const auto status = style->setXData(data.get());
    return status == Tavo::eOk ? tv::Problem() : refusal(info, status, textOf(info, value));
}

std::int64_t readActiveViewport(const OdDbDatabase& database) {
    if (integerVar(database, L"TILEMODE", 1) != 0) return 0;
    const auto viewport = database.activeViewportId().open<OdDbViewport>();
    return viewport ? std::max(viewport->number(), 1) : 1;
}

tv::Problem writeActiveViewport(const SysvarInfo& info, OdDbDatabase& database, std::int64_t number) {
    if (number == readActiveViewport(database)) return {};
    const auto sheet = database.currentLayoutId().open<OdDbLayout>();
    if (sheet && integerVar(database, L"TILEMODE", 1) == 0)
        for (const OdDbObjectId id : sheet->viewports())
            if (const auto viewport = id.open<OdDbViewport>(); viewport && viewport->number() == number)
                if (database.setActiveViewport(id) == Tavo::eOk) return {};
    return refusal(info, Tavo::eOutOfRange, textOf(info, number));
}

} // namespace tv::host
