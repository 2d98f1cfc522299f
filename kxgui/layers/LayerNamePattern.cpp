#include "kxgui/layers/LayerNamePattern.h"

#include "platform/text/Unicode.h"

#include <algorithm>
#include <cwctype>

namespace kx::layers {
namespace {

constexpr std::wstring_view kWildcards = L"*?#@~,";

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
// Of any script: what has no case is a letter unless it is ASCII or in front of all scripts.
bool isLetter(wchar_t c) { return c < 0x80 ? c >= L'a' && c <= L'z' : c >= 0xAA && c != 0xD7 && c != 0xF7; }

} // namespace

std::string LayerNamePattern::foldName(std::wstring_view name) {
    return tv::text::toUtf8(tv::text::foldCase(name));
}

LayerNamePattern::LayerNamePattern(std::wstring_view text) {
    if (text.find_first_of(kWildcards) == std::wstring_view::npos) {
        m_plain = foldName(text);
        return;
    }
    const std::wstring folded = tv::text::foldCase(text);
    for (std::wstring_view rest = folded;;) {
        std::size_t end = 0;
        for (bool inSet = false; end < rest.size() && (inSet || rest[end] != L','); ++end) {
            if (rest[end] == L'`')
                ++end;
            else if (rest[end] == L'[' && rest.find(L']', end) != std::wstring_view::npos)
                inSet = true;
            else if (rest[end] == L']')
                inSet = false;
        }
        end = std::min(end, rest.size());
        // What is still being typed behind a comma is no name.
        if (end > 0) m_alternatives.push_back(read(rest.substr(0, end)));
        if (end == rest.size()) break;
        rest.remove_prefix(end + 1);
    }
}

LayerNamePattern::Alternative LayerNamePattern::read(std::wstring_view text) {
    Alternative out;
    if (text.starts_with(L'~') && text.size() > 1) {
        out.inverted = true;
        text.remove_prefix(1);
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        Piece piece;
        const std::size_t close = text[i] == L'[' ? text.find(L']', i + 1) : std::wstring_view::npos;
        if (close != std::wstring_view::npos && close > i + 1) {
            piece.kind = Piece::Kind::set;
            std::wstring_view inside = text.substr(i + 1, close - i - 1);
            if (inside.starts_with(L'~') && inside.size() > 1) {
                piece.inverted = true;
                inside.remove_prefix(1);
            }
            for (std::size_t at = 0; at < inside.size(); ++at) {
                const bool range = at + 2 < inside.size() && inside[at + 1] == L'-';
                piece.set.emplace_back(inside[at], range ? inside[at + 2] : inside[at]);
                if (range) at += 2;
            }
            i = close;
        } else {
            switch (text[i]) {
            case L'*':
                piece.kind = Piece::Kind::any;
                break;
            case L'?':
                piece.kind = Piece::Kind::one;
                break;
            case L'#':
                piece.kind = Piece::Kind::digit;
                break;
            case L'@':
                piece.kind = Piece::Kind::letter;
                break;
            case L'`':
                if (i + 1 < text.size()) ++i;
                [[fallthrough]];
            default:
                piece.ch = text[i];
            }
        }
        const bool again =
            piece.kind == Piece::Kind::any && !out.pieces.empty() && out.pieces.back().kind == piece.kind;
        if (!again) out.pieces.push_back(std::move(piece));
    }
    return out;
}

bool LayerNamePattern::Piece::fits(wchar_t c) const {
    switch (kind) {
    case Kind::text:
        return c == ch;
    case Kind::digit:
        return isDigit(c);
    case Kind::letter:
        return isLetter(c);
    case Kind::set:
        return inverted != std::ranges::any_of(
                               set, [c](const auto& range) { return c >= range.first && c <= range.second; });
    default:
        return true;
    }
}

// Goes back to the last * only, so that no name takes longer than its length times the pattern's.
bool LayerNamePattern::Alternative::fits(std::wstring_view name) const {
    std::size_t at = 0, piece = 0, star = pieces.size(), resume = 0;
    while (at < name.size()) {
        if (piece < pieces.size() && pieces[piece].kind == Piece::Kind::any) {
            star = piece++;
            resume = at;
        } else if (piece < pieces.size() && pieces[piece].fits(name[at])) {
            ++piece;
            ++at;
        } else if (star < pieces.size()) {
            piece = star + 1;
            at = ++resume;
        } else {
            return inverted;
        }
    }
    while (piece < pieces.size() && pieces[piece].kind == Piece::Kind::any)
        ++piece;
    return (piece == pieces.size()) != inverted;
}

bool LayerNamePattern::fits(std::string_view folded) const {
    if (m_alternatives.empty()) return folded.find(m_plain) != std::string_view::npos;
    const std::wstring name = tv::text::fromUtf8(folded);
    return std::ranges::any_of(m_alternatives, [&](const Alternative& one) { return one.fits(name); });
}

bool LayerNamePattern::narrows(const LayerNamePattern& other) const {
    if (other.all()) return true;
    return m_alternatives.empty() && other.m_alternatives.empty() &&
           m_plain.find(other.m_plain) != std::string::npos;
}

} // namespace kx::layers
