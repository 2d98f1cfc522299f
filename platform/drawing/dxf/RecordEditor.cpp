#include "platform/drawing/dxf/RecordEditor.h"

#include <algorithm>

namespace tv::dwg {

RecordEditor::RecordEditor(const DxfFormat& format, std::string_view record) : m_format(format) {
    TagCursor cursor(format, record);
    std::size_t done = 0;
    for (Tag tag; cursor.next(tag); done = tag.end)
        m_tags.push_back({tag.code, std::string(record.substr(tag.begin, tag.end - tag.begin))});
    m_rest = record.substr(done);
}

Tag RecordEditor::tag(std::size_t i) const {
    Tag out;
    TagCursor(m_format, m_tags[i].bytes).next(out);
    return out;
}

Value RecordEditor::value(std::size_t i) const { return valueOf(m_format, tag(i)); }

OdString RecordEditor::text(std::size_t i) const { return textOf(m_format, tag(i)); }

std::size_t RecordEditor::find(int code, std::size_t from, std::size_t to) const {
    for (std::size_t i = from; i < std::min(to, m_tags.size()); ++i)
        if (m_tags[i].code == code) return i;
    return npos;
}

bool RecordEditor::set(std::size_t i, const Value& value) {
    const Tag old = tag(i);
    const Value current = valueOf(m_format, old);
    if (current == value) return true;
    const auto raw = rawValue(m_format, old.code, value, old.value);
    if (!raw) return false;
    // The same number given as another type, or the same text in another spelling.
    Tag fresh = old;
    fresh.value = *raw;
    if (valueOf(m_format, fresh) == current && current.index() != 0) return true;
    if (m_format.encoding == Encoding::kText) {
        std::string& bytes = m_tags[i].bytes;
        const auto start = static_cast<std::size_t>(old.value.data() - bytes.data());
        bytes.replace(start, old.value.size(), *raw);
    } else {
        m_tags[i].bytes = tagBytes(m_format, old.code, *raw);
    }
    m_edited = true;
    return true;
}

bool RecordEditor::insert(std::size_t before, int code, const Value& value) {
    if (before == 0 || before > m_tags.size()) return false; // nothing stands before the type
    const auto raw = rawValue(m_format, code, value);
    if (!raw) return false;
    // The file's last line may lack its end; a tag that follows needs one.
    if (before > 0 && before == m_tags.size() && m_format.encoding == Encoding::kText) {
        std::string& last = m_tags.back().bytes;
        if (last.empty() || last.back() != m_format.lineBreak) last += m_format.lineEnd;
    }
    m_tags.insert(m_tags.begin() + static_cast<std::ptrdiff_t>(before), {code, tagBytes(m_format, code, *raw)});
    m_edited = true;
    return true;
}

void RecordEditor::erase(std::size_t i) {
    m_tags.erase(m_tags.begin() + static_cast<std::ptrdiff_t>(i));
    m_edited = true;
}

void RecordEditor::erase(const std::set<std::size_t>& places) {
    if (places.empty()) return;
    auto gone = places.begin();
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_tags.size(); ++i) {
        if (gone != places.end() && *gone == i) {
            ++gone;
            continue;
        }
        if (kept != i) m_tags[kept] = std::move(m_tags[i]);
        ++kept;
    }
    m_tags.erase(m_tags.begin() + static_cast<std::ptrdiff_t>(kept), m_tags.end());
    m_edited = true;
}

std::string RecordEditor::bytes() const {
    std::string out;
    for (const Part& part : m_tags)
        out += part.bytes;
    return out + m_rest;
}

} // namespace tv::dwg
