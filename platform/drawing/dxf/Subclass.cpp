#include "platform/drawing/dxf/Subclass.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <algorithm>

namespace tv::dwg {

std::optional<Tag> findIn(const OdDbObject& object, std::string_view subclass, int code) {
    OwnTags own(object.format(), object.database()->store().text(object.objectId().record()));
    std::optional<Tag> first;
    bool inside = false;
    bool marks = false;
    for (Tag tag; own.next(tag);) {
        if (tag.code == 100) {
            if (inside) return std::nullopt;
            inside = trimmed(tag.value) == subclass;
            marks = true;
        } else if (tag.code == code) {
            if (inside) return tag;
            if (!first) first = tag;
        }
    }
    return marks ? std::nullopt : first;
}

std::vector<std::size_t> tagsIn(const RecordEditor& record, std::string_view subclass) {
    std::vector<std::size_t> own = ownTags(record);
    const auto isMark = [&](std::size_t i) { return record.code(i) == 100; };
    const auto first = std::find_if(
        own.begin(), own.end(), [&](std::size_t i) { return isMark(i) && trimmed(record.raw(i)) == subclass; });
    if (first == own.end())
        return std::none_of(own.begin(), own.end(), isMark) ? own : std::vector<std::size_t>();
    return {first, std::find_if(first + 1, own.end(), isMark)};
}

std::size_t placeIn(const RecordEditor& record, const std::vector<std::size_t>& part,
                    std::initializer_list<int> behind) {
    for (auto i = part.rbegin(); i != part.rend(); ++i)
        if (std::find(behind.begin(), behind.end(), record.code(*i)) != behind.end()) return *i + 1;
    return part.empty() ? record.size() : part.back() + 1;
}

double realIn(const OdDbObject& object, std::string_view subclass, int code, double otherwise) {
    const auto tag = findIn(object, subclass, code);
    return tag ? realOf(object.format(), *tag).value_or(otherwise) : otherwise;
}

int integerIn(const OdDbObject& object, std::string_view subclass, int code, int otherwise) {
    const auto tag = findIn(object, subclass, code);
    const auto value = tag ? integerOf(object.format(), *tag) : std::nullopt;
    return value && *value >= INT32_MIN && *value <= INT32_MAX ? static_cast<int>(*value) : otherwise;
}

OdString textIn(const OdDbObject& object, std::string_view subclass, int code) {
    const auto tag = findIn(object, subclass, code);
    return tag ? textOf(object.format(), *tag) : OdString();
}

OdDbObjectId idIn(const OdDbObject& object, std::string_view subclass, int code) {
    const auto tag = findIn(object, subclass, code);
    const auto handle = tag ? handleOf(object.format(), *tag) : std::nullopt;
    return handle ? object.database()->getOdDbObjectId(*handle) : OdDbObjectId();
}

OdGePoint3d pointIn(const OdDbObject& object, std::string_view subclass, int code,
                    const OdGePoint3d& otherwise) {
    return {realIn(object, subclass, code, otherwise.x), realIn(object, subclass, code + 10, otherwise.y),
            realIn(object, subclass, code + 20, otherwise.z)};
}

Tavo::ErrorStatus setIn(OdDbObject& object, std::string_view subclass, const std::vector<TagValue>& values,
                        std::initializer_list<int> behind) {
    if (const auto status = checkWritable(object); status != Tavo::eOk) return status;
    RecordStore& store = object.database()->store();
    RecordEditor record(object.format(), store.text(object.objectId().record()));
    int last = 0; // the value before, which a new one of a series stands behind
    for (const TagValue& wanted : values) {
        const std::vector<std::size_t> part = tagsIn(record, subclass);
        if (part.empty()) return Tavo::eNotHandled;
        const auto there = std::find_if(part.begin(), part.end(),
                                        [&](std::size_t i) { return record.code(i) == wanted.code; });
        if (there != part.end()) {
            if (!record.set(*there, wanted.value)) return Tavo::eWrongType;
        } else {
            const std::size_t place = last ? placeIn(record, part, {last}) : placeIn(record, part, behind);
            if (!record.insert(place, wanted.code, wanted.value)) return Tavo::eWrongType;
        }
        last = wanted.code;
    }
    if (record.edited()) store.replace(object.objectId().record(), record.bytes());
    return Tavo::eOk;
}

} // namespace tv::dwg
