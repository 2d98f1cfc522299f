#include "platform/text/MessageCatalog.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace tv::text {
namespace {

std::uint32_t hashOf(std::uint32_t section, std::string_view key) {
    const std::uint64_t hash = std::hash<std::string_view>()(key) + section * 0x9E3779B97F4A7C15u;
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

} // namespace

MessageCatalog::Record MessageCatalog::recordOf(const Slot& slot) const {
    Record record;
    std::memcpy(&record, m_records.data() + slot.record - 1, sizeof record);
    return record;
}

void MessageCatalog::putRecord(const Slot& slot, const Record& record) {
    std::memcpy(m_records.data() + slot.record - 1, &record, sizeof record);
}

// The slot that holds the key, or the free one where it belongs. There is always a free one.
MessageCatalog::Slot& MessageCatalog::slotFor(std::uint32_t hash, std::uint32_t section, std::string_view key) {
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        Slot& slot = m_slots[at];
        if (slot.record == 0) return slot;
        if (slot.hash != hash) continue;
        const Record record = recordOf(slot);
        const char* const known = m_records.data() + slot.record - 1 + sizeof record;
        if (record.section == section && std::string_view(known, record.keySize) == key) return slot;
    }
}

// A power of two of slots, at least a third of them free for `count` keys.
void MessageCatalog::makeRoom(std::size_t count) {
    const std::size_t size = std::bit_ceil(std::max<std::size_t>(count + count / 2, 64));
    if (size <= m_slots.size()) return;
    const std::vector<Slot> old = std::exchange(m_slots, std::vector<Slot>(size));
    for (const Slot& slot : old) {
        if (slot.record == 0) continue;
        std::size_t at = slot.hash & (size - 1);
        while (m_slots[at].record != 0)
            at = (at + 1) & (size - 1);
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

// Of a line of the file added last.
MessageCatalog::Source MessageCatalog::sourceOf(const MessageLine& line) const {
    return {static_cast<std::uint32_t>(m_files.size() - 1),
            static_cast<std::uint32_t>(line.text.data() - m_files.back().data()),
            static_cast<std::uint32_t>(line.text.size())};
}

bool MessageCatalog::insert(const MessageLine& line) {
    makeRoom(m_sources.size() + 1);
    const std::uint32_t section = sectionNumber(line.section);
    const std::uint32_t hash = hashOf(section, line.key);
    Slot& slot = slotFor(hash, section, line.key);
    if (slot.record != 0) {
        Record record = recordOf(slot);
        Source& source = m_sources[record.source];
        if (source.file == m_files.size() - 1) return false;
        source = sourceOf(line);
        record.wide = nullptr;
        putRecord(slot, record);
        return true;
    }
    slot = {hash, static_cast<std::uint32_t>(m_records.size() + 1)};
    const Record record{nullptr, static_cast<std::uint32_t>(line.key.size()), section,
                        static_cast<std::uint32_t>(m_sources.size())};
    m_records.append(reinterpret_cast<const char*>(&record), sizeof record).append(line.key);
    m_sources.push_back(sourceOf(line));
    return true;
}

void MessageCatalog::add(std::string bytes, const std::function<void(MessageFault, std::int64_t)>& onFault) {
    const std::string& kept = m_files.emplace_back(std::move(bytes));
    // As many keys as there would be if the whole file were like its beginning; a wrong guess only costs time.
    const auto sample = std::string_view(kept).substr(0, 16384);
    const auto lines = static_cast<std::size_t>(std::count(sample.begin(), sample.end(), '\n')) + 1;
    const std::size_t keys = m_sources.size() + lines * kept.size() / (sample.size() + 1);
    makeRoom(keys);
    m_sources.reserve(keys);
    m_records.reserve(keys * (sizeof(Record) + 32));
    parseMessageFile(
        kept, [this](const MessageLine& line) { return insert(line); }, onFault);
}

const wchar_t* MessageCatalog::find(std::string_view section, std::string_view key) {
    if (m_slots.empty()) return nullptr;
    std::uint32_t number = 0;
    if (!section.empty()) {
        const auto known = m_sections.find(section);
        if (known == m_sections.end()) return nullptr;
        number = known->second;
    }
    const Slot& slot = slotFor(hashOf(number, key), number, key);
    if (slot.record == 0) return nullptr;
    Record record = recordOf(slot);
    if (!record.wide) {
        const Source& source = m_sources[record.source];
        const std::string_view bytes = m_files[source.file];
        record.wide = m_pool->keep(decodeMessageText(bytes.substr(source.at, source.size)));
        putRecord(slot, record);
    }
    return record.wide;
}

} // namespace tv::text
