#include "kxgui/layers/LayerCsvFields.h"

#include "kxgui/frame/ColorNames.h"
#include "kxgui/frame/LineWeightNames.h"
#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerTexts.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/VersionLimits.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <optional>

namespace kx::layers {
namespace {

using tv::text::equalNoCase;
using tv::text::format;

constexpr const wchar_t* kYes = L"Yes";
constexpr const wchar_t* kNo = L"No";
constexpr const wchar_t* kDefault = L"Default";
constexpr int kMostTransparent = 90; // percent; a drawing may hold more, a person enters no more

std::optional<bool> yesOrNo(std::wstring_view text) {
    for (const wchar_t* yes : {kYes, L"On", L"True", L"1"})
        if (equalNoCase(text, yes)) return true;
    for (const wchar_t* no : {kNo, L"Off", L"False", L"0"})
        if (equalNoCase(text, no)) return false;
    if (equalNoCase(text, yesNoText(true))) return true;
    if (equalNoCase(text, yesNoText(false))) return false;
    return std::nullopt;
}

std::wstring colorField(const T_LAYER_DATA& layer) {
    const OdCmColor& color = layer.color;
    if (!color.isByColor()) return tv::text::printInt(color.colorIndex());
    std::wstring out = format(L"#%02X%02X%02X", static_cast<int>(color.red()), static_cast<int>(color.green()),
                              static_cast<int>(color.blue()));
    if (!layer.bookColor.isEmpty()) out.append(L" ").append(layer.bookColor.view());
    return out;
}

std::optional<unsigned> hexByte(std::wstring_view text) {
    unsigned out = 0;
    for (const wchar_t c : text) {
        const std::size_t digit =
            std::wstring_view(L"0123456789abcdef").find(c >= L'A' && c <= L'F' ? c + 32 : c);
        if (digit == std::wstring_view::npos) return std::nullopt;
        out = out * 16 + static_cast<unsigned>(digit);
    }
    return out;
}

struct BookColor {
    OdCmColor color;
    OdString book;
};

// "#1E90FF", and with the name of a colour book "#1E90FF BOOK$COLOUR".
std::optional<BookColor> trueColor(std::wstring_view text) {
    if (!text.starts_with(L'#') || text.size() < 7) return std::nullopt;
    const auto red = hexByte(text.substr(1, 2)), green = hexByte(text.substr(3, 2)),
               blue = hexByte(text.substr(5, 2));
    if (!red || !green || !blue) return std::nullopt;
    const std::wstring_view book = text.substr(7);
    if (!book.empty() && (book.front() != L' ' || withoutBlanks(book).empty())) return std::nullopt;
    return BookColor{OdCmColor::byRgb(static_cast<std::uint8_t>(*red), static_cast<std::uint8_t>(*green),
                                      static_cast<std::uint8_t>(*blue)),
                     OdString(withoutBlanks(book))};
}

// "255,128,0", as other programs write it.
std::optional<OdCmColor> threeNumbers(std::wstring_view text) {
    std::array<std::uint8_t, 3> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t comma = i < 2 ? text.find(L',') : text.size();
        if (comma == std::wstring_view::npos) return std::nullopt;
        const auto number = tv::text::parseInt(text.substr(0, comma));
        if (!number || *number < 0 || *number > 255) return std::nullopt;
        parts[i] = static_cast<std::uint8_t>(*number);
        text.remove_prefix(i < 2 ? comma + 1 : comma);
    }
    return OdCmColor::byRgb(parts[0], parts[1], parts[2]);
}

std::optional<BookColor> colorOf(std::wstring_view text) {
    if (const auto color = trueColor(text)) return color;
    if (const auto color = threeNumbers(text)) return BookColor{*color, {}};
    if (const auto color = kx::frame::indexedColorOf(text, false)) return BookColor{*color, {}};
    return std::nullopt;
}

std::wstring weightField(OdDb::LineWeight weight) {
    if (weight == OdDb::kLnWtByLayer) return L"ByLayer";
    if (weight == OdDb::kLnWtByBlock) return L"ByBlock";
    return weight < 0 ? std::wstring(kDefault) : tv::text::printReal(kx::frame::millimetresOf(weight), 2);
}

// Millimetres with a point or a comma, with or without the unit.
std::optional<OdDb::LineWeight> weightOf(std::wstring_view text) {
    if (equalNoCase(text, kDefault) ||
        equalNoCase(text, kx::frame::lineWeightText(OdDb::kLnWtByLwDefault, false)))
        return OdDb::kLnWtByLwDefault;
    if (text.size() > 2 && equalNoCase(text.substr(text.size() - 2), L"mm"))
        text = withoutBlanks(text.substr(0, text.size() - 2));
    std::wstring number(text);
    if (const std::size_t comma = number.find(L','); comma != std::wstring::npos) number[comma] = L'.';
    const auto value = tv::text::parseReal(number);
    for (const OdDb::LineWeight weight : OdDb::kLineWeights)
        if (value && weight >= 0 && weightField(weight) == tv::text::printReal(*value, 2)) return weight;
    return std::nullopt;
}

std::wstring wrong(const VORD_ResourceString& sentence, std::wstring_view text) {
    constexpr std::size_t most = 60;
    const bool cut = text.size() > most;
    return format(sentence, std::wstring(text.substr(0, most)) + (cut ? L"..." : L""));
}

std::wstring notHeld(const OdDbDatabase& database) { return notWrittenBox(database, Tavo::eNotHandled).text; }

bool isLayerLinetype(const OdDbDatabase& database, std::wstring_view name) {
    const auto table = database.getLinetypeTableId().open<OdDbSymbolTable>();
    const auto record = table ? table->getAt(name).open<OdDbSymbolTableRecord>() : nullptr;
    return record && !record->isDependent() && !equalNoCase(name, L"ByLayer") && !equalNoCase(name, L"ByBlock");
}

bool isPlotStyle(const OdDbDatabase& database, std::wstring_view name) {
    const auto styles = database.getPlotStyleNameDictionaryId().open<OdDbDictionary>();
    return styles && styles->has(name);
}

std::wstring readFlag(std::wstring_view text, bool& flag) {
    const auto value = yesOrNo(text);
    if (!value)
        return wrong(VORD_ResourceString("IDS_TAVO_LAYCSV_BAD_FLAG", L"\"%s\"은(는) Yes나 No가 아닙니다."),
                     text);
    flag = *value;
    return {};
}

} // namespace

