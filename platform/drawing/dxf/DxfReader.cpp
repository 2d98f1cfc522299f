#include "platform/drawing/dxf/DxfReader.h"

#include "platform/drawing/HeaderValue.h"
#include "platform/drawing/dxf/NotADrawing.h"
#include "platform/drawing/dxf/Resync.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tv::dwg {
namespace {

constexpr std::string_view kBinaryMark("AutoCAD Binary DXF\r\n\x1A\0", 22);
constexpr std::string_view kByteOrderMark("\xEF\xBB\xBF");

Section sectionOf(std::string_view name) {
    if (name == "HEADER") return Section::kHeader;
    if (name == "CLASSES") return Section::kClasses;
    if (name == "TABLES") return Section::kTables;
    if (name == "BLOCKS") return Section::kBlocks;
    if (name == "ENTITIES") return Section::kEntities;
    if (name == "OBJECTS") return Section::kObjects;
    return Section::kOther;
}

enum class Fault : std::uint8_t {
    kBadCode,
    kTruncated,
    kNoEnd,
    kSectionOpen,
    kTableOpen,
    kBlockOpen,
    kTooLong,
};

// Collects records from tags; knows nothing of how the tags are written.
class IndexBuilder {
  public:
    explicit IndexBuilder(RecordStore& store) : m_store(store), m_records(store.records()) {}

    struct Found {
        Fault fault;
        std::size_t offset;
    };
    const std::vector<Found>& faults() const { return m_faults; }
    bool sawSection() const { return m_sawSection; }
    bool ended() const { return m_ended; }
    bool tooLong() const { return m_tooLong; }
    bool inHeader() const { return m_section == Section::kHeader; }
    std::size_t faultsLeftOut() const { return m_faultsLeftOut; }

    void onTag(const Tag& tag) {
        switch (tag.code) {
        case 0:
            startRecord(trimmed(tag.value), tag.begin);
            break;
        case 2:
            onName(trimmed(tag.value));
            break;
        case 5:
        case 105:
            if (m_handleCode == tag.code) {
                m_handleCode = -1;
                if (const auto handle = OdDbHandle::fromAscii(tag.value))
                    m_records.back().handle = handle->value();
            }
            break;
        case 9:
            if (m_section == Section::kHeader) startVariable(tag.begin);
            break;
        case 67:
            if (m_section == Section::kEntities && isOne(tag.value)) m_records.back().flags |= kPaperSpace;
            break;
        case 1003:
            m_records.back().flags |= kLayerInData;
            break;
        default:
            break;
        }
    }

    // Everything from `offset` on is one record without meaning, possibly empty.
    void finish(std::size_t offset, std::size_t end) {
        closeRecord(offset);
        if (offset < end) {
            m_section = Section::kNone;
            m_table = m_block = kNoRecord;
            open(kTypeTail, kStructure, offset);
            closeRecord(end);
        }
    }

    // Remembers the first hundred and counts the others.
    void fault(Fault kind, std::size_t offset) {
        if (m_faults.size() < kMostFaults)
            m_faults.push_back({kind, offset});
        else
            ++m_faultsLeftOut;
    }

  private:
    // In binary files the value is two bytes, of which the second is zero.
    static bool isOne(std::string_view value) {
        if (value.size() == 2 && value[1] == '\0') return value[0] == 1;
        return trimmed(value) == "1";
    }

    void closeRecord(std::size_t end) {
        Record& last = m_records.back();
        const std::size_t length = end - last.offset;
        if (length > std::numeric_limits<std::uint32_t>::max()) m_tooLong = true;
        last.length = static_cast<std::uint32_t>(length);
    }

    void open(TypeId type, std::uint8_t flags, std::size_t offset) {
        const auto id = static_cast<RecordId>(m_records.size());
        Record& r = m_records.emplace_back();
        r.offset = offset;
        r.prev = id - 1;
        r.type = type;
        r.section = m_section;
        r.flags = flags;
        r.owner = m_section == Section::kTables ? m_table : m_section == Section::kBlocks ? m_block : kNoRecord;
        m_records[id - 1].next = id;
    }

    void startVariable(std::size_t offset) {
        closeRecord(offset);
        open(kTypeHeaderVar, kHeaderVariable, offset);
        m_handleCode = -1;
    }

