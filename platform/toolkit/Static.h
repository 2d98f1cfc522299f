#pragma once

#include "platform/toolkit/Wnd.h"

// A text on the dialog. It may name the control beside it (CWnd::LabelledBy): its mnemonic then leads there.
class KXPLATFORM_EXPORT CStatic : public CWnd {
  public:
    CStatic(CWnd& parent, const char* name) : CWnd(parent, name) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::label; }
};

// A frame with a title around controls that belong together.
class KXPLATFORM_EXPORT CGroupBox : public CWnd {
  public:
    CGroupBox(CWnd& parent, const char* name) : CWnd(parent, name) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::groupBox; }
};

namespace tv::ui {
enum class Icon { none, error, question, warning, information, application };
KXPLATFORM_EXPORT const char* iconName(Icon icon);
} // namespace tv::ui

// A standard picture.
class KXPLATFORM_EXPORT CImage : public CWnd {
  public:
    CImage(CWnd& parent, const char* name) : CWnd(parent, name) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::image; }
    void SetIcon(tv::ui::Icon icon);
    tv::ui::Icon icon() const { return m_icon; }
    void describe(tv::ui::ControlSnapshot& out) const override;

  private:
    tv::ui::Icon m_icon = tv::ui::Icon::none;
};
