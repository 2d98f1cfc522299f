#include "tests/tavocad/ScriptedSession.h"

#include "platform/drawing/OdDbEntity.h"
#include "platform/host/TavoSelection.h"
#include "tavocad/SelectionRequests.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <map>
#include <sys/resource.h>

using testing::HasSubstr;

namespace {

// Two lines on layer 0, a circle on a locked layer, and a line on a layer that is off: handles A1 to A4.
class SelectionCommands : public ScriptedSession {
  protected:
    SelectionCommands() {
        std::string text =
            "0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|3|0|LAYER|2|0|70|0|62|7|6|CONTINUOUS|"
            "0|LAYER|2|LOCK|70|4|62|1|6|CONTINUOUS|0|LAYER|2|OFF|70|0|62|-3|6|CONTINUOUS|0|ENDTAB|"
            "0|ENDSEC|0|SECTION|2|ENTITIES|"
            "0|LINE|5|A1|8|0|10|0|20|0|11|2|21|1|0|LINE|5|A2|8|0|62|1|10|8|20|8|11|12|21|12|"
            "0|CIRCLE|5|A3|8|LOCK|10|5|20|5|40|1|0|LINE|5|A4|8|OFF|10|4|20|4|11|6|21|6|"
            "0|ENDSEC|0|EOF|";
        std::ranges::replace(text, '|', '\n');
        std::ofstream(file, std::ios::binary) << text;
        const auto replies = runWell("{\"do\":\"open\",\"path\":" + quoted(file) + "}\n");
    }
    std::string selected() {
        std::string all;
        for (const OdDbObjectId& id : session.host().selection()->ids())
            all += id.handle().ascii() + " ";
        return all;
    }
    std::wstring said() {
        std::wstring all;
        for (const OdString& line : session.host().commandLine()->takeNew())
            all += line.wstr() + L"\n";
        return all;
    }
    const std::filesystem::path file = folder / "plan.dxf";
};

} // namespace

// Erasing is one step, leaves alone what is locked, and undoing it gives the file's bytes back.
TEST_F(SelectionCommands, EraseIsOneStepAndSparesLockedLayers) {
    const std::string before = bytesOf(file);
    const auto replies = runWell("{\"do\":\"select\",\"by\":\"all\"}\n{\"do\":\"command\",\"name\":\"ERASE\"}\n"
                                 "{\"do\":\"getselection\"}\n{\"do\":\"select\",\"by\":\"all\"}\n"
                                 "{\"do\":\"undo\"}\n{\"do\":\"select\",\"by\":\"previous\"}\n");
    EXPECT_EQ(replies[0]["selected"], 3);
    EXPECT_EQ(replies[1]["ended"]["result"], RTNORM);
    EXPECT_EQ(replies[1]["messages"].size(), 2U) << "what was left out, and what was erased";
    EXPECT_EQ(replies[2]["selected"], 0);
    EXPECT_EQ(replies[3]["selected"], 1);
    EXPECT_EQ(replies[4]["step"], "_ERASE");
    EXPECT_EQ(selected(), "A1 A2 ") << "what it erased is the previous selection";
    EXPECT_EQ(session.document()->database()->bytes(), before);
}

// A command that has no objects asks for them; they come from the pipe or the command line, and a wrong word
// changes nothing.
TEST_F(SelectionCommands, ObjectsAreAskedFor) {
    const auto replies =
        run("{\"do\":\"command\",\"name\":\"ERASE\"}\n{\"do\":\"getvar\",\"name\":\"EXPERT\"}\n"
            "{\"do\":\"select\",\"handles\":[\"A1\"]}\n"
            "{\"do\":\"select\",\"by\":\"all\",\"types\":[\"circle\"],\"mode\":\"add\"}\n"
            "{\"do\":\"command\",\"name\":\"LIST\"}\n{\"do\":\"getselection\",\"first\":1}\n"
            "{\"do\":\"key\",\"key\":\"Enter\"}\n{\"do\":\"undo\"}\n"
            "{\"do\":\"command\",\"name\":\"ERASE\"}\n{\"do\":\"key\",\"key\":\"Escape\"}\n"
            "{\"do\":\"command\",\"name\":\"SELECT\",\"arguments\":\"all r a1 A L\"}\n"
            "{\"do\":\"command\",\"name\":\"SELECT\",\"arguments\":\"all sideways\"}\n");
    EXPECT_TRUE(replies[0].contains("prompt"));
    EXPECT_EQ(replies[3]["selected"], 2);
    EXPECT_FALSE(replies[4]["ok"].get<bool>());
    EXPECT_EQ(replies[5]["handles"], nlohmann::ordered_json{"A3"});
    EXPECT_EQ(replies[6]["ended"]["result"], RTNORM);
    EXPECT_EQ(replies[7]["step"], "_ERASE");
    EXPECT_EQ(replies[9]["ended"]["result"], RTCAN);
    EXPECT_EQ(replies[10]["ended"]["result"], RTNORM);
    EXPECT_EQ(replies[11]["ended"]["result"], RTERROR);
    EXPECT_THAT(replies[11]["messages"][0].get<std::string>(), HasSubstr("sideways"));
    EXPECT_EQ(selected(), "A2 A3 ");
}

