#include "platform/text/MessageManager.h"
#include "platform/text/OdString.h"
#include "tests/text/TempFolder.h"

namespace {

std::wstring text(const char* key, const wchar_t* defaultText) {
    return VORD_ResourceString(key, defaultText).c_str();
}

class Messages : public testing::Test {
  protected:
    Messages() { VORD_MSGFunction::Reset(); }
    ~Messages() override { VORD_MSGFunction::Reset(); }
    TempFolder folder;
};

TEST_F(Messages, ReadsKeysSectionsAndEscapes) {
    VORD_MSGFunction::AddFile(folder.write("a_kr.ini", "\xEF\xBB\xBF; comment\r\n"
                                                       "# another = one\r\n"
                                                       "PLAIN=열기\r\n"
                                                       "  BLANKS =   a = b ; c  \r\n"
                                                       "ESCAPED = 1\\n2\\t3\\\\n\\\"\\s\r\n"
                                                       "QUOTED = \"  a \\\"b\\\"  \"\r\n"
                                                       "EMPTY =\r\n"
                                                       "ASTRAL = 𠀀\r\n"
                                                       "[IDD_A]\r\n"
                                                       "CAPTION = 제목\r\n"
                                                       "IDOK = 가\r\n"
                                                       "[ IDD_B ]\r\n"
                                                       "IDOK = 나\r\n"
                                                       "[IDD_A]\r\n"
                                                       "IDCANCEL = 다"));
    ASSERT_TRUE(VORD_MSGFunction::LoadFile());
    EXPECT_EQ(text("PLAIN", L"-"), L"열기");
    EXPECT_EQ(text("BLANKS", L"-"), L"a = b ; c");
    EXPECT_EQ(text("ESCAPED", L"-"), L"1\n2\t3\\n\" ");
    EXPECT_EQ(text("QUOTED", L"-"), L"  a \"b\"  ");
    EXPECT_EQ(text("EMPTY", L"-"), L"");
    EXPECT_EQ(text("ASTRAL", L"-"), std::wstring(1, wchar_t(0x20000)));
    auto control = [](const wchar_t* dialog, const wchar_t* name) {
        return std::wstring(CNativeRCMsgMgr::getInstance()->GetVal(dialog, name, L"-"));
    };
    EXPECT_EQ(control(L"IDD_A", L"CAPTION"), L"제목");
    EXPECT_EQ(control(L"IDD_A", L"IDOK"), L"가");
    EXPECT_EQ(control(L"IDD_B", L"IDOK"), L"나");
    EXPECT_EQ(control(L"IDD_A", L"IDCANCEL"), L"다");
    // Plain keys and the controls of other dialogs are never mixed up.
    EXPECT_EQ(control(L"IDD_B", L"CAPTION"), L"-");
    EXPECT_EQ(control(L"", L"PLAIN"), L"-");
    EXPECT_EQ(control(nullptr, nullptr), L"-");
    EXPECT_EQ(text("IDOK", L"-"), L"-");
}

TEST_F(Messages, AbsentKeyGivesTheDefaultItself) {
    const wchar_t* const fallback = L"기본";
    EXPECT_EQ(VORD_ResourceString("NO_SUCH_KEY", fallback).c_str(), fallback);
    VORD_MSGFunction::AddFile(folder.path / "missing_kr.ini");
    EXPECT_TRUE(VORD_MSGFunction::LoadFile());
    EXPECT_TRUE(VORD_MSGFunction::problems().empty());

    std::wstring shortLived = L"잠깐";
    const wchar_t* kept = CNativeRCMsgMgr::getInstance()->GetVal(L"IDD_A", L"IDOK", shortLived.c_str());
    shortLived = L"다른";
    EXPECT_STREQ(kept, L"잠깐");
}

TEST_F(Messages, BrokenLinesAreNamedAndTheOthersLoad) {
    const auto file = folder.write("a_kr.ini", "A = 1\n"
                                               "no equals sign\n"
                                               " = nothing\n"
                                               "B = bad \\x\n"
                                               "C = \"open\n"
                                               "D = \"closed\" more\n"
                                               "E = trailing\\\n"
                                               "F = \xC3(\n"
                                               "A = again\n"
                                               "[BROKEN\n"
                                               "LOST = has no section\n"
                                               "[GOOD]\n"
                                               "A = 2\n"
                                               "[]\n");
    VORD_MSGFunction::AddFile(file);
    EXPECT_FALSE(VORD_MSGFunction::LoadFile());
    std::vector<std::int64_t> lines;
    for (const tv::Problem& problem : VORD_MSGFunction::problems()) {
        lines.push_back(problem.line);
        EXPECT_NE(problem.sentence.find(problem.file), std::wstring::npos);
        EXPECT_NE(problem.sentence.find(std::to_wstring(problem.line)), std::wstring::npos);
    }
    EXPECT_EQ(lines, (std::vector<std::int64_t>{2, 3, 4, 5, 6, 7, 8, 9, 10, 14}));
    EXPECT_EQ(VORD_MSGFunction::problems()[0].file, file.wstring());
    EXPECT_EQ(text("A", L"-"), L"1");
    EXPECT_EQ(text("LOST", L"-"), L"-");
    EXPECT_STREQ(CNativeRCMsgMgr::getInstance()->GetVal(L"GOOD", L"A", L"-"), L"2");
}

TEST_F(Messages, GarbageAndUnreadableFilesAreReportedBriefly) {
    std::string garbage = "\xFF\xFE";
    for (unsigned i = 0; i < 100000; ++i)
        garbage += static_cast<char>(i * i >> 3);
    VORD_MSGFunction::AddFile(folder.write("garbage.ini", garbage));
    VORD_MSGFunction::AddFile(folder.path); // a folder
    EXPECT_FALSE(VORD_MSGFunction::LoadFile());
    EXPECT_LE(VORD_MSGFunction::problems().size(), 60u);
    EXPECT_EQ(VORD_MSGFunction::problems().front().status, Tavo::eFileAccess);
}

TEST_F(Messages, LaterFilesWinAndLoadingAgainSeesChanges) {
    VORD_MSGFunction::AddFile(folder.write("a.ini", "A = 1\nB = 1\n"));
    VORD_MSGFunction::AddFile(folder.write("b.ini", "A = 2\n"));
    VORD_MSGFunction::AddFile(folder.path / "a.ini"); // known already: its place stays
    ASSERT_TRUE(VORD_MSGFunction::LoadFile());
    EXPECT_EQ(text("A", L"-"), L"2");
    const wchar_t* old = VORD_ResourceString("B", L"-");
    folder.write("a.ini", "B = new\n");
    ASSERT_TRUE(VORD_MSGFunction::LoadFile());
    EXPECT_EQ(text("B", L"-"), L"new");
    EXPECT_STREQ(old, L"1");
}

TEST_F(Messages, SwitchingTheLanguage) {
    folder.write("a_kr.ini", "A = 한국\n");
    folder.write("a_en.ini", "A = English\n");
    folder.write("b_kr.ini", "B = 비\n");
    folder.write("b_en.ini", "B = bee\n");
    VORD_MSGFunction::AddFileBase(folder.path / "a");
    VORD_MSGFunction::AddFile(folder.path / "b_kr.ini");
    ASSERT_TRUE(VORD_MSGFunction::LoadFile());
    const wchar_t* const korean = VORD_ResourceString("A", L"-");
    EXPECT_STREQ(korean, L"한국");

    std::vector<std::wstring> seen;
    auto handle = VORD_MSGFunction::onLanguageChanged([&] { seen.push_back(text("A", L"-")); });
    VORD_MSGFunction::SetCurrentLanguageId(1033);
    EXPECT_EQ(text("A", L"-"), L"한국"); // not before the files are loaded
    EXPECT_TRUE(VORD_MSGFunction::LoadFile());
    EXPECT_TRUE(VORD_MSGFunction::LoadFile()); // no switch, nobody told
    EXPECT_EQ(text("B", L"-"), L"bee");
    VORD_MSGFunction::SetCurrentLanguageId(1031); // not delivered: Korean
    EXPECT_TRUE(VORD_MSGFunction::LoadFile());
    EXPECT_EQ(VORD_MSGFunction::GetCurrentLanguageId(), 1031);
    EXPECT_EQ(text("B", L"-"), L"비");
    VORD_MSGFunction::SetCurrentLanguageId(1049); // delivered, but these files don't exist
    EXPECT_TRUE(VORD_MSGFunction::LoadFile());
    EXPECT_EQ(seen, (std::vector<std::wstring>{L"English", L"한국", L"-"}));
    handle.reset();
    VORD_MSGFunction::SetCurrentLanguageId(1042);
    EXPECT_TRUE(VORD_MSGFunction::LoadFile());
    EXPECT_EQ(seen.size(), 3u);
    EXPECT_STREQ(korean, L"한국");
}

TEST_F(Messages, FileNamesBesideTheExecutable) {
    auto name = [](const char* executable, std::uint16_t id) {
        return VORD_MSGFunction::messageFileFor(executable, "Guide/ini/tutorial", id).native();
    };
    EXPECT_EQ(name("/opt/tavo/bin/tavocad", 1042), "/opt/tavo/bin/Guide/ini/tutorial_kr.ini");
    EXPECT_EQ(name("C:\\Tavo\\tavocad.exe", 1033), "C:\\Tavo\\Guide/ini/tutorial_en.ini");
    EXPECT_EQ(name("/a/b", 1041), "/a/Guide/ini/tutorial_jp.ini");
    EXPECT_EQ(name("/a/b", 1049), "/a/Guide/ini/tutorial_rs.ini");
    EXPECT_EQ(name("/a/b", 2052), "/a/Guide/ini/tutorial_ch.ini");
    EXPECT_EQ(name("/a/b", 1028), "/a/Guide/ini/tutorial_kr.ini");
    EXPECT_EQ(name("tavocad", 0), "Guide/ini/tutorial_kr.ini");
}

TEST_F(Messages, ManyFilesStayConsistent) {
    for (int file = 0; file < 8; ++file) {
        std::string bytes;
        for (int i = 0; i < 500; ++i)
            bytes += "KEY_" + std::to_string(file * 250 + i) + " = " + std::to_string(file) + "\n";
        VORD_MSGFunction::AddFile(folder.write("f" + std::to_string(file) + ".ini", bytes));
    }
    ASSERT_TRUE(VORD_MSGFunction::LoadFile());
    for (int key = 0; key < 2250; ++key)
        ASSERT_EQ(text(("KEY_" + std::to_string(key)).c_str(), L"-"), std::to_wstring(std::min(key / 250, 7)))
            << key;
}

TEST_F(Messages, ResourceStringsGoWhereTextsGo) {
    OdString copied = VORD_ResourceString("NO_SUCH_KEY", L"%d개");
    TvString host = VORD_ResourceString("NO_SUCH_KEY", L"호스트");
    const std::wstring_view view = VORD_ResourceString("NO_SUCH_KEY", L"보기");
    EXPECT_EQ(copied, L"%d개");
    EXPECT_EQ(host, L"호스트");
    EXPECT_EQ(view, L"보기");
    EXPECT_EQ(tv::text::format(VORD_ResourceString("NO_SUCH_KEY", L"%d개 %s"), 3, copied), L"3개 %d개");
    EXPECT_EQ(copied.format(VORD_ResourceString("NO_SUCH_KEY", L"<%s>"), VORD_ResourceString("NO", L"x")),
              L"<x>");
}

} // namespace
