#include "platform/host/TavoFonts.h"
#include "tests/tavocad/HeaderDifference.h"
#include "tests/tavocad/ScriptedSession.h"

#include <gmock/gmock.h>

#include <fstream>

using SysVarsCommand = ScriptedSession;

namespace {

std::string edit(const std::string& name, const std::string& action) {
    return "{\"do\":\"type\",\"control\":\"IDC_SYSVARS_FILTER\",\"text\":\"" + name +
           "\"}\n{\"do\":\"cell\",\"control\":\"IDC_SYSVARS_LIST\",\"row\":0,\"column\":2}\n" + action;
}

const std::string type = "{\"do\":\"type\",\"control\":\"IDC_INPLACE_EDIT\",\"text\":\"7\"}\n"
                         "{\"do\":\"key\",\"key\":\"Enter\"}\n";
const std::string choose = "{\"do\":\"choose\",\"control\":\"IDC_INPLACE_COMBO\",\"text\":\"4\"}\n";

} // namespace

// What was edited in the table is in the file, line for line, and goes back in one step.
TEST_F(SysVarsCommand, ChangesTheLinesOfTheEditedVariablesAndUndoesAsOneStep) {
    const auto file = makeDrawing("plan.dxf"), saved = folder / "saved.dxf", undone = folder / "undone.dxf";
    const auto replies =
        runWell("{\"do\":\"open\",\"path\":" + quoted(file) + "}\n{\"do\":\"command\",\"name\":\"SYSVARS\"}\n" +
                edit("CELTSCALE", type) + edit("LUNITS", choose) + edit("LWDISPLAY", "") +
                "{\"do\":\"click\",\"control\":\"IDOK\"}\n{\"do\":\"save\",\"path\":" + quoted(saved) +
                "}\n{\"do\":\"undo\"}\n{\"do\":\"save\",\"path\":" + quoted(undone) + "}\n");
    EXPECT_EQ(replies[2]["modal"], "IDD_SYSVARS");
    std::vector<std::string> names;
    for (const auto& [name, value] : changedVariables(bytesOf(file), bytesOf(saved)))
        names.push_back(name);
    EXPECT_THAT(names, testing::UnorderedElementsAre("$CELTSCALE", "$LUNITS", "$LWDISPLAY"));
    EXPECT_EQ(bytesOf(undone), bytesOf(file));
}

TEST_F(SysVarsCommand, CancelLeavesNoTrace) {
    const auto replies = run("{\"do\":\"open\",\"path\":" + quoted(makeDrawing("plan.dxf")) +
                             "}\n{\"do\":\"command\",\"name\":\"SYSVARS\"}\n" + edit("CELTSCALE", type) +
                             "{\"do\":\"closeBox\"}\n{\"do\":\"undo\"}\n{\"do\":\"close\"}\n");
    ASSERT_GE(replies.size(), 3u);
    EXPECT_FALSE(replies[replies.size() - 2]["ok"].get<bool>()) << "there is no step to undo";
    EXPECT_EQ(replies.back()["discarded"], false);
}

TEST_F(SysVarsCommand, FontFilesAreFoundBesideTheDrawingAndOnTheirPath) {
    const auto file = makeDrawing("plan.dxf");
    const auto shapes = folder / "shapes";
    std::filesystem::create_directory(shapes);
    for (const auto& font : {folder / "own.shx", shapes / "path.shx"})
        std::ofstream(font, std::ios::binary) << "Some-86 shapes 1.0\r\n\x1a";
    const auto found = [&] { return session.host().fonts()->shapeFonts(); };
    const auto search = [](const std::string& path) {
        return "{\"do\":\"setvar\",\"name\":\"FONTPATH\",\"value\":" + quoted(path) + "}\n";
    };
    runWell("{\"do\":\"open\",\"path\":" + quoted(file) + "}\n");
    EXPECT_THAT(found(), testing::ElementsAre(OdString(L"own.shx")));
    runWell(search("/nowhere; " + shapes.string()));
    EXPECT_THAT(found(), testing::ElementsAre(OdString(L"own.shx"), OdString(L"path.shx")));
    runWell("{\"do\":\"close\"}\n");
    EXPECT_THAT(found(), testing::ElementsAre(OdString(L"path.shx")));
    runWell(search("."));
    EXPECT_TRUE(found().empty());
}
