#include "platform/drawing/OdDbStyleTables.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/HeaderSection.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <numbers>
#include <string_view>

using namespace tv::dwg;

namespace {

using Variable = OdDbDimStyleTableRecord::Variable;
constexpr Variable kVariables[] = {
    {"DIMPOST", 3},     {"DIMAPOST", 4},    {"DIMSCALE", 40},
    {"DIMASZ", 41},     {"DIMEXO", 42},     {"DIMDLI", 43},
    {"DIMEXE", 44},     {"DIMRND", 45},     {"DIMDLE", 46},
    {"DIMTP", 47},      {"DIMTM", 48},      {"DIMFXL", 49},
    {"DIMJOGANG", 50},  {"DIMTFILL", 69},   {"DIMTFILLCLR", 70},
    {"DIMTOL", 71},     {"DIMLIM", 72},     {"DIMTIH", 73},
    {"DIMTOH", 74},     {"DIMSE1", 75},     {"DIMSE2", 76},
    {"DIMTAD", 77},     {"DIMZIN", 78},     {"DIMAZIN", 79},
    {"DIMARCSYM", 90},  {"DIMTXT", 140},    {"DIMCEN", 141},
    {"DIMTSZ", 142},    {"DIMALTF", 143},   {"DIMLFAC", 144},
    {"DIMTVP", 145},    {"DIMTFAC", 146},   {"DIMGAP", 147},
    {"DIMALTRND", 148}, {"DIMALT", 170},    {"DIMALTD", 171},
    {"DIMTOFL", 172},   {"DIMSAH", 173},    {"DIMTIX", 174},
    {"DIMSOXD", 175},   {"DIMCLRD", 176},   {"DIMCLRE", 177},
    {"DIMCLRT", 178},   {"DIMADEC", 179},   {"DIMUNIT", 270},
    {"DIMDEC", 271},    {"DIMTDEC", 272},   {"DIMALTU", 273},
    {"DIMALTTD", 274},  {"DIMAUNIT", 275},  {"DIMFRAC", 276},
    {"DIMLUNIT", 277},  {"DIMDSEP", 278},   {"DIMTMOVE", 279},
    {"DIMJUST", 280},   {"DIMSD1", 281},    {"DIMSD2", 282},
    {"DIMTOLJ", 283},   {"DIMTZIN", 284},   {"DIMALTZ", 285},
    {"DIMALTTZ", 286},  {"DIMFIT", 287},    {"DIMUPT", 288},
    {"DIMATFIT", 289},  {"DIMFXLON", 290},  {"DIMTXTDIRECTION", 295},
    {"DIMTXSTY", 340},  {"DIMLDRBLK", 341}, {"DIMBLK", 342},
    {"DIMBLK1", 343},   {"DIMBLK2", 344},   {"DIMLTYPE", 345},
    {"DIMLTEX1", 346},  {"DIMLTEX2", 347},  {"DIMLWD", 371},
    {"DIMLWE", 372},
};

// Group code 70 is the record's flags the first time it occurs and DIMTFILLCLR the second.
constexpr int kFillColor = 70;

} // namespace

std::vector<double> OdDbLinetypeTableRecord::dashes() const {
    std::vector<double> out;
    OwnTags own(format(), database()->store().text(objectId().record()));
    for (Tag tag; own.next(tag);)
        if (tag.code == 49) out.push_back(realOf(format(), tag).value_or(0));
    return out;
}

double OdDbTextStyleTableRecord::obliquingAngle() const { return realAt(50) * std::numbers::pi / 180; }

Tavo::ErrorStatus OdDbTextStyleTableRecord::setObliquingAngle(double radians) {
    if (radians == obliquingAngle()) return checkWrite();
    return setAt(50, radians * 180 / std::numbers::pi, {41});
}

OdDbTextStyleTableRecord::Font OdDbTextStyleTableRecord::font() const {
    Font font;
    const OdResBufPtr chain = xData(L"ACAD");
    for (const OdResBuf* buffer = chain.get(); buffer; buffer = buffer->next().get()) {
        if (buffer->restype() == OdResBuf::kDxfXdAsciiString) font.typeface = buffer->getString();
        if (buffer->restype() == OdResBuf::kDxfXdInteger32) {
            font.bold = (buffer->getInt32() & 0x2000000) != 0;
            font.italic = (buffer->getInt32() & 0x1000000) != 0;
        }
    }
    return font;
}

std::span<const Variable> OdDbDimStyleTableRecord::variables() { return kVariables; }

std::optional<Value> OdDbDimStyleTableRecord::variable(std::wstring_view name) const {
    const std::string plain = plainVariableName(name);
    for (const Variable& known : kVariables) {
        if (plain != known.name) continue;
        OwnTags own(format(), database()->store().text(objectId().record()));
        bool skip = known.code == kFillColor;
        for (Tag tag; own.next(tag);) {
            if (tag.code != known.code) continue;
            if (!std::exchange(skip, false)) return valueOf(format(), tag);
        }
    }
    return std::nullopt;
}

Tavo::ErrorStatus OdDbDimStyleTableRecord::setVariable(std::wstring_view name, const Value& value) {
    const std::string plain = plainVariableName(name);
    for (const Variable& known : kVariables) {
        if (plain != known.name) continue;
        if (known.code != kFillColor) return setAt(known.code, value);
        if (const auto status = checkWrite(); status != Tavo::eOk) return status;
        RecordStore& store = database()->store();
        RecordEditor record(format(), store.text(objectId().record()));
        std::vector<std::size_t> places;
        for (const std::size_t i : ownTags(record))
            if (record.code(i) == kFillColor) places.push_back(i);
        const bool good = places.size() > 1 ? record.set(places[1], value)
                                            : record.insert(ownTags(record).back() + 1, kFillColor, value);
        if (!good) return Tavo::eWrongType;
        if (record.edited()) store.replace(objectId().record(), record.bytes());
        return Tavo::eOk;
    }
    return Tavo::eKeyNotFound;
}
