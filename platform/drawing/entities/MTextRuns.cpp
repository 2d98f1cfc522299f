#include "platform/drawing/entities/MTextRuns.h"

#include "platform/drawing/dxf/DxfTags.h"
#include "platform/text/CodePage.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>
#include <utility>

namespace tv::dwg {
namespace {

using FormatPtr = std::shared_ptr<const MTextFormat>;

constexpr wchar_t kNoBreakSpace = 0xA0;

// One character of the plain text and its source.
struct Place {
    wchar_t c = 0;
    std::size_t begin = 0, end = 0;
};

// What \S...; holds, character by character.
struct Stack {
    std::vector<Place> upper, lower;
    std::optional<Place> sign;
    wchar_t kind = 0;
};

std::string narrowed(std::wstring_view text) {
    std::string out;
    for (const wchar_t c : text)
        out.push_back(c > 0 && c < 128 ? static_cast<char>(c) : '?');
    return out;
}

std::optional<double> numberOf(std::wstring_view text) {
    const std::string ascii = narrowed(text);
    std::string_view digits = trimmed(ascii);
    if (!digits.empty() && digits.front() == '+') digits.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

bool isHex(wchar_t c) {
    return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'F') || (c >= L'a' && c <= L'f');
}

// Length of the \U+XXXX or \M+nXXXX at the text's start, 0 when there is none.
std::size_t escapeLength(std::wstring_view text) {
    const bool unicode = text.starts_with(L"\\U+");
    if (!unicode && !text.starts_with(L"\\M+")) return 0;
    const std::size_t length = unicode ? 7 : 8;
    if (text.size() < length) return 0;
    return std::all_of(text.begin() + 3, text.begin() + static_cast<std::ptrdiff_t>(length), isHex) ? length
                                                                                                    : 0;
}

MTextFont fontOf(std::wstring_view argument, bool isFile) {
    MTextFont font;
    font.isFile = isFile;
    bool first = true;
    while (!argument.empty()) {
        const std::wstring_view part = argument.substr(0, argument.find(L'|'));
        argument.remove_prefix(std::min(argument.size(), part.size() + 1));
        if (std::exchange(first, false)) {
            font.name = OdString(part);
            continue;
        }
        if (part.empty()) continue;
        const int value = static_cast<int>(std::clamp(numberOf(part.substr(1)).value_or(0), -1e6, 1e6));
        switch (part[0]) {
        case L'b':
            font.bold = value != 0;
            break;
        case L'i':
            font.italic = value != 0;
            break;
        case L'c':
            font.codePage = value;
            break;
        case L'p':
            font.pitch = value;
            break;
        default:
            break;
        }
    }
    return font;
}

// "xi-3,l4,qc,t4,8": letters with their values; * is the default again, and tabs take the rest.
void readParagraph(std::wstring_view argument, MTextParagraph& paragraph) {
    std::size_t i = 0;
    const auto value = [&]() -> double {
        const std::size_t start = i;
        while (i < argument.size() && (argument[i] == L'-' || argument[i] == L'+' || argument[i] == L'.' ||
                                       (argument[i] >= L'0' && argument[i] <= L'9')))
            ++i;
        return numberOf(argument.substr(start, i - start)).value_or(0);
    };
    while (i < argument.size()) {
        switch (argument[i++]) {
        case L'i':
            paragraph.firstIndent = value();
            break;
        case L'l':
            paragraph.leftIndent = value();
            break;
        case L'r':
            paragraph.rightIndent = value();
            break;
        case L'q': {
            const wchar_t letter = i < argument.size() ? argument[i++] : L'*';
            paragraph.alignment = letter == L'l'   ? MTextParagraph::kLeft
                                  : letter == L'r' ? MTextParagraph::kRight
                                  : letter == L'c' ? MTextParagraph::kCentered
                                  : letter == L'j' ? MTextParagraph::kJustified
                                  : letter == L'd' ? MTextParagraph::kDistributed
                                                   : MTextParagraph::kDefault;
            break;
        }
        case L't':
            paragraph.tabs = OdString(argument.substr(i));
            if (paragraph.tabs == L"*") paragraph.tabs.empty();
            return;
        default: // blanks, commas, and x, which only says that values follow
            break;
        }
    }
}

// Walks contents and tells the sink of every character, break and stack with the format it has.
template <class Sink>
class Scanner {
  public:
    Scanner(std::wstring_view contents, Sink& sink) : m_text(contents), m_sink(sink) {
        m_lastSemicolon = contents.rfind(L';');
    }

