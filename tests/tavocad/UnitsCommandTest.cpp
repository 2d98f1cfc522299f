#include "tests/tavocad/HeaderDifference.h"
#include "tests/tavocad/ScriptedSession.h"

#include <gmock/gmock.h>

#include <cmath>

using testing::UnorderedElementsAre;
using UnitsCommand = ScriptedSession;

namespace {

const std::string changeEverything = R"({"do":"command","name":"UNITS"}
{"do":"choose","control":"IDC_UNITS_LTYPE","index":0}
{"do":"choose","control":"IDC_UNITS_LPREC","index":2}
{"do":"choose","control":"IDC_UNITS_ATYPE","index":2}
{"do":"choose","control":"IDC_UNITS_APREC","index":1}
{"do":"check","control":"IDC_UNITS_CLOCKWISE"}
{"do":"choose","control":"IDC_UNITS_INSERT","index":6}
{"do":"click","control":"IDC_UNITS_DIRECTION"}
{"do":"click","control":"IDC_UNITDIR_NORTH"}
{"do":"click","control":"IDOK"}
{"do":"click","control":"IDOK"}
{"do":"click","control":"IDOK"}
)";

} // namespace

// The whole way: only the lines of the changed variables differ in the file, in one undo step, and undoing
// gives the first bytes back.
TEST_F(UnitsCommand, ChangesItsHeaderLinesOnlyAndUndoesAsOneStep) {
    const auto file = makeDrawing("plan.dxf"), saved = folder / "saved.dxf", undone = folder / "undone.dxf";
    const auto replies =
        runWell("{\"do\":\"open\",\"path\":" + quoted(file) + "}\n" + changeEverything +
                "{\"do\":\"save\",\"path\":" + quoted(saved) + "}\n{\"do\":\"undo\"}\n" +
                "{\"do\":\"save\",\"path\":" + quoted(undone) + "}\n{\"do\":\"redo\"}\n" +
                "{\"do\":\"getvar\",\"name\":\"LUNITS\"}\n{\"do\":\"getvar\",\"name\":\"ANGBASE\"}\n");
    EXPECT_EQ(replies[1]["modal"], "IDD_UNITS");
    EXPECT_EQ(replies[8]["modal"], "IDD_UNITS_DIRECTION");
    EXPECT_EQ(replies[11]["modal"], "IDD_TASK_DIALOG") << "architectural lengths with metres ask about inches";
    EXPECT_EQ(replies[12]["ended"], (nlohmann::ordered_json{{"command", "UNITS"}, {"result", RTNORM}}));
    const auto changed = changedVariables(bytesOf(file), bytesOf(saved));
    std::vector<std::string> names;
    for (const auto& [name, value] : changed)
        names.push_back(name);
    EXPECT_THAT(names, UnorderedElementsAre("$LUNITS", "$LUPREC", "$AUNITS", "$AUPREC", "$ANGBASE", "$ANGDIR",
                                            "$INSUNITS"));
    EXPECT_EQ(std::stod(changed.at("$ANGBASE")), 90) << "the file holds degrees";
    EXPECT_EQ(replies[14]["step"], "_UNITS");
    EXPECT_EQ(bytesOf(undone), bytesOf(file));
    EXPECT_EQ(replies[17]["value"], 4);
    EXPECT_DOUBLE_EQ(replies[18]["value"].get<double>(), std::acos(0.0));
}

// Cancelling, and confirming without a change, leave neither a change nor an undo step.
TEST_F(UnitsCommand, LeavesNoTraceWithoutAChange) {
    const auto file = makeDrawing("plan.dxf");
    const auto replies =
        run("{\"do\":\"open\",\"path\":" + quoted(file) + "}\n{\"do\":\"command\",\"name\":\"un\"}\n" +
            "{\"do\":\"choose\",\"control\":\"IDC_UNITS_LTYPE\",\"index\":0}\n{\"do\":\"closeBox\"}\n" +
            "{\"do\":\"command\",\"name\":\"_UNITS\"}\n{\"do\":\"key\",\"key\":\"Enter\"}\n" +
            "{\"do\":\"undo\"}\n{\"do\":\"close\"}\n");
    EXPECT_EQ(replies[3]["ended"]["result"], RTCAN);
    EXPECT_EQ(replies[5]["ended"]["result"], RTNORM);
    EXPECT_FALSE(replies[6]["ok"].get<bool>());
    EXPECT_EQ(replies[7]["discarded"], false);
}

