#include "tests/tavocad/ScriptedSession.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>

using LayerCommands = ScriptedSession;
using testing::HasSubstr;

namespace {

// A request for each part, in which ' stands for ".
std::string requests(const std::vector<std::string>& parts) {
    std::string out;
    for (std::string part : parts) {
        std::replace(part.begin(), part.end(), '\'', '"');
        out += "{" + part + "}\n";
    }
    return out;
}

// A sheet with one viewport beside the sheet's own.
std::string sheet() {
    std::string text =
        "0|SECTION|2|HEADER|9|$ACADVER|1|AC1032|9|$TILEMODE|70|0|9|$HANDSEED|5|200|0|ENDSEC|0|SECTION|2|TABLES|"
        "0|TABLE|2|LAYER|5|2|70|2|0|LAYER|5|3|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|0|70|0|62|7|"
        "6|"
        "Continuous|0|LAYER|5|4|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|Wall|70|0|62|7|6|"
        "Continuous|"
        "0|ENDTAB|0|TABLE|2|BLOCK_RECORD|5|8|70|2|0|BLOCK_RECORD|5|1E|2|*Model_Space|340|30|0|BLOCK_RECORD|5|"
        "1F|2|"
        "*Paper_Space|340|31|0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|0|VIEWPORT|5|20|330|1F|100|AcDbEntity|67|1|"
        "8|0|"
        "100|AcDbViewport|10|0.0|20|0.0|30|0.0|40|9.0|41|9.0|69|1|0|VIEWPORT|5|21|330|1F|100|AcDbEntity|67|1|8|"
        "0|"
        "100|AcDbViewport|10|0.0|20|0.0|30|0.0|40|1.0|41|1.0|69|2|0|ENDSEC|0|SECTION|2|OBJECTS|0|DICTIONARY|5|"
        "C|3|"
        "ACAD_LAYOUT|350|D|0|DICTIONARY|5|D|330|C|3|Model|350|30|3|Layout1|350|31|0|LAYOUT|5|30|330|D|100|"
        "AcDbPlotSettings|70|1024|100|AcDbLayout|1|Model|71|0|330|1E|0|LAYOUT|5|31|330|D|100|AcDbPlotSettings|"
        "70|0|"
        "100|AcDbLayout|1|Layout1|71|1|330|1F|0|ENDSEC|0|EOF|";
    std::replace(text.begin(), text.end(), '|', '\n');
    return text;
}

} // namespace

TEST_F(LayerCommands, EachEditOfTheManagerIsAStepOfItsOwn) {
    const auto file = makeDrawing("plan.dxf"), undone = folder / "undone.dxf";
    const auto replies = runWell(
        "{\"do\":\"open\",\"path\":" + quoted(file) + "}\n" +
        requests({"'do':'command','name':'la'", "'do':'click','control':'IDC_LAYER_NEW'",
                  "'do':'key','key':'Enter'", "'do':'cell','control':'IDC_LAYER_LIST','row':1,'column':4",
                  "'do':'click','control':'IDCANCEL'", "'do':'undo'", "'do':'undo'"}) +
        "{\"do\":\"save\",\"path\":" + quoted(undone) + "}\n");
    EXPECT_EQ(replies[1]["modal"], "IDD_LAYER");
    EXPECT_EQ(replies[5]["ended"]["command"], "LAYER");
    EXPECT_EQ(replies[6]["step"], "_LAYER");
    EXPECT_EQ(replies[7]["step"], "_LAYER");
    EXPECT_EQ(bytesOf(undone), bytesOf(file));
}

TEST_F(LayerCommands, TheViewportWorkedInShowsItsValues) {
    const auto file = folder / "sheet.dxf";
    std::ofstream(file, std::ios::binary) << sheet();
    const auto replies = runWell(
        "{\"do\":\"open\",\"path\":" + quoted(file) + "}\n" +
        requests({"'do':'command','name':'PSPACE'", "'do':'command','name':'LAYERPALETTE'",
                  "'do':'dialog','window':'IDD_LAYER'", "'do':'command','name':'MSPACE'",
                  "'do':'dialog','window':'IDD_LAYER'",
                  "'do':'cell','window':'IDD_LAYER','control':'IDC_LAYER_LIST','row':1,'column':12",
                  "'do':'getvar','name':'ACTIVEPV'", "'do':'undo'", "'do':'command','name':'LAYERPALETTE'"}));
    const auto columnsOf = [](const auto& reply) {
        for (const auto& control : reply["dialog"]["controls"])
            if (control["name"] == "IDC_LAYER_LIST")
                return control.contains("columnsShown") ? control["columnsShown"].size()
                                                        : control["columns"].size();
        return std::size_t{0};
    };
    EXPECT_EQ(columnsOf(replies[3]), 13U);
    EXPECT_EQ(columnsOf(replies[5]), 19U) << "those of the viewport come with it";
    EXPECT_EQ(replies[7]["value"], 2);
    EXPECT_EQ(replies[8]["step"], "_LAYER") << "frozen in the viewport";
    const auto refused = run("{\"do\":\"command\",\"name\":\"MSPACE\",\"arguments\":\"7\"}\n"
                             "{\"do\":\"dialog\",\"window\":\"IDD_LAYER\"}\n");
    EXPECT_EQ(refused[0]["messages"].size(), 1U);
    EXPECT_FALSE(refused[1]["ok"].get<bool>()) << "the palette is closed";
}
