#pragma once

#include "platform/frx/FadeEffect.h"
#include "platform/frx/MInternationalDlg.h"

namespace tv {
class SettingsStore;
}

namespace zel::frx {

// Where dialogs keep their positions and sizes, one entry per template in the section "DialogPlacement". Not owned; null
// (as at start): nothing is remembered.
KXPLATFORM_EXPORT void setPlacementStore(tv::SettingsStore* store);

// A dialog that opens where a person last put it and can be dragged by its body. The position is kept when the dialog
// was moved, the size when it was resized; a position off the screen is brought back onto it.
class KXPLATFORM_EXPORT MDlgMove : public MInternationalDlg, public MFadeEffectCtrl {
  public:
    using MInternationalDlg::MInternationalDlg;

    int OnInitDialog() override;
    void OnSize(unsigned type, int cx, int cy) override;
    // The body counts as the title bar.
    HitTest OnNcHitTest(CPoint point) override;
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override;
    void OnOK() override { MInternationalDlg::OnOK(); }

    // The size of the last run; 0 when nothing is remembered.
    int rememberedWidth() const { return m_rememberedWidth; }
    int rememberedHeight() const { return m_rememberedHeight; }

  protected:
    void OnPlacedByUser(bool resized) override;
    void OnDestroy() override;

  private:
    int m_rememberedWidth = 0, m_rememberedHeight = 0;
    bool m_moved = false, m_resized = false;
};

} // namespace zel::frx
