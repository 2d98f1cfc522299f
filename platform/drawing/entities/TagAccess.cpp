#include "platform/drawing/entities/TagAccess.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <algorithm>

namespace tv::dwg {
namespace {

// Follows the subclass marks and says whether a tag stands behind the wanted one.
class Region {
  public:
    explicit Region(std::string_view subclass) : m_subclass(subclass) {}
    bool holds(int code, std::string_view raw) {
        if (code == 100) {
            m_marked = true;
            m_inside = m_subclass.empty() || trimmed(raw) == m_subclass;
            return m_inside;
        }
        if (m_subclass.empty()) return true;
        return m_marked ? m_inside : code != 0 && code != 5 && code != 330 && code != 360;
    }

  private:
    std::string_view m_subclass;
    bool m_marked = false;
    bool m_inside = false;
};

// Where to look when a record lacks the wanted mark, as files of some programs do: behind the common part, or
// anywhere when no mark ends that.
struct Wanted {
    std::string_view subclass;
    int skippedMarks = 0;
};

Wanted wantedIn(const OdDbObject& object, std::string_view subclass) {
    int marks = 0;
    OwnTags own(object.format(), object.database()->store().text(object.objectId().record()));
    for (Tag tag; own.next(tag);) {
        if (tag.code != 100) continue;
        if (trimmed(tag.value) == subclass) return {subclass, 0};
        ++marks;
    }
    return {marks == 0 ? subclass : std::string_view(), marks >= 2 ? 2 : 0};
}

template <class Visit>
void forEachTag(const OdDbObject& object, std::string_view subclass, Visit&& visit) {
    if (object.isErased()) return;
    const Wanted wanted = subclass.empty() ? Wanted() : wantedIn(object, subclass);
    Region region(wanted.subclass);
    int marks = 0;
    OwnTags own(object.format(), object.database()->store().text(object.objectId().record()));
    for (Tag tag; own.next(tag);) {
        marks += tag.code == 100;
        if (!region.holds(tag.code, tag.value) || marks < wanted.skippedMarks) continue;
        if (!visit(tag)) return;
    }
}

std::size_t findPosition(const OdDbObject& object, const TagSource& source) {
    const auto tag = findTag(object, source);
    if (!tag) return RecordEditor::npos;
    std::size_t position = 0;
    TagCursor cursor = object.tags();
    for (Tag each; cursor.next(each) && each.begin != tag->begin;)
        ++position;
    return position;
}

std::size_t placeFor(const RecordEditor& record, const TagSource& source, std::span<const int> order) {
    const auto rank = [&](int code) { return std::find(order.begin(), order.end(), code) - order.begin(); };
    Region region(source.subclass);
    std::size_t place = 0;
    std::size_t begin = 0;
    std::size_t last = 1;
    for (const std::size_t i : ownTags(record)) {
        last = i + 1;
        if (!region.holds(record.code(i), record.raw(i))) continue;
        if (record.code(i) == 100 && begin == 0) begin = i + 1;
        if (rank(record.code(i)) < rank(source.code)) place = i + 1;
    }
    return place > 0 ? place : begin > 0 && !source.subclass.empty() ? begin : last;
}

} // namespace

std::optional<Tag> findTag(const OdDbObject& object, const TagSource& source) {
    std::optional<Tag> found;
    int left = source.occurrence;
    forEachTag(object, source.subclass, [&](const Tag& tag) {
        if (tag.code == source.code && left-- == 0) found = tag;
        return !found;
    });
    return found;
}

Value tagValue(const OdDbObject& object, const TagSource& source) {
    const auto tag = findTag(object, source);
    return tag ? valueOf(object.format(), *tag) : Value();
}

int tagCount(const OdDbObject& object, std::string_view subclass, int code) {
    int count = 0;
    forEachTag(object, subclass, [&](const Tag& tag) {
        count += tag.code == code;
        return true;
    });
    return count;
}

Tavo::ErrorStatus checkWritable(const OdDbObject& object) {
    if (object.isErased()) return Tavo::eWasErased;
    if (!object.isWriteEnabled()) return Tavo::eNotOpenForWrite;
    return object.database()->store().writable() ? Tavo::eOk : Tavo::eReadOnly;
}

Tavo::ErrorStatus writeTag(const OdDbObject& object, const TagSource& source, const Value& value,
                           std::span<const int> order) {
    if (const auto status = checkWritable(object); status != Tavo::eOk) return status;
    RecordStore& store = object.database()->store();
    RecordEditor record(store.format(), store.text(object.objectId().record()));
    const std::size_t at = findPosition(object, source);
    if (at != RecordEditor::npos) {
        if (!record.set(at, value)) return Tavo::eWrongType;
    } else {
        if (source.occurrence > 0) return Tavo::eKeyNotFound;
        if (!record.insert(placeFor(record, source, order), source.code, value)) return Tavo::eWrongType;
    }
    if (record.edited()) store.replace(object.objectId().record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus removeTag(const OdDbObject& object, const TagSource& source) {
    if (const auto status = checkWritable(object); status != Tavo::eOk) return status;
    const std::size_t at = findPosition(object, source);
    if (at == RecordEditor::npos) return Tavo::eOk;
    RecordStore& store = object.database()->store();
    RecordEditor record(store.format(), store.text(object.objectId().record()));
    record.erase(at);
    store.replace(object.objectId().record(), record.bytes());
    return Tavo::eOk;
}

std::vector<OdString> textPieces(const DxfFormat& format, std::wstring_view text) {
    constexpr std::size_t kMost = 250;
    std::vector<OdString> out;
    std::size_t start = 0;
    std::size_t size = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t more = encodeText(format, text.substr(i, 1)).size();
        if (size + more > kMost) {
            out.emplace_back(text.substr(start, i - start));
            start = i;
            size = 0;
        }
        size += more;
    }
    out.emplace_back(text.substr(start));
    return out;
}

OdString joinedText(const OdDbObject& object, std::string_view subclass, int pieceCode, int lastCode) {
    std::string raw;
    forEachTag(object, subclass, [&](const Tag& tag) {
        if (tag.code == pieceCode || tag.code == lastCode) raw += tag.value;
        return true;
    });
    return decodeText(object.format(), raw);
}

bool replacePieces(RecordEditor& record, const DxfFormat& format, std::vector<std::size_t> at,
                   std::size_t place, int pieceCode, int lastCode, std::wstring_view text) {
    const std::vector<OdString> pieces = textPieces(format, text);
    // The last tag keeps its code; pieces come and go before it.
    while (at.size() > pieces.size() && at.size() > 1) {
        record.erase(at[at.size() - 2]);
        --at.back();
        at.erase(at.end() - 2);
    }
    if (!at.empty()) place = at.back();
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const bool last = i + 1 == pieces.size();
        if (i < at.size() && (last || i + 1 < at.size())) {
            if (!record.set(at[i], pieces[i])) return false;
        } else if (last && !at.empty()) {
            if (!record.set(place, pieces[i])) return false;
        } else if (!record.insert(place++, last ? lastCode : pieceCode, pieces[i])) {
            return false;
        }
    }
    return true;
}

} // namespace tv::dwg
