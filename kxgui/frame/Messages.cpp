#include "kxgui/frame/Messages.h"

#include "kxgui/frame/MessageDlg.h"
#include "kxgui/frame/MessageStyle.h"
#include "kxgui/frame/ModuleEntry.h"
#include "kxgui/frame/WindowXbuttonMessageDlg.h"
#include "platform/frx/TaskDialog.h"
#include "platform/host/TavoComEvents.h"
#include "platform/host/TavoDocumentManager.h"
#include "platform/host/TavoInterfaces.h"

namespace {

const wchar_t* orEmpty(const wchar_t* text) { return text ? text : L""; }

int openDrawingWindows() {
    TavoInterfaces* host = getTavoInterfaces();
    TavoDocumentManager* documents = host ? host->documentManager() : nullptr;
    return documents ? documents->drawingWindowCount() : 0;
}

int askWindowAction(CWindowCloseDlg&& dialog, unsigned& action, const wchar_t* windowName) {
    dialog.SetWindowName(windowName);
    if (dialog.DoModal() != IDOK) return 0;
    action = dialog.result;
    return 1;
}

} // namespace

unsigned MessageDlg(CWnd* parent, const wchar_t* text, const wchar_t* caption, unsigned style) {
    if (!kxGuiModuleReady()) return static_cast<unsigned>(-1);
    const auto parts = kx::frame::splitMessage(orEmpty(text));
    CTaskDialogVE dialog(parent, orEmpty(caption), parts.instruction, parts.content,
                         kx::frame::taskButtonsOf(style), kx::frame::taskIconOf(style),
                         kx::frame::defaultButtonOf(style));
    const tv::host::ModalBracket bracket;
    return static_cast<unsigned>(dialog.DoModal());
}

unsigned MessageDlg(const wchar_t* text, const wchar_t* caption, unsigned style) {
    return MessageDlg(nullptr, text, caption, style);
}

int QuestionDlg(CWnd* parent, const wchar_t* caption, const wchar_t* title, const wchar_t* subTitle,
                const wchar_t* btnTitle1, const wchar_t* btnTitle2, int showImage, int showSubTitle) {
    CMessageDlg dialog(parent);
    dialog.SetCaption(orEmpty(caption));
    dialog.SetTitle(orEmpty(title));
    dialog.SetSubTitle(orEmpty(subTitle));
    dialog.SetBtnTitle1(orEmpty(btnTitle1));
    dialog.SetBtnTitle2(orEmpty(btnTitle2));
    dialog.ShowImage(showImage);
    dialog.ShowSubTitle(showSubTitle);
    dialog.DoModal();
    return static_cast<int>(dialog.GetSelectBtn());
}

int QuestionDlg(const wchar_t* caption, const wchar_t* title, const wchar_t* subTitle, const wchar_t* btnTitle1,
                const wchar_t* btnTitle2, int showImage, int showSubTitle) {
    return QuestionDlg(nullptr, caption, title, subTitle, btnTitle1, btnTitle2, showImage, showSubTitle);
}

int WindowXbuttonMessageDlg(CWnd* parent, unsigned& action, const wchar_t* windowName) {
    action = windowActionClose;
    return openDrawingWindows() > 1
               ? askWindowAction(CWindowXbuttonMessageDlg(parent), action, orEmpty(windowName))
               : askWindowAction(CSingleWindowXbuttonMessageDlg(parent), action, orEmpty(windowName));
}
