#pragma once

#include "platform/drawing/entities/EntityProperties.h"

#include <array>
#include <cstdint>
#include <type_traits>

// The words in which the properties of a kind are written down.
namespace tv::dwg::properties {

using enum PropertyKind;
using Status = Tavo::ErrorStatus;

constexpr EntityProperty tag(const wchar_t* name, PropertyKind kind, int code, double otherwise = 0) {
    return {.name = name, .kind = kind, .groupCode = code, .otherwise = otherwise};
}
constexpr EntityProperty x(const wchar_t* name, int code) { return tag(name, kCoordinate, code); }
constexpr EntityProperty flag(const wchar_t* name, int code, int mask, double otherwise = 0) {
    return {.name = name, .kind = kBoolean, .groupCode = code, .otherwise = otherwise, .mask = mask};
}
constexpr EntityProperty choice(const wchar_t* name, int code, std::span<const PropertyChoice> choices,
                                double otherwise = 0) {
    return {.name = name, .kind = kEnum, .groupCode = code, .choices = choices, .otherwise = otherwise};
}
constexpr EntityProperty radians(const wchar_t* name, int code, double otherwise = 0) {
    EntityProperty property = tag(name, kAngle, code, otherwise);
    property.fileRadians = true;
    return property;
}
constexpr EntityProperty computed(const wchar_t* name, PropertyKind kind, Value (*get)(OdDbObjectId)) {
    return {.name = name, .kind = kind, .writable = false, .get = get};
}
constexpr EntityProperty computed(const wchar_t* name, PropertyKind kind, Value (*get)(OdDbObjectId),
                                  Status (*set)(OdDbObjectId, const Value&), int code = 0) {
    return {.name = name, .kind = kind, .groupCode = code, .get = get, .set = set};
}
constexpr EntityProperty fixed(EntityProperty property) {
    property.writable = false;
    return property;
}
constexpr EntityProperty in(const char* subclass, EntityProperty property) {
    property.subclass = subclass;
    return property;
}

// --- three coordinates at once: xyz<L"Start">(10) is StartX, StartY and StartZ ---

template <std::size_t N>
struct Name {
    constexpr Name(const wchar_t (&text)[N]) {
        for (std::size_t i = 0; i < N; ++i)
            letters[i] = text[i];
    }
    wchar_t letters[N]{};
    static constexpr std::size_t size = N - 1;
};
template <Name name, wchar_t axis>
inline constexpr auto kAxisName = [] {
    std::array<wchar_t, name.size + 2> out{};
    for (std::size_t i = 0; i < name.size; ++i)
        out[i] = name.letters[i];
    out[name.size] = axis;
    return out;
}();
using ThreeProperties = std::array<EntityProperty, 3>;
template <Name name>
constexpr ThreeProperties xyz(int code) {
    return {x(kAxisName<name, L'X'>.data(), code), x(kAxisName<name, L'Y'>.data(), code + 10),
            x(kAxisName<name, L'Z'>.data(), code + 20)};
}
constexpr ThreeProperties in(const char* subclass, const ThreeProperties& three) {
    return {in(subclass, three[0]), in(subclass, three[1]), in(subclass, three[2])};
}

// --- lists of all that ---

constexpr std::span<const EntityProperty> asSpan(const EntityProperty& one) { return {&one, 1}; }
template <std::size_t N>
constexpr std::span<const EntityProperty> asSpan(const std::array<EntityProperty, N>& some) {
    return some;
}
template <class T>
inline constexpr std::size_t kCount = 1;
template <std::size_t N>
inline constexpr std::size_t kCount<std::array<EntityProperty, N>> = N;

template <class... Parts>
constexpr auto list(const Parts&... parts) {
    std::array<EntityProperty, (kCount<Parts> + ...)> out{};
    std::size_t count = 0;
    const auto add = [&](std::span<const EntityProperty> some) {
        for (const EntityProperty& one : some)
            out[count++] = one;
    };
    (add(asSpan(parts)), ...);
    return out;
}

// --- values that an entity's class gives and takes ---

template <class Class, class Get>
Value of(OdDbObjectId id, Get&& get) {
    const auto object = id.open<Class>();
    return object ? Value(get(*object)) : Value();
}
template <class Class, class T, class Set>
Status on(OdDbObjectId id, const Value& value, Set&& set) {
    const auto object = id.open<Class>(OdDb::kForWrite);
    const auto* typed = std::get_if<T>(&value);
    return object && typed ? set(*object, *typed) : Tavo::eWrongType;
}

template <class Class, auto Get>
Value got(OdDbObjectId id) {
    return of<Class>(id, [](const Class& object) {
        const auto value = (object.*Get)();
        if constexpr (std::is_integral_v<decltype(value)> || std::is_enum_v<decltype(value)>)
            return static_cast<std::int64_t>(value);
        else
            return value;
    });
}
// `T` is what the value is kept as.
template <class Class, class T, auto Set>
Status put(OdDbObjectId id, const Value& value) {
    return on<Class, T>(id, value, [](Class& object, const T& typed) { return (object.*Set)(typed); });
}

} // namespace tv::dwg::properties
