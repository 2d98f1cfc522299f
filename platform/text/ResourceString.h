#pragma once

#include "platform/Export.h"

#include <string_view>

// The visible text for a message key in the current language: `VORD_ResourceString("IDS_...", L"기본 텍스트")`.
// When no loaded message file has the key, it is the default itself. `defaultText` must live as long as the
// text is used (a literal does); texts from message files live as long as the message manager. Nothing is
// allocated, except the first time a text of a message file is asked for.
class KXPLATFORM_EXPORT VORD_ResourceString {
  public:
    VORD_ResourceString(const char* key, const wchar_t* defaultText);
    VORD_ResourceString(const VORD_ResourceString&) = delete;
    VORD_ResourceString& operator=(const VORD_ResourceString&) = delete;

    const wchar_t* c_str() const { return m_text; }
    operator const wchar_t*() const { return m_text; }
    operator std::wstring_view() const { return m_text; }

  private:
    const wchar_t* m_text;
};

namespace tv::text {

// A text that a table holds and looks up each time it is shown, so that it follows the language:
// `constexpr TableText kNames[] = {{"IDS_...", L"기본 텍스트"}, ...};`
struct TableText {
    const char* key;
    const wchar_t* defaultText;

    const wchar_t* text() const { return VORD_ResourceString(key, defaultText).c_str(); }
};

} // namespace tv::text
