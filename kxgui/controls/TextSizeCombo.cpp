#include "kxgui/controls/TextSizeCombo.h"

#include "platform/drawing/OdDbStyleTables.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"

#include <algorithm>
#include <cmath>

using tv::dwg::Value;

namespace {

std::wstring heightText(double height) { return tv::text::format(L"%.1lf", height); }

bool isHeight(double height) { return std::isfinite(height) && height > 0; }

} // namespace

void CCobxTextSize::RefillList() {
    const OdDbDatabasePtr before = filledFrom();
    // "*varies*" may stand there in another language.
    const bool typing = before && !Varies() && isTyped();
    const std::wstring typed = GetWindowText();
    CCobxPropertyBase::RefillList();
    if (!typing || filledFrom() != before) return;
    clearSelection();
    SetWindowText(typed);
}

void CCobxTextSize::Fill(const OdDbDatabasePtr& database) {
    std::vector<double> heights;
    const auto add = [&](double height) {
        if (isHeight(height)) heights.push_back(height);
    };
    const auto current = kx::controls::currentValue(database, kx::controls::Property::textHeight);
    if (const auto* height = std::get_if<double>(&current.value)) add(*height);
    if (const auto table = database->getTextStyleTableId().open<OdDbTextStyleTable>())
        table->forEach([&](OdDbObjectId id) {
            const auto style = id.open<OdDbTextStyleTableRecord>();
            if (!style || style->isShapeFile()) return;
            add(style->textSize());
            add(style->priorSize());
        });
    std::sort(heights.begin(), heights.end());

    // What reads alike is listed once, as the height that is nearest to what it reads.
    m_heights.clear();
    std::vector<tv::ui::ListItem> items;
    const auto distance = [](double height, std::wstring_view text) {
        return std::abs(height - tv::text::parseReal(text).value_or(height));
    };
    for (const double height : heights) {
        std::wstring text = heightText(height);
        if (items.empty() || items.back().text != text) {
            items.push_back({std::move(text), 0, nullptr});
            m_heights.push_back(height);
        } else if (distance(height, text) < distance(m_heights.back(), text)) {
            m_heights.back() = height;
        }
    }
    SetItems(std::move(items));
}

double CCobxTextSize::GetTextSize() const {
    const auto value = GetValue();
    const auto* height = value ? std::get_if<double>(&*value) : nullptr;
    return height ? *height : 0;
}

int CCobxTextSize::EntryOf(const Value& value) {
    const auto* height = std::get_if<double>(&value);
    const auto found = height ? std::find(m_heights.begin(), m_heights.end(), *height) : m_heights.end();
    return found == m_heights.end() ? -1 : static_cast<int>(found - m_heights.begin());
}

std::optional<Value> CCobxTextSize::ValueOf(int index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= m_heights.size()) return std::nullopt;
    return Value(m_heights[static_cast<std::size_t>(index)]);
}

std::wstring CCobxTextSize::TextOf(const Value& value) const {
    const auto* height = std::get_if<double>(&value);
    return height ? heightText(*height) : std::wstring();
}

bool CCobxTextSize::isTyped() const {
    if (GetCurSel() >= 0) return false;
    const auto value = GetValue();
    return GetWindowText() != (value ? TextOf(*value) : Varies() ? kx::controls::variesText() : std::wstring());
}

void CCobxTextSize::takeTyped() {
    if (!isTyped()) return;
    const std::wstring text = GetWindowText();
    const auto height = tv::text::parseReal(text);
    if (height && isHeight(*height)) return ChooseValue(*height);
    tvedPrint(tv::text::format(
        VORD_ResourceString("IDS_TAVO_COBX_BAD_HEIGHT",
                            L"문자 높이 \"%s\"을(를) 읽을 수 없습니다. 0보다 큰 수를 입력하십시오."),
        std::wstring_view(text).substr(0, 100)));
    ShowChosen();
}

tv::ui::KeyRoute CCobxTextSize::routeKey(const tv::ui::KeyEvent& key) {
    const auto route = CCobxPropertyBase::routeKey(key);
    if (route != tv::ui::KeyRoute::dialog || !isTyped()) return route;
    if (key.key == tv::ui::Key::escape) {
        ShowChosen();
        return tv::ui::KeyRoute::used;
    }
    if (key.key != tv::ui::Key::enter) return route;
    takeTyped();
    return tv::ui::KeyRoute::used;
}

void CCobxTextSize::OnKillFocus() {
    CCobxPropertyBase::OnKillFocus();
    takeTyped();
}

std::wstring CCobxTextSize::UndoName() const {
    return VORD_ResourceString("IDS_NARVO_COMMANDGUI_TAVOTEXTSIZE_ONSELCHANGE_MSG0", L"문자높이 변경").c_str();
}
