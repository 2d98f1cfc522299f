#include "kxgui/frame/AskMessageDlg.h"
#include "kxgui/frame/MessageDlg.h"
#include "kxgui/frame/MessageDlgOpt3.h"
#include "kxgui/frame/MessageStyle.h"
#include "kxgui/frame/Messages.h"
#include "kxgui/frame/MultiAskDlg.h"
#include "kxgui/frame/WindowXbuttonMessageDlg.h"
#include "platform/drawing/OdDbDatabase.h"
#include "tests/support/HeadlessTest.h"

namespace {

struct MessageBoxes : HeadlessTest {
    // The buttons a box of this style offers, in their order.
    std::vector<std::string> buttonsOf(unsigned style) {
        std::vector<std::string> shown;
        user.expect<CTaskDialogVE>([&](auto& u) {
            for (const auto& control : u.look().controls)
                if (control.kind == tv::ui::ControlKind::button && control.visible)
                    shown.push_back(control.name);
            u.click(shown.empty() ? "IDOK" : shown.back());
        });
        MessageDlg(L"본문", nullptr, style);
        return shown;
    }
};

} // namespace

TEST(MessageStyle, TheFirstSentenceBecomesTheInstruction) {
    using kx::frame::splitMessage;
    const auto check = [](const wchar_t* text, const wchar_t* instruction, const wchar_t* content) {
        const auto parts = splitMessage(text);
        EXPECT_EQ(parts.instruction, instruction);
        EXPECT_EQ(parts.content, content);
    };
    check(L"저장했습니다.", L"저장했습니다.", L"");
    check(L"파일이 있습니다. 덮어쓸까요?", L"파일이 있습니다.", L"덮어쓸까요?");
    check(L".dxf 파일", L".dxf 파일", L"");
    check(L"끝 표시 없음", L"끝 표시 없음", L"");
    check(L"정말?!  \n\t네", L"정말?", L"네");
    check(L"첫 줄\n둘째 줄", L"첫 줄\n", L"둘째 줄");
    check(L"", L"", L"");
}

TEST_F(MessageBoxes, StylesGiveTheirButtonsIconsAndResults) {
    using Names = std::vector<std::string>;
    EXPECT_EQ(buttonsOf(0), Names{"IDOK"});
    EXPECT_EQ(buttonsOf(1), (Names{"IDOK", "IDCANCEL"}));
    EXPECT_EQ(buttonsOf(2), (Names{"IDOK", "IDRETRY", "IDCANCEL"}));
    EXPECT_EQ(buttonsOf(3), (Names{"IDYES", "IDNO", "IDCANCEL"}));
    EXPECT_EQ(buttonsOf(4), (Names{"IDYES", "IDNO"}));
    EXPECT_EQ(buttonsOf(5), (Names{"IDRETRY", "IDCANCEL"}));
    EXPECT_EQ(buttonsOf(6), (Names{"IDOK", "IDRETRY", "IDCANCEL"}));
    EXPECT_EQ(kx::frame::taskButtonsOf(7), 0u);

    const std::pair<unsigned, const char*> icons[] = {{0x10, "error"},       {0x20, "question"},
                                                      {0x30, "warning"},     {0x121, "question"},
                                                      {0x40, "information"}, {0x50, "none"}};
    for (const auto& [style, icon] : icons) {
        user.expect<CTaskDialogVE>([&, name = icon](auto& u) {
            EXPECT_EQ(u.look("IDC_ICON").icon, name);
            u.click("IDOK");
        });
        EXPECT_EQ(MessageDlg(L"본문", L"제목", style), 1u);
    }
    const std::pair<const char*, unsigned> results[] = {{"IDYES", 6}, {"IDNO", 7}, {"IDCANCEL", 2}};
    for (const auto& [button, code] : results) {
        user.expectBox(L"본문", button);
        EXPECT_EQ(MessageDlg(L"본문", L"제목", 3), code);
    }
    user.expectBox(L"본문", "IDRETRY");
    EXPECT_EQ(MessageDlg(L"본문", L"제목", 5), 4u);
}

TEST_F(MessageBoxes, EscapeAndCopyFollowTheButtons) {
    user.expect<CTaskDialogVE>([&](auto& u) {
        EXPECT_EQ(u.title(), L"제목");
        u.key(L"Ctrl+C");
        u.key(L"Escape");
    });
    EXPECT_EQ(MessageDlg(L"한 문장. 다음 문장", L"제목", 0x21), 2u);
    EXPECT_EQ(toolkit.clipboardText(), L"제목\n\n한 문장.\n\n다음 문장\n\n[확인] [취소]");

    user.expect<CTaskDialogVE>([](auto& u) { u.key(L"Escape"); });
    EXPECT_EQ(MessageDlg(L"알림", nullptr, 0), 1u) << "the only button";

    user.expect<CTaskDialogVE>([](auto& u) {
        u.closeBox();
        u.key(L"Escape");
        EXPECT_TRUE(u.dialog().running()) << "yes or no has to be answered";
        u.key(L"n");
    });
    EXPECT_EQ(MessageDlg(L"질문", nullptr, 4), 7u);
}

TEST_F(MessageBoxes, AModalBracketSurroundsEachBox) {
    int deepest = 0;
    const auto subscription =
        host.modalEvents()->onDepthChanged([&](int depth) { deepest = std::max(deepest, depth); });
    user.expectBox(L"본문", "IDOK");
    MessageDlg(L"본문", L"", 0);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(host.modalEvents()->depth(), 0);
}

