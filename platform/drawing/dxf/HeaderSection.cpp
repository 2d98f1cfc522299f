#include "platform/drawing/dxf/HeaderSection.h"

#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

#include <algorithm>

namespace tv::dwg {
namespace {

std::wstring wide(std::string_view ascii) { return std::wstring(ascii.begin(), ascii.end()); }

tv::Problem problem(Tavo::ErrorStatus status, std::wstring sentence) {
    tv::Problem p;
    p.status = status;
    p.sentence = std::move(sentence);
    return p;
}

tv::Problem wrongValue(std::string_view name, int group) {
    return problem(
        Tavo::eWrongType,
        tv::text::format(
            VORD_ResourceString("IDS_TAVO_DXF_HEADER_WRONG_VALUE",
                                L"도면 변수 %s에 이 값을 쓸 수 없습니다: 그룹 코드 %d에 맞지 않는 값입니다."),
            wide(name), group));
}

tv::Problem refused(const RecordStore& store, std::string_view name) {
    if (store.readOnly())
        return problem(Tavo::eReadOnly,
                       tv::text::format(VORD_ResourceString("IDS_TAVO_DXF_HEADER_READ_ONLY",
                                                            L"도면 변수 %s을(를) 바꿀 수 없습니다: 도면이 "
                                                            L"읽기 전용으로 열려 있습니다."),
                                        wide(name)));
    return problem(
        Tavo::eReadOnly,
        tv::text::format(
            VORD_ResourceString(
                "IDS_TAVO_DXF_HEADER_BUSY",
                L"도면 변수 %s을(를) 지금은 바꿀 수 없습니다: 명령을 취소하거나 다시 실행하는 중입니다."),
            wide(name)));
}

// The raw values of a point's coordinates, each in the style of the one it replaces.
std::optional<std::vector<double>> coordinates(const Value& value, std::size_t count) {
    std::vector<double> out;
    if (const auto* p = std::get_if<OdGePoint2d>(&value))
        out = {p->x, p->y};
    else if (const auto* q = std::get_if<OdGePoint3d>(&value))
        out = {q->x, q->y, q->z};
    else
        return std::nullopt;
    if (count == 2 && out.size() == 3 && out[2] != 0) return std::nullopt;
    out.resize(std::min(out.size(), count));
    return out;
}

} // namespace

std::string plainVariableName(std::wstring_view name) {
    if (!name.empty() && name.front() == L'$') name.remove_prefix(1);
    std::string out;
    for (const wchar_t c : name) {
        if (c <= 32 || c >= 127) return {};
        out.push_back(static_cast<char>(c >= L'a' && c <= L'z' ? c - 32 : c));
    }
    return out;
}

std::string HeaderSection::nameOf(RecordId id) const {
    if (!(m_store.record(id).flags & kHeaderVariable)) return {};
    TagCursor cursor = m_store.tags(id);
    Tag tag;
    if (!cursor.next(tag)) return {};
    const std::string_view raw = trimmed(tag.value);
    return plainVariableName(std::wstring(raw.begin(), raw.end()));
}

std::vector<std::string> HeaderSection::names() const {
    std::vector<std::string> out;
    const RecordId header = m_store.section(Section::kHeader);
    if (header == kNoRecord) return out;
    const RecordId end = m_store.endOfSection(header);
    for (RecordId id = m_store.next(header); id != end; id = m_store.next(id))
        if (std::string name = nameOf(id); !name.empty()) out.push_back(std::move(name));
    return out;
}

RecordId HeaderSection::find(std::string_view name) const {
    if (!m_known) {
        m_known = true;
        m_records.clear();
        if (const RecordId header = m_store.section(Section::kHeader); header != kNoRecord) {
            const RecordId end = m_store.endOfSection(header);
            for (RecordId id = m_store.next(header); id != end; id = m_store.next(id))
                m_records.emplace(nameOf(id), id);
        }
    }
    const auto found = m_records.find(std::string(name));
    return found == m_records.end() || name.empty() ? kNoRecord : found->second;
}

std::optional<HeaderValue> HeaderSection::value(std::string_view name) const {
    const RecordId id = find(name);
    return id == kNoRecord ? std::nullopt : read(id);
}

std::optional<HeaderValue> HeaderSection::read(RecordId id) const {
    const DxfFormat& format = m_store.format();
    HeaderValue out;
    std::vector<double> point;
    TagCursor cursor = m_store.tags(id);
    Tag tag;
    cursor.next(tag);
    while (cursor.next(tag)) {
        if (tag.code == 999) continue;
        if (out.group == 0) {
            out.group = tag.code;
            out.value = valueOf(format, tag);
            if (valueKind(tag.code) != ValueKind::kPoint) break;
        }
        const auto coordinate = realOf(format, tag);
        if (!coordinate || tag.code != out.group + static_cast<int>(point.size()) * 10) break;
        point.push_back(*coordinate);
        if (point.size() == 3) break;
    }
    if (point.size() == 2) out.value = OdGePoint2d{point[0], point[1]};
    if (point.size() == 3) out.value = OdGePoint3d{point[0], point[1], point[2]};
    if (out.group == 0) return std::nullopt;
    return out;
}

tv::Problem HeaderSection::set(std::string_view name, const HeaderValue& value) {
    if (!m_store.writable()) return refused(m_store, name);
    // They say how all the rest is to be read.
    if (name == "ACADVER" || name == "DWGCODEPAGE")
        return problem(Tavo::eNotHandled,
                       tv::text::format(VORD_ResourceString("IDS_TAVO_DXF_HEADER_FIXED",
                                                            L"도면 변수 %s은(는) 바꿀 수 없습니다: 파일 전체를 "
                                                            L"읽는 방법을 정합니다."),
                                        wide(name)));
    const RecordId id = find(name);
    return id == kNoRecord ? add(name, value) : change(id, name, value);
}

tv::Problem HeaderSection::change(RecordId id, std::string_view name, const HeaderValue& value) {
    RecordEditor record(m_store.format(), m_store.text(id));
    std::vector<std::size_t> places;
    for (std::size_t i = 1; i < record.size(); ++i) {
        const int code = record.code(i);
        if (code == 999) continue;
        if (!places.empty() && code != record.code(places.front()) + static_cast<int>(places.size()) * 10)
            break;
        places.push_back(i);
        if (valueKind(record.code(places.front())) != ValueKind::kPoint || places.size() == 3) break;
    }
    if (places.empty()) {
        const HeaderVarInfo* info = headerVarInfo(wide(name));
        return wrongValue(name, info ? info->group : value.group);
    }
    const int group = record.code(places.front());
    if (valueKind(group) == ValueKind::kPoint && places.size() > 1) {
        const auto points = coordinates(value.value, places.size());
        if (!points) return wrongValue(name, group);
        for (std::size_t i = 0; i < points->size(); ++i)
            if (!record.set(places[i], (*points)[i])) return wrongValue(name, group);
    } else if (!record.set(places.front(), value.value)) {
        return wrongValue(name, group);
    }
    if (record.edited()) m_store.replace(id, record.bytes());
    return {};
}

tv::Problem HeaderSection::add(std::string_view name, const HeaderValue& value) {
    const HeaderVarInfo* info = headerVarInfo(wide(name));
    if (!info)
        return problem(Tavo::eKeyNotFound,
                       tv::text::format(VORD_ResourceString("IDS_TAVO_DXF_HEADER_UNKNOWN",
                                                            L"도면 변수 %s은(는) 없는 변수입니다."),
                                        wide(name)));
    DxfFormat& format = m_store.format();
    if (format.form < info->first || (format.form > info->last && format.version == format.form))
        return problem(Tavo::eNotHandled,
                       tv::text::format(
                           VORD_ResourceString(
                               "IDS_TAVO_DXF_HEADER_VERSION",
                               L"도면 변수 %s을(를) 저장할 수 없습니다: 도면 버전 %s에는 이 변수가 없습니다."),
                           wide(name), wide(versionText(format.form))));
    std::string bytes = tagBytes(format, 9, "$" + std::string(name));
    if (info->coordinates > 0) {
        const auto points = coordinates(value.value, static_cast<std::size_t>(info->coordinates));
        if (!points) return wrongValue(name, info->group);
        for (int i = 0; i < info->coordinates; ++i) {
            const int code = info->group + i * 10;
            const auto index = static_cast<std::size_t>(i);
            const auto raw = rawValue(format, code, index < points->size() ? (*points)[index] : 0.0);
            if (!raw) return wrongValue(name, info->group);
            bytes += tagBytes(format, code, *raw);
        }
    } else {
        const auto raw = rawValue(format, info->group, value.value);
        if (!raw) return wrongValue(name, info->group);
        bytes += tagBytes(format, info->group, *raw);
    }
    const bool wasRecording = m_store.undoLog().recording();
    if (!wasRecording) m_store.undoLog().start(wide(name));
    const RecordId after = placeFor(name);
    m_store.insertAfter(after, std::move(bytes), Section::kHeader, kNoRecord);
    if (!wasRecording) m_store.undoLog().end();
    return {};
}

// Behind the nearest variable that usually stands before this one; makes the section when there is none.
RecordId HeaderSection::placeFor(std::string_view name) {
    const DxfFormat& format = m_store.format();
    RecordId header = m_store.section(Section::kHeader);
    if (header == kNoRecord) {
        header = m_store.insertAfter(RecordStore::kHead,
                                     tagBytes(format, 0, "SECTION") + tagBytes(format, 2, "HEADER"),
                                     Section::kHeader, kNoRecord);
        m_store.insertAfter(header, tagBytes(format, 0, "ENDSEC"), Section::kHeader, kNoRecord);
        return header;
    }
    const std::span<const HeaderVarInfo> order = headerVars();
    std::size_t place = 0;
    while (place < order.size() && order[place].name != name)
        ++place;
    while (place-- > 0)
        if (const RecordId id = find(order[place].name); id != kNoRecord) return id;
    return header;
}

} // namespace tv::dwg
