#include "platform/drawing/OdDbLayerTable.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/UsageData.h"
#include "platform/drawing/VersionLimits.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/XDataTags.h"

#include <algorithm>
#include <cstdlib>

using namespace tv::dwg;

namespace {

constexpr const wchar_t* kTransparency = L"AcCmTransparency";
constexpr const wchar_t* kDescription = L"AcAecLayerStandard";

std::shared_ptr<OdDbDictionary> plotStyleNames(const OdDbDatabase& database) {
    const auto root = database.getNamedObjectsDictionaryId().open<OdDbDictionary>();
    return root ? root->getAt(L"ACAD_PLOTSTYLENAME").open<OdDbDictionary>() : nullptr;
}

} // namespace

OdCmColor OdDbLayerTableRecord::color() const {
    const OdCmColor index = OdCmColor::byIndex(std::abs(integerAt(62, 7)));
    if (!find(420)) return index;
    return OdCmColor::fromDxf(std::nullopt, integerAt(420));
}

Tavo::ErrorStatus OdDbLayerTableRecord::setColor(const OdCmColor& color) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (color.isByLayer() || color.isByBlock()) return Tavo::eInvalidInput;
    if (color.isByColor())
        if (const auto status = database()->require(OdDb::Feature::kTrueColor); status != Tavo::eOk)
            return status;
    const OdDbUndoScope step(*database(), L"LAYER");
    removeAt(430); // the name of a colour from a book goes with it
    if (color == this->color()) return Tavo::eOk;
    const int index = color.dxf62();
    setAt(62, std::int64_t{isOff() ? -index : index}, {70, 2});
    if (const auto rgb = color.dxf420()) return setAt(420, std::int64_t{*rgb}, {62});
    return removeAt(420);
}

Tavo::ErrorStatus OdDbLayerTableRecord::setBookColor(const OdCmColor& color, std::wstring_view bookAndName) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (!color.isByColor() || bookAndName.empty()) return Tavo::eInvalidInput;
    if (color == this->color() && bookColorName().view() == bookAndName) return Tavo::eOk;
    const OdDbUndoScope step(*database(), L"LAYER");
    if (const auto status = setColor(color); status != Tavo::eOk) return status;
    return setAt(430, OdString(bookAndName), {420});
}

OdDbObjectId OdDbLayerTableRecord::linetypeObjectId() const {
    const auto table = database()->getLinetypeTableId().open<OdDbSymbolTable>();
    return table ? table->getAt(linetypeName().view()) : OdDbObjectId();
}

Tavo::ErrorStatus OdDbLayerTableRecord::setLinetypeName(std::wstring_view name) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (name.empty()) return Tavo::eInvalidInput;
    const auto table = database()->getLinetypeTableId().open<OdDbSymbolTable>();
    if (table && !table->has(name)) return Tavo::eKeyNotFound;
    return setAt(6, OdString(name), {62, 420});
}

Tavo::ErrorStatus OdDbLayerTableRecord::setLinetypeObjectId(OdDbObjectId linetype) {
    const auto record = linetype.open<OdDbSymbolTableRecord>();
    if (!record || linetype.database() != database() || record->isA() != L"LTYPE") return Tavo::eInvalidInput;
    return setLinetypeName(record->getName().view());
}

OdDb::LineWeight OdDbLayerTableRecord::lineWeight() const {
    return static_cast<OdDb::LineWeight>(integerAt(370, OdDb::kLnWtByLwDefault));
}

Tavo::ErrorStatus OdDbLayerTableRecord::setLineWeight(OdDb::LineWeight weight) {
    const auto& known = OdDb::kLineWeights;
    if (std::find(known.begin(), known.end(), weight) == known.end()) return Tavo::eOutOfRange;
    if (const auto status = database()->require(OdDb::Feature::kLineWeight); status != Tavo::eOk) return status;
    return setAt(370, std::int64_t{weight}, {290, 6});
}

