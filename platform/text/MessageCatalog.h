#pragma once

#include "platform/text/MessageFile.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tv::text {

// Wide texts that never move and are never given back; each distinct text is kept once.
class TextPool {
  public:
    const wchar_t* keep(std::wstring text) { return m_texts.insert(std::move(text)).first->c_str(); }

  private:
    std::unordered_set<std::wstring> m_texts;
};

// The texts of several message files under (section, key). The bytes of the files are kept; a text is made wide
// the first time it is asked for and then lives in the pool, beyond the catalogue. One open-addressed index
// over views of the bytes: loading allocates next to nothing and a lookup touches one slot and one key.
class MessageCatalog {
  public:
    explicit MessageCatalog(TextPool& pool) : m_pool(&pool) {}

    // Adds a file's texts (less than 4 GB); where an earlier file has the key too, the later file counts.
    void add(std::string bytes, const std::function<void(MessageFault, std::int64_t line)>& onFault);

    // The text, or null. Plain keys are in section "".
    const wchar_t* find(std::string_view section, std::string_view key);

    // Whether any file has a text in that section.
    bool hasSection(std::string_view section) const { return m_sections.count(section) > 0; }

    std::size_t size() const { return m_sources.size(); }

  private:
    // A lookup reads a slot and then one record: this head, followed by the key's bytes. The keys are copied so
    // that all of them together stay in the processor's cache, which the files with their texts would not.
    struct Record {
        const wchar_t* wide; // null until first asked for
        std::uint32_t keySize;
        std::uint32_t section;
        std::uint32_t source; // index into m_sources
    };
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t record = 0; // position in m_records + 1; 0 for a free slot
    };
    struct Source {
        std::uint32_t file; // index into m_files
        std::uint32_t at, size;
    };

    Record recordOf(const Slot& slot) const;
    void putRecord(const Slot& slot, const Record& record);
    Slot& slotFor(std::uint32_t hash, std::uint32_t section, std::string_view key);
    void makeRoom(std::size_t count);
    bool insert(const MessageLine& line);
    Source sourceOf(const MessageLine& line) const;
    std::uint32_t sectionNumber(std::string_view name);

    TextPool* m_pool;
    std::deque<std::string> m_files;
    std::unordered_map<std::string_view, std::uint32_t> m_sections; // "" is 0 and not listed
    std::string_view m_lastSection;
    std::uint32_t m_lastSectionNumber = 0;
    std::vector<Source> m_sources;
    std::string m_records;
    std::vector<Slot> m_slots; // a power of two, about a third of them free or more
};

} // namespace tv::text
