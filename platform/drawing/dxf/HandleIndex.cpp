#include "platform/drawing/dxf/HandleIndex.h"

#include "platform/drawing/dxf/RecordStore.h"

#include <bit>

namespace tv::dwg {

void HandleIndex::clear() { *this = HandleIndex(); }

// Handles are mostly consecutive, so sixteen neighbours stay neighbours in memory; where each sixteen go is
// spread over the whole, lest two long runs of handles come to lie in the same place and every search walk
// through both.
std::size_t HandleIndex::slotOf(std::uint64_t handle) const {
    std::uint64_t sixteen = handle >> 4;
    sixteen = (sixteen ^ sixteen >> 32) * 0x9E3779B97F4A7C15ull;
    sixteen = (sixteen ^ sixteen >> 29) * 0xD6E8FEB86659FD93ull;
    sixteen ^= sixteen >> 32;
    return static_cast<std::size_t>(sixteen << 4 | (handle & 15)) & (m_slots.size() - 1);
}

void HandleIndex::build(const std::vector<Record>& records, RecordId head) {
    clear();
    m_built = true;
    std::size_t count = 0;
    for (RecordId id = head; id != kNoRecord; id = records[id].next)
        count += records[id].handle != 0;
    m_slots.assign(std::bit_ceil(count * 2 + 16), kNoRecord);
    for (RecordId id = head; id != kNoRecord; id = records[id].next)
        add(records, id);
}

void HandleIndex::add(const std::vector<Record>& records, RecordId id) {
    const std::uint64_t handle = records[id].handle;
    if (!m_built || handle == 0) return;
    if (handle > m_highest) m_highest = handle;
    if ((m_used + 1) * 2 > m_slots.size()) {
        build(records, 0);
        return;
    }
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t i = slotOf(handle);; i = (i + 1) & mask) {
        if (m_slots[i] == kNoRecord) {
            m_slots[i] = id;
            ++m_used;
            return;
        }
        const Record& there = records[m_slots[i]];
        if (there.handle == handle && m_slots[i] != id) {
            if (!(there.flags & kErased)) {
                m_duplicates = true;
                return;
            }
            m_slots[i] = id;
            m_duplicates = true;
            return;
        }
        if (m_slots[i] == id) return;
    }
}

RecordId HandleIndex::find(const std::vector<Record>& records, std::uint64_t handle) const {
    if (handle == 0 || m_slots.empty()) return kNoRecord;
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t i = slotOf(handle); m_slots[i] != kNoRecord; i = (i + 1) & mask) {
        const Record& there = records[m_slots[i]];
        if (there.handle == handle) return there.flags & kErased ? kNoRecord : m_slots[i];
    }
    return kNoRecord;
}

} // namespace tv::dwg
