#include "tests/support/HeadlessTest.h"

#include "kxgui/layers/LayerExportDlg.h"
#include "kxgui/layers/LayerImportDlg.h"
#include "kxgui/layers/LayerMergeDlg.h"
#include "kxgui/layers/LayerRecord.h"
#include "kxgui/layers/LayerStatesDlg.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/text/AtomicFile.h"
#include "platform/text/Unicode.h"

#include <gmock/gmock.h>

using kx::layers::currentLayer;
using kx::layers::readLayer;

namespace {

struct LayerExtras : HeadlessTest {
    OdDbDatabasePtr db = OdDbDatabase::create();
    std::filesystem::path file = std::filesystem::path(testing::TempDir()) / "kx-layers-extras.csv";
    std::wstring path = tv::text::fromUtf8(file.string());
    ~LayerExtras() override { std::filesystem::remove(file); }

    OdDbObjectId layer(const wchar_t* name) {
        const auto table = db->layers(OdDb::kForWrite);
        return table->has(name) ? table->getAt(name) : table->add(name);
    }
    bool off(const wchar_t* name) { return !readLayer(layer(name), currentLayer(*db)).on; }
    static std::vector<std::wstring> rows(const tv::ui::WindowUser& u, const char* list, int column) {
        auto& control = dynamic_cast<CListCtrl&>(*u.dialog().GetDlgItem(list));
        std::vector<std::wstring> out;
        for (int row = 0; row < control.GetItemCount(); ++row)
            out.push_back(control.cellText(row, column));
        return out;
    }
};

} // namespace

TEST_F(LayerExtras, MergingAsksBeforeItIsDone) {
    layer(L"도면층10");
    const OdDbObjectId merged = layer(L"도면층1"), target = layer(L"도면층2");
    const std::string before = db->bytes();
    user.expect<CLayerMergeDlg>([](auto& u) {
        EXPECT_THAT(rows(u, "IDC_LAYER_MERGE_TARGETS", 0), testing::ElementsAre(L"0", L"도면층2", L"도면층10"));
        EXPECT_THAT(rows(u, "IDC_LAYER_MERGE_NAMES", 0), testing::ElementsAre(L"도면층1"));
        u.click("IDOK"); // without a target
        u.selectRows("IDC_LAYER_MERGE_TARGETS", {1});
        u.click("IDOK"); // thinks better of it
        u.click("IDOK");
    });
    user.expectBox(L"대상 도면층을 선택", "IDOK");
    user.expectBox(L"도면층 1개를 \"도면층2\"", "IDCANCEL");
    user.expectBox(L"객체 0개가 옮겨지고", "IDOK");
    CLayerMergeDlg dialog(db, {merged}, nullptr);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetTarget(), target);
    EXPECT_TRUE(merged.isErased());
    EXPECT_TRUE(db->undo());
    EXPECT_TRUE(db->bytes() == before);
}

TEST_F(LayerExtras, AListIsShownBeforeItIsImportedAndRefusedLinesAreSkippedOnRequest) {
    layer(L"Wall");
    ASSERT_FALSE(tv::writeFileAtomically(file, "Name,Color,On\nWall,1,No\nDoor,,\nGate,pink,\n"));
    user.expect<CLayerImportDlg>([&](auto& u) {
        u.refused("IDOK", tv::ui::UserAction{});
        u.type("IDC_LAYER_IMPORT_PATH", path);
        u.key(L"Enter");
        EXPECT_THAT(rows(u, "IDC_LAYER_IMPORT_LIST", 0), testing::ElementsAre(L"4", L"3", L"2"));
        EXPECT_THAT(rows(u, "IDC_LAYER_IMPORT_LIST", 3)[0], testing::HasSubstr(L"pink"));
        EXPECT_EQ(rows(u, "IDC_LAYER_IMPORT_LIST", 3)[2], L"색상: 7 → 1; 켜기: Yes → No");
        EXPECT_EQ(u.text("IDC_LAYER_IMPORT_SAID"), L"새 도면층 1, 변경 1, 같음 0, 거부됨 1");
        u.refused("IDOK", tv::ui::UserAction{});
        EXPECT_FALSE(off(L"Wall")) << "nothing is done yet";
        u.check("IDC_LAYER_IMPORT_SKIP");
        u.click("IDOK");
    });
    EXPECT_EQ(CLayerImportDlg(db, nullptr).DoModal(), IDOK);
    EXPECT_TRUE(off(L"Wall"));
    EXPECT_TRUE(db->layers()->has(L"Door"));
    EXPECT_FALSE(db->layers()->has(L"Gate"));

    user.expect<CLayerImportDlg>([&](auto& u) {
        EXPECT_THAT(u.text("IDC_LAYER_IMPORT_SAID"), testing::HasSubstr(L"nowhere.csv"));
        u.type("IDC_LAYER_IMPORT_PATH", path);
        EXPECT_THAT(u.text("IDC_LAYER_IMPORT_SAID"), testing::Not(testing::HasSubstr(L"nowhere.csv")));
        u.click("IDCANCEL");
    });
    CLayerImportDlg missing(db, nullptr);
    missing.SetPath(L"/nowhere.csv");
    missing.DoModal();
}