    void run() {
        while (m_pos < m_text.size()) {
            const std::size_t start = m_pos;
            const wchar_t c = m_text[m_pos++];
            switch (c) {
            case L'{':
                m_outer.push_back(m_format);
                break;
            case L'}':
                if (m_outer.empty()) break;
                m_format = std::move(m_outer.back());
                m_outer.pop_back();
                break;
            case L'\\':
                code(start);
                break;
            case L'%':
                percent(start);
                break;
            case L'\t':
                m_sink.special(MTextRun::kTab, c, start, m_pos, m_format);
                break;
            case L'\n':
                m_sink.special(MTextRun::kNewParagraph, c, start, m_pos, m_format);
                break;
            case L'\r': // alone or the first of a pair
                if (m_pos < m_text.size() && m_text[m_pos] == L'\n') ++m_pos;
                m_sink.special(MTextRun::kNewParagraph, L'\n', start, m_pos, m_format);
                break;
            default:
                put(c, start);
            }
        }
    }

  private:
    // Line breaks in places where none can be, as character codes and inside of stacks, are blanks.
    static wchar_t withoutBreaks(wchar_t c) { return c == L'\n' || c == L'\r' ? L' ' : c; }
    void put(wchar_t c, std::size_t start) { m_sink.character({withoutBreaks(c), start, m_pos}, m_format); }
    template <class Change>
    void change(Change&& how) {
        MTextFormat next = *m_format;
        how(next);
        if (next != *m_format) m_format = std::make_shared<const MTextFormat>(std::move(next));
    }

    // %%d %%p %%c, %%nnn, and %%% for the sign itself.
    void percent(std::size_t start) {
        wchar_t c = L'%';
        if (m_pos + 1 < m_text.size() && m_text[m_pos] == L'%') {
            const wchar_t next = m_text[m_pos + 1];
            const wchar_t special = next == L'd' || next == L'D'   ? wchar_t{0xB0}
                                    : next == L'p' || next == L'P' ? wchar_t{0xB1}
                                    : next == L'c' || next == L'C' ? wchar_t{0x2300}
                                    : next == L'%'                 ? L'%'
                                                                   : wchar_t{0};
            if (special) {
                c = special;
                m_pos += 2;
            } else if (m_pos + 3 < m_text.size()) {
                const std::wstring_view digits = m_text.substr(m_pos + 1, 3);
                if (std::all_of(digits.begin(), digits.end(),
                                [](wchar_t d) { return d >= L'0' && d <= L'9'; })) {
                    const int value = (digits[0] - L'0') * 100 + (digits[1] - L'0') * 10 + (digits[2] - L'0');
                    if (value >= 32) {
                        c = static_cast<wchar_t>(value);
                        m_pos += 4;
                    }
                }
            }
        }
        put(c, start);
    }

    // The argument up to the semicolon, which is passed; nothing when there is none within reach.
    std::optional<std::wstring_view> argument(std::size_t most) {
        if (m_lastSemicolon == std::wstring_view::npos || m_pos > m_lastSemicolon) return std::nullopt;
        const std::wstring_view reach = m_text.substr(m_pos, most);
        const std::size_t end = reach.find_first_of(L";\\{}");
        if (end == std::wstring_view::npos || reach[end] != L';') return std::nullopt;
        m_pos += end + 1;
        return reach.substr(0, end);
    }

