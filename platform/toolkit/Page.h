#pragma once

#include "platform/toolkit/Wnd.h"

// A dialog template embedded in another dialog: a window that holds controls. Its name is the name of the placeholder in
// the parent; its controls come from the template.
class KXPLATFORM_EXPORT CPage : public CWnd {
  public:
    CPage(unsigned templateId, CWnd& parent, const char* name) : CWnd(parent, name), m_templateId(templateId) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::page; }
    unsigned templateId() const { return m_templateId; }
    // Empty when no loaded module has the template.
    std::string templateName() const;

    // Called once with the dialog's creation, before the dialog's own OnInitDialog.
    virtual int OnInitDialog() { return 1; }
    // Keys typed in the page, before the dialog's own use of them; true swallows the key.
    virtual bool PreTranslateMessage(const tv::ui::KeyEvent&) { return false; }

  private:
    unsigned m_templateId;
};
