#pragma once

#include "platform/text/CodePage.h"

#include <iconv.h>
#include <unicode/ucnv.h>

#include <memory>
#include <string>
#include <string_view>

// What turns the bytes of a code page into characters and back; for the sources of this room.
namespace tv::text {

class IcuConverter {
  public:
    // Null when ICU has no such converter, or one whose ASCII characters are not the ASCII bytes.
    static std::unique_ptr<IcuConverter> open(const std::string& icuName);

    DecodedText decode(std::string_view bytes) const;
    EncodedText encode(std::wstring_view text) const;

  private:
    struct Close {
        void operator()(UConverter* converter) const { ucnv_close(converter); }
    };
    std::unique_ptr<UConverter, Close> m_converter;
};

// Korean code page 1361, which ICU does not have. The C library's converter reads the byte 0x5C as a won sign;
// in drawings it is the backslash, so single bytes never reach it.
class JohabConverter {
  public:
    static std::unique_ptr<JohabConverter> open();
    ~JohabConverter();

    DecodedText decode(std::string_view bytes) const;
    EncodedText encode(std::wstring_view text) const;

  private:
    JohabConverter() = default;
    iconv_t m_decoder = reinterpret_cast<iconv_t>(-1);
    iconv_t m_encoder = reinterpret_cast<iconv_t>(-1);
};

} // namespace tv::text
