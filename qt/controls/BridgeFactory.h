#pragma once

#include "qt/controls/Bridge.h"

namespace tv::qt {

// The bridge for a control and a widget of the class its kind needs; null when the widget is of another class,
// and for pages, which the binder ties itself.
std::unique_ptr<Bridge> makeBridge(CWnd& wnd, QWidget& widget);
// The widget class a control needs, as Designer files name it.
const char* widgetClassFor(const CWnd& wnd);

} // namespace tv::qt