std::wstring_view withoutBlanks(std::wstring_view text) {
    const auto first = text.find_first_not_of(L" \t\u00A0");
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(L" \t\u00A0") - first + 1);
}

std::wstring firstLine(const std::wstring& text) { return text.substr(0, text.find_first_of(L"\r\n")); }

std::wstring layerCsvField(const T_LAYER_DATA& layer, LayerColumn column) {
    const auto flag = [](bool yes) { return std::wstring(yes ? kYes : kNo); };
    switch (column) {
    case LayerColumn::status:
        return layer.current ? L"Current" : L"";
    case LayerColumn::name:
        return layer.name.wstr();
    case LayerColumn::on:
        return flag(layer.on);
    case LayerColumn::freeze:
        return flag(layer.frozen);
    case LayerColumn::lock:
        return flag(layer.locked);
    case LayerColumn::color:
        return colorField(layer);
    case LayerColumn::linetype:
        return layer.linetype.wstr();
    case LayerColumn::lineweight:
        return weightField(layer.lineWeight);
    case LayerColumn::transparency:
        return tv::text::printInt(layer.transparency);
    case LayerColumn::plotStyle:
        return layer.plotStyle.wstr();
    case LayerColumn::plot:
        return flag(layer.plot);
    case LayerColumn::newVpFreeze:
        return flag(layer.newVpFrozen);
    case LayerColumn::description:
        return layer.description.wstr();
    default:
        return {};
    }
}

