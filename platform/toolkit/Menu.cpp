#include "platform/toolkit/Menu.h"

#include "platform/text/Unicode.h"
#include "platform/toolkit/Wnd.h"

#include <algorithm>

namespace tv::ui {
namespace {

std::wstring withoutMarks(std::wstring_view text) {
    std::wstring out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && i + 1 < text.size()) ++i;
        out += text[i];
    }
    return out;
}

bool names(const MenuItem& item, const std::wstring& text) {
    return !item.isSeparator() &&
           (item.text == text || withoutMarks(item.text) == text || plainLabel(item.text) == plainLabel(text));
}

// The letter that chooses the entry: the marked one, else its first.
wchar_t letterOf(const MenuItem& item) {
    const wchar_t marked = mnemonicOf(item.text);
    return marked || item.text.empty() ? marked
                                       : text::toUpper(std::wstring_view(item.text).substr(0, 1)).front();
}

} // namespace

std::wstring menuText(std::wstring_view text) {
    std::wstring out;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == L'(' && i + 3 < text.size() && text[i + 1] == L'&' && text[i + 3] == L')')
            i += 3;
        else
            out += text[i];
    return withoutMarks(out);
}

const MenuItem* Menu::item(const Place& place) const {
    const std::vector<MenuItem>* items = &m_items;
    const MenuItem* found = nullptr;
    for (const int index : place) {
        if (index < 0 || index >= static_cast<int>(items->size())) return nullptr;
        found = &(*items)[static_cast<std::size_t>(index)];
        items = &found->items;
    }
    return found;
}

std::optional<Menu::Place> Menu::find(const std::vector<std::wstring>& path, std::size_t& missing) const {
    Place place;
    const std::vector<MenuItem>* items = &m_items;
    for (missing = 0; missing < path.size(); ++missing) {
        const auto at = std::find_if(items->begin(), items->end(),
                                     [&](const MenuItem& item) { return names(item, path[missing]); });
        if (at == items->end()) return std::nullopt;
        place.push_back(static_cast<int>(at - items->begin()));
        items = &at->items;
    }
    return place.empty() ? std::nullopt : std::optional(place);
}

const std::vector<MenuItem>& Menu::level(std::size_t depth) const {
    return depth == 0
               ? m_items
               : item(Place(m_current.begin(), m_current.begin() + static_cast<std::ptrdiff_t>(depth)))->items;
}

// Goes round to the next available entry.
bool Menu::step(int from, int by) {
    const auto& items = level(m_current.size() - 1);
    const int count = static_cast<int>(items.size());
    for (int tried = 0; tried < count; ++tried) {
        from = (from + by + count) % count;
        if (!items[static_cast<std::size_t>(from)].available()) continue;
        m_current.back() = from;
        return true;
    }
    return false;
}

Menu::Outcome Menu::enter() {
    const MenuItem* at = item(m_current);
    if (!at || !at->available()) return Outcome::moved;
    if (at->items.empty()) return Outcome::chosen;
    m_current.push_back(-1);
    step(-1, 1);
    return Outcome::moved;
}

Menu::Outcome Menu::key(const KeyEvent& key) {
    const auto& items = level(m_current.size() - 1);
    const int count = static_cast<int>(items.size());
    switch (key.key) {
    case Key::down:
        step(m_current.back(), 1);
        break;
    case Key::up:
        step(m_current.back() < 0 ? count : m_current.back(), -1);
        break;
    case Key::home:
        step(-1, 1);
        break;
    case Key::end:
        step(count, -1);
        break;
    case Key::right:
        if (const MenuItem* at = item(m_current); at && !at->items.empty()) return enter();
        break;
    case Key::left:
        if (m_current.size() > 1) m_current.pop_back();
        break;
    case Key::escape:
        if (m_current.size() == 1) return Outcome::closed;
        m_current.pop_back();
        break;
    case Key::enter:
    case Key::space:
        return enter();
    case Key::menu:
        return Outcome::closed;
    case Key::character: {
        const wchar_t letter = text::toUpper(std::wstring_view(&key.ch, 1)).front();
        const auto fits = [&](const MenuItem& item) { return item.available() && letterOf(item) == letter; };
        const auto matches = std::count_if(items.begin(), items.end(), fits);
        for (int tried = 0; tried < count && matches > 0; ++tried) {
            step(m_current.back(), 1);
            if (fits(items[static_cast<std::size_t>(m_current.back())])) break;
        }
        return matches == 1 ? enter() : Outcome::moved;
    }
    default:
        break;
    }
    return Outcome::moved;
}

} // namespace tv::ui
