#include "platform/drawing/OdDbLayerTable.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <algorithm>
#include <cstdlib>

using OdDb::DxfVersion;

OdCmColor OdDbLayerTableRecord::color() const {
    const OdCmColor index = OdCmColor::byIndex(std::abs(integerAt(62, 7)));
    if (!find(420)) return index;
    return OdCmColor::fromDxf(std::nullopt, integerAt(420));
}

Tavo::ErrorStatus OdDbLayerTableRecord::setColor(const OdCmColor& color) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (color.isByLayer() || color.isByBlock()) return Tavo::eInvalidInput;
    const DxfVersion version = database()->version();
    if (color.isByColor() && version != DxfVersion::kUnknown && version < DxfVersion::kR2004)
        return Tavo::eNotHandled;
    if (color == this->color()) return Tavo::eOk;
    const OdDbUndoScope step(*database(), L"LAYER");
    const int index = color.dxf62();
    setAt(62, std::int64_t{isOff() ? -index : index}, {70, 2});
    if (const auto rgb = color.dxf420()) return setAt(420, std::int64_t{*rgb}, {62});
    removeAt(430); // the name of a colour from a book goes with it
    return removeAt(420);
}

OdDbObjectId OdDbLayerTableRecord::linetypeObjectId() const {
    const auto table = database()->getLinetypeTableId().open<OdDbSymbolTable>();
    return table ? table->getAt(linetypeName().view()) : OdDbObjectId();
}

Tavo::ErrorStatus OdDbLayerTableRecord::setLinetypeName(std::wstring_view name) {
    if (name.empty()) return Tavo::eInvalidInput;
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
    const DxfVersion version = database()->version();
    if (version != DxfVersion::kUnknown && version < DxfVersion::kR2000) return Tavo::eNotHandled;
    return setAt(370, std::int64_t{weight}, {290, 6});
}

Tavo::ErrorStatus OdDbLayerTableRecord::setIsOff(bool off) {
    const int index = std::abs(integerAt(62, 7));
    return setAt(62, std::int64_t{off ? -index : index}, {70, 2});
}

Tavo::ErrorStatus OdDbLayerTableRecord::setIsPlottable(bool plot) {
    if (plot == isPlottable()) return checkWrite();
    const DxfVersion version = database()->version();
    if (version != DxfVersion::kUnknown && version < DxfVersion::kR2000) return Tavo::eNotHandled;
    return setAt(290, std::int64_t{plot}, {6});
}

OdString OdDbLayerTableRecord::description() const {
    const OdResBufPtr chain = xData(L"AcAecLayerStandard");
    OdString text;
    // Two texts, of which the second is the description.
    for (const OdResBuf* buffer = chain.get(); buffer; buffer = buffer->next().get())
        if (buffer->restype() == OdResBuf::kDxfXdAsciiString) text = buffer->getString();
    return text;
}