    void code(std::size_t start) {
        if (m_pos == m_text.size()) return put(L'\\', start);
        if (const std::size_t length = escapeLength(m_text.substr(start, 8))) return escape(start, length);
        const wchar_t letter = m_text[m_pos++];
        switch (letter) {
        case L'P':
        case L'X': // in a dimension: what follows stands below its line
            return m_sink.special(MTextRun::kNewParagraph, L'\n', start, m_pos, m_format);
        case L'N':
            return m_sink.special(MTextRun::kNewColumn, L'\n', start, m_pos, m_format);
        case L'~':
            return put(kNoBreakSpace, start);
        case L'\\':
        case L'{':
        case L'}':
            return put(letter, start);
        case L'L':
        case L'l':
            return change([&](MTextFormat& f) { f.underline = letter == L'L'; });
        case L'O':
        case L'o':
            return change([&](MTextFormat& f) { f.overline = letter == L'O'; });
        case L'K':
        case L'k':
            return change([&](MTextFormat& f) { f.strikeThrough = letter == L'K'; });
        case L'S':
            return stack(start);
        default:
            break;
        }
        if (!valued(letter)) {
            // No code after all: the backslash and the letter are text.
            m_pos = start + 1;
            put(L'\\', start);
        }
    }

    bool valued(wchar_t letter) {
        switch (letter) {
        case L'f':
        case L'F':
        case L'p':
            if (const auto text = argument(512)) {
                change([&](MTextFormat& f) {
                    if (letter == L'p')
                        readParagraph(*text, f.paragraph);
                    else
                        f.font = fontOf(*text, letter == L'F');
                });
                return true;
            }
            return false;
        case L'A':
        case L'C':
        case L'c':
        case L'H':
        case L'Q':
        case L'T':
        case L'W':
            break;
        default:
            return false;
        }
        const auto text = argument(64);
        if (!text) return false;
        const bool factor = letter == L'H' && (text->ends_with(L'x') || text->ends_with(L'X'));
        // An unreadable value changes nothing, but the code is one.
        if (const auto number = numberOf(factor ? text->substr(0, text->size() - 1) : *text))
            change([&](MTextFormat& f) { apply(letter, *number, factor, f); });
        return true;
    }

    static void apply(wchar_t letter, double number, bool factor, MTextFormat& f) {
        switch (letter) {
        case L'A':
            f.alignment = static_cast<int>(std::clamp(number, 0.0, 2.0));
            break;
        case L'C':
            if (number >= 0 && number <= 256) f.color = OdCmColor::byIndex(static_cast<int>(number));
            break;
        case L'c': { // red in the lowest byte
            const auto value = static_cast<std::uint32_t>(std::clamp(number, 0.0, 16777215.0));
            f.color = OdCmColor::byRgb(static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8),
                                       static_cast<std::uint8_t>(value >> 16));
            break;
        }
        case L'H':
            if (number <= 0) break;
            if (factor) {
                if (std::isfinite(f.heightFactor * number)) f.heightFactor *= number;
                break;
            }
            f.height = number;
            f.heightFactor = 1;
            break;
        case L'Q':
            f.oblique = number * std::numbers::pi / 180;
            break;
        case L'T':
            f.tracking = number;
            break;
        case L'W':
            f.widthFactor = number;
            break;
        default:
            break;
        }
    }

    // Two halves of a surrogate pair are one character.
    void escape(std::size_t start, std::size_t length) {
        std::size_t end = start + length;
        if (length == 7 && (m_text[start + 3] | 0x20) == L'd' && escapeLength(m_text.substr(end, 8)) == 7) {
            const std::wstring both = decoded(m_text.substr(start, 14));
            if (both.size() == 1) {
                m_pos = start + 14;
                return put(both[0], start);
            }
        }
        m_pos = end;
        const std::wstring one = decoded(m_text.substr(start, length));
        put(one.size() == 1 ? one[0] : wchar_t{0xFFFD}, start);
    }

    static std::wstring decoded(std::wstring_view ascii) {
        static thread_local const text::CodePage page = text::CodePage::utf8();
        return page.decode(narrowed(ascii)).text;
    }

    // Up to its semicolon, or to the end where none stands. The first /, # or ^ parts the halves.
    void stack(std::size_t start) {
        Stack out;
        bool closed = false;
        while (m_pos < m_text.size() && !closed) {
            const std::size_t at = m_pos;
            wchar_t c = m_text[m_pos++];
            const bool escaped = c == L'\\' && m_pos < m_text.size();
            if (escaped) c = m_text[m_pos++];
            if (!escaped && c == L';') {
                closed = true;
            } else if (!escaped && !out.sign && (c == L'/' || c == L'#' || c == L'^')) {
                out.kind = c;
                out.sign = Place{L'/', at, m_pos};
            } else {
                (out.sign ? out.lower : out.upper).push_back({withoutBreaks(c), at, m_pos});
            }
        }
        m_sink.stack(out, start, m_pos, m_format);
    }

