#include "platform/drawing/dxf/XData.h"

#include "platform/drawing/dxf/OwnTags.h"
#include "platform/text/Unicode.h"

#include <algorithm>

namespace tv::dwg {
namespace {

bool isPoint(int code) { return code >= 1010 && code <= 1013; }

// One past the last tag of the application whose 1001 stands at `start`.
std::size_t endOfApplication(const RecordEditor& record, std::size_t start) {
    std::size_t end = start + 1;
    while (end < record.size() && record.code(end) >= 1000 && record.code(end) != 1001)
        ++end;
    return end;
}

constexpr std::size_t kChunk = 127;   // bytes of binary data in one tag
constexpr std::size_t kLimit = 16383; // bytes of extended data of one object
constexpr int kControlString = OdResBuf::kDxfXdControlString;

// The bytes a tag of extended data counts as: its group code and its value as binary files hold it.
std::size_t sizeOf(const RecordEditor& record, std::size_t i) {
    switch (valueKind(record.code(i))) {
    case ValueKind::kReal:
    case ValueKind::kPoint:
    case ValueKind::kHandle:
        return 9;
    case ValueKind::kInt16:
        return 3;
    case ValueKind::kInt32:
        return 5;
    case ValueKind::kBinary: {
        const Value value = record.value(i);
        const auto* bytes = std::get_if<Binary>(&value);
        return 2 + (bytes ? bytes->size() : 0);
    }
    default:
        return record.code(i) == kControlString ? 2 : 4 + record.raw(i).size();
    }
}

// The tags one buffer is written as; false when a value doesn't fit its group code.
bool insertBuffer(RecordEditor& record, std::size_t& place, const OdResBuf& buffer) {
    const int code = buffer.restype();
    if (code < 1000 || code > 1071) return false;
    if (const auto* bytes = std::get_if<Binary>(&buffer.value()); bytes && bytes->size() > kChunk) {
        if (valueKind(code) != ValueKind::kBinary) return false;
        for (auto from = bytes->begin(); from != bytes->end();) {
            const auto to = from + std::min<std::ptrdiff_t>(kChunk, bytes->end() - from);
            record.insert(place++, code, Binary(from, to));
            from = to;
        }
        return true;
    }
    if (!isPoint(code)) return record.insert(place++, code, buffer.value());
    const OdGePoint3d point = buffer.getPoint3d();
    return record.insert(place++, code, point.x) && record.insert(place++, code + 10, point.y) &&
           record.insert(place++, code + 20, point.z);
}

} // namespace

std::vector<std::size_t> ownTags(const RecordEditor& record) {
    std::vector<std::size_t> out;
    OwnTagFilter filter;
    for (std::size_t i = 0; i < record.size(); ++i) {
        const auto answer = filter.ask(record.code(i), record.raw(i));
        if (answer == OwnTagFilter::Answer::kEnd) break;
        if (answer == OwnTagFilter::Answer::kOwn) out.push_back(i);
    }
    return out;
}

OdResBufPtr readXData(const DxfFormat& format, TagCursor tags, std::wstring_view appName) {
    OdResBufPtr first;
    OdResBuf* last = nullptr;
    bool wanted = false;
    for (Tag tag; tags.next(tag);) {
        if (tag.code == 1001)
            wanted = appName.empty() || text::equalNoCase(textOf(format, tag).view(), appName);
        if (!wanted || tag.code < 1000) continue;
        // The further coordinates of a point belong to its first.
        if (last && tag.code > 1013 && tag.code < 1034 && isPoint(last->restype())) {
            OdGePoint3d point = last->getPoint3d();
            if (const auto value = realOf(format, tag)) (tag.code < 1024 ? point.y : point.z) = *value;
            last->setPoint3d(point);
            continue;
        }
        auto buffer = OdResBuf::newRb(tag.code, valueOf(format, tag));
        if (isPoint(tag.code)) buffer->setPoint3d({realOf(format, tag).value_or(0), 0, 0});
        if (last)
            last->setNext(buffer);
        else
            first = buffer;
        last = buffer.get();
    }
    return first;
}

Tavo::ErrorStatus replaceXData(RecordEditor& record, const OdResBuf* chain) {
    if (!chain || chain->restype() != OdResBuf::kDxfRegAppName) return Tavo::eInvalidInput;
    while (chain) {
        const OdString app = chain->getString();
        std::size_t place = record.size();
        for (std::size_t i = 0; i < record.size(); ++i) {
            if (record.code(i) != 1001 || !text::equalNoCase(record.text(i).view(), app.view())) continue;
            for (std::size_t count = endOfApplication(record, i) - i; count > 0; --count)
                record.erase(i);
            place = i;
            break;
        }
        const OdResBuf* next = chain->next().get();
        const bool empty = !next || next->restype() == OdResBuf::kDxfRegAppName;
        if (!empty && !record.insert(place++, 1001, app)) return Tavo::eWrongType;
        int depth = 0; // of lists between braces; other programs refuse what isn't closed
        for (; next && next->restype() != OdResBuf::kDxfRegAppName; next = next->next().get()) {
            if (next->restype() == kControlString) {
                const OdString brace = next->getString();
                if (brace != L"{" && (brace != L"}" || depth == 0)) return Tavo::eInvalidInput;
                depth += brace == L"{" ? 1 : -1;
            }
            if (!insertBuffer(record, place, *next)) return Tavo::eWrongType;
        }
        if (depth != 0) return Tavo::eInvalidInput;
        chain = next;
    }
    std::size_t total = 0;
    for (std::size_t i = record.find(1001); i < record.size(); ++i)
        total += sizeOf(record, i);
    return total > kLimit ? Tavo::eOutOfRange : Tavo::eOk;
}

} // namespace tv::dwg
