#pragma once

#include "platform/drawing/OdDbObjectId.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace tv::dwg {

// Names as they are spelled in a file to records, for passes that ask a million times for ten thousand names.
// Keeps views: the bytes have to stay while it is used.
class SpellingMap {
    // The first and the last eight bytes (of short names four) and the length say it all for most names.
    struct Key {
        Key() = default;
        explicit Key(std::string_view s)
            : data(s.empty() ? "" : s.data()), size(static_cast<std::uint32_t>(s.size())) {
            if (s.size() >= 8) {
                std::memcpy(&first, s.data(), 8);
                std::memcpy(&last, s.data() + s.size() - 8, 8);
            } else if (s.size() >= 4) {
                std::memcpy(&first, s.data(), 4);
                std::memcpy(&last, s.data() + s.size() - 4, 4);
            } else {
                for (std::size_t i = 0; i < s.size(); ++i)
                    first = first << 8 | static_cast<unsigned char>(s[i]);
            }
        }
        std::size_t hash() const {
            std::uint64_t h = (first ^ (last << 32 | last >> 32) ^ size) * 0x9E3779B97F4A7C15ULL;
            h = (h ^ h >> 32) * 0xD6E8FEB86659FD93ULL;
            return static_cast<std::size_t>(h ^ h >> 32);
        }
        friend bool operator==(const Key& a, const Key& b) {
            return a.first == b.first && a.last == b.last && a.size == b.size &&
                   (a.size <= 16 || std::memcmp(a.data, b.data, a.size) == 0);
        }
        std::uint64_t first = 0;
        std::uint64_t last = 0;
        const char* data = nullptr; // null in an empty slot
        std::uint32_t size = 0;
        RecordId record = kNoRecord; // no part of the key; it fills the last four of 32 bytes
    };

  public:
    SpellingMap() : m_slots(1024) {}

    // The record of that spelling; of a new one what `find(spelling)` answers.
    template <class Find>
    RecordId get(std::string_view spelling, Find&& find) {
        const Key key(spelling);
        return get(key, key.hash(), find);
    }

    // For who has many to ask in a row and can wait for the answers: the question is kept, its place in memory
    // fetched, and `find` is called for the new ones among those asked some calls ago, or at flush().
    template <class Find>
    void ask(std::string_view spelling, Find&& find) {
        Asked& place = m_asked[m_next++ % kAhead];
        if (place.key.data) get(place.key, place.hash, find);
        // Hashed before it is stored: reading back what was just written in other pieces would wait for it.
        const Key key(spelling);
        const std::size_t hash = key.hash();
        __builtin_prefetch(&m_slots[hash & (m_slots.size() - 1)]);
        place.key = key;
        place.hash = hash;
    }
    template <class Find>
    void flush(Find&& find) {
        for (Asked& place : m_asked) {
            if (place.key.data) get(place.key, place.hash, find);
            place.key.data = nullptr;
        }
    }

  private:
    template <class Find>
    RecordId get(const Key& key, std::size_t hash, Find&& find) {
        std::size_t i = hash & (m_slots.size() - 1);
        for (; m_slots[i].data; i = (i + 1) & (m_slots.size() - 1))
            if (m_slots[i] == key) return m_slots[i].record;
        const RecordId record = find(std::string_view(key.data, key.size));
        m_slots[i] = key;
        m_slots[i].record = record;
        if (++m_count * 4 > m_slots.size() * 3) grow();
        return record;
    }

    void grow() {
        std::vector<Key> old(m_slots.size() * 2);
        old.swap(m_slots);
        for (const Key& slot : old) {
            if (!slot.data) continue;
            std::size_t i = slot.hash() & (m_slots.size() - 1);
            while (m_slots[i].data)
                i = (i + 1) & (m_slots.size() - 1);
            m_slots[i] = slot;
        }
    }

    static constexpr std::size_t kAhead = 16;
    struct Asked {
        Key key;
        std::size_t hash = 0;
    };
    std::array<Asked, kAhead> m_asked;
    std::size_t m_next = 0;
    std::vector<Key> m_slots; // a power of two of them, at most three quarters full
    std::size_t m_count = 0;
};

} // namespace tv::dwg