TEST_F(LayerExtras, ExportAsksBeforeItReplacesAFile) {
    user.expect<CLayerExportDlg>([&](auto& u) {
        u.click("IDOK"); // no path
        u.type("IDC_LAYER_EXPORT_PATH", L"/no such folder/x.csv");
        u.click("IDOK");
        u.type("IDC_LAYER_EXPORT_PATH", path);
        u.click("IDOK");
    });
    user.expectBox(L"경로를 입력", "IDOK");
    user.expectBox(L"no such folder", "IDOK");
    EXPECT_EQ(CLayerExportDlg(db, nullptr).DoModal(), IDOK);
    EXPECT_TRUE(std::filesystem::exists(file));
    user.expect<CLayerExportDlg>([](auto& u) {
        u.click("IDOK");
        u.click("IDCANCEL");
    });
    user.expectBox(L"이미 있습니다", "IDCANCEL");
    CLayerExportDlg again(db, nullptr);
    again.SetPath(path);
    EXPECT_EQ(again.DoModal(), IDCANCEL);
}

TEST_F(LayerExtras, StatesAreSavedComparedRestoredRenamedAndDeleted) {
    layer(L"Wall");
    int written = 0;
    user.expect<CLayerStatesDlg>([&](auto& u) {
        u.refused("IDC_LAYER_STATES_RESTORE", tv::ui::UserAction{});
        u.click("IDC_LAYER_STATES_NEW");
        layer(L"Wall").open<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsOff(true);
        u.click("IDC_LAYER_STATES_COMPARE");
        u.click("IDC_LAYER_STATES_RESTORE");
        EXPECT_FALSE(off(L"Wall"));
        u.click("IDC_LAYER_STATES_RENAME");
        EXPECT_THAT(rows(u, "IDC_LAYER_STATES_LIST", 0), testing::ElementsAre(L"Night"));
        EXPECT_THAT(rows(u, "IDC_LAYER_STATES_LIST", 1), testing::ElementsAre(L"2"));
        EXPECT_THAT(rows(u, "IDC_LAYER_STATES_LIST", 2), testing::ElementsAre(L"lights on"));
        u.click("IDC_LAYER_STATES_DELETE"); // thinks better of it
        u.click("IDC_LAYER_STATES_DELETE");
        EXPECT_TRUE(rows(u, "IDC_LAYER_STATES_LIST", 0).empty());
        u.click("IDCANCEL");
    });
    user.expect<CLayerStateNameDlg>([](auto& u) {
        u.click("IDOK"); // no name
        u.type("IDC_LAYER_STATE_NAME", L"Day");
        u.key(L"Enter");
    });
    user.expectBox(L"이름을 입력", "IDOK");
    user.expect<CLayerStateCompareDlg>([](auto& u) {
        EXPECT_THAT(rows(u, "IDC_LAYER_STATE_COMPARE_LIST", 0), testing::ElementsAre(L"Wall"));
        EXPECT_THAT(rows(u, "IDC_LAYER_STATE_COMPARE_LIST", 1), testing::ElementsAre(L"켜기"));
        u.click("IDCANCEL");
    });
    user.expect<CLayerStateNameDlg>([](auto& u) {
        EXPECT_EQ(u.text("IDC_LAYER_STATE_NAME"), L"Day");
        u.type("IDC_LAYER_STATE_NAME", L"Night");
        u.type("IDC_LAYER_STATE_DESCRIPTION", L"lights on");
        u.click("IDOK");
    });
    user.expectBox(L"\"Night\"", "IDCANCEL");
    user.expectBox(L"\"Night\"", "IDOK");
    CLayerStatesDlg dialog(db, nullptr);
    dialog.onWritten = [&] { ++written; };
    dialog.DoModal();
    EXPECT_EQ(written, 4) << "saved, restored, renamed, deleted";
}
