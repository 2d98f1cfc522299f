#include "platform/text/MessageFile.h"

#include "platform/text/Unicode.h"

#include <algorithm>
#include <cstring>

namespace tv::text {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// What stands for `\` followed by this character; 0 when nothing does.
char escaped(char c) {
    switch (c) {
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    case 's':
        return ' ';
    case '\\':
    case '"':
        return c;
    default:
        return 0;
    }
}

bool hasOnlyKnownEscapes(std::string_view text) {
    for (auto at = text.find('\\'); at != std::string_view::npos; at = text.find('\\', at + 2))
        if (at + 1 == text.size() || !escaped(text[at + 1])) return false;
    return true;
}

// Removes the quotes around a text that begins with one. False when they don't enclose all of it.
bool unquote(std::string_view& text) {
    if (!text.starts_with('"')) return true;
    std::size_t end = 1;
    while (end < text.size() && text[end] != '"')
        end += text[end] == '\\' ? 2 : 1;
    if (end + 1 != text.size()) return false;
    text = text.substr(1, end - 1);
    return true;
}

} // namespace

void parseMessageFile(std::string_view bytes, const std::function<bool(const MessageLine&)>& onLine,
                      const std::function<void(MessageFault, std::int64_t)>& onFault) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    // Asked of the whole file first: often that settles it for every line.
    const bool allText = isUtf8(bytes) && bytes.find('\0') == std::string_view::npos;
    const bool noEscapes = bytes.find('\\') == std::string_view::npos;
    auto isText = [allText](std::string_view line) {
        return allText || (isUtf8(line) && line.find('\0') == std::string_view::npos);
    };
    MessageLine entry{};
    bool sectionKnown = true; // false behind a faulty section line: whose texts follow is not known
    while (!bytes.empty()) {
        const auto end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        ++entry.line;
        if (line.ends_with('\r')) line.remove_suffix(1);
        line = trimmed(line);
        if (line.empty() || line.front() == ';' || line.front() == '#') continue;
        if (!isText(line)) {
            onFault(MessageFault::NotUtf8, entry.line);
            if (line.front() == '[') sectionKnown = false;
            continue;
        }
        if (line.front() == '[') {
            entry.section = trimmed(line.substr(1, line.size() - 2));
            sectionKnown = line.size() > 2 && line.find(']') == line.size() - 1 && !entry.section.empty();
            if (!sectionKnown) onFault(MessageFault::BadSection, entry.line);
            continue;
        }
        const auto equals = line.find('=');
        if (equals == std::string_view::npos) {
            onFault(MessageFault::NoEquals, entry.line);
            continue;
        }
        entry.key = trimmed(line.substr(0, equals));
        entry.text = trimmed(line.substr(equals + 1));
        if (entry.key.empty())
            onFault(MessageFault::EmptyKey, entry.line);
        else if (!unquote(entry.text))
            onFault(MessageFault::OpenQuote, entry.line);
        else if (!noEscapes && !hasOnlyKnownEscapes(entry.text))
            onFault(MessageFault::UnknownEscape, entry.line);
        else if (sectionKnown && !onLine(entry))
            onFault(MessageFault::DuplicateKey, entry.line);
    }
}

std::wstring decodeMessageText(std::string_view text) {
    if (text.find('\\') == std::string_view::npos) return fromUtf8(text);
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        plain.push_back(text[i] == '\\' && i + 1 < text.size() ? escaped(text[++i]) : text[i]);
    return fromUtf8(plain);
}

std::string quoteMessageText(std::wstring_view text) {
    std::string quoted = "\"";
    for (const char c : toUtf8(text)) {
        switch (c) {
        case '\n':
            quoted += "\\n";
            break;
        case '\t':
            quoted += "\\t";
            break;
        case '\r':
            quoted += "\\r";
            break;
        case '\\':
        case '"':
            quoted += '\\';
            [[fallthrough]];
        default:
            quoted += c;
        }
    }
    return quoted + '"';
}

std::wstring unquoteMessageText(std::string_view text) {
    std::string_view inner = text;
    const bool quoted = text.starts_with('"') && unquote(inner) && hasOnlyKnownEscapes(inner);
    return quoted ? decodeMessageText(inner) : fromUtf8(text);
}

} // namespace tv::text
