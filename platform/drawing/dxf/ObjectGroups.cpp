#include "platform/drawing/dxf/ObjectGroups.h"

#include <algorithm>
#include <string_view>

namespace tv::dwg {
namespace {

constexpr std::string_view kReactors = "{ACAD_REACTORS";
constexpr std::string_view kDictionary = "{ACAD_XDICTIONARY";

// One past the handle's tag, 0 when there is none.
std::size_t behindHandle(const RecordEditor& record) {
    for (std::size_t i = 1; i < record.size() && record.code(i) < 1000; ++i)
        if (record.code(i) == 5 || record.code(i) == 105) return i + 1;
    return 0;
}

// Only before the first subclass mark: an object's data may hold groups of the same look.
std::size_t findGroup(const RecordEditor& record, std::string_view name) {
    for (std::size_t i = 1; i < record.size() && record.code(i) != 100 && record.code(i) != 1001; ++i)
        if (record.code(i) == 102 && trimmed(record.raw(i)) == name) return i;
    return RecordEditor::npos;
}

// The position of the group's closing tag, or of what ends a group that isn't closed.
std::size_t endOfGroup(const RecordEditor& record, std::size_t group) {
    std::size_t i = group + 1;
    while (i < record.size() && record.code(i) != 102 && record.code(i) != 100 && record.code(i) < 1000)
        ++i;
    return i;
}

bool closes(const RecordEditor& record, std::size_t i) {
    return i < record.size() && record.code(i) == 102 && trimmed(record.raw(i)) == "}";
}

void insertGroup(RecordEditor& record, std::size_t place, std::string_view name, int code, OdDbHandle handle) {
    record.insert(place, 102, OdString(std::wstring(name.begin(), name.end())));
    record.insert(place + 1, code, handle);
    record.insert(place + 2, 102, OdString(L"}"));
}

void eraseGroup(RecordEditor& record, std::size_t group) {
    std::size_t end = endOfGroup(record, group);
    if (closes(record, end)) ++end;
    for (; end > group; --end)
        record.erase(group);
}

bool names(const RecordEditor& record, std::size_t i, OdDbHandle handle) {
    return record.code(i) == 330 && OdDbHandle::fromAscii(record.raw(i)) == handle;
}

} // namespace

bool addReactor(RecordEditor& record, OdDbHandle reactor) {
    const std::size_t group = findGroup(record, kReactors);
    if (group == RecordEditor::npos) {
        std::size_t place = behindHandle(record);
        if (place == 0) return false;
        if (const std::size_t dictionary = findGroup(record, kDictionary); dictionary != RecordEditor::npos) {
            place = endOfGroup(record, dictionary);
            if (closes(record, place)) ++place;
        }
        insertGroup(record, place, kReactors, 330, reactor);
        return true;
    }
    const std::size_t end = endOfGroup(record, group);
    for (std::size_t i = group + 1; i < end; ++i)
        if (names(record, i, reactor)) return true;
    return record.insert(end, 330, reactor);
}

bool removeReactor(RecordEditor& record, OdDbHandle reactor) {
    const std::size_t group = findGroup(record, kReactors);
    if (group == RecordEditor::npos) return behindHandle(record) != 0;
    for (std::size_t i = endOfGroup(record, group); i-- > group + 1;)
        if (names(record, i, reactor)) record.erase(i);
    if (endOfGroup(record, group) == group + 1) eraseGroup(record, group);
    return true;
}

bool setExtensionDictionary(RecordEditor& record, OdDbHandle dictionary) {
    const std::size_t place = behindHandle(record);
    if (place == 0) return false;
    if (const std::size_t group = findGroup(record, kDictionary); group != RecordEditor::npos) {
        if (const std::size_t there = record.find(360, group, endOfGroup(record, group));
            !dictionary.isNull() && there != RecordEditor::npos)
            return record.set(there, dictionary);
        eraseGroup(record, group);
    }
    if (!dictionary.isNull()) insertGroup(record, place, kDictionary, 360, dictionary);
    return true;
}

} // namespace tv::dwg
