#include "platform/frx/FadeEffect.h"

#include "platform/toolkit/Dialog.h"

namespace zel::frx {
namespace {
bool g_enabled = false;
}

void MFadeEffectCtrl::EnableFadeEffects(bool enable) { g_enabled = enable; }

bool MFadeEffectCtrl::FadeEffectsEnabled() { return g_enabled; }

void MFadeEffectCtrl::FadeIn(CDialog& dialog) {
    if (g_enabled && m_fade) step(dialog, 0);
}

void MFadeEffectCtrl::StopFade(CDialog& dialog) {
    if (!m_timer.pending()) return;
    m_timer.cancel();
    dialog.SetOpacity(1.0);
}

void MFadeEffectCtrl::step(CDialog& dialog, int number) {
    dialog.SetOpacity(static_cast<double>(number) / fadeSteps);
    if (number == fadeSteps) return;
    m_timer = tv::ui::Toolkit::current()->after(fadeTime / fadeSteps, [this, &dialog, number] { step(dialog, number + 1); });
}

} // namespace zel::frx
