#include "platform/drawing/OdDbLinetypeTable.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/VersionLimits.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <cmath>
#include <numbers>

using namespace tv::dwg;

namespace {

using Element = OdDbLinetypeTableRecord::Element;

constexpr std::size_t kMostElements = 12;
constexpr double kDegree = std::numbers::pi / 180;
// Of group code 74.
constexpr int kAbsolute = 1;
constexpr int kText = 2;
constexpr int kShape = 4;

bool isPatternCode(int code) {
    return code == 49 || code == 74 || code == 75 || code == 340 || code == 46 || code == 50 || code == 44 ||
           code == 45 || code == 9;
}

bool write(RecordEditor& record, std::size_t& place, const Element& e, bool flags) {
    bool good = record.insert(place++, 49, e.length);
    const auto put = [&](int code, const Value& value) { good = good && record.insert(place++, code, value); };
    const int kind = e.kind == Element::kText ? kText : e.kind == Element::kShape ? kShape : 0;
    if (flags) put(74, std::int64_t{kind ? kind | (e.absoluteRotation ? kAbsolute : 0) : 0});
    if (!kind) return good;
    put(75, std::int64_t{e.kind == Element::kShape ? e.shapeNumber : 0});
    put(340, e.style);
    put(46, e.scale);
    put(50, e.rotation / kDegree);
    put(44, e.offset.x);
    put(45, e.offset.y);
    if (e.kind == Element::kText) put(9, e.text);
    return good;
}

} // namespace

std::vector<Element> OdDbLinetypeTableRecord::pattern() const {
    std::vector<Element> out;
    OwnTags own(format(), database()->store().text(objectId().record()));
    for (Tag tag; own.next(tag);) {
        if (tag.code == 49) out.emplace_back().length = realOf(format(), tag).value_or(0);
        if (out.empty()) continue;
        Element& e = out.back();
        switch (tag.code) {
        case 74: {
            const auto flags = integerOf(format(), tag).value_or(0);
            e.kind = flags & kText ? Element::kText : flags & kShape ? Element::kShape : Element::kPlain;
            e.absoluteRotation = (flags & kAbsolute) != 0;
            break;
        }
        case 75:
            if (e.kind == Element::kShape)
                e.shapeNumber = static_cast<std::int16_t>(integerOf(format(), tag).value_or(0));
            break;
        case 340:
            e.style = handleOf(format(), tag).value_or(OdDbHandle());
            break;
        case 46:
            e.scale = realOf(format(), tag).value_or(1);
            break;
        case 50:
            e.rotation = realOf(format(), tag).value_or(0) * kDegree;
            break;
        case 44:
            e.offset.x = realOf(format(), tag).value_or(0);
            break;
        case 45:
            e.offset.y = realOf(format(), tag).value_or(0);
            break;
        case 9:
            e.text = textOf(format(), tag);
            break;
        default:
            break;
        }
    }
    return out;
}

std::vector<double> OdDbLinetypeTableRecord::dashes() const {
    std::vector<double> out;
    OwnTags own(format(), database()->store().text(objectId().record()));
    for (Tag tag; own.next(tag);)
        if (tag.code == 49) out.push_back(realOf(format(), tag).value_or(0));
    return out;
}

Tavo::ErrorStatus OdDbLinetypeTableRecord::setPattern(std::span<const Element> elements) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const bool plainOnly = database()->form() < OdDb::DxfVersion::kR13;
    if (elements.size() > kMostElements) return Tavo::eInvalidInput;
    double length = 0;
    for (const Element& e : elements) {
        if (e.kind != Element::kPlain)
            if (const auto status = database()->require(OdDb::Feature::kComplexLinetypes); status != Tavo::eOk)
                return status;
        if (e.kind != Element::kPlain && e.style.isNull()) return Tavo::eInvalidInput;
        if (!std::isfinite(e.length)) return Tavo::eInvalidInput;
        length += std::abs(e.length);
    }
    const std::vector<Element> now = pattern();
    if (std::equal(now.begin(), now.end(), elements.begin(), elements.end())) return Tavo::eOk;
    return edit([&](RecordEditor& record) {
        // What belongs to the pattern begins with its first element.
        std::vector<std::size_t> own = ownTags(record);
        const auto put = [&](int code, const Value& value, std::size_t behind) {
            const std::size_t i = record.find(code, 0, own.back() + 1);
            if (i != RecordEditor::npos) return record.set(i, value);
            return record.insert(behind, code, value);
        };
        const std::size_t first = record.find(49, 0, own.back() + 1);
        if (first != RecordEditor::npos)
            for (auto i = own.rbegin(); i != own.rend() && *i >= first; ++i)
                if (isPatternCode(record.code(*i))) record.erase(*i);
        own = ownTags(record);
        if (!put(73, static_cast<std::int64_t>(elements.size()), own.back() + 1)) return false;
        own = ownTags(record);
        if (!put(40, length, own.back() + 1)) return false;
        own = ownTags(record);
        std::size_t place = record.find(40, 0, own.back() + 1) + 1;
        for (const Element& e : elements)
            if (!write(record, place, e, !plainOnly)) return false;
        return true;
    });
}
