#pragma once

#include "platform/Export.h"
#include "platform/toolkit/Toolkit.h"

class CDialog;

namespace zel::frx {

// Lets a dialog appear gradually. Off until a program switches it on for the whole process; a single dialog can opt out.
class KXPLATFORM_EXPORT MFadeEffectCtrl {
  public:
    static constexpr std::chrono::milliseconds fadeTime{120};
    static constexpr int fadeSteps = 8;

    static void EnableFadeEffects(bool enable);
    static bool FadeEffectsEnabled();

    void SetFadeEffect(bool fade) { m_fade = fade; }
    // Starts from transparent. Does nothing when the effect is off.
    void FadeIn(CDialog& dialog);
    // Ends a running effect with the dialog opaque.
    void StopFade(CDialog& dialog);
    bool fading() const { return m_timer.pending(); }

  private:
    void step(CDialog& dialog, int number);
    bool m_fade = true;
    tv::ui::Timer m_timer;
};

} // namespace zel::frx