// The dialog gets out of the way for the two points, a wrong request meanwhile is refused, and giving up keeps
// the angle.
TEST_F(UnitsCommand, PicksTheBaseAngleInTheDrawing) {
    const std::string pick = "{\"do\":\"click\",\"control\":\"IDC_UNITS_DIRECTION\"}\n"
                             "{\"do\":\"click\",\"control\":\"IDC_UNITDIR_OTHER\"}\n"
                             "{\"do\":\"click\",\"control\":\"IDC_UNITDIR_PICK\"}\n";
    const auto replies =
        run("{\"do\":\"open\",\"path\":" + quoted(makeDrawing("plan.dxf")) +
            "}\n{\"do\":\"command\",\"name\":\"UNITS\"}\n" + pick + "{\"do\":\"dialog\"}\n" +
            "{\"do\":\"point\",\"at\":[1,1]}\n{\"do\":\"point\",\"at\":[1,5]}\n" + pick +
            "{\"do\":\"key\",\"key\":\"Escape\"}\n{\"do\":\"point\",\"at\":[0,0]}\n" +
            "{\"do\":\"click\",\"control\":\"IDOK\"}\n{\"do\":\"getvar\",\"name\":\"ANGBASE\"}\n");
    EXPECT_TRUE(replies[4]["modal"].is_null());
    EXPECT_TRUE(replies[4].contains("prompt"));
    EXPECT_FALSE(replies[5]["ok"].get<bool>()) << "no window is there to be described";
    EXPECT_NE(replies[6]["prompt"], replies[4]["prompt"]);
    EXPECT_EQ(replies[7]["modal"], "IDD_UNITS");
    EXPECT_TRUE(replies[10].contains("prompt"));
    EXPECT_EQ(replies[11]["modal"], "IDD_UNITS") << "Escape gives the pick up";
    EXPECT_FALSE(replies[12]["ok"].get<bool>());
    EXPECT_DOUBLE_EQ(replies[14]["value"].get<double>(), std::acos(0.0));
    EXPECT_EQ(exitCode, 0);
}

// A drawing of an old version can't hold an insertion unit: that is told, and the rest is written.
TEST_F(UnitsCommand, TellsWhatTheVersionCannotHold) {
    const auto file = makeDrawing("old.dxf", OdDb::DxfVersion::kR12), saved = folder / "saved.dxf";
    const auto replies = runWell("{\"do\":\"open\",\"path\":" + quoted(file) + "}\n" + changeEverything +
                                 "{\"do\":\"save\",\"path\":" + quoted(saved) + "}\n");
    EXPECT_EQ(replies[1]["messages"].size(), 1U) << "said before it is asked: " << replies[1].dump();
    EXPECT_EQ(replies[12]["messages"].size(), 1U) << replies[12].dump();
    EXPECT_FALSE(changedVariables(bytesOf(file), bytesOf(saved)).contains("$INSUNITS"));
    EXPECT_TRUE(changedVariables(bytesOf(file), bytesOf(saved)).contains("$LUNITS"));
}

// A failed save leaves the old file whole and the drawing changed; no drawing opens from what is none.
TEST_F(UnitsCommand, BadFilesAreSentences) {
    const auto file = makeDrawing("plan.dxf");
    std::filesystem::create_directory(folder / "taken.dxf");
    const auto replies =
        run("{\"do\":\"open\",\"path\":" + quoted(folder / "missing.dxf") + "}\n{\"do\":\"open\",\"path\":" +
            quoted(folder) + "}\n{\"do\":\"save\"}\n{\"do\":\"open\",\"path\":" + quoted(file) +
            "}\n{\"do\":\"setvar\",\"name\":\"LUPREC\",\"value\":7}\n{\"do\":\"save\",\"path\":" +
            quoted(folder / "taken.dxf") + "}\n{\"do\":\"save\"}\n{\"do\":\"close\"}\n");
    for (std::size_t i : {0U, 1U, 2U, 5U})
        EXPECT_FALSE(replies[i]["ok"].get<bool>()) << replies[i].dump();
    EXPECT_NE(replies[0]["error"].get<std::string>().find("missing.dxf"), std::string::npos);
    EXPECT_TRUE(replies[6]["ok"].get<bool>()) << "the drawing keeps its own name: " << replies[6].dump();
    EXPECT_EQ(replies[7]["discarded"], false);
    EXPECT_TRUE(bytesOf(file).find("$LUPREC") != std::string::npos);
}
