#pragma once

#include "kxgui/frame/VORDBoxDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Static.h"

// What becomes of a drawing window; also the values of the variable TABCLOSEMODE.
enum WindowCloseAction : unsigned {
    windowActionClose = 1,  // hidden; it can be opened again from the window tree
    windowActionDelete = 2, // removed for good
    windowActionExport = 3  // written to a drawing file of its own
};

namespace kx::frame {

// The controls of both window-close questions but Delete.
struct WindowCloseControls {
    CStatic& heading;
    CCommandButton& close;
    CCommandButton& exportFile;
    CCheckBox& notAgain;
};
void setWindowCloseTexts(CWnd& dialog, const WindowCloseControls& controls, const std::wstring& windowName);
// Makes `action` the answer of every later close, when there are system variables to keep it in.
void rememberWindowClose(WindowCloseAction action);

} // namespace kx::frame

// Asked when one of several drawing windows is closed with its X button. IDOK when an action was chosen.
class KXGUI_EXPORT CWindowXbuttonMessageDlg : public VORDBoxDlg {
  public:
    explicit CWindowXbuttonMessageDlg(CWnd* parent);
    void SetWindowName(std::wstring_view name) { windowName = name; }

    std::wstring windowName;
    unsigned result = 0; // the chosen action

    void SetText() override;
    void InitCtrl() override {}
    void Data2Dlg() override {}
    int Dlg2Data() override { return 0; }

  private:
    void choose(WindowCloseAction action);

    CStatic m_heading{*this, "IDC_WINDOW_X_HEADING"};
    CCommandButton m_close{*this, "IDC_WINDOW_X_CLOSE"};
    CCommandButton m_delete{*this, "IDC_WINDOW_X_DELETE"};
    CCommandButton m_export{*this, "IDC_WINDOW_X_EXPORT"};
    CCheckBox m_notAgain{*this, "IDC_WINDOW_X_NOT_AGAIN"};
};

// The same when it is the only drawing window: it can't be deleted.
class KXGUI_EXPORT CSingleWindowXbuttonMessageDlg : public VORDBoxDlg {
  public:
    explicit CSingleWindowXbuttonMessageDlg(CWnd* parent);
    void SetWindowName(std::wstring_view name) { windowName = name; }

    std::wstring windowName;
    unsigned result = 0; // the chosen action

    void SetText() override;
    void InitCtrl() override {}
    void Data2Dlg() override {}
    int Dlg2Data() override { return 0; }

  private:
    void choose(WindowCloseAction action);

    CStatic m_heading{*this, "IDC_WINDOW_X_HEADING"};
    CCommandButton m_close{*this, "IDC_WINDOW_X_CLOSE"};
    CCommandButton m_export{*this, "IDC_WINDOW_X_EXPORT"};
    CCheckBox m_notAgain{*this, "IDC_WINDOW_X_NOT_AGAIN"};
};