    std::wstring_view m_text;
    Sink& m_sink;
    std::size_t m_pos = 0;
    std::size_t m_lastSemicolon;
    FormatPtr m_format = std::make_shared<const MTextFormat>();
    std::vector<FormatPtr> m_outer;
};

struct RunSink {
    std::vector<MTextRun> runs;
    std::wstring open;

    void close() {
        if (!open.empty()) runs.back().text = OdString(std::exchange(open, {}));
    }
    void add(MTextRun::Kind kind, std::size_t begin, std::size_t end, const FormatPtr& format) {
        close();
        MTextRun run;
        run.kind = kind;
        run.begin = begin;
        run.end = end;
        run.format = !runs.empty() && *runs.back().format == *format ? runs.back().format : format;
        runs.push_back(std::move(run));
    }
    void character(const Place& place, const FormatPtr& format) {
        const bool joins = !open.empty() && (runs.back().format == format || *runs.back().format == *format);
        if (!joins) add(MTextRun::kText, place.begin, place.end, format);
        open.push_back(place.c);
        runs.back().end = place.end;
    }
    void special(MTextRun::Kind kind, wchar_t c, std::size_t begin, std::size_t end, const FormatPtr& format) {
        add(kind, begin, end, format);
        runs.back().text = OdString(std::wstring(1, c));
    }
    void stack(const Stack& parts, std::size_t begin, std::size_t end, const FormatPtr& format) {
        const auto text = [](const std::vector<Place>& places) {
            std::wstring out;
            for (const Place& place : places)
                out.push_back(place.c);
            return OdString(std::move(out));
        };
        add(MTextRun::kStack, begin, end, format);
        runs.back().text = text(parts.upper);
        runs.back().lower = text(parts.lower);
        runs.back().stack = parts.kind;
    }
};

struct PlainSink {
    std::wstring plain;

    void character(const Place& place, const FormatPtr&) { plain.push_back(place.c); }
    void special(MTextRun::Kind, wchar_t c, std::size_t, std::size_t, const FormatPtr&) { plain.push_back(c); }
    void stack(const Stack& parts, std::size_t, std::size_t, const FormatPtr&) {
        for (const Place& place : parts.upper)
            plain.push_back(place.c);
        if (parts.sign) plain.push_back(parts.sign->c);
        for (const Place& place : parts.lower)
            plain.push_back(place.c);
    }
};

// The plain text with the source of every character.
struct PlaceSink {
    struct Char : Place {
        std::size_t stack = 0; // 1 + number of its stack
        bool sign = false;
    };
    struct Extent {
        std::size_t begin, end;  // in the contents
        std::size_t first, last; // in the plain text
    };
    std::vector<Char> chars;
    std::vector<Extent> stacks;

    void character(const Place& place, const FormatPtr&) { chars.push_back({place}); }
    void special(MTextRun::Kind, wchar_t c, std::size_t begin, std::size_t end, const FormatPtr&) {
        chars.push_back({Place{c, begin, end}});
    }
    void stack(const Stack& parts, std::size_t begin, std::size_t end, const FormatPtr&) {
        const std::size_t first = chars.size();
        for (const Place& place : parts.upper)
            chars.push_back({place, stacks.size() + 1});
        if (parts.sign) chars.push_back({*parts.sign, stacks.size() + 1, true});
        for (const Place& place : parts.lower)
            chars.push_back({place, stacks.size() + 1});
        stacks.push_back({begin, end, first, chars.size()});
    }
};

std::wstring escaped(std::wstring_view plain, bool inStack) {
    std::wstring out;
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const wchar_t c = plain[i];
        if (inStack) {
            if (c == L'\\' || c == L';' || c == L'/' || c == L'#' || c == L'^') out.push_back(L'\\');
            out.push_back(c == L'\n' || c == L'\r' ? L' ' : c);
            continue;
        }
        switch (c) {
        case L'\n':
            out += L"\\P";
            break;
        case L'\r':
            break;
        case kNoBreakSpace:
            out += L"\\~";
            break;
        case L'%': // two of them begin a special character
            out += i + 1 < plain.size() && plain[i + 1] == L'%' ? L"%%%" : L"%";
            break;
        case L'\\':
        case L'{':
        case L'}':
            out.push_back(L'\\');
            [[fallthrough]];
        default:
            out.push_back(c);
        }
    }
    return out;
}

