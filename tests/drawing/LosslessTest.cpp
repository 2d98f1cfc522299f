#include "tests/drawing/Drawings.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <map>

using namespace drawings;
using OdDb::DxfVersion;
using tv::dwg::HeaderValue;

namespace {

const char* const kSmall = "0|SECTION|2|HEADER|9|$ACADVER|1|AC1015|9|$LUNITS|70|2|0|ENDSEC|"
                           "0|SECTION|2|ENTITIES|0|LINE|5|A1|8|0|10|0.0|20|0.0|11|1.5|21|2.5|0|ENDSEC|0|EOF";

using Pairs = std::vector<std::pair<int, std::string>>;

Pairs textPairs(const std::string& bytes) {
    Pairs out;
    std::vector<std::string> all = split(bytes);
    for (std::string& line : all) {
        while (!line.empty() && (line.back() == '\r' || line.back() == ' '))
            line.pop_back();
        line.erase(0, line.find_first_not_of(' '));
    }
    for (std::size_t i = 0; i + 1 < all.size(); i += 2)
        out.emplace_back(std::atoi(all[i].c_str()), all[i + 1]);
    return out;
}

// How many bytes a binary value takes: -1 for texts, -2 for chunks with their length before them.
int binarySize(int code) {
    const auto in = [code](int from, int to) { return code >= from && code <= to; };
    if (in(10, 59) || in(110, 149) || in(210, 239) || in(460, 469) || in(1010, 1059)) return 8;
    if (in(60, 79) || in(170, 179) || in(270, 289) || in(370, 389) || in(400, 409) || in(1060, 1070)) return 2;
    if (in(90, 99) || in(420, 429) || in(440, 459) || code == 1071) return 4;
    if (in(160, 169)) return 8;
    if (in(290, 299)) return 1;
    return in(310, 319) || code == 1004 ? -2 : -1;
}

// Values that aren't texts are left empty.
Pairs binaryPairs(const std::string& bytes) {
    Pairs out;
    std::size_t at = 22;
    const bool oneByte = bytes[at + 1] == 'S';
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    while (at + 2 < bytes.size()) {
        int code = byte(at++);
        if (!oneByte || code == 255) {
            if (oneByte) code = byte(at++);
            code += byte(at++) * 256;
        }
        const int size = binarySize(code);
        std::string value;
        if (size == -1) {
            value = bytes.c_str() + at;
            at += value.size() + 1;
        } else {
            at += size == -2 ? 1u + byte(at) : static_cast<unsigned>(size);
        }
        out.emplace_back(code, value);
    }
    return out;
}

// Counts record types per section pair by pair, knowing nothing of tables, blocks or spaces.
std::map<std::string, std::size_t> countTypes(const std::string& bytes) {
    std::map<std::string, std::size_t> out;
    std::string section;
    const Pairs all = bytes.starts_with("AutoCAD Binary DXF") ? binaryPairs(bytes) : textPairs(bytes);
    for (std::size_t i = 0; i + 1 < all.size(); ++i) {
        const auto& [code, value] = all[i];
        if (code != 0) continue;
        if (value == "SECTION") section = all[i + 1].second;
        ++out[section + " " + value];
        if (section == "ENTITIES") ++out["entities"];
        if (value == "ENDSEC") section.clear();
    }
    return out;
}

std::size_t length(const OdDbEntityRange& range) {
    return static_cast<std::size_t>(std::distance(range.begin(), range.end()));
}

} // namespace

