#pragma once

#include "platform/drawing/Geometry.h"
#include "platform/host/Signal.h"
#include "platform/host/TavoPointInput.h"
#include "platform/toolkit/UserAction.h"

#include <optional>
#include <string_view>

// Points asked for by commands and dialogs. One request waits at a time; the drawing window, the command line
// and the automation pipe answer it alike.
class PointRequests : public TavoPointInput {
  public:
    // eNotHandled without a toolkit, or while another point is awaited.
    Tavo::ErrorStatus getPoint(const OdString& prompt, const OdGePoint3d* base, OdGePoint3d& point) override;

    bool waiting() const { return m_request != nullptr; }
    // Of the request that waits.
    OdString prompt() const;
    std::optional<OdGePoint3d> base() const;

    // Answers the request that waits; refused when none does or the coordinates are not finite.
    tv::ui::UserResult supply(const OdGePoint3d& point);
    // Coordinates as a person types them: "x,y", "x,y,z", "@dx,dy" from the base point, "distance<degrees"
    // (with @ from the base point, else from the origin).
    tv::ui::UserResult supplyText(std::wstring_view text);
    void cancel();

    // A request begins (true) or has ended (false).
    [[nodiscard]] tv::host::Subscription onWaiting(std::function<void(bool)> listener) {
        return m_changed.connect(std::move(listener));
    }

  private:
    struct Request {
        OdString prompt;
        std::optional<OdGePoint3d> base, answer;
        bool ended = false;
    };
    Request* m_request = nullptr;
    tv::host::Signal<bool> m_changed;
};

// Nothing when the text is no such point.
std::optional<OdGePoint3d> parsePoint(std::wstring_view text, const std::optional<OdGePoint3d>& base);
