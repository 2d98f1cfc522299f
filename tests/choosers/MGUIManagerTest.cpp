#include "kxgui/frame/MGUIManager.h"
#include "kxgui/frame/AskMessageDlg.h"
#include "kxgui/frame/ColorDlg.h"
#include "kxgui/frame/LineWeightDlg.h"
#include "kxgui/frame/LinetypeDlg.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/host/TavoCommands.h"
#include "platform/host/TavoSysvarManager.h"
#include "tests/support/HeadlessTest.h"

namespace {

struct Manager : HeadlessTest {
    OdDbDatabasePtr drawing = host.documentManager()->newDocument()->database();

    int sysvar(const wchar_t* name) const {
        int value = -99;
        EXPECT_EQ(tvedGetVar(name, value, drawing), Tavo::eOk);
        return value;
    }
    OdString celtype() {
        OdString text;
        host.sysvarManager()->getText(L"CELTYPE", text, drawing);
        return text;
    }
    template <class Dialog>
    void answer(const char* control, const wchar_t* text, const char* button) {
        user.expect<Dialog>([=, this](auto& u) {
            EXPECT_EQ(host.modalEvents()->depth(), 1) << "bracketed once";
            u.type(control, text);
            u.click(button);
        });
    }
    template <class Dialog>
    void answerRow(const char* list, const wchar_t* text, const char* button) {
        user.expect<Dialog>([=, this](auto& u) {
            EXPECT_EQ(host.modalEvents()->depth(), 1) << "bracketed once";
            const auto rows = u.look(list).rows;
            for (std::size_t row = 0; row < rows.size(); ++row)
                if (rows[row][0] == text) u.selectRows(list, {static_cast<int>(row)});
            u.click(button);
        });
    }
};

} // namespace

TEST_F(Manager, ColorsByIndex) {
    int color = -7;
    answer<CColorDlg>("IDC_COLOR_NAME", L"42", "IDCANCEL");
    EXPECT_EQ(MGUIManager::DisplayColorDialog(3, &color, 1, nullptr), -5002);
    EXPECT_EQ(color, -7) << "a cancelled run touches nothing";
    EXPECT_EQ(sysvar(L"COLORINDEX"), 256);
    answer<CColorDlg>("IDC_COLOR_NAME", L"42", "IDOK");
    EXPECT_EQ(MGUIManager::DisplayColorDialog(3, &color, 0, nullptr), 5100);
    EXPECT_EQ(color, 42);
    user.expect<CColorDlg>([](auto& u) {
        EXPECT_EQ(u.text("IDC_COLOR_NAME"), L"42") << "no index given: the one chosen last";
        u.click("IDC_COLOR_BYBLOCK");
        u.click("IDOK");
    });
    EXPECT_EQ(MGUIManager::DisplayColorDialogHideTrueColorTab(-1, nullptr, 1, nullptr), 5100);
    EXPECT_EQ(sysvar(L"COLORINDEX"), 0);
    user.expect<CColorDlg>([](auto& u) {
        u.choose("IDC_COLOR_TABS", 1);
        u.type("IDC_COLOR_HEX", L"#FE0101");
        u.click("IDOK");
    });
    EXPECT_EQ(MGUIManager::DisplayColorDialog(1, &color, 0, nullptr), 5100);
    EXPECT_EQ(color, 1) << "a true colour as its nearest index";
}

TEST_F(Manager, EveryKindOfColor) {
    OdCmColor color = OdCmColor::byRgb(1, 2, 3);
    answer<CColorDlg>("IDC_COLOR_HEX", L"#0A0B0C", "IDCANCEL");
    EXPECT_FALSE(MGUIManager().ShowColorDialog(color, true));
    EXPECT_EQ(color, OdCmColor::byRgb(1, 2, 3));
    answer<CColorDlg>("IDC_COLOR_HEX", L"#0A0B0C", "IDOK");
    EXPECT_EQ(MGUIManager::DisplayColorDialog(color, color, 1), 5100);
    EXPECT_EQ(color, OdCmColor::byRgb(10, 11, 12));
}

TEST_F(Manager, LinetypesAreChosenAndMadeCurrent) {
    const auto table = drawing->getLinetypeTableId().open<OdDbLinetypeTable>(OdDb::kForWrite);
    const OdDbObjectId dashed = table->add(L"DASHED");
    ASSERT_FALSE(dashed.isNull());
    const std::string before = drawing->bytes();

    OdDbObjectId chosen;
    answerRow<CLinetypeDlg>("IDC_LINETYPE_LIST", L"DASHED", "IDOK");
    EXPECT_EQ(MGUIManager::DisplayLinetypeDialog(1, {}, &chosen, nullptr), 5100);
    EXPECT_TRUE(chosen == dashed);
    user.expect<CLinetypeDlg>([](auto& u) {
        EXPECT_EQ(u.look("IDC_LINETYPE_LIST").rowCount, 2) << "without ByLayer and ByBlock";
        EXPECT_EQ(u.look("IDC_LINETYPE_LIST").selection, std::vector{1});
        u.click("IDCANCEL");
    });
    EXPECT_EQ(MGUIManager::DisplayLinetypeDialog(0, dashed, &chosen, nullptr), -5002);
    EXPECT_EQ(drawing->bytes(), before) << "choosing alone changes nothing";

    TavoEdCommandContext context(drawing);
    MGUIManager manager(&context);
    answerRow<CLinetypeDlg>("IDC_LINETYPE_LIST", L"DASHED", "IDOK");
    EXPECT_TRUE(manager.ShowLineTypeDialog(drawing));
    EXPECT_EQ(celtype().iCompare(L"DASHED"), 0);
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing->bytes(), before);
    EXPECT_FALSE(manager.ShowLineTypeDialog(nullptr));
}

