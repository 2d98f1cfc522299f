#include "tests/drawing/Drawings.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <map>

using namespace drawings;
using OdDb::DxfVersion;
using tv::dwg::HeaderValue;

namespace {

const char* const kSmall = "0|SECTION|2|HEADER|9|$ACADVER|1|AC1015|9|$LUNITS|70|2|0|ENDSEC|"
                           "0|SECTION|2|ENTITIES|0|LINE|5|A1|8|0|10|0.0|20|0.0|11|1.5|21|2.5|0|ENDSEC|0|EOF";

// Counts record types per section line by line, knowing nothing of tables, blocks or spaces.
std::map<std::string, std::size_t> countTypes(const std::string& bytes) {
    std::map<std::string, std::size_t> out;
    std::string section;
    std::vector<std::string> all = split(bytes);
    for (std::string& line : all) {
        while (!line.empty() && (line.back() == '\r' || line.back() == ' '))
            line.pop_back();
        line.erase(0, line.find_first_not_of(' '));
    }
    for (std::size_t i = 0; i + 1 < all.size(); i += 2) {
        if (all[i] != "0") continue;
        if (all[i + 1] == "SECTION") section = all[i + 3];
        ++out[section + " " + all[i + 1]];
        if (section == "ENTITIES") ++out["entities"];
        if (all[i + 1] == "ENDSEC") section.clear();
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
    for (const std::string& bytes : cases) {
        const auto opened = OdDbDatabase::openBytes(bytes, "x.dxf");
        ASSERT_TRUE(opened.database) << bytes;
        EXPECT_TRUE(opened.problems.empty()) << bytes;
        EXPECT_EQ(opened.database->bytes(), bytes);
    }
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
        if (db->isBinary()) continue;
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