TEST(Lossless, OdditiesComeBackByteForByte) {
    const std::string small = lines(kSmall);
    std::vector<std::string> cases = {
        small,
        lines(kSmall, "\r\n"),
        lines(kSmall, "\r"),
        "\xEF\xBB\xBF" + small,
        small.substr(0, small.size() - 1),
        small + std::string("junk behind the end\n\0more", 25) + "\n\n\n",
        "999\nmade by hand\n" + small,
        lines("0|SECTION|2|ENTITIES|0|POINT|5|FFFFFFFFFFFFFFFF|8|0|0|POINT|5|FFFFFFFFFFFFFFFF|8|0|0|ENDSEC|0|"
              "EOF"),
        lines("  0|SECTION  |  2|PRIVATE_THINGS| 70 |     7|1|a  b  |0|ODDITY|1000|x|0|ENDSEC|0|EOF  "),
        lines("0|SECTION|2|BLOCKS|0|ENDSEC|0|SECTION|2|THUMBNAILIMAGE|90|4|310|00FF00FF|0|ENDSEC|0|EOF"),
    };
    std::string mixed;
    int n = 0;
    for (const std::string& line : split(small))
        mixed += line + (++n % 3 == 0 ? " \r\n" : n % 3 == 1 ? "\n" : "\r\n");
    cases.push_back(mixed);
    std::string oldEnds = lines(kSmall, "\r"); // some with a line feed behind them, the last with nothing else
    oldEnds.back() = '\n';
    oldEnds.insert(oldEnds.find("ENDSEC\r") + 7, "\n");
    oldEnds.insert(oldEnds.find("LINE\r") + 5, "\n");
    cases.push_back(oldEnds);
    cases.push_back("\n \r\n" + lines(kSmall, "\r\r\n"));
    for (const std::string& bytes : cases) {
        const auto opened = OdDbDatabase::openBytes(bytes, "x.dxf");
        ASSERT_TRUE(opened.database) << bytes;
        EXPECT_TRUE(opened.problems.empty()) << bytes;
        OdDbDatabase& db = *opened.database;
        EXPECT_EQ(db.bytes(), bytes);
        for (const OdDbObjectId id : db.modelSpace()) {
            if (id.handle().isNull()) continue;
            EXPECT_EQ(id.open<OdDbEntity>(OdDb::kForWrite)->setColor(OdCmColor::byIndex(3)), Tavo::eOk);
            const auto again = OdDbDatabase::openBytes(db.bytes(), "x.dxf");
            ASSERT_TRUE(again.database && again.problems.empty()) << bytes;
            EXPECT_EQ(again.database->getOdDbObjectId(id.handle()).open<OdDbEntity>()->color().colorIndex(), 3);
            break;
        }
        db.undo();
        EXPECT_EQ(db.bytes(), bytes);
    }
}

TEST(Lossless, SectionsInAnyOrderAndTwiceAreOneDrawing) {
    const std::string bytes = lines(
        "999|made by hand|0|SECTION|2|OBJECTS|0|DICTIONARY|5|C|100|AcDbDictionary|0|ENDSEC|"
        "0|SECTION|2|ENTITIES|0|LINE|5|A|999|why not|8|Wall|62|3|0|LINE|5|A|8|0|0|ENDSEC|"
        "0|SECTION|2|PRIVATE|1|anything|0|LAYER|2|Ghost|0|ENDSEC|"
        "0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|1|0|LAYER|2|Wall|70|0|62|1|6|CONTINUOUS|0|ENDTAB|0|ENDSEC|"
        "0|SECTION|2|HEADER|9|$ACADVER|1|AC1015|9|$LUNITS|70|3|0|ENDSEC|0|SECTION|2|TABLES|0|ENDSEC|0|EOF",
        "\r\n");
    const auto opened = OdDbDatabase::openBytes(bytes, "x.dxf");
    ASSERT_TRUE(opened.database);
    EXPECT_TRUE(opened.problems.empty());
    OdDbDatabase& db = *opened.database;
    EXPECT_EQ(db.version(), DxfVersion::kR2000);
    EXPECT_EQ(db.headerVar(L"LUNITS")->asInteger(), 3);
    EXPECT_FALSE(db.layers()->has(L"Ghost"));
    EXPECT_FALSE(db.getNamedObjectsDictionaryId().isNull());
    const auto line = db.getOdDbObjectId(OdDbHandle(0xA)).open<OdDbEntity>(OdDb::kForWrite);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->layerId(), db.layers()->getAt(L"wall"));
    EXPECT_EQ(line->setColor(OdCmColor::byIndex(5)), Tavo::eOk);
    std::string expected = bytes;
    expected.replace(expected.find("62\r\n3"), 5, "62\r\n5");
    EXPECT_EQ(db.bytes(), expected)
        << "of two records with one handle the first is meant, and nothing else changes";
}

