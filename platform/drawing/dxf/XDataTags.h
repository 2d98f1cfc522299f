#pragma once

#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/text/Unicode.h"

#include <string_view>

namespace tv::dwg {

// Where the extended data of one application stand in a record being edited: its 1001 and one past its last
// tag.
struct XDataTags {
    std::size_t begin = RecordEditor::npos;
    std::size_t end = RecordEditor::npos;
    bool found() const { return begin != RecordEditor::npos; }
};

inline XDataTags findXData(const RecordEditor& record, std::wstring_view app) {
    for (std::size_t i = 0; i < record.size(); ++i) {
        if (record.code(i) != 1001 || !text::equalNoCase(record.text(i).view(), app)) continue;
        std::size_t end = i + 1;
        while (end < record.size() && record.code(end) >= 1000 && record.code(end) != 1001)
            ++end;
        return {i, end};
    }
    return {};
}

// The same, made at the record's end when there is none.
inline XDataTags needXData(RecordEditor& record, std::wstring_view app) {
    if (const XDataTags there = findXData(record, app); there.found()) return there;
    const std::size_t end = record.size();
    record.insert(end, 1001, OdString(app));
    return {end, end + 1};
}

inline void eraseXData(RecordEditor& record, std::wstring_view app) {
    const XDataTags there = findXData(record, app);
    for (std::size_t count = there.end - there.begin; there.found() && count > 0; --count)
        record.erase(there.begin);
}

} // namespace tv::dwg
