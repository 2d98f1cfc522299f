#include "platform/drawing/entities/OdDbLeader.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/TagAccess.h"

using namespace tv::dwg;

namespace {

// The context data nest: 300 opens them, 302 a leader, 304 a line of it when it says so; 301, 303 and 305
// close. A 304 on the outermost level is the text.
class ContextLevel {
  public:
    // Whether this tag is the text.
    bool isText(int code, std::string_view raw) {
        const bool opens = trimmed(raw).ends_with('{');
        switch (code) {
        case 300:
            if (opens && trimmed(raw) == "CONTEXT_DATA{") m_depth = 1;
            return false;
        case 302:
            m_depth += m_depth == 1 && opens;
            return false;
        case 304:
            if (m_depth == 1) return true;
            m_depth += m_depth == 2 && opens;
            return false;
        case 301:
        case 303:
        case 305:
            m_depth -= m_depth > 0 && trimmed(raw) == "}";
            return false;
        default:
            return false;
        }
    }
    int depth() const { return m_depth; }

  private:
    int m_depth = 0;
};

} // namespace

OdString OdDbLeader::dimensionStyleName() const {
    const OdString name = textAt(3);
    return name.isEmpty() ? OdString(L"STANDARD") : name;
}

Tavo::ErrorStatus OdDbLeader::setDimensionStyle(std::wstring_view name) {
    const auto table = database()->getDimStyleTableId().open<OdDbSymbolTable>();
    if (!table || !table->has(name)) return Tavo::eKeyNotFound;
    return writeTag(*this, {"AcDbLeader", 3}, OdString(name));
}

std::vector<OdGePoint3d> OdDbLeader::vertices() const {
    std::vector<OdGePoint3d> out;
    OwnTags own(format(), database()->store().text(objectId().record()));
    for (Tag tag; own.next(tag);) {
        const double value =
            tag.code == 10 || tag.code == 20 || tag.code == 30 ? realOf(format(), tag).value_or(0) : 0;
        if (tag.code == 10) out.push_back({value, 0, 0});
        if (out.empty()) continue;
        if (tag.code == 20) out.back().y = value;
        if (tag.code == 30) out.back().z = value;
    }
    return out;
}

OdDbMLeader::ContentType OdDbMLeader::contentType() const {
    ContextLevel level;
    OwnTags own(format(), database()->store().text(objectId().record()));
    for (Tag tag; own.next(tag);) {
        level.isText(tag.code, tag.value);
        if (tag.code == 172 && level.depth() == 0) {
            const auto type = integerOf(format(), tag).value_or(0);
            return type >= 0 && type <= 3 ? static_cast<ContentType>(type) : kNoneContent;
        }
    }
    return kNoneContent;
}

OdString OdDbMLeader::contents() const {
    ContextLevel level;
    OwnTags own(format(), database()->store().text(objectId().record()));
    for (Tag tag; own.next(tag);)
        if (level.isText(tag.code, tag.value)) return textOf(format(), tag);
    return {};
}

Tavo::ErrorStatus OdDbMLeader::setContents(std::wstring_view contents) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    ContextLevel level;
    for (const std::size_t i : ownTags(record)) {
        if (!level.isText(record.code(i), record.raw(i))) continue;
        if (!record.set(i, OdString(contents))) return Tavo::eInvalidInput;
        if (record.edited()) store.replace(objectId().record(), record.bytes());
        return Tavo::eOk;
    }
    return Tavo::eWrongType;
}

OdDbObjectId OdDbMLeader::styleId() const {
    ContextLevel level;
    OwnTags own(format(), database()->store().text(objectId().record()));
    for (Tag tag; own.next(tag);) {
        level.isText(tag.code, tag.value);
        if (tag.code == 340 && level.depth() == 0) {
            const auto handle = handleOf(format(), tag);
            return handle ? database()->getOdDbObjectId(*handle) : OdDbObjectId();
        }
    }
    return {};
}
