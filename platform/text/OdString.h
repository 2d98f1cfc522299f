#pragma once

#include "platform/Export.h"
#include "platform/text/Format.h"

#include <compare>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

// Wide text (one wchar_t per Unicode code point). A value type: copies are independent.
// Positions and lengths count code points from 0; -1 means "not found".
class KXPLATFORM_EXPORT OdString {
  public:
    OdString() = default;
    OdString(const wchar_t* text) : m_text(text ? text : L"") {}
    OdString(std::wstring text) : m_text(std::move(text)) {}
    OdString(std::wstring_view text) : m_text(text) {}
    // Anything that is a text both ways (VORD_ResourceString), so that neither conversion is preferred.
    template <class T>
    requires(std::is_class_v<T>&& std::is_convertible_v<const T&, const wchar_t*>&&
                 std::is_convertible_v<const T&, std::wstring_view> &&
             !std::is_base_of_v<OdString, T>) OdString(const T& text)
        : m_text(static_cast<std::wstring_view>(text)) {}
    // ASCII only: anything else goes through tv::text::fromUtf8 or a code page.
    explicit OdString(const char* ascii);

    const wchar_t* c_str() const { return m_text.c_str(); }
    operator const wchar_t*() const { return m_text.c_str(); }
    operator std::wstring_view() const { return m_text; }
    const std::wstring& wstr() const& { return m_text; }
    std::wstring wstr() && { return std::move(m_text); }
    std::wstring_view view() const { return m_text; }

    bool isEmpty() const { return m_text.empty(); }
    void empty() { m_text.clear(); }
    int getLength() const { return static_cast<int>(m_text.size()); }
    // 0 outside the text.
    wchar_t getAt(int index) const {
        return index >= 0 && index < getLength() ? m_text[static_cast<std::size_t>(index)] : L'\0';
    }

    // Exact comparison by code point: negative, 0 or positive.
    int compare(std::wstring_view other) const { return m_text.compare(other); }
    // The same without regard to letter case (Unicode simple folding).
    int iCompare(std::wstring_view other) const;

    int find(std::wstring_view what, int start = 0) const;
    int find(wchar_t what, int start = 0) const { return find(std::wstring_view(&what, 1), start); }
    int reverseFind(wchar_t what) const;
    // Out-of-range parts are cut off, never an error.
    OdString mid(int first, int count = -1) const;
    OdString left(int count) const { return mid(0, count); }
    OdString right(int count) const;

    OdString& makeUpper();
    OdString& makeLower();
    OdString& trimLeft();
    OdString& trimRight();
    OdString& trim() { return trimLeft().trimRight(); }
    // Replaces every occurrence; returns how many there were.
    int replace(std::wstring_view what, std::wstring_view with);

    // Replaces this text by the printf-style `format` filled with `args` (see tv::text::format).
    template <class... Args>
    OdString& format(const wchar_t* format, const Args&... args) {
        m_text = tv::text::format(format, args...);
        return *this;
    }

    OdString& operator+=(std::wstring_view other) {
        m_text += other;
        return *this;
    }
    friend OdString operator+(OdString a, std::wstring_view b) { return a += b; }
    friend bool operator==(const OdString& a, const OdString& b) { return a.m_text == b.m_text; }
    friend bool operator==(const OdString& a, const wchar_t* b) { return a.m_text == b; }
    friend std::strong_ordering operator<=>(const OdString& a, const OdString& b) {
        return a.m_text <=> b.m_text;
    }

  private:
    std::wstring m_text;
};

// The string type of the host's functions.
class KXPLATFORM_EXPORT TvString : public OdString {
  public:
    using OdString::OdString;
    TvString() = default;
    TvString(const OdString& text) : OdString(text) {}
    TvString(OdString&& text) : OdString(std::move(text)) {}
};
