#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace tv::host {

// Reads what a person typed, one piece at a time. Typographic marks count as the plain ones: the degree sign as
// d, primes and curved quotes as ' and ". Letters are lower case here.
class InputScanner {
  public:
    explicit InputScanner(std::wstring_view text) {
        m_text.reserve(text.size());
        for (const wchar_t c : text)
            m_text += plain(c);
        skipBlanks();
    }

    bool atEnd() const { return m_at == m_text.size(); }
    char peek() const { return atEnd() ? '\0' : m_text[m_at]; }

    void skipBlanks() {
        while (m_at < m_text.size() && (m_text[m_at] == ' ' || m_text[m_at] == '\t'))
            ++m_at;
    }
    // Blanks after what was taken are skipped too.
    bool take(char c) {
        if (atEnd() || m_text[m_at] != c) return false;
        ++m_at;
        skipBlanks();
        return true;
    }
    // +1 or -1; a missing sign is +1.
    double sign() {
        if (take('-')) return -1;
        take('+');
        return 1;
    }
    // An unsigned number; with an exponent only in the general format. Blanks after it stay.
    std::optional<double> number(std::chars_format format = std::chars_format::general) {
        const char first = peek();
        if (first != '.' && (first < '0' || first > '9')) return std::nullopt; // keeps "inf" and "nan" out
        double value = 0;
        const char* begin = m_text.data() + m_at;
        const auto [end, error] = std::from_chars(begin, m_text.data() + m_text.size(), value, format);
        if (error != std::errc()) return std::nullopt;
        m_at += static_cast<std::size_t>(end - begin);
        return value;
    }
    std::optional<double> digits() {
        const auto end = m_text.find_first_not_of("0123456789", m_at);
        if (end == m_at || atEnd()) return std::nullopt;
        const auto size = (end == std::string::npos ? m_text.size() : end) - m_at;
        double value = 0;
        if (std::from_chars(m_text.data() + m_at, m_text.data() + m_at + size, value).ec != std::errc())
            return std::nullopt;
        m_at += size;
        return value;
    }

    std::size_t mark() const { return m_at; }
    void back(std::size_t mark) { m_at = mark; }

  private:
    static char plain(wchar_t c) {
        switch (c) {
        case 0xB0:
            return 'd';
        case 0x2018:
        case 0x2019:
        case 0x2032:
            return '\'';
        case 0x201C:
        case 0x201D:
        case 0x2033:
            return '"';
        case 0x2212:
            return '-';
        case 0xA0:
        case 0x3000:
            return ' ';
        default:
            break;
        }
        if (c >= L'A' && c <= L'Z') return static_cast<char>(c - L'A' + 'a');
        return c > 0 && c < 0x80 ? static_cast<char>(c) : '?';
    }

    std::string m_text;
    std::size_t m_at = 0;
};

} // namespace tv::host
