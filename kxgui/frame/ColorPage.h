#pragma once

#include "kxgui/frame/VORDBaseChildDlg.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/toolkit/Edit.h"

#include <functional>

// One way to choose a colour: a page of the colour dialog. The dialog owns the choice; a page shows it and
// reports what a person makes of it.
class KXGUI_EXPORT CColorPage : public VORDBaseChildDlg {
  public:
    using VORDBaseChildDlg::VORDBaseChildDlg;

    std::function<void(const OdCmColor&)> onColor; // a person chose a colour here
    std::function<void()> onAccept;                // and wants to be done with it

    virtual void SetText() = 0;
    virtual void InitCtrl() = 0;
    // Shows a choice made elsewhere; an entry that could not be understood is given up for it.
    void Show(const OdCmColor& color);
    // The field a person would type in first.
    virtual CEdit& firstField() = 0;
    // The last entry here is no colour.
    bool faulty() const { return m_faulty != nullptr; }
    // Tells the person why and leads to the faulty entry.
    void ShowFault();

  protected:
    virtual void showColor(const OdCmColor& color) = 0;
    void choose(const OdCmColor& color);
    // The entry in `field` can't be understood, for the reason in `sentence`.
    void setFault(CEdit& field, std::wstring sentence);

  private:
    CEdit* m_faulty = nullptr;
    std::wstring m_fault;
};
