#include "platform/drawing/OdDbScale.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/dxf/NewObject.h"
#include "platform/drawing/dxf/Subclass.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cmath>

using namespace tv::dwg;
using OdDb::DxfVersion;

namespace {

constexpr const char* kPart = "AcDbScale";

bool makesScale(double paper, double drawing) {
    return paper > 0 && drawing > 0 && std::isfinite(paper / drawing) && paper / drawing > 0;
}

// "A12" before "A103": the list's order is by number.
bool before(const OdString& a, const OdString& b) {
    return a.getLength() != b.getLength() ? a.getLength() < b.getLength() : a.view() < b.view();
}

} // namespace

Tavo::ErrorStatus OdDbScale::setScaleName(std::wstring_view name) {
    if (name.empty()) return Tavo::eInvalidInput;
    for (const OdDbObjectId id : scalesOf(*database()))
        if (id != objectId() && tv::text::equalNoCase(id.open<OdDbScale>()->scaleName().view(), name))
            return Tavo::eDuplicate;
    return setIn(*this, kPart, {{300, OdString(name)}}, {70, 100});
}

Tavo::ErrorStatus OdDbScale::setUnits(double paper, double drawing) {
    if (!makesScale(paper, drawing)) return Tavo::eOutOfRange;
    if (isUnitScale()) return Tavo::eNotHandled;
    return setIn(*this, kPart, {{140, paper}, {141, drawing}}, {300});
}

double OdDbScale::scale() const {
    return makesScale(paperUnits(), drawingUnits()) ? paperUnits() / drawingUnits() : 1;
}

std::vector<OdDbObjectId> tv::dwg::scalesOf(const OdDbDatabase& database) {
    std::vector<OdDbObjectId> out;
    const auto list = database.getScaleListDictionaryId().open<OdDbDictionary>();
    if (!list) return out;
    std::vector<OdDbDictionary::Entry> entries = list->entries();
    std::stable_sort(entries.begin(), entries.end(),
                     [](const auto& a, const auto& b) { return before(a.name, b.name); });
    for (const OdDbDictionary::Entry& entry : entries)
        if (const OdDbObjectId id = database.getOdDbObjectId(entry.handle); id.open<OdDbScale>())
            out.push_back(id);
    return out;
}

OdDbObjectId tv::dwg::addScale(OdDbDatabase& database, std::wstring_view name, double paper, double drawing) {
    if (name.empty() || !makesScale(paper, drawing) || database.form() < DxfVersion::kR2000) return {};
    for (const OdDbObjectId id : scalesOf(database))
        if (tv::text::equalNoCase(id.open<OdDbScale>()->scaleName().view(), name)) return {};
    const OdDbUndoScope step(database, L"SCALELIST");
    const auto list = database.getScaleListDictionaryId(true).open<OdDbDictionary>(OdDb::kForWrite);
    if (!list) return {};
    std::size_t number = 0;
    std::wstring entry = L"A0";
    for (const OdDbDictionary::Entry& known : list->entries())
        if (before(OdString(entry), known.name) || known.name == OdString(entry)) entry = known.name.view();
    if (const auto last = tv::text::toUtf8(entry); list->has(entry))
        number = std::strtoul(last.c_str() + 1, nullptr, 10) + 1;
    while (list->has(entry = L"A" + std::to_wstring(number)))
        ++number;
    NewObject made(database, "SCALE", list->handle());
    made.tags().name(100, kPart).tag(70, 0).tag(300, name).tag(140, Value(paper)).tag(141, Value(drawing));
    made.tags().tag(290, 0);
    const OdDbObjectId id = made.add(list->objectId());
    if (!id.isNull()) list->setAt(entry, id);
    return id;
}

Tavo::ErrorStatus tv::dwg::removeScale(OdDbObjectId scale) {
    const auto opened = scale.open<OdDbScale>();
    if (!opened) return Tavo::eInvalidInput;
    if (opened->isUnitScale()) return Tavo::eNotHandled;
    const auto list = scale.database()->getScaleListDictionaryId().open<OdDbDictionary>(OdDb::kForWrite);
    const OdString name = list ? list->nameAt(scale) : OdString();
    return name.isEmpty() ? Tavo::eKeyNotFound : list->eraseEntry(name.view());
}