TEST_F(SelectionCommands, ListSaysWhatIsThere) {
    session.enterLine(L"LIST a2");
    const std::wstring text = said();
    EXPECT_THAT(text, HasSubstr(L"LINE  핸들: A2  도면층: \"0\""));
    EXPECT_THAT(text, HasSubstr(L"색상: 1\n"));
    EXPECT_THAT(text, HasSubstr(L"시작점 X: 8.0000\n")) << "lengths as the drawing's units have them";
    EXPECT_EQ(session.enterLine(L"LIST FFFF"), RTERROR);
    EXPECT_EQ(session.enterLine(L"LIST none"), RTCAN);
}

// Geometry is the scene's also without a window: what is inside, what is touched, and what is near a point.
TEST_F(SelectionCommands, PlacesChooseWithoutAWindow) {
    const auto replies =
        run("{\"do\":\"select\",\"by\":\"window\",\"points\":[[7,13],[13,7]]}\n"
            "{\"do\":\"select\",\"by\":\"crossing\",\"points\":[[0.5,0],[8,8]],\"mode\":\"add\"}\n"
            "{\"do\":\"select\",\"by\":\"fence\",\"points\":[[0,1],[2,0],[5,4.5]]}\n"
            "{\"do\":\"select\",\"by\":\"windowPolygon\",\"points\":[[-1,-1],[5,-1],[5,5],[-1,5]]}\n"
            "{\"do\":\"select\",\"by\":\"point\",\"points\":[[6.1,5]],\"tolerance\":0.2}\n"
            "{\"do\":\"select\",\"by\":\"window\",\"points\":[[0,0]]}\n"
            "{\"do\":\"select\",\"by\":\"sideways\"}\n{\"do\":\"getselection\"}\n");
    for (const auto& [reply, count] : std::map<std::size_t, int>{{0, 1}, {1, 3}, {2, 2}, {3, 1}, {4, 1}})
        EXPECT_EQ(replies[reply]["selected"], count) << reply;
    EXPECT_FALSE(replies[5]["ok"].get<bool>());
    EXPECT_THAT(replies[6]["error"].get<std::string>(), HasSubstr("crossingPolygon"));
    EXPECT_EQ(replies[7]["handles"], nlohmann::ordered_json{"A3"}) << "refusals change nothing";
}

// With PICKFIRST off what is selected does not count; a point that hits nothing is refused and asks on.
TEST_F(SelectionCommands, WhatIsSelectedCountsOnlyWhenItMay) {
    const auto replies = run("{\"do\":\"setvar\",\"name\":\"PICKFIRST\",\"value\":0}\n"
                             "{\"do\":\"select\",\"handles\":[\"A1\"]}\n"
                             "{\"do\":\"command\",\"name\":\"ERASE\"}\n{\"do\":\"getselection\"}\n"
                             "{\"do\":\"point\",\"at\":[9,1]}\n{\"do\":\"point\",\"at\":[12,12]}\n"
                             "{\"do\":\"point\",\"cancel\":true}\n");
    EXPECT_TRUE(replies[2].contains("prompt"));
    EXPECT_EQ(replies[3]["selected"], 0);
    EXPECT_FALSE(replies[4]["ok"].get<bool>());
    EXPECT_TRUE(replies[5]["ok"].get<bool>());
    EXPECT_EQ(replies[6]["ended"]["result"], RTCAN);
    EXPECT_EQ(session.document()->isModified(), false);
}

