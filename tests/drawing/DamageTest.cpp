#include "tests/drawing/Drawings.h"

#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace drawings;
using testing::HasSubstr;
using tv::dwg::HeaderValue;

namespace {

class DamageFiles : public testing::Test {
  protected:
    void SetUp() override {
        m_folder = std::filesystem::temp_directory_path() / ("kx_drawing." + std::to_string(getpid()));
        std::filesystem::create_directories(m_folder);
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }
    std::filesystem::path file(const std::string& name, const std::string& bytes) const {
        const auto path = m_folder / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    std::filesystem::path m_folder;
};

const char* const kWhole =
    "0|SECTION|2|HEADER|9|$LUNITS|70|2|0|ENDSEC|0|SECTION|2|ENTITIES|0|POINT|5|1|8|0|0|ENDSEC|0|EOF";

} // namespace

TEST_F(DamageFiles, WhatIsNoDrawingSaysWhatItSeemsToBe) {
    const std::vector<std::pair<std::string, const wchar_t*>> cases = {
        {"", L"빈 파일"},
        {std::string("\x89PNG\r\n\x1A\n\0\0", 10), L"이미지"},
        {std::string("AC1032\0\0\0\0", 10), L"DWG"},
        {std::string("\0\1\2\3\4", 5), L"이진"},
        {"%PDF-1.7\n", L"PDF"},
        {"Dear reader,\nthis is a letter.\n", L"텍스트"},
        {"1\n2\n3\n4\n", L"텍스트"},
    };
    for (const auto& [bytes, kind] : cases) {
        const auto opened = OdDbDatabase::open(file("thing.dxf", bytes));
        EXPECT_FALSE(opened.database);
        ASSERT_EQ(opened.problems.size(), 1u);
        EXPECT_EQ(opened.problems[0].status, Tavo::eBadFile);
        EXPECT_THAT(opened.problems[0].sentence, HasSubstr(kind));
        EXPECT_THAT(opened.problems[0].sentence, HasSubstr(L"thing.dxf"));
    }
    EXPECT_EQ(OdDbDatabase::open(m_folder / "missing.dxf").problems.at(0).status, Tavo::eFileNotFound);
    EXPECT_EQ(OdDbDatabase::open(m_folder).problems.size(), 1u);
}

TEST_F(DamageFiles, DamageNamesTheLineAndKeepsEveryByte) {
    const std::string whole = lines(kWhole);
    std::string garbled = whole;
    garbled.replace(garbled.find("8\n0\n"), 1, "eight");
    const std::vector<std::pair<std::string, std::int64_t>> cases = {
        {garbled, 19},                                          // a word where a group code belongs
        {whole.substr(0, whole.find("0\nENDSEC\n0\nEOF")), 21}, // cut between two records
        {whole.substr(0, whole.find("POINT")), 15},             // cut between code and value
        {whole.substr(0, whole.find("0\nEOF")), 23},            // no end mark
        {lines("0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|1|0|ENDSEC|0|EOF"), 11},
        {lines("0|SECTION|2|ENTITIES|0|POINT|8|0|0|SECTION|2|OBJECTS|0|ENDSEC|0|EOF"), 9},
    };
    for (const auto& [bytes, line] : cases) {
        const auto path = file("damaged.dxf", bytes);
        const auto opened = OdDbDatabase::open(path);
        ASSERT_TRUE(opened.database) << bytes;
        ASSERT_EQ(opened.problems.size(), 1u) << bytes;
        EXPECT_EQ(opened.problems[0].line, line) << bytes;
        EXPECT_THAT(opened.problems[0].sentence, HasSubstr(std::to_wstring(line)));
        OdDbDatabase& db = *opened.database;
        EXPECT_TRUE(db.damaged());
        EXPECT_TRUE(db.isReadOnly());
        EXPECT_EQ(db.bytes(), bytes);
        EXPECT_EQ(db.setHeaderVar(L"LUNITS", HeaderValue::integer(4)).status, Tavo::eReadOnly);
        EXPECT_EQ(db.save().status, Tavo::eReadOnly);
        EXPECT_EQ(db.saveAs(m_folder / "." / "damaged.dxf").status, Tavo::eReadOnly);
        EXPECT_EQ(slurp(path), bytes);
        EXPECT_FALSE(db.saveAs(m_folder / "rescued.dxf"));
        EXPECT_EQ(slurp(m_folder / "rescued.dxf"), bytes);
        db.setHeaderVar(L"LUNITS", HeaderValue::integer(4));
        EXPECT_FALSE(db.save());
        EXPECT_EQ(slurp(path), bytes);
        EXPECT_FALSE(db.saveAs(path, OdDbDatabase::SaveOver::kYes)) << "who was asked may";
        EXPECT_EQ(slurp(path), db.bytes());
    }
}

TEST(Damage, ReadingGoesOnBehindEachDamagedPlace) {
    const std::string whole =
        lines("0|SECTION|2|HEADER|9|$LUNITS|70|2|9|$LUPREC|70|4|0|ENDSEC|0|SECTION|2|TABLES|0|"
              "TABLE|2|LAYER|70|2|0|LAYER|2|A|70|0|62|1|0|LAYER|2|B|70|0|62|2|0|ENDTAB|0|ENDSEC|0|"
              "SECTION|2|ENTITIES|0|POINT|5|1|8|A|0|POINT|5|2|8|B|0|POINT|5|3|8|A|0|ENDSEC|0|EOF");
    std::string torn = whole;
    torn.replace(torn.find("70\n2\n9"), 2, "seventy");
    torn.erase(torn.find("62\n1\n") + 3, 2); // a value line is gone: what follows is read one line off
    torn.replace(torn.find("8\nB"), 3, "\x01\x02 rubbish\n0\n\xFF\n0\n12\n");
    const auto opened = OdDbDatabase::openBytes(torn, "torn.dxf");
    ASSERT_TRUE(opened.database);
    OdDbDatabase& db = *opened.database;
    EXPECT_EQ(db.bytes(), torn);
    ASSERT_EQ(opened.problems.size(), 3u);
    EXPECT_EQ(opened.problems[0].line, 7);
    EXPECT_EQ(opened.problems[1].line, 33);
    EXPECT_EQ(opened.problems[2].line, 58);
    EXPECT_EQ(db.headerVar(L"LUPREC")->asInteger(), 4);
    EXPECT_FALSE(db.headerVar(L"LUNITS"));
    EXPECT_TRUE(db.layers()->has(L"A"));
    EXPECT_TRUE(db.layers()->has(L"B"));
    EXPECT_EQ(std::distance(db.modelSpace().begin(), db.modelSpace().end()), 3);
    db.setReadOnly(false);
    const auto damaged = db.getOdDbObjectId(OdDbHandle(2)).open<OdDbEntity>(OdDb::kForWrite);
    ASSERT_TRUE(damaged);
    EXPECT_EQ(damaged->setColor(OdCmColor::byIndex(3)), Tavo::eOk);
    EXPECT_THAT(db.bytes(), HasSubstr("rubbish")) << "an edit keeps what it can't read";
    EXPECT_TRUE(db.undo());
    EXPECT_EQ(db.bytes(), torn);

    std::string hopeless = whole;
    for (int i = 0; i < 500; ++i)
        hopeless.insert(hopeless.find("0\nENDSEC\n0\nEOF"), "0\nPOINT\nbad\n");
    const auto many = OdDbDatabase::openBytes(hopeless, "hopeless.dxf");
    ASSERT_EQ(many.problems.size(), 101u);
    EXPECT_THAT(many.problems.back().sentence, HasSubstr(L"400"));
}

TEST(Damage, BinaryReadingGoesOnToo) {
    const std::string mark("AutoCAD Binary DXF\r\n\x1A\0", 22);
    const auto tag = [](int code, const std::string& text) {
        return std::string{static_cast<char>(code & 255), static_cast<char>(code >> 8)} + text + '\0';
    };
    const std::string bytes = mark + tag(0, "SECTION") + tag(2, "ENTITIES") + tag(0, "POINT") + tag(5, "1") +
                              "\x7F\x7F garbage" + tag(0, "POINT") + tag(5, "2") + tag(8, "0") +
                              tag(0, "ENDSEC") + tag(0, "EOF");
    const auto opened = OdDbDatabase::openBytes(bytes, "torn.dxf");
    ASSERT_TRUE(opened.database);
    EXPECT_EQ(opened.problems.size(), 1u);
    EXPECT_EQ(opened.database->bytes(), bytes);
    EXPECT_FALSE(opened.database->getOdDbObjectId(OdDbHandle(2)).isNull());
}

TEST_F(DamageFiles, SavingIsWholeOrNotAtAll) {
    const std::string whole = lines(kWhole, "\r\n");
    const auto path = file("plan.dxf", whole);
    const auto db = OdDbDatabase::open(path).database;
    std::ofstream(path, std::ios::binary | std::ios::app) << "somebody else was here";
    EXPECT_EQ(db->bytes(), whole) << "the file on disk is no concern of the drawing in memory";
    ASSERT_FALSE(db->setHeaderVar(L"LUNITS", HeaderValue::integer(5)));
    EXPECT_TRUE(db->changed());
    EXPECT_TRUE(db->changedOnDisk());
    EXPECT_EQ(db->save().status, Tavo::eDuplicate);
    EXPECT_THAT(slurp(path), HasSubstr("somebody else"));
    EXPECT_FALSE(db->save(OdDbDatabase::SaveOver::kYes));
    EXPECT_FALSE(db->changed());
    EXPECT_FALSE(db->changedOnDisk());
    EXPECT_EQ(slurp(path),
              lines("0|SECTION|2|HEADER|9|$LUNITS|70|5|0|ENDSEC|0|SECTION|2|ENTITIES|0|POINT|5|1|8|0|0|"
                    "ENDSEC|0|EOF",
                    "\r\n"));
    EXPECT_TRUE(db->undo());
    EXPECT_TRUE(db->changed()) << "undoing what was saved is a change";
    const tv::Problem failed = db->saveAs(m_folder / "no such folder" / "plan.dxf");
    EXPECT_TRUE(failed);
    EXPECT_THAT(failed.sentence, HasSubstr(L"no such folder"));
    EXPECT_EQ(db->fileName(), path);
    EXPECT_TRUE(db->changed());
    EXPECT_TRUE(OdDbDatabase::create()->save()) << "a new drawing has no name yet";
}

TEST(CodePages, TextsAreReadAndWrittenInTheFilesOwn) {
    // The second byte of the character looks like a backslash, that of the other like a caret.
    const std::string name = "\x83\x5C\x89\x5E";
    const auto make = [&](const std::string& version, const std::string& page, const std::string& layer) {
        return openText(lines("0|SECTION|2|HEADER|9|$ACADVER|1|" + version + "|9|$DWGCODEPAGE|3|" + page +
                              "|9|$CLAYER|8|" + layer +
                              "|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|1|0|LAYER|2|" + layer +
                              "|70|0|62|7|6|CONTINUOUS|0|ENDTAB|0|ENDSEC|0|EOF"));
    };
    const auto japanese = make("AC1015", "ansi_932", name);
    EXPECT_EQ(japanese->headerVar(L"CLAYER")->asText(), OdString(L"ソ運"));
    const auto layer = japanese->layers()->getAt(L"ソ運").open<OdDbLayerTableRecord>(OdDb::kForWrite);
    ASSERT_TRUE(layer);
    const std::string first = japanese->bytes();
    EXPECT_EQ(layer->setName(L"ソ運"), Tavo::eOk);
    EXPECT_EQ(japanese->bytes(), first);
    EXPECT_EQ(layer->setName(L"表^벽"), Tavo::eOk);
    EXPECT_THAT(japanese->bytes(), HasSubstr("\n\x95\x5C^ \\U+BCBD\n"));
    EXPECT_EQ(layer->getName(), L"表^벽");

    EXPECT_EQ(make("AC1032", "ANSI_932", "\xEB\xB2\xBD")->headerVar(L"CLAYER")->asText(), OdString(L"벽"));
    EXPECT_EQ(make("AC1032", "ANSI_932", name)->headerVar(L"CLAYER")->asText(), OdString(L"ソ運"))
        << "the declared page where it is no UTF-8";
    EXPECT_EQ(make("AC1018", "ANSI_1252", "\\U+BCBD \xE9")->headerVar(L"CLAYER")->asText(),
              OdString(L"벽 \u00e9"));
}
