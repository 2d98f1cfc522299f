#include "platform/drawing/OdDbXrecord.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbPlaceHolder.h"
#include "platform/drawing/dxf/NewObject.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <algorithm>

using namespace tv::dwg;

namespace {

constexpr std::size_t kChunk = 127;

bool startsPoint(int code) { return valueKind(code) == ValueKind::kPoint; }

// Puts values together to buffers: the coordinates of a point, told by their codes, become one.
class ChainMaker {
  public:
    explicit ChainMaker(const DxfFormat& format) : m_format(format) {}

    void add(const Tag& tag) {
        if (m_count > 0 && m_count < 3 && tag.code == m_last->restype() + m_count * 10) {
            if (const auto value = realOf(m_format, tag)) {
                const OdGePoint3d at =
                    m_count == 1 ? OdGePoint3d{m_last->getDouble(), *value, 0}
                                 : OdGePoint3d{m_last->getPoint2d().x, m_last->getPoint2d().y, *value};
                if (++m_count == 2)
                    m_last->setPoint2d({at.x, at.y});
                else
                    m_last->setPoint3d(at);
                return;
            }
        }
        auto buffer = OdResBuf::newRb(tag.code, valueOf(m_format, tag));
        m_count = startsPoint(tag.code) && realOf(m_format, tag) ? 1 : 0;
        if (m_last)
            m_last->setNext(buffer);
        else
            m_first = buffer;
        m_last = buffer.get();
    }
    OdResBufPtr take() { return std::move(m_first); }

  private:
    const DxfFormat& m_format;
    OdResBufPtr m_first;
    OdResBuf* m_last = nullptr;
    int m_count = 0; // coordinates of the point being read
};

Tavo::ErrorStatus writeBuffer(TagWriter& tags, const OdResBuf& buffer) {
    const int code = buffer.restype() == OdResBuf::kRtEntName ? 330 : buffer.restype();
    if (code < 1 || code > 1071 || code == 5 || code == 105 || code == 999 || code == 1001)
        return Tavo::eInvalidInput;
    if (const auto* bytes = std::get_if<Binary>(&buffer.value())) {
        for (std::size_t i = 0; i == 0 || i < bytes->size(); i += kChunk)
            tags.tag(code,
                     Binary(bytes->begin() + static_cast<std::ptrdiff_t>(i),
                            bytes->begin() + static_cast<std::ptrdiff_t>(std::min(bytes->size(), i + kChunk))));
    } else if (const auto* point = std::get_if<OdGePoint3d>(&buffer.value())) {
        if (!startsPoint(code)) return Tavo::eWrongType;
        tags.point(code, *point);
    } else if (const auto* flat = std::get_if<OdGePoint2d>(&buffer.value())) {
        if (!startsPoint(code)) return Tavo::eWrongType;
        tags.tag(code, Value(flat->x)).tag(code + 10, Value(flat->y));
    } else {
        tags.tag(code, buffer.value());
    }
    return tags.good() ? Tavo::eOk : Tavo::eWrongType;
}

Tavo::ErrorStatus writeChain(TagWriter& tags, const OdResBuf* chain) {
    for (; chain; chain = chain->next().get())
        if (const auto status = writeBuffer(tags, *chain); status != Tavo::eOk) return status;
    return Tavo::eOk;
}

// Where a record's data stand in its bytes.
struct DataRange {
    std::size_t begin = 0;
    std::size_t end = 0;
    int mergeStyle = 0;
};

template <class Visit>
DataRange walkData(const DxfFormat& format, std::string_view record, Visit&& visit) {
    DataRange range;
    TagCursor cursor(format, record);
    bool inside = false;
    bool fresh = false; // right behind the mark, where the merge style stands from R2000 on
    const bool styled = format.form >= OdDb::DxfVersion::kR2000;
    for (Tag tag; cursor.next(tag) && tag.code != 1001;) {
        if (!inside) {
            inside = tag.code == 100 && trimmed(tag.value) == "AcDbXrecord";
            fresh = inside && styled;
            if (inside) range.begin = tag.end;
        } else if (std::exchange(fresh, false) && tag.code == 280) {
            range.mergeStyle = static_cast<int>(integerOf(format, tag).value_or(0));
            range.begin = range.end = tag.end;
            continue;
        } else if (tag.code != 999) {
            visit(tag);
        }
        if (!inside) range.begin = tag.end;
        range.end = tag.end;
    }
    return range;
}

} // namespace

OdResBufPtr OdDbXrecord::rbChain() const {
    ChainMaker chain(format());
    walkData(format(), database()->store().text(objectId().record()), [&](const Tag& tag) { chain.add(tag); });
    return chain.take();
}

int OdDbXrecord::mergeStyle() const {
    return walkData(format(), database()->store().text(objectId().record()), [](const Tag&) {}).mergeStyle;
}

Tavo::ErrorStatus OdDbXrecord::setFromRbChain(const OdResBuf* chain) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    TagWriter tags(format());
    if (const auto status = writeChain(tags, chain); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    std::string bytes(store.text(objectId().record()));
    const DataRange range = walkData(format(), bytes, [](const Tag&) {});
    std::string data = tags.take();
    // The last line of a file that was cut off may lack its end.
    if (format().encoding == Encoding::kText && range.begin > 0 && bytes[range.begin - 1] != format().lineBreak)
        data.insert(0, format().lineEnd);
    bytes.replace(range.begin, range.end - range.begin, data);
    store.replace(objectId().record(), std::move(bytes));
    return Tavo::eOk;
}

OdDbObjectId tv::dwg::addXrecord(OdDbObjectId dictionary, std::wstring_view name, const OdResBuf* chain) {
    const auto names = dictionary.open<OdDbDictionary>(OdDb::kForWrite);
    if (!names || name.empty() || names->has(name)) return {};
    OdDbDatabase& database = *dictionary.database();
    TagWriter data(database.store().format());
    if (writeChain(data, chain) != Tavo::eOk) return {};
    const OdDbUndoScope step(database, L"XRECORD");
    NewObject made(database, "XRECORD", dictionary.handle());
    made.tags().name(100, "AcDbXrecord");
    if (database.form() >= OdDb::DxfVersion::kR2000) made.tags().tag(280, 1);
    made.tags().append(data.take());
    const OdDbObjectId id = made.add(dictionary);
    if (!id.isNull()) names->setAt(name, id);
    return id;
}

Tavo::ErrorStatus tv::dwg::writeXrecord(OdDbObjectId dictionary, std::wstring_view name,
                                        const OdResBuf* chain) {
    const auto names = dictionary.open<OdDbDictionary>();
    if (!names) return Tavo::eInvalidInput;
    if (const auto known = names->getAt(name).open<OdDbXrecord>(OdDb::kForWrite))
        return known->setFromRbChain(chain);
    return addXrecord(dictionary, name, chain).isNull() ? Tavo::eNotHandled : Tavo::eOk;
}

OdDbObjectId tv::dwg::addPlaceHolder(OdDbObjectId dictionary, std::wstring_view name) {
    const auto names = dictionary.open<OdDbDictionary>(OdDb::kForWrite);
    if (!names || name.empty() || names->has(name)) return {};
    const OdDbUndoScope step(*dictionary.database(), L"DICTIONARY");
    NewObject made(*dictionary.database(), "ACDBPLACEHOLDER", dictionary.handle());
    const OdDbObjectId id = made.add(dictionary);
    if (!id.isNull()) names->setAt(name, id);
    return id;
}
