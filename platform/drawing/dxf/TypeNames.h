#pragma once

#include "platform/Export.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tv::dwg {

using TypeId = std::uint16_t;

// The types the index itself has to know; further names follow in the order they occur.
enum KnownType : TypeId {
    kTypeOther, // a name beyond the 65,535th: read it from the record
    kTypeHeaderVar,
    kTypeSection,
    kTypeEndSec,
    kTypeTable,
    kTypeEndTab,
    kTypeBlock,
    kTypeEndBlk,
    kTypeEof,
    kTypeVertex,
    kTypeAttrib,
    kTypeSeqEnd,
    kTypeDimStyle,
    kTypeTail, // bytes behind the end mark, or that could not be read
    kKnownTypes
};

// Record type names to small numbers.
class KXPLATFORM_EXPORT TypeNames {
  public:
    TypeNames();
    TypeId idOf(std::string_view name) {
        if (name == m_names[m_last]) return m_last;
        return lookUp(name);
    }
    // The number of a name that has one, else kTypeOther.
    TypeId find(std::string_view name) const;
    std::string_view name(TypeId id) const { return m_names[id]; }

  private:
    TypeId lookUp(std::string_view name);
    std::size_t slotOf(std::string_view name) const;
    void grow();

    std::vector<std::string> m_names;
    std::vector<TypeId> m_slots;
    TypeId m_last = 0;
};

} // namespace tv::dwg