// Every fault of the drawings referred to, those below too, is told once, when the drawing opens; what lies on
// the search path is found.
TEST_F(SelectionCommands, FaultsOfReferencesAreTold) {
    const std::string empty = bytesOf(file);
    const auto write = [&](const std::filesystem::path& name, std::initializer_list<const char*> references) {
        std::string text = empty, blocks = "0\nSECTION\n2\nBLOCKS\n";
        for (const std::string path : references)
            blocks += "0\nBLOCK\n8\n0\n2\n" + path.substr(0, 4) + "\n70\n4\n10\n0\n20\n0\n1\n" + path +
                      "\n0\nENDBLK\n8\n0\n";
        text.insert(text.find("0\nSECTION\n2\nENTITIES"), blocks + "0\nENDSEC\n");
        std::ofstream(folder / name, std::ios::binary) << text;
        return folder / name;
    };
    const auto host = write("host.dxf", {"gone plan.dwg", "word.dxf", "site.dxf"});
    write("site.dxf", {"host.dxf"});
    std::ofstream(folder / "word.dxf") << "these are words\n";
    std::filesystem::create_directory(folder / "more folders");
    const std::string open = "{\"do\":\"open\",\"path\":" + quoted(host) + "}\n",
                      xref = "{\"do\":\"command\",\"name\":\"XREF\"}\n";
    const auto search = [&](const std::string& path) {
        return "{\"do\":\"setvar\",\"name\":\"XREFPATH\",\"value\":" + quoted(path) + "}\n";
    };
    auto replies = runWell(xref + open + open + xref + "{\"do\":\"command\",\"name\":\"REGEN\"}\n");
    EXPECT_EQ(replies[0]["messages"].size(), 1U) << "that there are none";
    ASSERT_EQ(replies[1]["messages"].size(), 3U) << replies[1];
    const char* const told[] = {"gone plan.dwg", "word.dxf", "host.dxf"};
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_THAT(replies[1]["messages"][i].get<std::string>(), HasSubstr(told[i]));
    EXPECT_EQ(replies[2]["messages"].size(), 0U) << "open already";
    ASSERT_EQ(replies[3]["messages"].size(), 4U) << replies[3];
    EXPECT_THAT(replies[3]["messages"][3].get<std::string>(), testing::StartsWith("  host")) << "below its own";

    write("more folders/gone plan.dxf", {});
    replies = runWell(search("/nowhere; " + (folder / "more folders").string()) + search("."));
    ASSERT_EQ(replies[0]["messages"].size(), 2U) << replies[0];
    EXPECT_THAT(replies[0]["messages"][0].get<std::string>(), HasSubstr("word.dxf"));
    EXPECT_EQ(replies[1]["messages"].size(), 3U) << replies[1];
}

// A file that somebody else wrote meanwhile is not written over unasked.
TEST_F(SelectionCommands, AChangedFileIsAskedAbout) {
    std::ofstream(file, std::ios::app) << "999\nfrom somebody else\n";
    const std::string theirs = bytesOf(file);
    const std::string save = "{\"do\":\"save\"}\n", saveCommand = "{\"do\":\"command\",\"name\":\"SAVE\"}\n";
    const auto replies = run("{\"do\":\"setvar\",\"name\":\"LUPREC\",\"value\":7}\n" + save + saveCommand +
                             "{\"do\":\"click\",\"control\":\"IDNO\"}\n");
    EXPECT_FALSE(replies[1]["ok"].get<bool>());
    EXPECT_EQ(replies[2]["modal"], "IDD_TASK_DIALOG");
    EXPECT_EQ(replies[3]["ended"]["result"], RTCAN);
    EXPECT_EQ(bytesOf(file), theirs);
    EXPECT_TRUE(session.document()->isModified());
    runWell("{\"do\":\"save\",\"force\":true}\n" + save);
    EXPECT_NE(bytesOf(file), theirs);
    std::filesystem::remove(file);
    runWell(save);
    EXPECT_TRUE(std::filesystem::exists(file)) << "a file that is gone is written again";
}

// A save that fails while closing says so in a box, and the drawing stays open with its changes.
TEST_F(SelectionCommands, AFailedSaveOnClosingIsABox) {
    const std::string before = bytesOf(file);
    rlimit usual{};
    ::getrlimit(RLIMIT_FSIZE, &usual);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{64, usual.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &tight);
    const auto replies = run("{\"do\":\"setvar\",\"name\":\"LUPREC\",\"value\":7}\n"
                             "{\"do\":\"command\",\"name\":\"CLOSE\"}\n"
                             "{\"do\":\"click\",\"control\":\"IDYES\"}\n{\"do\":\"dialog\"}\n"
                             "{\"do\":\"click\",\"control\":\"IDOK\"}\n");
    ::setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(replies[2]["modal"], "IDD_TASK_DIALOG");
    EXPECT_THAT(replies[3]["dialog"].dump(), HasSubstr("plan.dxf"));
    EXPECT_EQ(replies[4]["ended"]["result"], RTCAN);
    ASSERT_TRUE(session.document());
    EXPECT_TRUE(session.document()->isModified());
    EXPECT_EQ(bytesOf(file), before);
}

