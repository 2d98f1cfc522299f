#include "platform/drawing/dxf/DxfTags.h"
#include "platform/text/Unicode.h"

#include <algorithm>

namespace tv::dwg {
namespace {

// Files from R2007 on hold UTF-8 whatever code page they declare. A text that isn't is read by the declared one
// after all; a file that declares nothing known is UTF-8 where it can be.
tv::text::CodePage pageFor(const DxfFormat& format, std::string_view raw) {
    const bool utf8 = format.utf8 || !format.page || format.version == OdDb::DxfVersion::kUnknown;
    if (utf8 && (!format.page || text::isUtf8(raw))) return tv::text::CodePage::utf8();
    return *format.page;
}

bool isAscii(std::string_view raw) {
    return std::none_of(raw.begin(), raw.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

std::wstring fromPage(const DxfFormat& format, std::string_view raw) {
    if (isAscii(raw) && raw.find('\\') == std::string_view::npos) return std::wstring(raw.begin(), raw.end());
    return pageFor(format, raw).decode(raw).text;
}

std::string toPage(const DxfFormat& format, std::wstring_view text) {
    const bool utf8 = format.utf8 || !format.page;
    return (utf8 ? tv::text::CodePage::utf8() : *format.page).encode(text).bytes;
}

} // namespace

OdString decodeText(const DxfFormat& format, std::string_view raw) {
    std::wstring text = fromPage(format, raw);
    // A caret and a letter stand for a control character, a caret and a blank for the caret itself.
    if (text.find(L'^') == std::wstring::npos) return OdString(std::move(text));
    std::wstring out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'^' && i + 1 < text.size()) {
            const wchar_t next = text[i + 1];
            if (next == L' ') {
                out.push_back(L'^');
                ++i;
                continue;
            }
            if (next >= L'@' && next <= L'_') {
                out.push_back(static_cast<wchar_t>(next - L'@'));
                ++i;
                continue;
            }
        }
        out.push_back(text[i]);
    }
    return OdString(std::move(out));
}

std::string encodeText(const DxfFormat& format, std::wstring_view text) {
    std::wstring plain;
    plain.reserve(text.size());
    for (const wchar_t c : text) {
        if (c >= 0 && c < 32) {
            plain.push_back(L'^');
            plain.push_back(static_cast<wchar_t>(c + L'@'));
        } else if (c == L'^') {
            plain += L"^ ";
        } else {
            plain.push_back(c);
        }
    }
    return toPage(format, plain);
}

OdString nameAsRead(const DxfFormat& format, std::wstring_view name) {
    OdString out(name);
    if (name.find(L'\\') == std::wstring_view::npos) return out;
    for (int round = 0; round < 8; ++round) {
        OdString read = decodeText(format, encodeText(format, out.view()));
        if (read == out) break;
        out = std::move(read);
    }
    return out;
}

} // namespace tv::dwg
