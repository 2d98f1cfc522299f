#include "platform/drawing/dxf/DxfTags.h"
#include "platform/text/Unicode.h"

namespace tv::dwg {
namespace {

std::wstring fromPage(const DxfFormat&, std::string_view raw) { return text::fromUtf8(raw); }
std::string toPage(const DxfFormat&, std::wstring_view text) { return text::toUtf8(text); }

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

} // namespace tv::dwg
