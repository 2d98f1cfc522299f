#pragma once

#include "platform/toolkit/DisplayList.h"
#include "platform/toolkit/Rect.h"
#include "platform/toolkit/UserAction.h"

#include <functional>
#include <optional>

class CWnd;

namespace tv::ui {

// An entry of a context menu. One that has neither work nor entries of its own can't be chosen.
struct MenuItem {
    std::wstring text; // '&' marks the letter that chooses it
    std::function<void()> run = {};
    bool enabled = true;
    std::optional<bool> checked = {}; // unset: it has no check mark
    std::wstring keys = {};           // the keys that do the same, only shown
    std::vector<MenuItem> items = {}; // of the menu it opens
    Picture picture = {};

    static MenuItem separator() { return {}; }
    bool isSeparator() const { return text.empty(); }
    bool available() const { return enabled && (run || !items.empty()); }
};

// The menu that is open (CWnd::ShowMenu). Entries are named by their place: the index in the menu, then that in
// the menu it opens, and so on.
class KXPLATFORM_EXPORT Menu {
  public:
    using Place = std::vector<int>;

    Menu(CWnd& owner, std::vector<MenuItem> items, std::optional<CPoint> at)
        : m_owner(owner), m_items(std::move(items)), m_at(at) {}

    CWnd& owner() const { return m_owner; }
    const std::vector<MenuItem>& items() const { return m_items; }
    const std::optional<CPoint>& at() const { return m_at; }
    // Null when there is no such place.
    const MenuItem* item(const Place& place) const;
    // By the texts from the outer menu in, as they are written, as they are shown or as they are said. When
    // there is none, `missing` is the first of the texts that leads nowhere.
    std::optional<Place> find(const std::vector<std::wstring>& path, std::size_t& missing) const;

    // The entry the keyboard is at; its last index is -1 while it is at none.
    const Place& current() const { return m_current; }
    enum class Outcome { moved, closed, chosen };
    // What a key leads to; chosen: the current entry.
    Outcome key(const KeyEvent& key);

  private:
    const std::vector<MenuItem>& level(std::size_t depth) const;
    bool step(int from, int by);
    Outcome enter();
    CWnd& m_owner;
    std::vector<MenuItem> m_items;
    std::optional<CPoint> m_at;
    Place m_current{-1};
};

// What is said of an entry: without the mark of its letter.
KXPLATFORM_EXPORT std::wstring menuText(std::wstring_view text);

} // namespace tv::ui
