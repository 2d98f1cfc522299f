#include "qt/controls/SliderBridge.h"

#include <QSlider>

namespace tv::qt {

SliderBridge::SliderBridge(CSliderCtrl& slider, QSlider& widget)
    : Bridge(slider, widget), m_control(slider), m_slider(widget) {
    m_slider.setPageStep(10);
    connect(&widget, &QSlider::valueChanged, this,
            [this](int value) { user([&] { return m_control.userSet(value); }); });
}

void SliderBridge::show(ui::Change change) {
    if (change != ui::Change::items && change != ui::Change::selection) return;
    m_slider.setRange(m_control.minimum(), m_control.maximum());
    m_slider.setValue(m_control.GetPos());
}

} // namespace tv::qt