Tavo::ErrorStatus OdDbLayerTableRecord::setIsOff(bool off) {
    const int index = std::abs(integerAt(62, 7));
    return setAt(62, std::int64_t{off ? -index : index}, {70, 2});
}

Tavo::ErrorStatus OdDbLayerTableRecord::setIsPlottable(bool plot) {
    if (plot == isPlottable()) return checkWrite();
    if (const auto status = database()->require(OdDb::Feature::kPlotFlag); status != Tavo::eOk) return status;
    return setAt(290, std::int64_t{plot}, {6});
}

OdCmTransparency OdDbLayerTableRecord::transparency() const {
    OdCmTransparency found;
    for (OdResBufPtr b = xData(kTransparency); b; b = b->next())
        if (b->restype() == OdResBuf::kDxfXdInteger32) found = OdCmTransparency::fromDxf(b->getInt32());
    return found.isByAlpha() ? found : OdCmTransparency::byAlpha(255);
}

Tavo::ErrorStatus OdDbLayerTableRecord::setTransparency(OdCmTransparency transparency) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (!transparency.isByAlpha()) return Tavo::eInvalidInput;
    if (transparency == this->transparency()) return Tavo::eOk;
    if (const auto status = database()->require(OdDb::Feature::kTransparency); status != Tavo::eOk)
        return status;
    return editXData(kTransparency, [&](RecordEditor& record) {
        const XDataTags data = needXData(record, kTransparency);
        const std::size_t i = record.find(1071, data.begin, data.end);
        const tv::dwg::Value value = std::int64_t{transparency.dxfValue()};
        return i == RecordEditor::npos ? record.insert(data.end, 1071, value) : record.set(i, value);
    });
}

// Two texts, of which the second is the description.
OdString OdDbLayerTableRecord::description() const {
    OdString text;
    for (OdResBufPtr b = xData(kDescription); b; b = b->next())
        if (b->restype() == OdResBuf::kDxfXdAsciiString) text = b->getString();
    return text;
}

Tavo::ErrorStatus OdDbLayerTableRecord::setDescription(std::wstring_view text) {
    if (text == description().view()) return checkWrite();
    return editXData(kDescription, [&](RecordEditor& record) {
        XDataTags data = needXData(record, kDescription);
        std::size_t texts = 0;
        std::size_t last = data.begin;
        for (std::size_t i = data.begin; i < data.end; ++i)
            if (record.code(i) == 1000) ++texts, last = i;
        for (; texts < 2; ++texts)
            if (!record.insert(++last, 1000, OdString())) return false;
        return record.set(last, OdString(text));
    });
}

OdString OdDbLayerTableRecord::plotStyleName() const {
    const OdDbHandle handle = handleAt(390);
    if (const auto names = plotStyleNames(*database()); names && !handle.isNull())
        for (const OdDbDictionary::Entry& entry : names->entries())
            if (entry.handle == handle) return entry.name;
    return {};
}

Tavo::ErrorStatus OdDbLayerTableRecord::setPlotStyleName(OdDbObjectId placeholder) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (const auto status = database()->require(OdDb::Feature::kPlotStyle); status != Tavo::eOk) return status;
    const auto names = placeholder.database() == database() ? plotStyleNames(*database()) : nullptr;
    if (!names || placeholder.isErased()) return Tavo::eInvalidInput;
    for (const OdDbDictionary::Entry& entry : names->entries())
        if (entry.handle == placeholder.handle()) return setAt(390, entry.handle, {370, 290, 6});
    return Tavo::eInvalidInput;
}

Tavo::ErrorStatus OdDbLayerTableRecord::setPlotStyleName(std::wstring_view name) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (const auto status = database()->require(OdDb::Feature::kPlotStyle); status != Tavo::eOk) return status;
    const auto names = plotStyleNames(*database());
    const OdDbObjectId found = names ? names->getAt(name) : OdDbObjectId();
    return found.isNull() ? Tavo::eKeyNotFound : setPlotStyleName(found);
}

void OdDbLayerTable::generateUsageData() const {
    database()->usageData().generate(*database(), NamedKind::kLayer);
}
