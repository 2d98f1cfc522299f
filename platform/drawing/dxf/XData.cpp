#include "platform/drawing/dxf/XData.h"

#include "platform/drawing/dxf/OwnTags.h"
#include "platform/text/Unicode.h"

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

// The tags one buffer is written as; false when a value doesn't fit its group code.
bool insertBuffer(RecordEditor& record, std::size_t& place, const OdResBuf& buffer) {
    const int code = buffer.restype();
    if (!isPoint(code)) return code >= 1000 && code <= 1071 && record.insert(place++, code, buffer.value());
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
        for (; next && next->restype() != OdResBuf::kDxfRegAppName; next = next->next().get())
            if (!insertBuffer(record, place, *next)) return Tavo::eWrongType;
        chain = next;
    }
    return Tavo::eOk;
}

} // namespace tv::dwg
