#pragma once

#include "kxgui/frame/SysVarOverridesProcessor.h"

#include <optional>
#include <string_view>
#include <type_traits>

// How the values a settings dialog stages stand in result buffers.
namespace kx::sysvar {

// Integers are brought into 16 bits. Nothing for an object without a name.
std::optional<OdResBuf> toBuffer(bool value);
std::optional<OdResBuf> toBuffer(int value);
std::optional<OdResBuf> toBuffer(double value);
std::optional<OdResBuf> toBuffer(const TvString& value);
std::optional<OdResBuf> toBuffer(const OdGePoint2d& value);
std::optional<OdResBuf> toBuffer(const OdGePoint3d& value);
std::optional<OdResBuf> toBuffer(const OdCmColor& value);
std::optional<OdResBuf> toBuffer(const OdDbObjectId& value);

// False, and `value` untouched, when the buffer is of another type. Truth values and integers are taken from
// the types 5003 and 280 only, as 16 bits.
bool fromBuffer(const OdResBuf& buffer, bool& value);
bool fromBuffer(const OdResBuf& buffer, int& value);
bool fromBuffer(const OdResBuf& buffer, double& value);
bool fromBuffer(const OdResBuf& buffer, TvString& value);
bool fromBuffer(const OdResBuf& buffer, OdGePoint2d& value);
bool fromBuffer(const OdResBuf& buffer, OdGePoint3d& value);
bool fromBuffer(const OdResBuf& buffer, OdCmColor& value);
bool fromBuffer(const OdResBuf& buffer, OdDbObjectId& value);

// The variable's value now. False, and `value` untouched, when it can't be read or is of another type.
template <class T>
bool readCurrent(const TavoSysvarManager& manager, std::wstring_view name, const OdDbDatabasePtr& database,
                 T& value) {
    const OdString variable(name);
    if constexpr (std::is_same_v<T, OdCmColor> || std::is_same_v<T, OdDbObjectId>) {
        return manager.getVar(variable, value, database) == Tavo::eOk;
    } else {
        OdResBuf buffer;
        if (manager.getVar(variable, buffer, database) != Tavo::eOk) return false;
        if constexpr (std::is_same_v<T, int> || std::is_same_v<T, bool>) {
            const auto* number = std::get_if<std::int64_t>(&buffer.value()); // of either width
            if (number) value = static_cast<T>(*number);
            return number != nullptr;
        } else {
            return fromBuffer(buffer, value);
        }
    }
}

// Whether values of that result type are passed over by a commit: entity names and selection sets.
bool isNotWritten(int restype);

// The buffer to hand to the manager for a staged one, by its result type; one without a type takes that of its
// record's kind, when the kind is a result type, else the variable's. Nothing for a type that can't be written.
std::optional<OdResBuf> toWrite(const _tSysVar_DlgItem& item, const OdResBuf& staged, TavoSysvarType type);

} // namespace kx::sysvar