    void startRecord(std::string_view name, std::size_t offset) {
        closeRecord(offset);
        const TypeId type = m_store.types().idOf(name);
        const auto id = static_cast<RecordId>(m_records.size());
        std::uint8_t flags = 0;
        m_handleCode = type == kTypeDimStyle ? 105 : 5;
        m_naming = Naming::kNothing;
        switch (type) {
        case kTypeSection:
            if (m_section != Section::kNone) fault(Fault::kSectionOpen, offset);
            leaveGroups(offset);
            flags = kStructure;
            m_section = Section::kOther;
            m_naming = Naming::kSection;
            m_sawSection = true;
            break;
        case kTypeEndSec:
            leaveGroups(offset);
            open(type, kStructure, offset);
            m_section = Section::kNone;
            return;
        case kTypeEof:
            leaveGroups(offset);
            if (m_section != Section::kNone) fault(Fault::kSectionOpen, offset);
            m_section = Section::kNone;
            open(type, kStructure, offset);
            m_ended = true;
            return;
        case kTypeTable:
            if (m_section == Section::kTables) {
                if (m_table != kNoRecord) fault(Fault::kTableOpen, offset);
                m_table = kNoRecord;
                open(type, kStructure, offset);
                m_table = id;
                m_naming = Naming::kTable;
                return;
            }
            break;
        case kTypeEndTab:
            open(type, kStructure, offset);
            m_table = kNoRecord;
            return;
        case kTypeBlock:
            if (m_section == Section::kBlocks) {
                if (m_block != kNoRecord) fault(Fault::kBlockOpen, offset);
                m_block = kNoRecord;
                open(type, 0, offset);
                m_block = id;
                return;
            }
            break;
        case kTypeEndBlk:
            open(type, 0, offset);
            m_block = kNoRecord;
            return;
        case kTypeVertex:
        case kTypeAttrib:
        case kTypeSeqEnd:
            flags = kSubEntity;
            break;
        default:
            break;
        }
        open(type, flags, offset);
    }

    void leaveGroups(std::size_t offset) {
        if (m_table != kNoRecord) fault(Fault::kTableOpen, offset);
        if (m_block != kNoRecord) fault(Fault::kBlockOpen, offset);
        m_table = m_block = kNoRecord;
    }

    void onName(std::string_view name) {
        if (m_naming == Naming::kNothing) return;
        const auto id = static_cast<RecordId>(m_records.size() - 1);
        if (m_naming == Naming::kSection) {
            m_section = sectionOf(name);
            m_records.back().section = m_section;
            m_store.noteSection(m_section, id);
        } else {
            m_store.noteTable(name, id);
        }
        m_naming = Naming::kNothing;
    }

    enum class Naming : std::uint8_t { kNothing, kSection, kTable };

    RecordStore& m_store;
    std::vector<Record>& m_records;
    static constexpr std::size_t kMostFaults = 100;
    std::vector<Found> m_faults;
    std::size_t m_faultsLeftOut = 0;
    Section m_section = Section::kNone;
    Naming m_naming = Naming::kNothing;
    RecordId m_table = kNoRecord;
    RecordId m_block = kNoRecord;
    int m_handleCode = -1;
    bool m_sawSection = false;
    bool m_ended = false;
    bool m_tooLong = false;
};

// `scannerAt(offset)` gives a scanner that starts there.
template <class ScannerAt>
void scan(const ScannerAt& scannerAt, IndexBuilder& builder, const RecordStore& store, std::size_t start) {
    const std::string_view bytes = store.bytesAsRead();
    auto scanner = scannerAt(start);
    std::size_t done = start;
    std::size_t lastValue = start;
    Tag tag;
    while (!builder.ended()) {
        const ScanResult result = scanner.next(tag);
        if (result == ScanResult::kTag) {
            builder.onTag(tag);
            done = tag.end;
            lastValue = static_cast<std::size_t>(tag.value.data() - bytes.data());
            continue;
        }
        if (result == ScanResult::kEnd) {
            builder.fault(Fault::kNoEnd, bytes.size());
            break;
        }
        builder.fault(result == ScanResult::kBadCode ? Fault::kBadCode : Fault::kTruncated, done);
        if (!builder.sawSection()) break;
        // What lies between stays at the end of the record it damaged. Where a line is missing, the next
        // record's group code was taken for a value, so the search begins there.
        const std::size_t from = store.format().encoding == Encoding::kText ? lastValue : done;
        std::size_t next = nextRecordStart(store.format(), bytes, from, builder.inHeader());
        if (next == done) next = nextRecordStart(store.format(), bytes, done + 1, builder.inHeader());
        if (next == std::string_view::npos) break;
        scanner = scannerAt(next);
        done = lastValue = next;
    }
    builder.finish(done, bytes.size());
}

// Lines of offsets that are asked for in rising order, counted once.
class LineCounter {
  public:
    LineCounter(std::string_view bytes, char lineBreak) : m_bytes(bytes), m_break(lineBreak) {}
    std::int64_t lineOf(std::size_t offset) {
        if (offset < m_done) {
            m_done = 0;
            m_line = 1;
        }
        const auto from = m_bytes.begin() + static_cast<std::ptrdiff_t>(m_done);
        m_line += std::count(from, m_bytes.begin() + static_cast<std::ptrdiff_t>(offset), m_break);
        m_done = offset;
        return m_line;
    }