TEST_F(Manager, OldDrawingsTakeByBlockByName) {
    drawing = OdDbDatabase::create(OdDb::DxfVersion::kR12);
    answerRow<CLinetypeDlg>("IDC_LINETYPE_LIST", L"ByBlock", "IDOK");
    EXPECT_TRUE(MGUIManager().ShowLineTypeDialog(drawing));
    EXPECT_EQ(celtype().iCompare(L"BYBLOCK"), 0);

    // A current lineweight is nothing such a drawing can hold.
    TavoEdCommandContext context(drawing);
    const std::string before = drawing->bytes();
    answerRow<CLineWeightDlg>("IDC_LINEWEIGHT_LIST", L"0.05 mm", "IDOK");
    user.expectBox(L"CELWEIGHT", "IDOK");
    EXPECT_FALSE(MGUIManager(&context).ShowLineWeightDialog());
    EXPECT_EQ(drawing->bytes(), before);
}

TEST_F(Manager, LineweightsAreChosenAndMadeCurrent) {
    OdDb::LineWeight weight = OdDb::kLnWt015;
    answerRow<CLineWeightDlg>("IDC_LINEWEIGHT_LIST", L"0.05 mm", "IDCANCEL");
    EXPECT_EQ(MGUIManager::DisplayLineWeightDialog(&weight), -5002);
    EXPECT_EQ(weight, OdDb::kLnWt015);
    answerRow<CLineWeightDlg>("IDC_LINEWEIGHT_LIST", L"0.05 mm", "IDOK");
    EXPECT_EQ(MGUIManager::DisplayLineWeightDialog(&weight), 5100);
    EXPECT_EQ(weight, OdDb::kLnWt005);
    answerRow<CLineWeightDlg>("IDC_LINEWEIGHT_LIST", L"0.05 mm", "IDOK");
    EXPECT_EQ(MGUIManager::DisplayLineWeightDialog(nullptr), 5100);

    const std::string before = drawing->bytes();
    answerRow<CLineWeightDlg>("IDC_LINEWEIGHT_LIST", L"ByBlock", "IDOK");
    EXPECT_TRUE(MGUIManager().ShowLineWeightDialog());
    EXPECT_EQ(sysvar(L"CELWEIGHT"), -2);
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing->bytes(), before);
}

TEST_F(Manager, AskMessageBoxGivesBothAnswers) {
    bool doNotAsk = false;
    int endCode = 0;
    user.expect<CAskMessageDlg>([](auto& u) {
        u.click("IDC_ASK_MSG_DLG_NOT_AGAIN");
        u.click("IDNO");
    });
    EXPECT_EQ(MGUIManager::DisplayAskMessageBoxDialog(L"Reload?", doNotAsk, endCode), 5100);
    EXPECT_TRUE(doNotAsk);
    EXPECT_EQ(endCode, IDNO);
}

TEST_F(Manager, MissingDialogsAnswerAsCancelledAndSaySo) {
    MGUIManager manager;
    OdString text = L"kept";
    int one = 1, two = 2, three = 3;
    OdDbObjectId id;
    std::vector<OdString> names{L"kept"};
    host.commandLine()->takeNew();
    for (const bool answer :
         {manager.ShowToleranceDialog(text), manager.ShowToleranceDialog(id), manager.ShowLayerMatchDialog(id),
          manager.ShowImageControlDialog(&id),
          manager.ShowImageControlDialogAndGetDataOnly(&id, one, two, three),
          manager.ShowMTextBackMaskDialog(&id), manager.ShowMTextColTypeDialog(&id),
          manager.ShowHPatternPaletteDialog(nullptr, text, nullptr),
          manager.ShowHPatternTypeDialog(nullptr, one, text), manager.ShowStyleDialog(true, nullptr),
          manager.ShowSetAttributeNameDialog(&id, names), manager.ShowAutoRestoreControl(drawing.get(), names),
          manager.ShowEATTEDIT()})
        EXPECT_FALSE(answer);
    EXPECT_EQ(text.wstr(), L"kept");
    EXPECT_FALSE(manager.ShowCustomArrowBlockDialog(nullptr, text)) << "no drawing";
    EXPECT_EQ(std::vector({one, two, three}), std::vector({1, 2, 3}));
    const auto lines = host.commandLine()->takeNew();
    ASSERT_EQ(lines.size(), 13u) << "one sentence each";
    EXPECT_EQ(lines.front().wstr(), L"기하공차 대화상자는 이 프로그램에 없습니다.");
}
