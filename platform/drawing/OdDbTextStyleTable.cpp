#include "platform/drawing/OdDbTextStyleTable.h"

#include "platform/drawing/dxf/XDataTags.h"

#include <numbers>

using namespace tv::dwg;

namespace {

constexpr const wchar_t* kFont = L"ACAD";
constexpr std::int64_t kItalic = 0x1000000;
constexpr std::int64_t kBold = 0x2000000;

} // namespace

double OdDbTextStyleTableRecord::obliquingAngle() const { return realAt(50) * std::numbers::pi / 180; }

Tavo::ErrorStatus OdDbTextStyleTableRecord::setObliquingAngle(double radians) {
    if (radians == obliquingAngle()) return checkWrite();
    return setAt(50, radians * 180 / std::numbers::pi, {41});
}

Tavo::ErrorStatus OdDbTextStyleTableRecord::setGeneration(int bit, bool on) {
    const int now = integerAt(71);
    return setAt(71, std::int64_t{on ? now | bit : now & ~bit}, {50});
}

OdDbTextStyleTableRecord::Font OdDbTextStyleTableRecord::font() const {
    Font font;
    for (OdResBufPtr b = xData(kFont); b; b = b->next()) {
        if (b->restype() == OdResBuf::kDxfXdAsciiString) font.typeface = b->getString();
        if (b->restype() != OdResBuf::kDxfXdInteger32) continue;
        const std::int32_t bits = b->getInt32();
        font.bold = (bits & kBold) != 0;
        font.italic = (bits & kItalic) != 0;
        font.charset = bits >> 8 & 0xFF;
        font.pitchAndFamily = bits & 0xFF;
    }
    return font;
}

Tavo::ErrorStatus OdDbTextStyleTableRecord::setFont(const Font& font) {
    if (font == this->font()) return checkWrite();
    const std::int64_t bits = (font.bold ? kBold : 0) | (font.italic ? kItalic : 0) |
                              (font.charset & 0xFF) << 8 | (font.pitchAndFamily & 0xFF);
    return editXData(kFont, [&](RecordEditor& record) {
        if (font.typeface.isEmpty()) {
            eraseXData(record, kFont);
            return true;
        }
        const XDataTags data = needXData(record, kFont);
        const auto put = [&](int code, const Value& value, std::size_t place) {
            const std::size_t i = record.find(code, data.begin, data.end);
            return i == RecordEditor::npos ? record.insert(place, code, value) : record.set(i, value);
        };
        // The bits first, so that the name's place is still right.
        return put(1071, bits, data.end) && put(1000, font.typeface, data.begin + 1);
    });
}