  private:
    std::string_view m_bytes;
    char m_break;
    std::size_t m_done = 0;
    std::int64_t m_line = 1;
};

std::wstring reason(Fault fault) {
    switch (fault) {
    case Fault::kBadCode:
        return VORD_ResourceString("IDS_TAVO_DXF_BAD_CODE",
                                   L"그룹 코드가 있어야 할 자리에 다른 내용이 있습니다")
            .c_str();
    case Fault::kTruncated:
        return VORD_ResourceString("IDS_TAVO_DXF_TRUNCATED", L"값이 나오기 전에 파일이 끝납니다").c_str();
    case Fault::kNoEnd:
        return VORD_ResourceString("IDS_TAVO_DXF_NO_EOF", L"끝 표시(EOF)가 없어 파일이 잘린 것으로 보입니다")
            .c_str();
    case Fault::kSectionOpen:
        return VORD_ResourceString("IDS_TAVO_DXF_SECTION_OPEN", L"앞의 섹션이 끝나지 않았습니다(ENDSEC 없음)")
            .c_str();
    case Fault::kTableOpen:
        return VORD_ResourceString("IDS_TAVO_DXF_TABLE_OPEN", L"앞의 테이블이 끝나지 않았습니다(ENDTAB 없음)")
            .c_str();
    case Fault::kBlockOpen:
        return VORD_ResourceString("IDS_TAVO_DXF_BLOCK_OPEN", L"앞의 블록이 끝나지 않았습니다(ENDBLK 없음)")
            .c_str();
    case Fault::kTooLong:
        break;
    }
    return VORD_ResourceString("IDS_TAVO_DXF_TOO_LONG", L"한 항목이 4GB를 넘습니다").c_str();
}

tv::Problem describe(const IndexBuilder::Found& found, const RecordStore& store, LineCounter& lines,
                     std::wstring_view file) {
    tv::Problem problem;
    problem.status = Tavo::eBadFile;
    problem.file = file;
    if (store.format().encoding == Encoding::kText) {
        problem.line = lines.lineOf(found.offset);
        problem.sentence =
            tv::text::format(VORD_ResourceString("IDS_TAVO_DXF_DAMAGED_LINE",
                                                 L"도면 \"%s\"이(가) %d번째 줄에서 손상되었습니다: %s."),
                             problem.file, problem.line, reason(found.fault));
    } else {
        problem.sentence =
            tv::text::format(VORD_ResourceString("IDS_TAVO_DXF_DAMAGED_BYTE",
                                                 L"도면 \"%s\"이(가) %d번째 바이트에서 손상되었습니다: %s."),
                             problem.file, found.offset, reason(found.fault));
    }
    return problem;
}

// How the file writes its lines, from its first few.
void learnStyle(RecordStore& store) {
    DxfFormat& format = store.format();
    const std::string_view bytes = store.bytesAsRead();
    const std::size_t firstBreak = bytes.find(format.lineBreak);
    if (firstBreak != std::string_view::npos)
        format.lineEnd = format.lineBreak == '\n' && firstBreak > 0 && bytes[firstBreak - 1] == '\r'
                             ? std::string("\r\n")
                             : std::string(1, format.lineBreak);
    if (const RecordId first = store.next(RecordStore::kHead); first != kNoRecord)
        format.padCodes = store.text(first).starts_with("  0");
    learnVersion(store);
}

// Line feeds, unless the first line ends with a carriage return alone.
char lineBreakOf(std::string_view bytes) {
    const std::size_t first = bytes.find('\r');
    if (first == std::string_view::npos || bytes.find('\n') < first) return '\n';
    const std::size_t behind = bytes.find_first_not_of('\r', first);
    return behind != std::string_view::npos && bytes[behind] == '\n' ? '\n' : '\r';
}

// Where the first line begins that isn't blank.
std::size_t firstFilledLine(std::string_view bytes, std::size_t from) {
    const std::size_t filled = bytes.find_first_not_of(" \t\r\n", from);
    if (filled == std::string_view::npos) return from;
    const std::size_t before = bytes.find_last_of("\r\n", filled);
    return before == std::string_view::npos || before < from ? from : before + 1;
}

bool oneByteCodes(std::string_view bytes) {
    const std::size_t start = kBinaryMark.size();
    if (bytes.size() < start + 2) return false;
    const auto first = static_cast<unsigned char>(bytes[start]);
    const auto second = static_cast<unsigned char>(bytes[start + 1]);
    return first == 255 || second >= 5;
}

// Of a file whose version isn't known. A name nobody knows yet is of a version to come; without any name the
// first records of the sections tell.
OdDb::DxfVersion formOf(const RecordStore& store, std::string_view named) {
    using enum OdDb::DxfVersion;
    if (named.size() == 6 && named.starts_with("AC1") && named > "AC1009") return kR2018;
    constexpr int kLookedAt = 32;
    for (const Section kind : {Section::kTables, Section::kBlocks, Section::kEntities, Section::kObjects}) {
        RecordId id = store.section(kind);
        for (int looked = 0; id != kNoRecord && looked < kLookedAt; ++looked, id = store.next(id)) {
            if (store.record(id).section != kind) break;
            TagCursor cursor = store.tags(id);
            for (Tag tag; cursor.next(tag) && tag.code < 1000;)
                if (tag.code == 100) return kR2018;
        }
    }
    return kR12;
}

} // namespace

