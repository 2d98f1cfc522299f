#include "platform/drawing/entities/OdDbMText.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/TagAccess.h"

#include <cmath>

using namespace tv::dwg;

OdString OdDbMText::contents() const { return joinedText(*this, "AcDbMText", 3, 1); }

Tavo::ErrorStatus OdDbMText::setContents(std::wstring_view contents) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (this->contents().view() == contents) return Tavo::eOk;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    std::vector<std::size_t> at;
    std::size_t place = record.size();
    for (const std::size_t i : ownTags(record)) {
        const int code = record.code(i);
        if (code == 1 || code == 3) at.push_back(i);
        if (code == 71 || code == 72 || code == 41 || code == 40) place = i + 1;
    }
    if (!replacePieces(record, format(), std::move(at), place, 3, 1, contents)) return Tavo::eInvalidInput;
    if (record.edited()) store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}

OdString OdDbMText::textStyleName() const {
    const OdString name = textAt(7);
    return name.isEmpty() ? OdString(L"STANDARD") : name;
}

double OdDbMText::rotation() const {
    double out = 0;
    double x = 0;
    OwnTags own(format(), database()->store().text(objectId().record()));
    for (Tag tag; own.next(tag);) {
        if (tag.code != 11 && tag.code != 21 && tag.code != 50) continue;
        const double value = realOf(format(), tag).value_or(0);
        if (tag.code == 50)
            out = value;
        else if (tag.code == 11)
            x = value;
        else
            out = std::atan2(value, x);
    }
    return out;
}
