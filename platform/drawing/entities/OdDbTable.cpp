#include "platform/drawing/entities/OdDbTable.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/OdDbMText.h"
#include "platform/drawing/entities/TagAccess.h"

#include <algorithm>

using namespace tv::dwg;

namespace {

constexpr std::string_view kSubclass = "AcDbTable";

// The texts of one cell as the tags follow each other. Up to R2004 they stand in the cell, pieces first; later
// a value is bracketed in it that has the text twice, as value and as shown.
struct CellTags {
    std::int64_t type = 1;
    bool merged = false;
    bool bracketed = false;
    std::string plain, shown; // raw
    bool hasShown = false;
};

// Hands every tag of the cells to `visit(cell number, code, raw)`; the number is -1 before the first.
template <class NextTag, class Visit>
void walkCells(NextTag&& next, Visit&& visit) {
    bool inside = false;
    bool marked = false;
    int cell = -1;
    for (Tag tag; next(tag);) {
        if (tag.code == 100) {
            inside = trimmed(tag.value) == kSubclass;
            marked = true;
            continue;
        }
        if (!inside && marked) continue;
        if (tag.code == 171) ++cell;
        visit(cell, tag);
    }
}

// One bracketed value among the tags [begin, end) of a record: says `text` afterwards, as value and as shown.
bool setValue(RecordEditor& record, const DxfFormat& format, std::size_t begin, std::size_t end,
              std::wstring_view text) {
    std::vector<std::size_t> shown;
    std::vector<std::size_t> plain;
    std::size_t type = RecordEditor::npos;
    std::size_t flags = RecordEditor::npos;
    std::size_t unit = RecordEditor::npos;
    for (std::size_t i = begin; i < end; ++i) {
        const int code = record.code(i);
        if (code == 302 || code == 303) shown.push_back(i);
        if (code == 93 && flags == RecordEditor::npos) flags = i;
        if (code == 90 && type == RecordEditor::npos) type = i;
        if (code == 94 && unit == RecordEditor::npos) unit = i;
        if ((code == 1 || code == 2) && type != RecordEditor::npos && unit == RecordEditor::npos)
            plain.push_back(i);
    }
    // From the back, so that positions further ahead stay right.
    if (!shown.empty() && !replacePieces(record, format, shown, 0, 303, 302, text)) return false;
    if (type == RecordEditor::npos || unit == RecordEditor::npos || unit < type) return !shown.empty();
    constexpr std::int64_t kText = 4;
    if (record.value(type) != Value(kText)) {
        // A number, a date or nothing so far.
        for (std::size_t i = unit; --i > type;)
            record.erase(i);
        plain.clear();
        if (!record.set(type, kText)) return false;
    }
    if (!replacePieces(record, format, plain, type + 1, 2, 1, text)) return false;
    if (flags == RecordEditor::npos || flags > type) return true;
    const Value old = record.value(flags);
    const auto* bits = std::get_if<std::int64_t>(&old);
    return !bits || record.set(flags, *bits & ~std::int64_t{1}); // 1: empty
}

std::size_t endOfValue(const RecordEditor& record, std::size_t begin, std::size_t end) {
    while (begin < end && !(record.code(begin) == 304 && trimmed(record.raw(begin)) == "ACVALUE_END"))
        ++begin;
    return begin;
}

} // namespace

int OdDbTable::numRows() const {
    const Value rows = tagValue(*this, {kSubclass, 91});
    const auto* number = std::get_if<std::int64_t>(&rows);
    return number && *number > 0 ? static_cast<int>(std::min<std::int64_t>(*number, INT32_MAX)) : 0;
}

int OdDbTable::numColumns() const {
    const Value columns = tagValue(*this, {kSubclass, 92});
    const auto* number = std::get_if<std::int64_t>(&columns);
    return number && *number > 0 ? static_cast<int>(std::min<std::int64_t>(*number, INT32_MAX)) : 0;
}

std::vector<double> OdDbTable::rowHeights() const {
    std::vector<double> out;
    OwnTags own(format(), database()->store().text(objectId().record()));
    walkCells([&](Tag& tag) { return own.next(tag); },
              [&](int cell, const Tag& tag) {
                  if (cell < 0 && tag.code == 141) out.push_back(realOf(format(), tag).value_or(0));
              });
    return out;
}

std::vector<double> OdDbTable::columnWidths() const {
    std::vector<double> out;
    OwnTags own(format(), database()->store().text(objectId().record()));
    walkCells([&](Tag& tag) { return own.next(tag); },
              [&](int cell, const Tag& tag) {
                  if (cell < 0 && tag.code == 142) out.push_back(realOf(format(), tag).value_or(0));
              });
    return out;
}

OdDbObjectId OdDbTable::tableStyleId() const { return idAt(342); }

std::vector<OdDbTable::Cell> OdDbTable::cells() const {
    std::vector<CellTags> found;
    OwnTags own(format(), database()->store().text(objectId().record()));
    walkCells([&](Tag& tag) { return own.next(tag); },
              [&](int cell, const Tag& tag) {
                  if (cell < 0) return;
                  if (tag.code == 171) found.emplace_back().type = integerOf(format(), tag).value_or(1);
                  CellTags& now = found.back();
                  switch (tag.code) {
                  case 173:
                      now.merged = integerOf(format(), tag) == 1;
                      break;
                  case 301:
                      now.bracketed = true;
                      break;
                  case 304:
                      now.bracketed = false;
                      break;
                  case 1:
                  case 2:
                      now.plain += tag.value;
                      break;
                  case 302:
                  case 303:
                      if (now.bracketed) {
                          now.shown += tag.value;
                          now.hasShown = true;
                      }
                      break;
                  default:
                      break;
                  }
              });
    std::vector<Cell> out;
    out.reserve(found.size());
    for (const CellTags& cell : found)
        out.push_back(
            {decodeText(format(), cell.hasShown ? cell.shown : cell.plain), cell.type == 2, cell.merged});
    return out;
}