TEST_F(MessageBoxes, ADismissedQuestionIsTheSecondAnswer) {
    const auto ask = [] {
        return QuestionDlg(L"제목", L"병합할까요?", L"부제", L"병합\n합칩니다.", L"그대로", 0, 1);
    };
    user.expect<CMessageDlg>([](auto& u) {
        EXPECT_FALSE(u.look("IDC_MESSAGE_IMAGE").visible);
        EXPECT_TRUE(u.look("IDC_MESSAGE_SUBTITLE").visible);
        EXPECT_EQ(u.text("IDC_MESSAGE_TITLE"), L"병합할까요?");
        u.click("IDC_MESSAGE_BTN1");
    });
    EXPECT_EQ(ask(), 0);
    user.expect<CMessageDlg>([](auto& u) { u.click("IDC_MESSAGE_BTN2"); });
    EXPECT_EQ(ask(), 1);
    user.expect<CMessageDlg>([](auto& u) { u.key(L"Escape"); });
    EXPECT_EQ(ask(), 1);

    CMessageDlg dialog(nullptr);
    user.expect<CMessageDlg>([](auto& u) { u.key(L"Enter"); });
    EXPECT_EQ(dialog.DoModal(), 100);

    CMessageDlgOpt3 three(nullptr);
    user.expect<CMessageDlgOpt3>([](auto& u) {
        EXPECT_FALSE(u.look("IDC_WINDOW_X_NOT_AGAIN").visible);
        u.click("IDC_WINDOW_X_DELETE");
    });
    three.DoModal();
    EXPECT_EQ(three.GetSelectBtn(), 1u);
}

TEST_F(MessageBoxes, MultiAskShowsItsAnswersAndIsShortened) {
    CMultiAskDlg dialog(L"제목", L"어느 것?", {L"하나", L"둘"}, {10, 20}, nullptr);
    user.expect<CMultiAskDlg>([&](auto& u) {
        EXPECT_TRUE(u.look("IDC_MULTI_ASK_BTN2").visible);
        for (const char* hidden : {"IDC_MULTI_ASK_BTN3", "IDC_MULTI_ASK_BTN4"}) {
            EXPECT_FALSE(u.look(hidden).visible);
            EXPECT_FALSE(u.look(hidden).enabled);
        }
        const CRect last = dialog.ClientToScreen(dialog.GetDlgItem("IDC_MULTI_ASK_BTN4")->GetWindowRect());
        EXPECT_EQ(dialog.GetWindowRect().bottom, last.bottom + 40);
        // Without the focus on an answer nothing is chosen.
        dialog.GetDlgItem("IDCANCEL")->SetFocus();
        dialog.OnOK();
        EXPECT_TRUE(dialog.running());
        u.click("IDC_MULTI_ASK_BTN2");
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetRetID(), 20);

    for (const wchar_t* key : {L"Enter", L"Space"}) {
        CMultiAskDlg again(nullptr);
        again.SetData(L"제목", L"어느 것?", {L"하나", L"둘"}, {10, 20});
        user.expect<CMultiAskDlg>([&](auto& u) { u.key(key); });
        again.DoModal();
        EXPECT_EQ(again.GetRetID(), 10) << "the first answer has the focus at the start";
    }
    CMultiAskDlg cancelled(L"", L"", {L"하나"}, {10}, nullptr);
    user.expect<CMultiAskDlg>([](auto& u) { u.click("IDCANCEL"); });
    EXPECT_EQ(cancelled.DoModal(), IDCANCEL);
    EXPECT_EQ(cancelled.GetRetID(), 0);
}

TEST_F(MessageBoxes, AskMessageKeepsWhatTheBoxWasClickedTo) {
    CAskMessageDlg dialog;
    dialog.setMsg(L"다시 읽을까요?");
    user.expect<CAskMessageDlg>([&](auto& u) {
        u.key(L"Ctrl+C");
        EXPECT_NE(toolkit.clipboardText().find(L"다시 읽을까요?"), std::wstring::npos);
        u.click("IDC_ASK_MSG_DLG_NOT_AGAIN");
        u.key(L"Alt+N");
    });
    EXPECT_EQ(dialog.DoModal(), IDNO);
    EXPECT_TRUE(dialog.getDoNotAsk());
}

TEST_F(MessageBoxes, WindowCloseOffersDeleteOnlyWithSeveralWindows) {
    unsigned action = 99;
    user.expect<CSingleWindowXbuttonMessageDlg>([](auto& u) {
        EXPECT_EQ(u.title(), L"TavoCAD");
        EXPECT_EQ(u.text("IDC_WINDOW_X_HEADING"), L"[평면도] 을/를\n다음과 같이 처리합니다.");
        u.key(L"Escape");
    });
    EXPECT_EQ(WindowXbuttonMessageDlg(nullptr, action, L"평면도"), 0);
    EXPECT_EQ(action, 1u);

    host.documentManager()->newDocument();
    host.documentManager()->newDocument();
    const auto closeMode = [] {
        int mode = -1;
        tvedGetVar(L"TABCLOSEMODE", mode, nullptr);
        return mode;
    };
    const int before = closeMode();
    user.expect<CWindowXbuttonMessageDlg>([](auto& u) { u.click("IDC_WINDOW_X_DELETE"); });
    EXPECT_EQ(WindowXbuttonMessageDlg(nullptr, action, L"평면도"), 1);
    EXPECT_EQ(action, 2u);
    EXPECT_EQ(closeMode(), before) << "the box was not checked";

    user.expect<CWindowXbuttonMessageDlg>([](auto& u) {
        u.check("IDC_WINDOW_X_NOT_AGAIN");
        u.click("IDC_WINDOW_X_EXPORT");
    });
    EXPECT_EQ(WindowXbuttonMessageDlg(nullptr, action, L"평면도"), 1);
    EXPECT_EQ(action, 3u);
    EXPECT_EQ(closeMode(), 3);
}
