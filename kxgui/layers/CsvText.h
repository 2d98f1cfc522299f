#pragma once

#include "kxgui/Export.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Tables as text: lines of fields as RFC 4180 has them, in UTF-8.
namespace kx::layers {

struct CsvLine {
    int number = 0; // of the line of text it begins on, counted from 1
    std::vector<std::wstring> fields;
    bool broken = false; // a quotation mark that doesn't end, or text behind one that does
};

// Reads line by line. Comma, semicolon and tab part fields: the one that stands most often, outside quotation
// marks, in the first line that isn't empty. Every kind of line end, a byte order mark and line ends within
// quotation marks are taken. A broken line ends at its line end, so that those behind it are still read.
class KXGUI_EXPORT CsvReader {
  public:
    explicit CsvReader(std::string_view bytes);
    // False when the bytes are no UTF-8.
    bool readable() const { return m_readable; }
    wchar_t separator() const { return m_separator; }
    // The next line that has a field; false at the end. More fields than `mostFields` are read over.
    bool next(CsvLine& line);

    static constexpr std::size_t mostFields = 256;

  private:
    void findSeparator();
    bool quoted(std::wstring& field, bool& broken);
    void lineEnd();
    bool atEnd() const { return m_at >= m_text.size(); }
    bool atLineEnd() const { return atEnd() || m_text[m_at] == L'\r' || m_text[m_at] == L'\n'; }

    std::wstring m_text;
    std::size_t m_at = 0;
    int m_line = 1;
    wchar_t m_separator = L',';
    bool m_readable = false;
};

// A line with its end, fields parted by commas. Fields that need quotation marks get them, and so do those a
// spreadsheet could take for a formula; every text reads back as it was.
KXGUI_EXPORT std::wstring csvLine(const std::vector<std::wstring>& fields);

} // namespace kx::layers
