#pragma once

#include "platform/toolkit/DisplayList.h"
#include "platform/toolkit/Wnd.h"

#include <functional>

// A preview. A person can click into it when the owner asks for that.
class KXPLATFORM_EXPORT CDrawArea : public CWnd {
  public:
    CDrawArea(CWnd& parent, const char* name) : CWnd(parent, name) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::drawArea; }

    void SetDisplayList(tv::ui::DisplayList list);
    const tv::ui::DisplayList& displayList() const { return m_list; }

    std::function<void(tv::ui::DrawPoint)> onClick;

    tv::ui::UserResult userClick(tv::ui::DrawPoint point);
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;

  private:
    tv::ui::DisplayList m_list;
};
