#include "platform/drawing/dxf/GroupMembers.h"

#include "platform/drawing/dxf/OwnTags.h"

#include <utility>

namespace tv::dwg {
namespace {

constexpr int kMember = 340;

} // namespace

std::string withoutMembers(const DxfFormat& format, std::string_view group,
                           const std::function<bool(const Tag&)>& gone, std::vector<OdDbHandle>& dropped) {
    std::string out;
    std::size_t done = 0;
    OwnTags own(format, group);
    for (Tag tag; own.next(tag);) {
        if (tag.code != kMember || !gone(tag)) continue;
        out += group.substr(done, tag.begin - done);
        done = tag.end;
        if (const auto handle = handleOf(format, tag)) dropped.push_back(*handle);
    }
    out += group.substr(done);
    return out;
}

bool GroupMembers::isGroup(RecordId id) const {
    return m_store.record(id).section == Section::kObjects && m_store.typeName(id) == "GROUP";
}

void GroupMembers::recordChanged(ChangeKind kind, RecordId id) {
    if (m_dropping) return;
    if (isGroup(id)) {
        m_known = false;
    } else if (kind == ChangeKind::kRemoved && m_store.record(id).handle != 0 &&
               m_store.undoLog().recording()) {
        m_erased.push_back(m_store.record(id).handle);
    }
}

void GroupMembers::learn() {
    if (m_known) return;
    m_known = true;
    m_groups.clear();
    m_members.clear();
    if (m_store.types().find("GROUP") == kTypeOther) return;
    const RecordId section = m_store.section(Section::kObjects);
    const RecordId end = section == kNoRecord ? kNoRecord : m_store.endOfSection(section);
    for (RecordId id = section; id != end && id != kNoRecord; id = m_store.next(id)) {
        if (!isGroup(id)) continue;
        m_groups.push_back(id);
        OwnTags own(m_store.format(), m_store.text(id));
        for (Tag tag; own.next(tag);)
            if (tag.code == kMember)
                if (const auto handle = handleOf(m_store.format(), tag)) m_members.insert(handle->value());
    }
}

void GroupMembers::dropErased() {
    const std::vector<std::uint64_t> erased = std::exchange(m_erased, {});
    if (erased.empty() || !m_store.writable()) return;
    learn();
    std::unordered_set<std::uint64_t> gone;
    // Another object may have the handle of an erased one.
    for (const std::uint64_t handle : erased)
        if (m_members.contains(handle) && m_store.findHandle(handle) == kNoRecord) gone.insert(handle);
    if (gone.empty()) return;
    m_dropping = true;
    std::vector<OdDbHandle> dropped;
    for (const RecordId id : m_groups)
        m_store.replace(id, withoutMembers(
                                m_store.format(), m_store.text(id),
                                [&](const Tag& tag) {
                                    const auto handle = handleOf(m_store.format(), tag);
                                    return handle && gone.contains(handle->value());
                                },
                                dropped));
    for (const std::uint64_t handle : gone)
        m_members.erase(handle);
    m_dropping = false;
}

} // namespace tv::dwg
