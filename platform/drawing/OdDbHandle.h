#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// An object's name inside its drawing file: 64 bits, written as upper-case hexadecimal. 0 is no handle.
class OdDbHandle {
  public:
    constexpr OdDbHandle() = default;
    constexpr OdDbHandle(std::uint64_t value) : m_value(value) {}

    // Blanks around the digits are allowed; anything else, or more than 64 bits, is no handle.
    static std::optional<OdDbHandle> fromAscii(std::string_view text) {
        while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
            text.remove_prefix(1);
        while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
            text.remove_suffix(1);
        std::uint64_t value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
        if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
        return OdDbHandle(value);
    }
    static std::optional<OdDbHandle> fromText(std::wstring_view text) {
        std::string narrow;
        for (wchar_t c : text)
            narrow.push_back(c > 0 && c < 128 ? static_cast<char>(c) : '?');
        return fromAscii(narrow);
    }

    constexpr bool isNull() const { return m_value == 0; }
    constexpr std::uint64_t value() const { return m_value; }
    std::string ascii() const {
        std::array<char, 17> buffer{};
        const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), m_value, 16);
        std::string out(buffer.data(), end);
        for (char& c : out)
            if (c >= 'a') c = static_cast<char>(c - 32);
        return out;
    }
    std::wstring text() const {
        const std::string narrow = ascii();
        return std::wstring(narrow.begin(), narrow.end());
    }
    friend constexpr bool operator==(OdDbHandle, OdDbHandle) = default;
    friend constexpr auto operator<=>(OdDbHandle, OdDbHandle) = default;

  private:
    std::uint64_t m_value = 0;
};
