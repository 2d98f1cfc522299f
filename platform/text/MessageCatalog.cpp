#include "platform/text/MessageCatalog.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace tv::text {
namespace {

std::uint32_t hashOf(std::uint32_t section, std::string_view key) {
    const std::uint64_t hash = std::hash<std::string_view>()(key) + section * 0x9E3779B97F4A7C15u;
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

} // namespace

// The slot that holds the key, or the free one where it belongs. There is always a free one.
MessageCatalog::Slot& MessageCatalog::slotFor(std::uint32_t hash, std::uint32_t section, std::string_view key) {
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        Slot& slot = m_slots[at];
        if (slot.entry == 0) return slot;
        if (slot.hash != hash) continue;
        const Entry& entry = m_entries[slot.entry - 1];
        if (entry.section == section && entry.key == key) return slot;
    }
}

// Keeps at least half of the slots free for `count` entries.
void MessageCatalog::reserve(std::size_t count) {
    m_entries.reserve(count);
    const std::size_t wanted = std::bit_ceil(std::max<std::size_t>(count, 8) * 2);
    if (wanted <= m_slots.size()) return;
    const std::vector<Slot> old = std::exchange(m_slots, std::vector<Slot>(wanted));
    for (const Slot& slot : old) {
        if (slot.entry == 0) continue;
        std::size_t at = slot.hash & (wanted - 1);
        while (m_slots[at].entry != 0)
            at = (at + 1) & (wanted - 1);
        m_slots[at] = slot;
    }
}

std::uint32_t MessageCatalog::sectionNumber(std::string_view name) {
    if (name.empty()) return 0;
    if (name.data() != m_lastSection.data()) {
        m_lastSection = name;
        m_lastSectionNumber =
            m_sections.try_emplace(name, static_cast<std::uint32_t>(m_sections.size() + 1)).first->second;
    }
    return m_lastSectionNumber;
}

bool MessageCatalog::insert(const MessageLine& line) {
    const std::uint32_t section = sectionNumber(line.section);
    const auto file = static_cast<std::uint32_t>(m_files.size());
    const std::uint32_t hash = hashOf(section, line.key);
    Slot& slot = slotFor(hash, section, line.key);
    if (slot.entry != 0) {
        Entry& entry = m_entries[slot.entry - 1];
        if (entry.file == file) return false;
        entry = {entry.key, line.text, nullptr, section, file};
        return true;
    }
    m_entries.push_back({line.key, line.text, nullptr, section, file});
    slot = {hash, static_cast<std::uint32_t>(m_entries.size())};
    return true;
}

void MessageCatalog::add(std::string bytes, const std::function<void(MessageFault, std::int64_t)>& onFault) {
    const std::string& kept = m_files.emplace_back(std::move(bytes));
    const auto lines = static_cast<std::size_t>(std::count(kept.begin(), kept.end(), '\n')) + 1;
    reserve(m_entries.size() + lines);
    parseMessageFile(
        kept, [this](const MessageLine& line) { return insert(line); }, onFault);
}

const wchar_t* MessageCatalog::find(std::string_view section, std::string_view key) {
    if (m_entries.empty()) return nullptr;
    std::uint32_t number = 0;
    if (!section.empty()) {
        const auto known = m_sections.find(section);
        if (known == m_sections.end()) return nullptr;
        number = known->second;
    }
    const Slot& slot = slotFor(hashOf(number, key), number, key);
    if (slot.entry == 0) return nullptr;
    Entry& entry = m_entries[slot.entry - 1];
    if (!entry.wide) entry.wide = m_pool->keep(decodeMessageText(entry.text));
    return entry.wide;
}

} // namespace tv::text