std::wstring readLayerCsvField(const OdDbDatabase& database, std::wstring_view text, LayerColumn column,
                               T_LAYER_DATA& layer) {
    using OdDb::Feature;
    const bool isNew = layer.id.isNull();
    switch (column) {
    case LayerColumn::on:
        return readFlag(text, layer.on);
    case LayerColumn::freeze: {
        const std::wstring reason = readFlag(text, layer.frozen);
        return reason.empty() && layer.frozen && layer.current ? firstLine(notFrozenBox().text) : reason;
    }
    case LayerColumn::lock:
        return readFlag(text, layer.locked);
    case LayerColumn::newVpFreeze:
        return readFlag(text, layer.newVpFrozen);
    case LayerColumn::plot: {
        const bool before = layer.plot;
        const std::wstring reason = readFlag(text, layer.plot);
        return reason.empty() && before != layer.plot && !database.canHold(Feature::kPlotFlag)
                   ? notHeld(database)
                   : reason;
    }
    case LayerColumn::color: {
        const auto color = colorOf(text);
        if (!color)
            return wrong(
                VORD_ResourceString("IDS_TAVO_LAYCSV_BAD_COLOR",
                                    L"\"%s\"은(는) 색상이 아닙니다. 1-255의 번호나 #RRGGBB로 입력하십시오."),
                text);
        if (color->color.isByColor() && !database.canHold(Feature::kTrueColor)) return notHeld(database);
        layer.color = color->color;
        layer.bookColor = color->book;
        return {};
    }
    case LayerColumn::linetype:
        if (!isLayerLinetype(database, text))
            return wrong(VORD_ResourceString("IDS_TAVO_LAYCSV_BAD_LINETYPE",
                                             L"선종류 \"%s\"은(는) 도면층에 쓸 수 없거나 도면에 없습니다."),
                         text);
        if (!equalNoCase(layer.linetype.view(), text)) layer.linetype = text;
        return {};
    case LayerColumn::lineweight: {
        const auto weight = weightOf(text);
        if (!weight)
            return wrong(
                VORD_ResourceString(
                    "IDS_TAVO_LAYCSV_BAD_WEIGHT",
                    L"\"%s\"은(는) 선가중치가 아닙니다. Default나 0.25와 같은 밀리미터 값을 입력하십시오."),
                text);
        if (*weight != layer.lineWeight && !database.canHold(Feature::kLineWeight)) return notHeld(database);
        layer.lineWeight = *weight;
        return {};
    }
    case LayerColumn::transparency: {
        const auto percent = tv::text::parseInt(text);
        if (!percent || *percent < 0 || *percent > kMostTransparent)
            return wrong(VORD_ResourceString("IDS_TAVO_LAYCSV_BAD_TRANSPARENCY",
                                             L"\"%s\"은(는) 0-90의 정수가 아닙니다."),
                         text);
        if (*percent != layer.transparency && !database.canHold(Feature::kTransparency))
            return notHeld(database);
        layer.transparency = static_cast<int>(*percent);
        return {};
    }
    case LayerColumn::plotStyle:
        if (!database.canHold(Feature::kPlotStyle)) return notHeld(database);
        if (!isPlotStyle(database, text))
            return wrong(VORD_ResourceString("IDS_TAVO_LAYCSV_BAD_PLOTSTYLE",
                                             L"도면에 플롯 스타일 \"%s\"이(가) 없습니다."),
                         text);
        if (!equalNoCase(layer.plotStyle.view(), text)) layer.plotStyle = text;
        return {};
    case LayerColumn::description:
        if (const LayerTextFault fault = checkLayerDescription(text); fault != LayerTextFault::none)
            return firstLine(descriptionBox(fault).text);
        if (!(isNew && text.empty()) && !database.canHold(Feature::kExtendedData)) return notHeld(database);
        layer.description = text;
        return {};
    default:
        return {};
    }
}

} // namespace kx::layers
