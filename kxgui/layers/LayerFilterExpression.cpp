#include "kxgui/layers/LayerFilterExpression.h"

#include "kxgui/frame/ColorNames.h"
#include "kxgui/frame/LineWeightNames.h"
#include "kxgui/layers/LayerRecord.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <array>
#include <cmath>

using tv::text::equalNoCase;

namespace kx::layers {
namespace {

// A property as files call it; `inverse`: what it says is the contrary.
struct Keyword {
    const wchar_t* word;
    FilterProperty property;
    bool inverse = false;
};

using enum FilterProperty;

// The first one of a property is the one that is written.
constexpr Keyword kKeywords[] = {
    {L"NAME", name},
    {L"CURRENT", current},
    {L"USED", used},
    {L"OFF", on, true},
    {L"FROZEN", frozen},
    {L"LOCKED", locked},
    {L"COLOR", color},
    {L"LINETYPE", linetype},
    {L"LINEWEIGHT", lineWeight},
    {L"TRANSPARENCY", transparency},
    {L"PLOTSTYLE", plotStyle},
    {L"PLOTTABLE", plottable},
    {L"NEWVPFROZEN", newVpFrozen},
    {L"VPFROZEN", vpFrozen},
    {L"VPOVERRIDES", vpOverrides},
    {L"VPCOLOR", vpColor},
    {L"VPLINETYPE", vpLinetype},
    {L"VPLINEWEIGHT", vpLineWeight},
    {L"VPTRANSPARENCY", vpTransparency},
    {L"VPPLOTSTYLE", vpPlotStyle},
    {L"XREF", xref},
    {L"DESCRIPTION", description},
    {L"LAYER", name},
    {L"INUSE", used},
    {L"UNUSED", used, true},
    {L"ON", on},
    {L"ISOFF", on, true},
    {L"FREEZE", frozen},
    {L"ISFROZEN", frozen},
    {L"THAWED", frozen, true},
    {L"LOCK", locked},
    {L"ISLOCKED", locked},
    {L"UNLOCKED", locked, true},
    {L"COLOUR", color},
    {L"LTYPE", linetype},
    {L"LWEIGHT", lineWeight},
    {L"PLOTSTYLENAME", plotStyle},
    {L"PLOT", plottable},
    {L"NEWVPFREEZE", newVpFrozen},
    {L"VPDFLT", newVpFrozen},
    {L"VPFREEZE", vpFrozen},
    {L"CURRVPFROZEN", vpFrozen},
    {L"CURRENTVPFROZEN", vpFrozen},
    {L"VPOVERRIDE", vpOverrides},
    {L"VPCOLOUR", vpColor},
    {L"VPLTYPE", vpLinetype},
    {L"VPLWEIGHT", vpLineWeight},
    {L"XREFDEPENDENT", xref},
    {L"DEPENDENT", xref},
    {L"DESC", description},
};

const Keyword& usualWord(FilterProperty property) {
    return *std::ranges::find(kKeywords, property, &Keyword::property);
}

bool isBlank(wchar_t c) { return c <= L' ' || c == 0xA0 || c == 0x3000; }

std::wstring_view trimmed(std::wstring_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// Of a state and, where it is no reference's name, of XREF.
std::optional<bool> stateFor(FilterProperty property, std::wstring_view text) {
    if (isFilterState(property)) return filterStateOf(text);
    if (property == xref && equalNoCase(text, L"True")) return true;
    if (property == xref && equalNoCase(text, L"False")) return false;
    return std::nullopt;
}

std::wstring stateWord(bool state) { return state ? L"True" : L"False"; }

// --- reading -------------------------------------------------------------------------------------------------

// Rows of conditions out of any nesting of AND, OR and NOT.
class Reader {
  public:
    explicit Reader(std::wstring_view text) : m_text(text) {}

    std::vector<FilterRow> read() {
        std::vector<FilterRow> rows = either(0);
        if (m_problem.empty() && !atEnd())
            fail(tv::text::format(VORD_ResourceString("IDS_TAVO_LAYERFILTER_EXTRA",
                                                      L"식을 이해할 수 없습니다: %d번째 글자의 \"%s\""),
                                  static_cast<int>(m_at) + 1, std::wstring(m_text.substr(m_at, 20))));
        return m_problem.empty() ? std::move(rows) : std::vector<FilterRow>();
    }
    const std::wstring& problem() const { return m_problem; }

  private:
    static constexpr int kDeepest = 100;
    using Rows = std::vector<FilterRow>;

    void fail(std::wstring sentence) {
        if (m_problem.empty()) m_problem = std::move(sentence);
    }
    void tooMuch() {
        fail(
            VORD_ResourceString("IDS_TAVO_LAYERFILTER_TOO_LONG", L"필터 식이 너무 길거나 복잡합니다.").c_str());
    }
    void skipBlanks() {
        while (m_at < m_text.size() && isBlank(m_text[m_at]))
            ++m_at;
    }
    bool atEnd() {
        skipBlanks();
        return m_at == m_text.size();
    }
    bool take(std::wstring_view sign) {
        skipBlanks();
        if (!m_text.substr(m_at).starts_with(sign)) return false;
        m_at += sign.size();
        return true;
    }
    static bool ofWord(wchar_t c) {
        return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || (c >= L'0' && c <= L'9') || c == L'_';
    }
    std::wstring_view word() {
        skipBlanks();
        const std::size_t begin = m_at;
        while (m_at < m_text.size() && ofWord(m_text[m_at]))
            ++m_at;
        return m_text.substr(begin, m_at - begin);
    }
    bool takeWord(std::wstring_view wanted) {
        const std::size_t begin = m_at;
        if (equalNoCase(word(), wanted)) return true;
        m_at = begin;
        return false;
    }

    static std::size_t sizeOf(const Rows& rows) {
        std::size_t size = 0;
        for (const FilterRow& row : rows)
            size += row.size() + 1;
        return size;
    }
    Rows both(const Rows& a, const Rows& b) {
        Rows out;
        if (sizeOf(a) * b.size() + sizeOf(b) * a.size() > 2 * LayerFilterExpression::kMostConditions) {
            tooMuch();
            return out;
        }
        for (const FilterRow& left : a)
            for (const FilterRow& right : b) {
                out.push_back(left);
                out.back().insert(out.back().end(), right.begin(), right.end());
            }
        return out;
    }
    // None of the rows holds: of each, one condition doesn't.
    Rows neither(const Rows& rows) {
        Rows out{{}};
        for (const FilterRow& row : rows) {
            Rows contrary;
            for (FilterCondition condition : row) {
                condition.equal = !condition.equal;
                contrary.push_back({std::move(condition)});
            }
            out = both(out, contrary);
        }
        return out;
    }

    Rows either(int depth) {
        Rows rows = all(depth);
        while (m_problem.empty() && (takeWord(L"OR") || take(L"||") || take(L"|"))) {
            const Rows more = all(depth);
            rows.insert(rows.end(), more.begin(), more.end());
            if (sizeOf(rows) > 2 * LayerFilterExpression::kMostConditions) tooMuch();
        }
        return rows;
    }
    Rows all(int depth) {
        Rows rows = one(depth);
        while (m_problem.empty() && (takeWord(L"AND") || take(L"&&") || take(L"&")))
            rows = both(rows, one(depth));
        return rows;
    }
    Rows one(int depth) {
        if (depth > kDeepest) {
            tooMuch();
            return {};
        }
        if (takeWord(L"NOT") || take(L"!")) return neither(one(depth + 1));
        if (take(L"(")) {
            Rows rows = either(depth + 1);
            if (m_problem.empty() && !take(L")"))
                fail(VORD_ResourceString("IDS_TAVO_LAYERFILTER_NOT_CLOSED",
                                         L"필터 식에 닫는 괄호나 따옴표가 없습니다.")
                         .c_str());
            return rows;
        }
        return comparison();
    }

    Rows comparison() {
        const std::size_t begin = m_at;
        const std::wstring_view keyword = word();
        const auto known =
            std::ranges::find_if(kKeywords, [&](const Keyword& one) { return equalNoCase(one.word, keyword); });
        if (known == std::end(kKeywords)) {
            m_at = begin;
            skipBlanks();
            if (m_at == m_text.size()) {
                fail(VORD_ResourceString("IDS_TAVO_LAYERFILTER_UNFINISHED", L"필터 식이 끝나지 않았습니다.")
                         .c_str());
                return {};
            }
            fail(tv::text::format(VORD_ResourceString("IDS_TAVO_LAYERFILTER_NO_PROPERTY",
                                                      L"\"%s\"은(는) 필터가 아는 도면층 특성이 아닙니다."),
                                  std::wstring(keyword.empty() ? m_text.substr(m_at, 20) : keyword)));
            return {};
        }
        bool equal = true;
        if (take(L"!=") || take(L"<>")) {
            equal = false;
        } else if (!take(L"==") && !take(L"=")) {
            fail(tv::text::format(VORD_ResourceString("IDS_TAVO_LAYERFILTER_NO_OPERATOR",
                                                      L"필터 식의 \"%s\" 뒤에 == 또는 !=가 없습니다."),
                                  std::wstring(keyword)));
            return {};
        }
        std::wstring text;
        if (!value(text)) return {};
        return condition(*known, equal, std::move(text));
    }
    bool value(std::wstring& out) {
        skipBlanks();
        const wchar_t quote = m_at < m_text.size() ? m_text[m_at] : L'\0';
        if (quote != L'"' && quote != L'\'') {
            while (m_at < m_text.size() && !isBlank(m_text[m_at]) && m_text[m_at] != L')')
                out += m_text[m_at++];
            return true;
        }
        for (++m_at; m_at < m_text.size(); ++m_at) {
            if (m_text[m_at] == quote) {
                // A doubled one is part of the value.
                if (m_at + 1 == m_text.size() || m_text[m_at + 1] != quote) break;
                ++m_at;
            }
            out += m_text[m_at];
        }
        if (m_at == m_text.size()) {
            fail(VORD_ResourceString("IDS_TAVO_LAYERFILTER_NOT_CLOSED",
                                     L"필터 식에 닫는 괄호나 따옴표가 없습니다.")
                     .c_str());
            return false;
        }
        ++m_at;
        return true;
    }
    Rows condition(const Keyword& keyword, bool equal, std::wstring text) {
        const FilterProperty property = keyword.property;
        const std::wstring_view inner = trimmed(text);
        // "Any" of a state leaves it open.
        if (isFilterState(property) && inner == L"*") return equal ? Rows{{}} : Rows{};
        const auto state = stateFor(property, inner);
        if (isFilterState(property) && !state) {
            fail(tv::text::format(VORD_ResourceString("IDS_TAVO_LAYERFILTER_NO_STATE",
                                                      L"\"%s\" 값은 True 또는 False여야 합니다."),
                                  text));
            return {};
        }
        if (state) {
            text = stateWord((*state == equal) != keyword.inverse);
            equal = true;
        }
        return {{{property, equal, std::move(text)}}};
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
    std::wstring m_problem;
};

// --- comparing -----------------------------------------------------------------------------------------------

// "255,128,0", with "RGB:" in front or not.
std::optional<OdCmColor> rgbOf(std::wstring_view text) {
    if (text.size() > 4 && equalNoCase(text.substr(0, 4), L"RGB:")) text.remove_prefix(4);
    std::array<std::uint8_t, 3> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t comma = text.find(L',');
        if ((comma == std::wstring_view::npos) != (i == 2)) return std::nullopt;
        const auto number = tv::text::parseInt(text.substr(0, comma));
        if (!number || *number < 0 || *number > 255) return std::nullopt;
        parts[i] = static_cast<std::uint8_t>(*number);
        text.remove_prefix(i == 2 ? text.size() : comma + 1);
    }
    return OdCmColor::byRgb(parts[0], parts[1], parts[2]);
}

std::wstring colorWords(const T_LAYER_DATA& layer) {
    if (!layer.bookColor.isEmpty()) return layer.bookColor.wstr();
    if (!layer.color.isByColor()) return tv::text::printInt(layer.color.colorIndex());
    const tv::dwg::Rgb rgb = layer.color.rgb();
    return tv::text::format(L"%d,%d,%d", int{rgb.red}, int{rgb.green}, int{rgb.blue});
}

constexpr double kDefaultWeight = -3;

// Millimetres; the default is a number no width has.
std::optional<double> weightOf(std::wstring_view text) {
    text = trimmed(text);
    if (equalNoCase(text, L"Default") ||
        equalNoCase(text, kx::frame::lineWeightText(OdDb::kLnWtByLwDefault, false)))
        return kDefaultWeight;
    if (text.size() > 2 && equalNoCase(text.substr(text.size() - 2), L"mm")) text.remove_suffix(2);
    const auto number = tv::text::parseReal(text);
    // The default also by the number files have for it.
    return number && *number < 0 ? std::optional(kDefaultWeight) : number;
}

double weightOf(OdDb::LineWeight weight) {
    return weight < OdDb::kLnWt000 ? kDefaultWeight : kx::frame::millimetresOf(weight);
}

std::wstring_view referenceOf(std::wstring_view name) {
    const auto bar = name.rfind(L'|');
    return bar == std::wstring_view::npos ? std::wstring_view() : name.substr(0, bar);
}

bool sameNumber(double a, double b) { return std::abs(a - b) < 0.0005; }

} // namespace

std::optional<bool> filterStateOf(std::wstring_view text) {
    text = trimmed(text);
    for (const wchar_t* word : {L"True", L"1", L"-1", L"Yes", L"On", L"T", L"Y"})
        if (equalNoCase(text, word)) return true;
    for (const wchar_t* word : {L"False", L"0", L"No", L"Off", L"F", L"N"})
        if (equalNoCase(text, word)) return false;
    return std::nullopt;
}

bool isFilterState(FilterProperty property) {
    switch (property) {
    case current:
    case used:
    case on:
    case frozen:
    case locked:
    case plottable:
    case newVpFrozen:
    case vpFrozen:
    case vpOverrides:
        return true;
    default:
        return false;
    }
}

LayerFilterExpression::LayerFilterExpression(std::wstring_view text) : m_text(text) {
    if (trimmed(text).empty()) return;
    if (text.size() > kLongest) {
        m_problem =
            VORD_ResourceString("IDS_TAVO_LAYERFILTER_TOO_LONG", L"필터 식이 너무 길거나 복잡합니다.").c_str();
        return;
    }
    Reader reader(text);
    m_rows = reader.read();
    m_problem = reader.problem();
    prepare();
}

LayerFilterExpression::LayerFilterExpression(std::vector<FilterRow> rows) : m_rows(std::move(rows)) {
    std::erase_if(m_rows, [](const FilterRow& row) { return row.empty(); });
    m_text = filterText(m_rows);
    if (m_text.size() > kLongest)
        m_problem =
            VORD_ResourceString("IDS_TAVO_LAYERFILTER_TOO_LONG", L"필터 식이 너무 길거나 복잡합니다.").c_str();
    prepare();
}

LayerFilterExpression LayerFilterExpression::unreadable(std::wstring text, std::wstring problem) {
    LayerFilterExpression expression;
    expression.m_text = std::move(text);
    expression.m_problem = std::move(problem);
    return expression;
}

void LayerFilterExpression::prepare() {
    m_tests.clear();
    for (const FilterRow& row : m_rows) {
        auto& tests = m_tests.emplace_back();
        for (const FilterCondition& condition : row) {
            Test test{condition.property, condition.equal, {}, {}, {}, tv::text::Wildcards(condition.value)};
            test.state = stateFor(condition.property, condition.value);
            const FilterProperty kind = filterKind(condition.property);
            if (kind == color) {
                test.color = rgbOf(condition.value);
                if (!test.color) test.color = kx::frame::indexedColorOf(condition.value, false);
            }
            if (kind == lineWeight) test.number = weightOf(condition.value);
            if (kind == transparency) {
                std::wstring_view text = trimmed(condition.value);
                if (text.ends_with(L'%')) text.remove_suffix(1);
                test.number = tv::text::parseReal(text);
            }
            tests.push_back(std::move(test));
        }
    }
}

bool LayerFilterExpression::asksFor(FilterProperty property) const {
    return std::ranges::any_of(m_rows, [property](const FilterRow& row) {
        return std::ranges::find(row, property, &FilterCondition::property) != row.end();
    });
}

bool LayerFilterExpression::Test::holds(const T_LAYER_DATA& layer, bool inUse) const {
    const FilterProperty kind = filterKind(property);
    return kind == property || !layer.vp.any() ? holdsFor(kind, layer, inUse)
                                               : holdsFor(kind, asInViewport(layer), inUse);
}

bool LayerFilterExpression::Test::holdsFor(FilterProperty kind, const T_LAYER_DATA& layer, bool inUse) const {
    const auto is = [this](bool value) { return state == value; };
    switch (kind) {
    case FilterProperty::name:
        return pattern.fits(layer.name.view());
    case FilterProperty::current:
        return is(layer.current);
    case FilterProperty::used:
        return is(inUse);
    case FilterProperty::on:
        return is(layer.on);
    case FilterProperty::frozen:
        return is(layer.frozen);
    case FilterProperty::locked:
        return is(layer.locked);
    case FilterProperty::color:
        return color ? layer.color == *color : pattern.fits(colorWords(layer));
    case FilterProperty::linetype:
        return pattern.fits(layer.linetype.view());
    case FilterProperty::lineWeight:
        if (number) return sameNumber(weightOf(layer.lineWeight), *number);
        return pattern.fits(layer.lineWeight < OdDb::kLnWt000
                                ? std::wstring(L"Default")
                                : tv::text::printReal(kx::frame::millimetresOf(layer.lineWeight), 2));
    case FilterProperty::transparency:
        if (number) return sameNumber(layer.transparency, *number);
        return pattern.fits(tv::text::printInt(layer.transparency));
    case FilterProperty::plotStyle:
        return pattern.fits(layer.plotStyle.view());
    case FilterProperty::plottable:
        return is(layer.plot);
    case FilterProperty::newVpFrozen:
        return is(layer.newVpFrozen);
    case FilterProperty::vpFrozen:
        return is(layer.vpFrozen);
    case FilterProperty::vpOverrides:
        return is(layer.vp.any());
    case FilterProperty::xref:
        if (state) return is(layer.xref);
        return layer.xref && pattern.fits(referenceOf(layer.name.view()));
    case FilterProperty::description:
        return pattern.fits(layer.description.view());
    default: // a viewport's, which filterKind never gives
        return false;
    }
}

bool LayerFilterExpression::fits(const T_LAYER_DATA& layer, bool inUse) const {
    if (!understood()) return false;
    if (m_rows.empty()) return trimmed(m_text).empty();
    return std::ranges::any_of(m_tests, [&](const std::vector<Test>& row) {
        return std::ranges::all_of(row,
                                   [&](const Test& test) { return test.holds(layer, inUse) == test.equal; });
    });
}

// --- writing -------------------------------------------------------------------------------------------------

namespace {

std::wstring conditionText(const FilterCondition& condition) {
    const Keyword& keyword = usualWord(condition.property);
    std::wstring value = condition.value;
    bool equal = condition.equal;
    if (isFilterState(condition.property)) {
        value = stateWord((filterStateOf(value).value_or(true) == equal) != keyword.inverse);
        equal = true;
        // These two are written in capitals.
        if (condition.property == used || condition.property == vpOverrides) value = tv::text::toUpper(value);
    }
    std::wstring out = keyword.word;
    out += equal ? L"==\"" : L"!=\"";
    for (const wchar_t c : value)
        out += c == L'"' ? std::wstring(L"\"\"") : std::wstring(1, c);
    return out + L'"';
}

std::wstring rowText(const FilterRow& row) {
    std::wstring out;
    for (const FilterCondition& condition : row)
        out += (out.empty() ? L"" : L" AND ") + conditionText(condition);
    return out;
}

} // namespace

std::wstring filterText(const std::vector<FilterRow>& rows) {
    std::wstring out;
    for (const FilterRow& row : rows)
        if (!row.empty()) out += (out.empty() ? L"" : L" OR ") + rowText(row);
    return out;
}

std::wstring filterCellText(const FilterRow& row, FilterProperty property) {
    FilterRow own;
    for (const FilterCondition& condition : row)
        if (condition.property == property) own.push_back(condition);
    if (own.empty()) return {};
    const FilterCondition& only = own.front();
    if (own.size() == 1 && isFilterState(property))
        return stateWord(filterStateOf(only.value).value_or(true) == only.equal);
    if (own.size() > 1 || only.value.empty() || only.value.find(L'=') != std::wstring::npos ||
        only.value.starts_with(L"<>") || trimmed(only.value) != only.value)
        return rowText(own);
    return (only.equal ? L"" : L"!=") + only.value;
}

bool setFilterCell(FilterRow& row, FilterProperty property, std::wstring_view given) {
    std::wstring_view text = trimmed(given);
    FilterRow own;
    if (!text.empty()) {
        bool equal = true;
        std::wstring_view value = text;
        for (const std::wstring_view sign : {L"!=", L"<>"})
            if (value.starts_with(sign)) {
                equal = false;
                value = trimmed(value.substr(2));
                break;
            }
        if (value.find(L'=') != std::wstring_view::npos) {
            const LayerFilterExpression whole(text);
            if (!whole.understood() || whole.rows().size() != 1) return false;
            own = whole.rows().front();
            if (std::ranges::any_of(own, [&](const FilterCondition& one) { return one.property != property; }))
                return false;
        } else {
            const auto state = stateFor(property, value);
            if (isFilterState(property) && !state) return false;
            if (state) {
                own.push_back({property, true, stateWord(*state == equal)});
            } else {
                own.push_back({property, equal, std::wstring(value)});
            }
        }
        if (own.front().equal && own.size() == 1 && own.front().value == L"*") own.clear();
    }
    std::erase_if(row, [&](const FilterCondition& one) { return one.property == property; });
    // Conditions stand in the order of the properties.
    const auto behind =
        std::ranges::find_if(row, [&](const FilterCondition& one) { return one.property > property; });
    row.insert(behind, own.begin(), own.end());
    return true;
}

} // namespace kx::layers
