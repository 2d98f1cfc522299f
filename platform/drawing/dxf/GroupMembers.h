#pragma once

#include "platform/drawing/OdDbHandle.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

namespace tv::dwg {

// A GROUP record's bytes without the members that `gone` says; those are added to `dropped`.
std::string withoutMembers(const DxfFormat& format, std::string_view group,
                           const std::function<bool(const Tag&)>& gone, std::vector<OdDbHandle>& dropped);

// Takes erased objects out of the groups they are members of, at the end of the step that erases them: ten
// thousand members of one group change it once.
class GroupMembers {
  public:
    explicit GroupMembers(RecordStore& store) : m_store(store) {}
    // Any record was added, removed or changed.
    void recordChanged(ChangeKind kind, RecordId record);
    // Before the outermost end of an undo record.
    void dropErased();

  private:
    bool isGroup(RecordId id) const;
    void learn();

    RecordStore& m_store;
    std::vector<std::uint64_t> m_erased; // in the step that is open
    std::vector<RecordId> m_groups;
    std::unordered_set<std::uint64_t> m_members; // of any of them
    bool m_known = false;
    bool m_dropping = false;
};

} // namespace tv::dwg