void learnVersion(RecordStore& store) {
    DxfFormat& format = store.format();
    format.codePage = "ANSI_1252";
    std::string_view named;
    const RecordId header = store.section(Section::kHeader);
    if (header != kNoRecord)
        for (RecordId id = store.next(header); id != kNoRecord && store.record(id).section == Section::kHeader;
             id = store.next(id)) {
            TagCursor cursor = store.tags(id);
            Tag name;
            Tag value;
            if (!cursor.next(name) || name.code != 9 || !cursor.next(value)) continue;
            const std::string_view variable = trimmed(name.value);
            if (variable == "$ACADVER")
                named = trimmed(value.value);
            else if (variable == "$DWGCODEPAGE")
                format.codePage = trimmed(value.value);
            else if (valueKind(value.code) == ValueKind::kInt16 && value.value.starts_with(' '))
                format.padIntegers = true;
        }
    format.version = versionOf(named);
    format.form = format.version == OdDb::DxfVersion::kUnknown ? formOf(store, named) : format.version;
    format.page = tv::text::CodePage::find(format.codePage);
    format.utf8 = format.version >= OdDb::DxfVersion::kR2007;
}

ReadResult readDxf(std::string bytes, std::wstring_view file) {
    ReadResult result;
    const bool binary = bytes.starts_with(kBinaryMark);
    const bool mark = bytes.starts_with(kByteOrderMark);
    auto store = std::make_unique<RecordStore>(std::move(bytes));
    const std::string_view all = store->bytesAsRead();
    IndexBuilder builder(*store);
    store->records().front().length = 0;
    if (binary) {
        store->format().encoding = oneByteCodes(all) ? Encoding::kBinaryR12 : Encoding::kBinary;
        store->records().reserve(all.size() / 40 + 64);
        const bool r12 = store->format().encoding == Encoding::kBinaryR12;
        scan([&](std::size_t at) { return BinaryScanner(all, r12, at); }, builder, *store, kBinaryMark.size());
    } else {
        store->format().lineBreak = lineBreakOf(all);
        // An entity takes 60 bytes at the very least; memory reserved and not used costs nothing.
        store->records().reserve(all.size() / 40 + 64);
        const std::size_t start = firstFilledLine(all, mark ? kByteOrderMark.size() : 0);
        scan([&](std::size_t at) { return TextScanner(all, store->format().lineBreak, at); }, builder, *store,
             start);
    }
    LineCounter lines(all, store->format().lineBreak);
    if (!builder.sawSection() || builder.tooLong()) {
        tv::Problem problem;
        problem.status = Tavo::eBadFile;
        problem.file = file;
        if (builder.sawSection())
            problem = describe({Fault::kTooLong, 0}, *store, lines, file);
        else
            problem.sentence = tv::text::format(
                VORD_ResourceString("IDS_TAVO_DXF_NOT_DXF",
                                    L"파일 \"%s\"은(는) DXF 도면이 아니라 %s인 것으로 보여 열 수 없습니다."),
                problem.file, seemsToBe(all));
        result.problems.push_back(std::move(problem));
        return result;
    }
    learnStyle(*store);
    for (const IndexBuilder::Found& found : builder.faults())
        result.problems.push_back(describe(found, *store, lines, file));
    if (builder.faultsLeftOut() > 0) {
        tv::Problem& more = result.problems.emplace_back();
        more.status = Tavo::eBadFile;
        more.file = file;
        more.sentence = tv::text::format(
            VORD_ResourceString("IDS_TAVO_DXF_MORE_DAMAGE", L"손상된 곳이 %d개 더 있습니다(도면 \"%s\")."),
            builder.faultsLeftOut(), more.file);
    }
    result.store = std::move(store);
    return result;
}

} // namespace tv::dwg
