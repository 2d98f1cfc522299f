#pragma once

#include "platform/drawing/OdDbObjectId.h"

#include <cstdint>
#include <vector>

namespace tv::dwg {

struct Record;

// Handle to record, four bytes per slot: the handle itself is read from the record.
class HandleIndex {
  public:
    bool built() const { return m_built; }
    void clear();
    void build(const std::vector<Record>& records, RecordId head);
    void add(const std::vector<Record>& records, RecordId id);
    RecordId find(const std::vector<Record>& records, std::uint64_t handle) const;
    // True when some handle occurred twice, so that erasing its first record uncovers another.
    bool hasDuplicates() const { return m_duplicates; }
    std::uint64_t highest() const { return m_highest; }

  private:
    std::size_t slotOf(std::uint64_t handle) const;

    std::vector<RecordId> m_slots; // a power of two of them, at most half full
    std::size_t m_used = 0;
    std::uint64_t m_highest = 0;
    bool m_built = false;
    bool m_duplicates = false;
};

} // namespace tv::dwg
