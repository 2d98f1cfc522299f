#pragma once

#include "platform/Export.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tv::text {

struct DecodedText {
    std::wstring text;
    bool exact = true; // false when bytes had no meaning in the page; each of them is a U+FFFD
};

struct EncodedText {
    std::string bytes;
    bool exact = true; // false when decoding the bytes gives another text
};

// The character set of a drawing, by the name its $DWGCODEPAGE header variable has. Texts may also hold
// characters of their own: \U+XXXX is a UTF-16 unit in hexadecimal (two of them for a character beyond U+FFFF)
// and \M+nXXXX a double byte of the code page numbered n: 1 for 932, 2 for 950, 3 for 949, 4 for 1361, 5 for
// 936. Copies share one converter: use an object and its copies in one thread at a time.
class KXPLATFORM_EXPORT CodePage {
  public:
    // Nothing for a name that is no code page whose first half is ASCII. Case does not matter: "ANSI_949",
    // "dos850", "ISO8859-1", "KSC5601", "JOHAB", "GB2312", "BIG5", "MACINTOSH", "ASCII", "UTF-8" ...
    static std::optional<CodePage> find(std::string_view name);
    // Of drawings since R2007.
    static CodePage utf8();

    // The name in upper case as it was given to find.
    const std::string& name() const;

    DecodedText decode(std::string_view bytes) const;
    // A character the page lacks is written as \U+XXXX. Not exact when the text has the look of such an escape
    // itself or holds something that is no character.
    EncodedText encode(std::wstring_view text) const;

  private:
    struct Converter;
    explicit CodePage(std::shared_ptr<Converter> converter) : m_converter(std::move(converter)) {}

    std::shared_ptr<Converter> m_converter;
};

} // namespace tv::text