// A damaged drawing is offered another name; its own file stays.
TEST_F(SelectionCommands, ADamagedDrawingIsSavedUnderAnotherName) {
    const std::filesystem::path cut = folder / "cut.dxf", other = folder / "other.dxf";
    const std::string whole = bytesOf(file), part = whole.substr(0, whole.size() - 40);
    std::ofstream(cut, std::ios::binary) << part;
    session.askFile = [&](TavoSession::FileQuestion) { return std::optional(other); };
    const auto replies = run("{\"do\":\"open\",\"path\":" + quoted(cut) + "}\n" +
                             "{\"do\":\"command\",\"name\":\"SAVE\"}\n"
                             "{\"do\":\"command\",\"name\":\"ERASE\",\"arguments\":\"ALL\"}\n"
                             "{\"do\":\"key\",\"key\":\"Escape\"}\n{\"do\":\"command\",\"name\":\"SAVE\"}\n"
                             "{\"do\":\"key\",\"key\":\"Enter\"}\n");
    EXPECT_GT(replies[0]["messages"].size(), 1U) << "what is wrong, and that it can't be edited";
    EXPECT_FALSE(replies[1]["modal"].is_null());
    EXPECT_EQ(replies[3]["ended"]["result"], RTCAN);
    EXPECT_EQ(replies[5]["ended"]["result"], RTNORM) << replies[5].dump();
    EXPECT_EQ(bytesOf(cut), part);
    EXPECT_EQ(bytesOf(other), part);
    EXPECT_EQ(session.document()->name(), L"other.dxf");
    EXPECT_EQ(session.enterLine(L"ERASE ALL"), RTNORM) << "and can be edited from now on";
}

// Words behind a command choose for that command only: nobody erases what was only listed.
TEST_F(SelectionCommands, WordsChooseAnew) {
    const std::string before = bytesOf(file);
    session.enterLine(L"LIST all");
    EXPECT_EQ(selected(), "");
    const auto replies = run("{\"do\":\"command\",\"name\":\"ERASE\"}\n{\"do\":\"key\",\"key\":\"Escape\"}\n");
    EXPECT_TRUE(replies[0].contains("prompt"));
    EXPECT_EQ(session.document()->database()->bytes(), before);
    session.enterLine(L"SELECT a1");
    session.enterLine(L"SELECT a2");
    EXPECT_EQ(selected(), "A2 ");
    session.enterLine(L"SELECT add a1");
    session.enterLine(L"SELECT sideways");
    EXPECT_EQ(selected(), "A2 A1 ");
    session.enterLine(L"SELECT remove a2");
    session.enterLine(L"LIST a2");
    EXPECT_EQ(session.enterLine(L"ERASE previous"), RTNORM);
    EXPECT_EQ(selected(), "A1 ") << "what is selected was not asked for";
    EXPECT_EQ(session.enterLine(L"ERASE"), RTNORM);
    session.enterLine(L"UNDO 2");
    session.enterLine(L"PICKFIRST 0");
    EXPECT_EQ(session.enterLine(L"ERASE a1"), RTNORM) << "named, they are not asked for";
}

// The viewport that stands for the sheet stays, however it is chosen and whether viewports have numbers or not.
TEST_F(SelectionCommands, TheSheetItselfIsNeverChosen) {
    for (const std::string& numbers : {std::string("12"), std::string("00")}) {
        std::string text = OdDbDatabase::create(OdDb::DxfVersion::kR2000)->bytes(), viewports;
        for (const std::string& end : {"1|69|" + numbers.substr(0, 1), "2|69|" + numbers.substr(1)})
            viewports += "0|VIEWPORT|5|F" + end.substr(0, 1) +
                         "|100|AcDbEntity|67|1|8|0|100|AcDbViewport|10|0|20|0|40|9|41|9|68|1" + end.substr(1) +
                         "|";
        std::ranges::replace(viewports, '|', '\n');
        text.insert(text.find('\n', text.find("ENTITIES")) + 1, viewports);
        const auto sheet = folder / ("sheet" + numbers + ".dxf");
        std::ofstream(sheet, std::ios::binary) << text;
        const auto replies = run("{\"do\":\"open\",\"path\":" + quoted(sheet) +
                                 "}\n{\"do\":\"setvar\",\"name\":\"TILEMODE\",\"value\":0}\n"
                                 "{\"do\":\"select\",\"by\":\"all\"}\n{\"do\":\"getselection\"}\n"
                                 "{\"do\":\"select\",\"handles\":[\"F1\"]}\n");
        EXPECT_EQ(replies[3]["handles"], nlohmann::ordered_json{"F2"}) << numbers;
        EXPECT_EQ(replies[4]["selected"], 0);
        EXPECT_EQ(session.enterLine(L"ERASE f1"), RTCAN);
        EXPECT_EQ(session.enterLine(L"ERASE all"), RTNORM);
        EXPECT_FALSE(session.document()->database()->getOdDbObjectId(OdDbHandle(0xF1)).isErased());
    }
}

