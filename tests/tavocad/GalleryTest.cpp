#include "tavocad/gallery/GalleryDlg.h"
#include "tests/tavocad/ScriptedSession.h"

#include <gmock/gmock.h>

#include <map>

using nlohmann::ordered_json;

namespace {

// The controls of a described dialog by name, those of its pages included.
void collect(const ordered_json& controls, std::map<std::string, ordered_json>& out) {
    for (const auto& control : controls) {
        out[control["name"]] = control;
        if (control.contains("controls")) collect(control["controls"], out);
    }
}

std::map<std::string, ordered_json> controlsOf(const ordered_json& reply) {
    std::map<std::string, ordered_json> out;
    collect(reply["dialog"]["controls"], out);
    return out;
}

std::string choose(const std::string& control, int index) {
    return R"({"do":"choose","control":")" + control + R"(","index":)" + std::to_string(index) + "}\n";
}
std::string chooseText(const std::string& control, const std::string& text) {
    return R"({"do":"choose","control":")" + control + R"(","text":")" + text + "\"}\n";
}
std::string cell(int row, int column, const std::string& more) {
    return R"({"do":"cell","control":"IDC_GALLERY_LIST","row":)" + std::to_string(row) + R"(,"column":)" +
           std::to_string(column) + more + "}\n";
}
const std::string look = "{\"do\":\"dialog\"}\n", openGallery = "{\"do\":\"command\",\"name\":\"GALLERY\"}\n",
                  closeGallery = "{\"do\":\"click\",\"control\":\"IDCANCEL\"}\n";

} // namespace

using Gallery = ScriptedSession;

// Each list hands over what its entry stands for, and the drawing stays as it is, whatever the place of the
// lists.
TEST_F(Gallery, ShowsWhatAProgramGetsAndLeavesTheDrawingAlone) {
    const auto drawing = folder / "workshop.dxf", saved = folder / "saved.dxf";
    std::filesystem::copy_file(std::filesystem::path(KX_SOURCE_DIR) / "samples" / "workshop.dxf", drawing);
    auto tab = [](int page) { return choose("IDC_GALLERY_TABS", page); };
    std::string script = "{\"do\":\"open\",\"path\":" + quoted(drawing) + "}\n" + openGallery;
    for (const int place : {VORDCobxBase::typeToolbar, VORDCobxBase::typeNoLayerBlock})
        script += tab(0) + choose("IDC_GALLERY_TYPE", place) + "{\"do\":\"advance\",\"ms\":100}\n" +
                  chooseText("IDC_GALLERY_COLOR", "Red") + chooseText("IDC_GALLERY_SIMPLE_COLOR", "Blue") +
                  chooseText("IDC_GALLERY_LAYER", "DOORS") + chooseText("IDC_GALLERY_SIMPLE_LAYER", "WALLS") +
                  tab(1) + chooseText("IDC_GALLERY_LINETYPE", "Continuous") +
                  chooseText("IDC_GALLERY_LINEWEIGHT", "0.25 mm") + choose("IDC_GALLERY_ARROW", 3) + tab(2) +
                  choose("IDC_GALLERY_TEXT_STYLE", 0) +
                  R"({"do":"type","control":"IDC_GALLERY_TEXT_SIZE","text":"7.5"})"
                  "\n{\"do\":\"key\",\"key\":\"Tab\"}\n" +
                  tab(3) + choose("IDC_GALLERY_DIM_STYLE", 0) + tab(4) + choose("IDC_GALLERY_LUNIT", 0) +
                  choose("IDC_GALLERY_LPREC", 2) + choose("IDC_GALLERY_DSEP", 1) + look;
    script += R"({"do":"check","control":"IDC_GALLERY_ENABLED","checked":false})"
              "\n" +
              choose("IDC_GALLERY_LUNIT", 1) + closeGallery +
              "{\"do\":\"undo\"}\n{\"do\":\"save\",\"path\":" + quoted(saved) + "}\n";
    const auto replies = run(script);

    std::vector<std::map<std::string, ordered_json>> seen;
    for (const auto& reply : replies)
        if (reply.contains("dialog")) seen.push_back(controlsOf(reply));
    ASSERT_EQ(seen.size(), 2U);
    for (auto& shown : seen) {
        const auto value = [&](const char* list) {
            return shown[std::string("IDC_GALLERY_") + list + "_VALUE"]["text"].get<std::string>();
        };
        EXPECT_EQ(value("COLOR"), "0xC3000001: 색상 1");
        EXPECT_EQ(value("SIMPLE_COLOR"), "0xC3000005: 색상 5");
        EXPECT_THAT(value("LAYER"), testing::StartsWith("DOORS"));
        EXPECT_THAT(value("SIMPLE_LAYER"), testing::StartsWith("WALLS"));
        EXPECT_THAT(value("LINETYPE"), testing::StartsWith("Continuous"));
        EXPECT_EQ(value("LINEWEIGHT"), "25");
        EXPECT_EQ(value("ARROW"), "_Dot");
        EXPECT_EQ(value("TEXT_SIZE"), "7.5");
        EXPECT_EQ(value("LUNIT"), "LUNITS = 4");
        EXPECT_EQ(value("LPREC"), "LUPREC = 2");
        EXPECT_EQ(value("DSEP"), "DIMDSEP = 44");
    }
    EXPECT_EQ(seen[0]["IDC_GALLERY_COLOR"]["items"].size(), 10U) << "by layer, by block, seven, another";
    EXPECT_EQ(seen[1]["IDC_GALLERY_COLOR"]["items"].size(), 9U) << "seven, black, another";

    const std::size_t last = replies.size();
    EXPECT_FALSE(replies[last - 4]["ok"].get<bool>()) << "a disabled list can't be used";
    EXPECT_EQ(replies[last - 3]["ended"]["result"], RTNORM);
    EXPECT_FALSE(replies[last - 2]["ok"].get<bool>()) << "nothing to undo";
    EXPECT_EQ(bytesOf(saved), bytesOf(drawing));
}