// See replaceInContents. With `apart` an empty group on either side keeps the new text from making a code with
// what stands beside it.
std::wstring replaced(std::wstring_view contents, std::size_t begin, std::size_t end, std::wstring_view text,
                      bool apart) {
    PlaceSink sink;
    Scanner<PlaceSink>(contents, sink).run();
    const auto& chars = sink.chars;
    begin = std::min(begin, chars.size());
    end = std::clamp(end, begin, chars.size());

    // Where the new text goes: over the first character replaced; without one, behind the character before.
    std::size_t place = contents.size();
    bool inStack = false;
    if (begin < end) {
        const auto& first = chars[begin];
        place = first.begin;
        inStack = first.stack != 0;
        if (inStack) {
            const PlaceSink::Extent& whole = sink.stacks[first.stack - 1];
            if (begin == whole.first && end >= whole.last) {
                place = whole.begin;
                inStack = false;
            }
        }
    } else if (!chars.empty()) {
        const auto& beside = chars[begin > 0 ? begin - 1 : 0];
        place = begin > 0 ? beside.end : beside.begin;
        inStack = beside.stack != 0;
        // At a stack's end the text goes behind it, at the start of the contents before it.
        if (inStack) {
            const PlaceSink::Extent& whole = sink.stacks[beside.stack - 1];
            if (begin == whole.last || begin == whole.first) {
                place = begin == whole.last ? whole.end : whole.begin;
                inStack = false;
            }
        }
    }

    std::wstring out;
    std::size_t done = 0;
    bool written = false;
    const auto keepTo = [&](std::size_t to) {
        if (!written && place <= to) {
            out += contents.substr(done, place - done);
            if (apart && !inStack) out += L"{}";
            out += escaped(text, inStack);
            if (apart && !inStack) out += L"{}";
            done = place;
            written = true;
        }
        if (to > done) out += contents.substr(done, to - done);
        done = std::max(done, to);
    };
    for (std::size_t i = begin; i < end; ++i) {
        const auto& c = chars[i];
        if (c.stack != 0) {
            const PlaceSink::Extent& whole = sink.stacks[c.stack - 1];
            if (whole.first >= begin && whole.last <= end) {
                keepTo(whole.begin);
                done = whole.end;
                i = whole.last - 1;
                continue;
            }
            if (c.sign) continue;
        }
        keepTo(c.begin);
        done = c.end;
    }
    keepTo(contents.size());
    return out;
}

} // namespace

std::vector<MTextRun> mtextRuns(std::wstring_view contents) {
    RunSink sink;
    Scanner<RunSink>(contents, sink).run();
    sink.close();
    return std::move(sink.runs);
}

OdString plainText(const std::vector<MTextRun>& runs) {
    std::wstring out;
    for (const MTextRun& run : runs) {
        out += run.text.view();
        if (run.stack) out.push_back(L'/');
        out += run.lower.view();
    }
    std::replace(out.begin(), out.end(), kNoBreakSpace, L' ');
    return OdString(std::move(out));
}

OdString plainText(std::wstring_view contents) {
    PlainSink sink;
    Scanner<PlainSink>(contents, sink).run();
    std::replace(sink.plain.begin(), sink.plain.end(), kNoBreakSpace, L' ');
    return OdString(std::move(sink.plain));
}

OdString replaceInContents(std::wstring_view contents, std::size_t begin, std::size_t end,
                           std::wstring_view text) {
    std::wstring expected(plainText(contents).view());
    begin = std::min(begin, expected.size());
    end = std::clamp(end, begin, expected.size());
    expected.replace(begin, end - begin, text);
    std::wstring out = replaced(contents, begin, end, text, false);
    if (plainText(out).view() == expected) return OdString(std::move(out));
    std::wstring parted = replaced(contents, begin, end, text, true);
    return OdString(plainText(parted).view() == expected ? std::move(parted) : std::move(out));
}

OdString contentsOf(std::wstring_view plain) { return OdString(escaped(plain, false)); }

} // namespace tv::dwg
