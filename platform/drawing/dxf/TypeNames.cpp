#include "platform/drawing/dxf/TypeNames.h"

#include <functional>

namespace tv::dwg {

TypeNames::TypeNames() : m_slots(256, kTypeOther) {
    m_names.emplace_back();
    for (const char* name : {"HEADERVAR", "SECTION", "ENDSEC", "TABLE", "ENDTAB", "BLOCK", "ENDBLK", "EOF",
                             "VERTEX", "ATTRIB", "SEQEND", "DIMSTYLE", "\x7F"})
        idOf(name);
}

std::size_t TypeNames::slotOf(std::string_view name) const {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t i = std::hash<std::string_view>()(name) & mask;
    while (m_slots[i] != kTypeOther && m_names[m_slots[i]] != name)
        i = (i + 1) & mask;
    return i;
}

TypeId TypeNames::find(std::string_view name) const { return m_slots[slotOf(name)]; }

TypeId TypeNames::lookUp(std::string_view name) {
    std::size_t slot = slotOf(name);
    if (m_slots[slot] == kTypeOther) {
        if (name.empty() || m_names.size() >= 0xFFFF) return kTypeOther;
        if (m_names.size() * 2 >= m_slots.size()) {
            grow();
            slot = slotOf(name);
        }
        m_slots[slot] = static_cast<TypeId>(m_names.size());
        m_names.emplace_back(name);
    }
    m_last = m_slots[slot];
    return m_last;
}

void TypeNames::grow() {
    m_slots.assign(m_slots.size() * 4, kTypeOther);
    for (std::size_t id = 1; id < m_names.size(); ++id)
        m_slots[slotOf(m_names[id])] = static_cast<TypeId>(id);
}

} // namespace tv::dwg
