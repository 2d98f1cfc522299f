#pragma once

#include "platform/toolkit/SliderCtrl.h"
#include "qt/controls/Bridge.h"

class QSlider;

namespace tv::qt {

class SliderBridge : public Bridge {
  public:
    SliderBridge(CSliderCtrl& slider, QSlider& widget);

  protected:
    void show(ui::Change change) override;

  private:
    CSliderCtrl& m_control;
    QSlider& m_slider;
};

} // namespace tv::qt
