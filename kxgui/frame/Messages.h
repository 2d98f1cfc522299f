#pragma once

#include "kxgui/Export.h"

class CWnd;

// A message box: `style` holds the usual flags (buttons in bits 0x0F, icon in bits 0xF0, the number of the
// button that Enter presses in bits 0xF00), the answer is the usual button result (1 OK, 2 Cancel, 4 Retry, 6
// Yes, 7 No). `text` must not be null; a null caption is an empty one. The run is bracketed with the host's
// modal notifications.
KXGUI_EXPORT unsigned MessageDlg(CWnd* parent, const wchar_t* text, const wchar_t* caption, unsigned style);
// The same above the main window.
KXGUI_EXPORT unsigned MessageDlg(const wchar_t* text, const wchar_t* caption, unsigned style);

// A question with two large buttons: 0 for the first, 1 for the second. A question that is dismissed counts as
// the second answer, so the safe one goes there.
KXGUI_EXPORT int QuestionDlg(CWnd* parent, const wchar_t* caption, const wchar_t* title,
                             const wchar_t* subTitle, const wchar_t* btnTitle1, const wchar_t* btnTitle2,
                             int showImage, int showSubTitle);
KXGUI_EXPORT int QuestionDlg(const wchar_t* caption, const wchar_t* title, const wchar_t* subTitle,
                             const wchar_t* btnTitle1, const wchar_t* btnTitle2, int showImage,
                             int showSubTitle);

// Asks what becomes of a drawing window whose X button was pressed. 1: `action` holds the chosen code (see
// WindowCloseAction in WindowXbuttonMessageDlg.h); 0: cancelled, `action` is 1.
KXGUI_EXPORT int WindowXbuttonMessageDlg(CWnd* parent, unsigned& action, const wchar_t* windowName);
