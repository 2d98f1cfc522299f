#pragma once

#include "kxgui/Export.h"

// Keeps the text cursor's shape right while an input method composes: the shape of the field it composes in,
// wherever the pointer moves.
class KXGUI_EXPORT IMECursorHandler_ZEL {
  public:
    enum class Shape { arrow, text };

    void SetComposing(bool composing) { m_composing = composing; }
    bool composing() const { return m_composing; }
    // The window asks for its cursor: true when the shape is the handler's to choose.
    bool OnSetCursor() {
        if (m_composing) m_shape = Shape::text;
        return m_composing;
    }
    // Nothing else is under way: after composing the normal cursor comes back.
    void OnIdle() {
        if (!m_composing) m_shape = Shape::arrow;
    }
    void Clear() { *this = {}; }
    Shape shape() const { return m_shape; }

  private:
    bool m_composing = false;
    Shape m_shape = Shape::arrow;
};
