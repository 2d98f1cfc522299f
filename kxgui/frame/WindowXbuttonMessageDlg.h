#pragma once

#include "kxgui/frame/VORDBoxDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Static.h"

#include <memory>

// What becomes of a drawing window; also the values of the variable TABCLOSEMODE.
enum WindowCloseAction : unsigned {
    windowActionClose = 1,  // hidden; it can be opened again from the window tree
    windowActionDelete = 2, // removed for good
    windowActionExport = 3  // written to a drawing file of its own
};

// What both window-close questions have: the heading, the actions and the check box.
class KXGUI_EXPORT CWindowCloseDlg : public VORDBoxDlg {
  public:
    CWindowCloseDlg(unsigned templateId, bool offersDelete, CWnd* parent);
    void SetWindowName(std::wstring_view name) { windowName = name; }

    std::wstring windowName;
    unsigned result = 0; // the chosen action once the dialog ended with IDOK

    void SetText() override;
    void InitCtrl() override {}
    void Data2Dlg() override {}
    int Dlg2Data() override { return 0; }

  private:
    // With the box checked the action becomes the answer of every later close, if there are system variables to
    // keep it.
    void choose(WindowCloseAction action);

    CStatic m_heading{*this, "IDC_WINDOW_X_HEADING"};
    CCommandButton m_close{*this, "IDC_WINDOW_X_CLOSE"};
    std::unique_ptr<CCommandButton> m_delete; // the question about several windows has it
    CCommandButton m_export;
    CCheckBox m_notAgain;
};

// Asked when one of several drawing windows is closed with its X button.
class KXGUI_EXPORT CWindowXbuttonMessageDlg : public CWindowCloseDlg {
  public:
    explicit CWindowXbuttonMessageDlg(CWnd* parent);
};

// The same when it is the only drawing window: it can't be deleted.
class KXGUI_EXPORT CSingleWindowXbuttonMessageDlg : public CWindowCloseDlg {
  public:
    explicit CSingleWindowXbuttonMessageDlg(CWnd* parent);
};
