#pragma once

#include "kxgui/Export.h"
#include "kxgui/layers/LayerData.h"
#include "platform/text/Wildcards.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a property filter asks of a layer: NAME=="A-*" AND OFF=="False" OR COLOR=="1".
namespace kx::layers {

// In the order the editor has its columns.
enum class FilterProperty : std::uint8_t {
    name,
    current,
    used,
    on,
    frozen,
    locked,
    color,
    linetype,
    lineWeight,
    transparency,
    plotStyle,
    plottable,
    newVpFrozen,
    vpFrozen,
    vpOverrides, // any of those that follow
    vpColor,     // these as the active viewport shows them
    vpLinetype,
    vpLineWeight,
    vpTransparency,
    vpPlotStyle,
    xref, // yes, no, or a pattern for the reference's name
    description,
};
inline constexpr int kFilterProperties = 22;

// What the values of a property are like: those of a viewport are like the layer's own.
constexpr FilterProperty filterKind(FilterProperty property) {
    using enum FilterProperty;
    switch (property) {
    case vpColor:
        return color;
    case vpLinetype:
        return linetype;
    case vpLineWeight:
        return lineWeight;
    case vpTransparency:
        return transparency;
    case vpPlotStyle:
        return plotStyle;
    default:
        return property;
    }
}

// One comparison. `value` is a pattern (tv::text::Wildcards), of a state "True" or "False".
struct FilterCondition {
    FilterProperty property = FilterProperty::name;
    bool equal = true;
    std::wstring value;
    friend bool operator==(const FilterCondition&, const FilterCondition&) = default;
};
// Conditions that must all hold.
using FilterRow = std::vector<FilterCondition>;

// Yes or no, true or false in the words files have; nothing for another text.
KXGUI_EXPORT std::optional<bool> filterStateOf(std::wstring_view text);
// The property is a state that is there or not.
KXGUI_EXPORT bool isFilterState(FilterProperty property);

// A layer fits when it fits one of the rows. Files are read generously: letter case, blanks, parentheses,
// single quotes or none, one equals sign, NOT, and names others use for a property (ON for OFF). What can't be
// understood keeps its text and fits no layer.
class KXGUI_EXPORT LayerFilterExpression {
  public:
    static constexpr std::size_t kLongest = 8192; // characters
    static constexpr std::size_t kMostConditions = 1024;

    LayerFilterExpression() = default; // without conditions: every layer fits
    explicit LayerFilterExpression(std::wstring_view text);
    // In the usual form. Empty rows and conditions that leave it open are dropped.
    explicit LayerFilterExpression(std::vector<FilterRow> rows);
    // One that fits no layer, for a reason told in one sentence.
    static LayerFilterExpression unreadable(std::wstring text, std::wstring problem);

    // As it was given; of rows, their usual form.
    const std::wstring& text() const { return m_text; }
    // Why it can't be understood, in one sentence; empty when it can.
    const std::wstring& problem() const { return m_problem; }
    bool understood() const { return m_problem.empty(); }
    const std::vector<FilterRow>& rows() const { return m_rows; }

    // It asks whether layers are in use (`used` below), or what they look like in the active viewport.
    bool asksForUsage() const { return asksFor(FilterProperty::used); }
    bool asksForViewport() const {
        for (int i = static_cast<int>(FilterProperty::vpFrozen);
             i <= static_cast<int>(FilterProperty::vpPlotStyle); ++i)
            if (asksFor(static_cast<FilterProperty>(i))) return true;
        return false;
    }
    bool asksForCurrent() const { return asksFor(FilterProperty::current); }
    bool fits(const T_LAYER_DATA& layer, bool used) const;

  private:
    // A condition made ready for many layers.
    struct Test {
        FilterProperty property;
        bool equal;
        std::optional<bool> state;
        std::optional<OdCmColor> color;
        std::optional<double> number;
        tv::text::Wildcards pattern;
        bool holds(const T_LAYER_DATA& layer, bool used) const;
        bool holdsFor(FilterProperty kind, const T_LAYER_DATA& layer, bool used) const;
    };
    bool asksFor(FilterProperty property) const;
    void prepare();

    std::wstring m_text, m_problem;
    std::vector<FilterRow> m_rows;
    std::vector<std::vector<Test>> m_tests;
};

// The usual form of rows.
KXGUI_EXPORT std::wstring filterText(const std::vector<FilterRow>& rows);

// One cell of the editor: a pattern, one with != in front for everything else, or whole conditions on this
// property joined by AND. Empty for none.
KXGUI_EXPORT std::wstring filterCellText(const FilterRow& row, FilterProperty property);
// Puts a cell's text in place of the row's conditions on the property. False, and nothing changed, for a text
// that can't be understood.
KXGUI_EXPORT bool setFilterCell(FilterRow& row, FilterProperty property, std::wstring_view text);

} // namespace kx::layers
