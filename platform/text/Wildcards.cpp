#include "platform/text/Wildcards.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace tv::text {
namespace {

bool isLetter(wchar_t c) { return u_isalpha(static_cast<UChar32>(c)); }
bool isDigit(wchar_t c) { return u_isdigit(static_cast<UChar32>(c)); }

} // namespace

bool Wildcards::Token::fits(wchar_t c) const {
    switch (kind) {
    case kCharacter:
        return c == character;
    case kDigit:
        return isDigit(c);
    case kLetter:
        return isLetter(c);
    case kNeither:
        return !isLetter(c) && !isDigit(c);
    case kSet:
        return none != std::ranges::any_of(
                           ranges, [c](const auto& range) { return c >= range.first && c <= range.second; });
    case kOne:
    case kMany:
        break;
    }
    return true;
}

bool Wildcards::Alternative::fits(std::wstring_view folded) const {
    // Where the last * stands and how much of the text it has taken so far: only that one ever takes more.
    std::size_t token = 0, at = 0, many = tokens.size(), taken = 0;
    bool good = true;
    while (at < folded.size() && good) {
        if (token < tokens.size() && tokens[token].kind == Token::kMany) {
            many = token++;
            taken = at;
        } else if (token < tokens.size() && tokens[token].fits(folded[at])) {
            ++token;
            ++at;
        } else if (many < tokens.size()) {
            token = many + 1;
            at = ++taken;
        } else {
            good = false;
        }
    }
    while (token < tokens.size() && tokens[token].kind == Token::kMany)
        ++token;
    return (good && token == tokens.size()) != negated;
}

// `at` is on the bracket, and afterwards on the one that closes it; a bracket nothing closes is a character.
Wildcards::Token Wildcards::setAt(std::wstring_view pattern, std::size_t& at) {
    Token set{.kind = Token::kSet};
    std::size_t i = at + 1;
    if (i < pattern.size() && pattern[i] == L'~') {
        set.none = true;
        ++i;
    }
    for (const std::size_t first = i; i < pattern.size(); ++i) {
        if (pattern[i] == L']' && i > first) {
            at = i;
            return set;
        }
        if (pattern[i] == L'`' && i + 1 < pattern.size()) ++i;
        wchar_t last = pattern[i];
        const wchar_t begin = last;
        if (i + 2 < pattern.size() && pattern[i + 1] == L'-' && pattern[i + 2] != L']') {
            last = pattern[i + 2];
            i += 2;
        }
        set.ranges.emplace_back(std::min(begin, last), std::max(begin, last));
    }
    return {.kind = Token::kCharacter, .character = L'['};
}

Wildcards::Wildcards(std::wstring_view given) {
    const std::wstring pattern = foldCase(given);
    m_alternatives.emplace_back();
    bool begins = true;   // nothing of this alternative was met yet
    std::size_t kept = 0; // of its tokens: what follows is blanks
    const auto finish = [&] { m_alternatives.back().tokens.resize(kept); };
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        std::vector<Token>& tokens = m_alternatives.back().tokens;
        const wchar_t c = pattern[i];
        if (c == L',') {
            finish();
            m_alternatives.emplace_back();
            begins = true;
            kept = 0;
            continue;
        }
        if (c == L' ') {
            if (!begins) tokens.push_back({.kind = Token::kCharacter, .character = c});
            continue;
        }
        if (c == L'~' && begins) {
            m_alternatives.back().negated = true;
            begins = false;
            continue;
        }
        begins = false;
        if (c == L'*') {
            if (tokens.empty() || tokens.back().kind != Token::kMany) tokens.push_back({.kind = Token::kMany});
        } else if (c == L'?') {
            tokens.push_back({.kind = Token::kOne});
        } else if (c == L'#') {
            tokens.push_back({.kind = Token::kDigit});
        } else if (c == L'@') {
            tokens.push_back({.kind = Token::kLetter});
        } else if (c == L'.') {
            tokens.push_back({.kind = Token::kNeither});
        } else if (c == L'[') {
            tokens.push_back(setAt(pattern, i));
        } else if (c == L'`' && i + 1 < pattern.size()) {
            tokens.push_back({.kind = Token::kCharacter, .character = pattern[++i]});
        } else {
            tokens.push_back({.kind = Token::kCharacter, .character = c});
        }
        kept = tokens.size();
    }
    finish();
}

bool Wildcards::fitsFolded(std::wstring_view folded) const {
    if (m_alternatives.empty()) return folded.empty();
    return std::ranges::any_of(m_alternatives, [&](const Alternative& one) { return one.fits(folded); });
}

bool Wildcards::fitsAll() const {
    return std::ranges::any_of(m_alternatives, [](const Alternative& one) {
        return !one.negated && one.tokens.size() == 1 && one.tokens.front().kind == Token::kMany;
    });
}

std::wstring Wildcards::literal(std::wstring_view text) {
    std::wstring out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool atEnd = text[i] == L' ' && (i == 0 || i + 1 == text.size());
        if (atEnd || std::wstring_view(L"*?#@.[]~,`").find(text[i]) != std::wstring_view::npos) out += L'`';
        out += text[i];
    }
    return out;
}

} // namespace tv::text
