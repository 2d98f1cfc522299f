#pragma once

#include "platform/toolkit/Wnd.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <variant>

namespace tv::ui {

struct DrawPoint {
    double x = 0, y = 0;
};

// One drawn thing, in drawing units with y upwards.
struct DrawItem {
    enum class Shape { polyline, polygon, circle, text } shape = Shape::polyline;
    std::vector<DrawPoint> points;                  // circle: the centre; text: the start of its base line
    double radius = 0;                              // circle; text: its height
    std::wstring text;
    std::optional<std::uint32_t> stroke, fill;      // 0xRRGGBB; stroke unset: the window's text colour for lines
    double width = 1;                               // logical pixels
};

// What a preview shows: a face paints it, scaled to fit with the aspect ratio kept.
struct DisplayList {
    DrawPoint low, high; // the part of the drawing that is shown
    std::vector<DrawItem> items;
    std::optional<std::uint32_t> background;
};

} // namespace tv::ui

// A preview. A person can click into it when the owner asks for that.
class KXPLATFORM_EXPORT CDrawArea : public CWnd {
  public:
    CDrawArea(CWnd& parent, const char* name) : CWnd(parent, name) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::drawArea; }

    void SetDisplayList(tv::ui::DisplayList list);
    const tv::ui::DisplayList& displayList() const { return m_list; }

    std::function<void(tv::ui::DrawPoint)> onClick;

    tv::ui::UserResult userClick(tv::ui::DrawPoint point);
    tv::ui::UserResult perform(const tv::ui::UserAction& action) override;

  private:
    tv::ui::DisplayList m_list;
};
