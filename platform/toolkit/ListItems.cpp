#include "platform/toolkit/ListItems.h"

#include "platform/text/Unicode.h"

namespace tv::ui {
namespace {

template <class Matches>
int search(const ListItems& items, int start, const Matches& matches) {
    const int count = items.count();
    for (int step = 1; step <= count; ++step) {
        const int index = (std::max(start, -1) + step) % count;
        if (matches(items.at(index))) return index;
    }
    return -1;
}

} // namespace

const SharedItems& ListItems::none() {
    static const SharedItems empty = std::make_shared<const std::vector<ListItem>>();
    return empty;
}

std::vector<ListItem>& ListItems::own() {
    if (!m_own) {
        m_own = std::make_shared<std::vector<ListItem>>(*m_items);
        m_items = m_own;
    }
    return *m_own;
}

int ListItems::insert(int index, std::wstring_view text) {
    if (index < 0 || index > count()) index = count();
    auto& items = own();
    items.insert(items.begin() + index, ListItem{std::wstring(text), 0, {}});
    return index;
}

bool ListItems::erase(int index) {
    if (!valid(index)) return false;
    own().erase(own().begin() + index);
    return true;
}

void ListItems::clear() { assign(nullptr); }

void ListItems::assign(SharedItems items) {
    m_items = items ? std::move(items) : none();
    m_own.reset();
}

int ListItems::findPrefix(int start, std::wstring_view prefix) const {
    return search(*this, start, [&](const ListItem& item) {
        return item.text.size() >= prefix.size() &&
               text::equalNoCase(std::wstring_view(item.text).substr(0, prefix.size()), prefix);
    });
}

int ListItems::findExact(int start, std::wstring_view text) const {
    return search(*this, start, [&](const ListItem& item) { return text::equalNoCase(item.text, text); });
}

int ListItems::findData(std::uintptr_t data) const {
    return search(*this, -1, [&](const ListItem& item) { return item.data == data; });
}

std::vector<std::wstring> ListItems::texts() const {
    std::vector<std::wstring> out;
    out.reserve(m_items->size());
    for (const auto& item : *m_items) out.push_back(item.text);
    return out;
}

} // namespace tv::ui