// Another file is written over only when somebody says so; giving the question up is no.
TEST_F(SelectionCommands, OtherFilesAreNotSavedOverUnasked) {
    const auto other = makeDrawing("other.dxf");
    const std::string theirs = bytesOf(other), ours = bytesOf(file);
    const std::string save = "{\"do\":\"save\",\"path\":" + quoted(other);
    const auto refused = run(save + "}\n");
    EXPECT_THAT(refused[0].value("error", std::string()), HasSubstr("other.dxf"));
    for (const char* answer : {"{\"do\":\"key\",\"key\":\"Escape\"}\n", "{\"do\":\"closeBox\"}\n",
                               "{\"do\":\"key\",\"key\":\"Enter\"}\n"}) {
        const auto replies =
            runWell("{\"do\":\"command\",\"name\":\"SAVEAS\",\"arguments\":" + quoted(folder / "other") +
                    "}\n" + answer);
        EXPECT_EQ(replies[0]["modal"], "IDD_TASK_DIALOG");
        ASSERT_TRUE(replies[1].contains("ended")) << answer;
        EXPECT_EQ(replies[1]["ended"]["result"], RTCAN);
    }
    EXPECT_EQ(bytesOf(other), theirs);
    EXPECT_EQ(session.document()->path(), file);
    runWell(save + ",\"force\":true}\n" + save + "}\n");
    EXPECT_EQ(bytesOf(other), ours) << "and then it is the drawing's own";
    session.askFile = [&](TavoSession::FileQuestion) { return std::optional(file); };
    EXPECT_EQ(session.enterLine(L"SAVEAS"), RTNORM) << "whoever named it was asked already";
    said();
    session.enterLine(OdString(L"SAVEAS ") + (folder / "none" / "x.dxf").wstring());
    EXPECT_THAT(said(), HasSubstr(L"폴더가 없습니다"));
}

// A file that can't be saved to says so when it is opened, once.
TEST_F(SelectionCommands, ProtectedFilesAreToldOnOpening) {
    const auto plan = makeDrawing("protected.dxf");
    std::filesystem::permissions(plan, std::filesystem::perms::owner_read);
    const std::string open = "{\"do\":\"open\",\"path\":" + quoted(plan) + "}\n";
    const auto replies = runWell(open + open);
    ASSERT_EQ(replies[0]["messages"].size(), 1U);
    EXPECT_THAT(replies[0]["messages"][0].get<std::string>(), HasSubstr("SAVEAS"));
    EXPECT_TRUE(replies[1]["messages"].empty());
    EXPECT_EQ(session.enterLine(L"LUNITS 5"), RTNORM) << "it can be edited";
}

// Many faults don't flood the command line; all of them are in the reply.
TEST_F(SelectionCommands, ManyFaultsAreToldShortened) {
    std::string text = bytesOf(file);
    for (int i = 0; i < 12; ++i)
        text.insert(text.rfind("0\nENDSEC"), "0\nPOINT\nbad\n");
    const auto torn = folder / "torn.dxf";
    std::ofstream(torn, std::ios::binary) << text;
    const auto reply = runWell("{\"do\":\"open\",\"path\":" + quoted(torn) + "}\n")[0];
    const auto& problems = reply["problems"];
    const auto& messages = reply["messages"];
    ASSERT_GE(problems.size(), 12U);
    ASSERT_EQ(messages.size(), 7U) << "five faults, how many more, and how to save";
    EXPECT_EQ(messages[4], problems[4]);
    EXPECT_THAT(messages[5].get<std::string>(), HasSubstr(std::to_string(problems.size() - 5)));
}