OdString OdDbTable::textString(int row, int column) const {
    const int columns = numColumns();
    if (row < 0 || column < 0 || column >= columns || row >= numRows()) return {};
    const std::vector<Cell> all = cells();
    const auto at =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column);
    return at < all.size() ? all[at].text : OdString();
}

// Newer versions keep the contents beside the table: the extension dictionary has a record that names them.
OdDbObjectId OdDbTable::linkedContent() const {
    const auto dictionary = extensionDictionary().open<OdDbDictionary>();
    const OdDbObjectPtr record = dictionary ? dictionary->getAt(L"ACAD_XREC_ROUNDTRIP").openObject() : nullptr;
    if (!record) return {};
    TagCursor cursor = record->tags();
    for (Tag tag; cursor.next(tag);) {
        if (tag.code != 360) continue;
        const auto handle = handleOf(format(), tag);
        const OdDbObjectId id = handle ? database()->getOdDbObjectId(*handle) : OdDbObjectId();
        if (const OdDbObjectPtr content = id.openObject(); content && content->isA() == L"TABLECONTENT")
            return id;
    }
    return {};
}

namespace {

// The tags of a cell's first value in linked contents; nothing when the cell has none.
std::optional<std::pair<std::size_t, std::size_t>> linkedValue(const RecordEditor& record, std::size_t cell) {
    std::size_t begun = 0;
    std::size_t i = 0;
    for (; i < record.size(); ++i)
        if (record.code(i) == 1 && trimmed(record.raw(i)) == "LINKEDTABLEDATACELL_BEGIN" && begun++ == cell)
            break;
    for (; i < record.size(); ++i) {
        if (record.code(i) == 309 && trimmed(record.raw(i)) == "LINKEDTABLEDATACELL_END") return std::nullopt;
        if (record.code(i) == 300 && trimmed(record.raw(i)) == "VALUE")
            return std::pair{i + 1, endOfValue(record, i + 1, record.size())};
    }
    return std::nullopt;
}

} // namespace

// The texts of the block stand in the order of the cells; where they don't say what the cells say, it is left
// alone.
void OdDbTable::setShownText(std::size_t cell, std::wstring_view text) {
    const auto block = blockTableRecordId().open<OdDbBlockTableRecord>();
    if (!block) return;
    std::vector<OdDbMTextPtr> shown;
    for (const OdDbObjectId id : block->entities())
        if (auto mtext = id.open<OdDbMText>(OdDb::kForWrite)) shown.push_back(std::move(mtext));
    const std::vector<Cell> all = cells();
    std::size_t number = 0;
    std::size_t texts = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].text.isEmpty() || all[i].isMerged || all[i].isBlock) continue;
        if (i < cell) ++number;
        ++texts;
    }
    if (shown.size() != texts || all[cell].text.isEmpty() ||
        shown[number]->plainText() != plainText(all[cell].text.view()))
        return;
    shown[number]->setContents(text);
}

Tavo::ErrorStatus OdDbTable::setTextString(int row, int column, std::wstring_view text) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const int columns = numColumns();
    if (row < 0 || column < 0 || column >= columns || row >= numRows()) return Tavo::eOutOfRange;
    const auto cell =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column);
    const std::vector<Cell> all = cells();
    if (cell >= all.size()) return Tavo::eOutOfRange;
    if (all[cell].isBlock) return Tavo::eWrongType;
    if (all[cell].text.view() == text) return Tavo::eOk;

    RecordStore& store = database()->store();
    const OdDbObjectId linked = linkedContent();
    std::optional<RecordEditor> content;
    if (!linked.isNull()) {
        content.emplace(format(), store.text(linked.record()));
        const auto value = linkedValue(*content, cell);
        if (!value) return Tavo::eNotHandled;
        if (!setValue(*content, format(), value->first, value->second, text)) return Tavo::eInvalidInput;
    }

    RecordEditor record(format(), store.text(objectId().record()));
    std::size_t begin = 0;
    std::size_t end = record.size();
    std::size_t begun = 0;
    for (const std::size_t i : ownTags(record)) {
        if (record.code(i) == 171 && begun++ == cell) begin = i;
        if (record.code(i) == 171 && begun == cell + 2) end = i;
        if (record.code(i) >= 1000) break;
    }
    std::vector<std::size_t> plain;
    std::size_t place = begin + 1;
    std::size_t value = RecordEditor::npos;
    for (std::size_t i = begin; i < end && record.code(i) < 1000; ++i) {
        if (record.code(i) == 1 || record.code(i) == 2) plain.push_back(i);
        if (record.code(i) == 301 && value == RecordEditor::npos) value = i + 1;
        if (record.code(i) >= 144 && record.code(i) <= 178) place = i + 1;
    }
    const bool good = value != RecordEditor::npos
                          ? setValue(record, format(), value, endOfValue(record, value, end), text)
                          : replacePieces(record, format(), plain, place, 2, 1, text);
    if (!good) return Tavo::eInvalidInput;

    const OdDbUndoScope step(*database(), L"TABLEDIT");
    setShownText(cell, text);
    if (record.edited()) store.replace(objectId().record(), record.bytes());
    if (content && content->edited()) store.replace(linked.record(), content->bytes());
    return Tavo::eOk;
}
