#include "kxgui/layers/CsvText.h"

#include "platform/text/Unicode.h"

#include <algorithm>

namespace kx::layers {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

bool needsQuotes(std::wstring_view field) {
    if (field.empty()) return false;
    const std::wstring_view formula = L"=+-@";
    return formula.find(field.front()) != formula.npos || field.front() == L' ' || field.back() == L' ' ||
           field.find_first_of(L"\",;\t\r\n") != field.npos;
}

} // namespace

CsvReader::CsvReader(std::string_view bytes) {
    if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
    m_readable = tv::text::isUtf8(bytes);
    if (!m_readable) return;
    m_text = tv::text::fromUtf8(bytes);
    findSeparator();
}

void CsvReader::findSeparator() {
    std::size_t commas = 0, semicolons = 0, tabs = 0;
    bool inQuotes = false;
    for (const wchar_t c : m_text) {
        if (c == L'"') inQuotes = !inQuotes;
        if (inQuotes) continue;
        if ((c == L'\r' || c == L'\n') && commas + semicolons + tabs) break;
        commas += c == L',';
        semicolons += c == L';';
        tabs += c == L'\t';
    }
    const std::size_t most = std::max({commas, semicolons, tabs});
    m_separator = commas == most ? L',' : semicolons == most ? L';' : L'\t';
}

void CsvReader::lineEnd() {
    if (atEnd()) return;
    if (m_text[m_at] == L'\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == L'\n') ++m_at;
    ++m_at;
    ++m_line;
}

// Behind the opening mark. A text that doesn't end goes to the end of its first line.
bool CsvReader::quoted(std::wstring& field, bool& broken) {
    const std::size_t begin = m_at;
    const int line = m_line;
    while (!atEnd()) {
        const wchar_t c = m_text[m_at];
        if (c == L'"') {
            ++m_at;
            if (atEnd() || m_text[m_at] != L'"') return true;
        } else if (c == L'\n' || (c == L'\r' && (m_at + 1 >= m_text.size() || m_text[m_at + 1] != L'\n'))) {
            ++m_line;
        }
        field += m_text[m_at++];
    }
    broken = true;
    m_at = begin;
    m_line = line;
    field.clear();
    while (!atLineEnd())
        field += m_text[m_at++];
    return false;
}

bool CsvReader::next(CsvLine& line) {
    while (!atEnd() && atLineEnd())
        lineEnd();
    line.fields.clear();
    line.broken = false;
    line.number = m_line;
    if (atEnd()) return false;
    for (bool more = true; more;) {
        std::wstring field;
        if (!atEnd() && m_text[m_at] == L'"') {
            ++m_at;
            quoted(field, line.broken);
            if (!atLineEnd() && m_text[m_at] != m_separator) line.broken = true;
        }
        while (!atLineEnd() && m_text[m_at] != m_separator)
            field += m_text[m_at++];
        more = !atLineEnd();
        if (more) ++m_at;
        if (line.fields.size() < mostFields) line.fields.push_back(std::move(field));
    }
    lineEnd();
    return true;
}

std::wstring csvLine(const std::vector<std::wstring>& fields) {
    std::wstring out;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i) out += L',';
        if (!needsQuotes(fields[i])) {
            out += fields[i];
            continue;
        }
        out += L'"';
        for (const wchar_t c : fields[i]) {
            if (c == L'"') out += c;
            out += c;
        }
        out += L'"';
    }
    return out + L"\r\n";
}

} // namespace kx::layers
