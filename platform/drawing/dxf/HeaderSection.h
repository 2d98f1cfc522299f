#pragma once

#include "platform/drawing/HeaderValue.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Problem.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tv::dwg {

// The header variables of a record store. Names are upper case ASCII without dollar sign.
class HeaderSection {
  public:
    explicit HeaderSection(RecordStore& store) : m_store(store) {}

    RecordId find(std::string_view name) const;
    std::optional<HeaderValue> value(std::string_view name) const;
    std::vector<std::string> names() const;
    // See OdDbDatabase::setHeaderVar.
    tv::Problem set(std::string_view name, const HeaderValue& value);
    // The name of the variable in a record, empty when it is none.
    std::string nameOf(RecordId id) const;
    // To be called when header records came or went.
    void forget() { m_known = false; }

  private:
    std::optional<HeaderValue> read(RecordId id) const;
    tv::Problem change(RecordId id, std::string_view name, const HeaderValue& value);
    tv::Problem add(std::string_view name, const HeaderValue& value);
    RecordId placeFor(std::string_view name);

    RecordStore& m_store;
    mutable std::unordered_map<std::string, RecordId> m_records;
    mutable bool m_known = false;
};

// Upper case and without dollar sign; empty for a name with other than printable ASCII characters.
std::string plainVariableName(std::wstring_view name);

} // namespace tv::dwg
