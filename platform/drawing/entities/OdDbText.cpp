#include "platform/drawing/entities/OdDbText.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/TagAccess.h"

#include <cmath>
#include <numbers>

using namespace tv::dwg;

namespace {

constexpr int kOrder[] = {39, 10, 20, 30, 40, 1, 50, 41, 51, 7, 71, 72, 11, 21, 31, 210, 220, 230};

double radians(double degrees) { return degrees * std::numbers::pi / 180; }
double degrees(double radians) { return radians * 180 / std::numbers::pi; }

// The multiline text inside an attribute of several lines: from code 101 to the extended data.
std::vector<std::size_t> embeddedTextTags(const RecordEditor& record) {
    std::vector<std::size_t> out;
    bool inside = false;
    for (std::size_t i = 0; i < record.size() && record.code(i) < 1000; ++i) {
        inside |= record.code(i) == 101;
        if (inside && (record.code(i) == 1 || record.code(i) == 3)) out.push_back(i);
    }
    return out;
}

} // namespace

OdString OdDbText::textString() const {
    const auto tag = findTag(*this, {"AcDbText", 1});
    return tag ? textOf(format(), *tag) : OdString();
}

Tavo::ErrorStatus OdDbText::setTextString(std::wstring_view text) {
    if (text == textString().view()) return checkWrite();
    return writeTag(*this, {"AcDbText", 1}, OdString(text), kOrder);
}

OdString OdDbText::textStyleName() const {
    const OdString name = textAt(7);
    return name.isEmpty() ? OdString(L"STANDARD") : name;
}

Tavo::ErrorStatus OdDbText::setTextStyle(std::wstring_view name) {
    const auto table = database()->getTextStyleTableId().open<OdDbSymbolTable>();
    if (!table || !table->has(name)) return Tavo::eKeyNotFound;
    return writeTag(*this, {"AcDbText", 7}, OdString(name), kOrder);
}

OdGePoint3d OdDbText::position() const { return {realAt(10), realAt(20), realAt(30)}; }
OdGePoint3d OdDbText::alignmentPoint() const { return {realAt(11), realAt(21), realAt(31)}; }
double OdDbText::height() const { return realAt(40); }

Tavo::ErrorStatus OdDbText::setHeight(double height) {
    if (!(height > 0) || !std::isfinite(height)) return Tavo::eOutOfRange;
    return writeTag(*this, {"AcDbText", 40}, height, kOrder);
}

double OdDbText::rotation() const { return radians(realAt(50)); }

Tavo::ErrorStatus OdDbText::setRotation(double radians) {
    if (!std::isfinite(radians)) return Tavo::eOutOfRange;
    if (radians == rotation()) return checkWrite();
    return writeTag(*this, {"AcDbText", 50}, degrees(radians), kOrder);
}

double OdDbText::widthFactor() const { return realAt(41, 1); }
double OdDbText::oblique() const { return radians(realAt(51)); }
int OdDbText::horizontalMode() const { return integerAt(72); }
int OdDbText::verticalMode() const { return integerAt(73); }

OdString OdDbAttributeText::tag() const {
    const auto tag = findTag(*this, {subclass(), 2});
    return tag ? textOf(format(), *tag) : OdString();
}

Tavo::ErrorStatus OdDbAttributeText::setTag(std::wstring_view tag) {
    if (tag.empty() || tag.find_first_of(L" \t\r\n") != std::wstring_view::npos) return Tavo::eInvalidInput;
    return writeTag(*this, {subclass(), 2}, OdString(tag), std::initializer_list<int>{280, 3});
}

int OdDbAttributeText::attributeFlags() const {
    const Value flags = tagValue(*this, {subclass(), 70});
    const auto* number = std::get_if<std::int64_t>(&flags);
    return number ? static_cast<int>(*number & 0xFFFF) : 0;
}

Tavo::ErrorStatus OdDbAttributeText::setInvisible(bool invisible) {
    const int flags = invisible ? attributeFlags() | 1 : attributeFlags() & ~1;
    return writeTag(*this, {subclass(), 70}, std::int64_t{flags}, std::initializer_list<int>{280, 3, 2});
}

bool OdDbAttributeText::isMultiline() const {
    TagCursor cursor = tags();
    for (Tag tag; cursor.next(tag) && tag.code < 1000;)
        if (tag.code == 101) return true;
    return false;
}

int OdDbAttributeText::verticalMode() const { return integerAt(74); }

Tavo::ErrorStatus OdDbAttributeText::setTextString(std::wstring_view text) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const OdDbUndoScope step(*database(), L"ATTEDIT");
    if (const auto status = OdDbText::setTextString(text); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    const std::vector<std::size_t> embedded = embeddedTextTags(record);
    if (embedded.empty()) return Tavo::eOk;
    if (!replacePieces(record, format(), embedded, 0, 3, 1, text)) return Tavo::eInvalidInput;
    if (record.edited()) store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}

OdString OdDbAttributeDefinition::prompt() const {
    const auto tag = findTag(*this, {subclass(), 3});
    return tag ? textOf(format(), *tag) : OdString();
}

Tavo::ErrorStatus OdDbAttributeDefinition::setPrompt(std::wstring_view prompt) {
    return writeTag(*this, {subclass(), 3}, OdString(prompt), std::initializer_list<int>{280});
}
