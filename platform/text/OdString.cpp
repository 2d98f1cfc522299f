#include "platform/text/OdString.h"

#include "platform/text/Unicode.h"

#include <algorithm>
#include <cwctype>

namespace {
bool isBlank(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r') || c == 0xA0 || c == 0x3000; }
} // namespace

OdString::OdString(const char* ascii) {
    if (ascii) m_text.assign(ascii, ascii + std::char_traits<char>::length(ascii));
}

int OdString::iCompare(std::wstring_view other) const { return tv::text::compareNoCase(m_text, other); }

int OdString::find(std::wstring_view what, int start) const {
    const auto at = m_text.find(what, static_cast<std::size_t>(std::max(start, 0)));
    return at == std::wstring::npos ? -1 : static_cast<int>(at);
}

int OdString::reverseFind(wchar_t what) const {
    const auto at = m_text.rfind(what);
    return at == std::wstring::npos ? -1 : static_cast<int>(at);
}

OdString OdString::mid(int first, int count) const {
    const auto from = std::min(static_cast<std::size_t>(std::max(first, 0)), m_text.size());
    return OdString(m_text.substr(from, count < 0 ? std::wstring::npos : static_cast<std::size_t>(count)));
}

OdString OdString::right(int count) const { return mid(getLength() - std::clamp(count, 0, getLength())); }

OdString& OdString::makeUpper() {
    m_text = tv::text::toUpper(m_text);
    return *this;
}

OdString& OdString::makeLower() {
    m_text = tv::text::toLower(m_text);
    return *this;
}

OdString& OdString::trimLeft() {
    m_text.erase(m_text.begin(), std::find_if_not(m_text.begin(), m_text.end(), isBlank));
    return *this;
}

OdString& OdString::trimRight() {
    m_text.erase(std::find_if_not(m_text.rbegin(), m_text.rend(), isBlank).base(), m_text.end());
    return *this;
}

int OdString::replace(std::wstring_view what, std::wstring_view with) {
    if (what.empty()) return 0;
    int count = 0;
    for (std::size_t at = m_text.find(what); at != std::wstring::npos;
         at = m_text.find(what, at + with.size())) {
        m_text.replace(at, what.size(), with);
        ++count;
    }
    return count;
}