TEST(Lossless, RealDrawingsComeBackAndChangeOnlyTheirHeaderLines) {
    const auto files = realDrawings();
    if (files.empty()) GTEST_SKIP() << "no folder of real drawings";
    for (const auto& file : files) {
        const std::string bytes = slurp(file);
        const auto opened = OdDbDatabase::open(file);
        ASSERT_TRUE(opened.database) << file;
        for (const auto& problem : opened.problems)
            ADD_FAILURE() << file << std::string(problem.sentence.begin(), problem.sentence.end());
        OdDbDatabase& database = *opened.database;
        ASSERT_EQ(database.bytes(), bytes) << file;
        EXPECT_GT(database.objectCount(), 0u) << file;

        const auto before = database.headerVar(L"LUPREC");
        database.startUndoRecord(L"_UNITS");
        ASSERT_FALSE(database.setHeaderVar(L"LUPREC", HeaderValue::integer(7))) << file;
        ASSERT_FALSE(database.setHeaderVar(L"ANGBASE", HeaderValue::real(12.25))) << file;
        database.endUndoRecord();
        const std::string edited = database.bytes();
        EXPECT_EQ(database.headerVar(L"LUPREC")->asInteger(), 7);
        if (before && !database.isBinary()) {
            const auto a = split(bytes);
            const auto b = split(edited);
            const int added = database.headerVar(L"ANGBASE") && a.size() == b.size() ? 0 : 4;
            ASSERT_EQ(a.size() + static_cast<std::size_t>(added), b.size()) << file;
            if (added == 0) {
                int different = 0;
                for (std::size_t i = 0; i < a.size(); ++i)
                    different += a[i] != b[i];
                EXPECT_EQ(different, 2) << file;
            }
        }
        const auto again = OdDbDatabase::openBytes(edited, file);
        ASSERT_TRUE(again.database) << file;
        EXPECT_TRUE(again.problems.empty()) << file;
        EXPECT_EQ(again.database->headerVar(L"ANGBASE")->asReal(), 12.25) << file;
        EXPECT_TRUE(database.undo());
        EXPECT_EQ(database.bytes(), bytes) << file;
        EXPECT_FALSE(database.changed());
        EXPECT_TRUE(database.redo());
        EXPECT_EQ(database.bytes(), edited) << file;
    }
}

TEST(Lossless, RealDrawingsHoldWhatAnIndependentCountFinds) {
    const auto files = realDrawings();
    if (files.empty()) GTEST_SKIP() << "no folder of real drawings";
    for (const auto& file : files) {
        const auto db = OdDbDatabase::open(file).database;
        ASSERT_TRUE(db) << file;
        auto count = countTypes(slurp(file));
        const auto size = [](OdDbObjectId id) {
            const auto table = id.open<OdDbSymbolTable>();
            return table ? table->size() : 0;
        };
        EXPECT_EQ(size(db->getLayerTableId()), count["TABLES LAYER"]) << file;
        EXPECT_EQ(size(db->getLinetypeTableId()), count["TABLES LTYPE"]) << file;
        EXPECT_EQ(size(db->getTextStyleTableId()), count["TABLES STYLE"]) << file;
        EXPECT_EQ(size(db->getDimStyleTableId()), count["TABLES DIMSTYLE"]) << file;
        EXPECT_EQ(size(db->getBlockTableId()), count["BLOCKS BLOCK"]) << file;
        const std::size_t subs = count["ENTITIES VERTEX"] + count["ENTITIES ATTRIB"] + count["ENTITIES SEQEND"];
        const std::size_t marks = count["ENTITIES SECTION"] + count["ENTITIES ENDSEC"];
        EXPECT_EQ(length(db->modelSpace()) + length(db->paperSpace()), count["entities"] - subs - marks)
            << file;
        const auto blocks = db->getBlockTableId().open<OdDbBlockTable>();
        if (!blocks) continue;
        blocks->forEach([&](OdDbObjectId id) {
            const auto block = id.open<OdDbBlockTableRecord>();
            ASSERT_TRUE(block) << file;
            EXPECT_FALSE(block->blockBeginId().isNull()) << file;
        });
    }
}

TEST(Lossless, OurOwnSampleIsACompleteDrawing) {
    const auto opened = OdDbDatabase::open(std::filesystem::path(KX_SOURCE_DIR) / "samples" / "floor_plan.dxf");
    ASSERT_TRUE(opened.database);
    EXPECT_TRUE(opened.problems.empty());
    EXPECT_EQ(length(opened.database->modelSpace()), 11u);
    EXPECT_LT(opened.database->store().highestHandle(),
              std::get<OdDbHandle>(opened.database->headerVar(L"HANDSEED")->value).value());
}