TEST_F(Gallery, OpensWithoutADrawing) {
    const auto replies = runWell(openGallery + look + closeGallery);
    auto shown = controlsOf(replies[1]);
    EXPECT_EQ(shown["IDC_GALLERY_LAYER"]["items"].size(), 0U);
    EXPECT_THAT(shown["IDC_GALLERY_NOTE"]["text"].get<std::string>(), testing::HasSubstr("열린 도면이 없어"));
    EXPECT_EQ(shown["IDC_GALLERY_LUNIT"]["items"].size(), 5U);
}

// Typed, chosen and toggled texts reach the rows they were meant for, wherever sorting put these; what a column
// can't hold is told.
TEST_F(Gallery, EditsItsListInPlace) {
    enum { kName = GalleryRows::kName, kColor, kWeight, kState, kFont, kFontStyle, kLength };
    auto log = [](const ordered_json& reply) {
        return controlsOf(reply)["IDC_GALLERY_LOG"]["text"].get<std::string>();
    };
    auto entered = [](int row, int column, const std::string& text) {
        return cell(row, column, R"(,"action":"open")") +
               R"({"do":"type","control":"IDC_INPLACE_EDIT","text":")" + text +
               "\"}\n{\"do\":\"key\",\"key\":\"Enter\"}\n";
    };
    const std::string header = R"({"do":"header","control":"IDC_GALLERY_LIST","column":6})"
                               "\n";
    const auto replies = runWell(
        openGallery + choose("IDC_GALLERY_TABS", 5) + header + header + // the longest first
        entered(0, kName, "Gate") + look + entered(1, kLength, "wide") + look + entered(1, kLength, "12") +
        look + cell(7, kState, "") + look + cell(0, kColor, R"(,"action":"open")") +
        chooseText("IDC_INPLACE_COMBO", "Magenta") + look + header +
        R"({"do":"selectRows","control":"IDC_GALLERY_LIST","ranges":[[2,4]]})"
        "\n{\"do\":\"click\",\"control\":\"IDC_GALLERY_INVERT\"}\n" +
        look + closeGallery);
    std::vector<ordered_json> seen;
    for (const auto& reply : replies)
        if (reply.contains("dialog")) seen.push_back(reply);
    ASSERT_EQ(seen.size(), 6U);
    EXPECT_EQ(log(seen[0]), "벽 8의 이름: 이제 \"Gate\"입니다.");
    EXPECT_THAT(log(seen[1]), testing::HasSubstr("\"wide\"은(는) 사용할 수 없어"));
    EXPECT_EQ(log(seen[2]), "벽 7의 길이: 이제 \"12\"입니다.");
    EXPECT_EQ(log(seen[3]), "벽 1의 상태: 이제 \"꺼짐\"입니다.");
    EXPECT_EQ(log(seen[4]), "Gate의 색상: 이제 \"Magenta\"입니다.");
    auto list = controlsOf(seen[5])["IDC_GALLERY_LIST"];
    EXPECT_EQ(list["rows"][0][0], "벽 7") << "12 is the shortest now";
    EXPECT_EQ(list["rows"][1][kState], "꺼짐");
    EXPECT_EQ(list["rows"][7][kColor], "Magenta");
    EXPECT_EQ(controlsOf(seen[5])["IDC_GALLERY_COUNT"]["text"], "8개 행 중 5개 선택");
}

TEST_F(Gallery, HasAMillionRowsToo) {
    const auto replies = runWell(openGallery + choose("IDC_GALLERY_TABS", 5) + choose("IDC_GALLERY_ROWS", 1) +
                                 "{\"do\":\"click\",\"control\":\"IDC_GALLERY_SELECT_ALL\"}\n" +
                                 cell(999999, GalleryRows::kState, "") + look + closeGallery);
    auto shown = controlsOf(replies[5]);
    EXPECT_EQ(shown["IDC_GALLERY_LIST"]["rowCount"], 1000000);
    EXPECT_EQ(shown["IDC_GALLERY_COUNT"]["text"], "1,000,000개 행 중 1개 선택") << "a click selects its row";
    EXPECT_THAT(shown["IDC_GALLERY_LOG"]["text"].get<std::string>(), testing::StartsWith("벽 1000000의 상태"));
}

// Only what a column can show is taken, and another font drops the style of the one before.
TEST(GalleryRows, TakesWhatItsColumnsCanHold) {
    GalleryRows rows(3, {{L"Some Font", L"Bold"}});
    for (const int column :
         {GalleryRows::kColor, GalleryRows::kWeight, GalleryRows::kState, GalleryRows::kLength})
        EXPECT_FALSE(rows.set(0, column, L"nonsense")) << column;
    EXPECT_FALSE(rows.set(0, GalleryRows::kName, L""));
    EXPECT_FALSE(rows.set(0, GalleryRows::kLength, L"1e999"));
    EXPECT_FALSE(rows.set(3, GalleryRows::kRemark, L"beyond the last row"));
    EXPECT_FALSE(rows.cell(0, GalleryRows::kName).bold) << "nothing was changed";
    EXPECT_TRUE(rows.set(0, GalleryRows::kFont, L"some other"));
    EXPECT_EQ(rows.text(0, GalleryRows::kFontStyle), L"");
    for (const auto& choice : GalleryRows::weights()) {
        EXPECT_TRUE(rows.set(1, GalleryRows::kWeight, choice.text));
        EXPECT_EQ(rows.text(1, GalleryRows::kWeight), choice.text);
    }
}
