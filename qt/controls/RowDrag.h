#pragma once

#include "platform/toolkit/TreeCtrl.h"
#include "qt/Export.h"

#include <QString>

#include <functional>

class QMimeData;
class QPixmap;
class QPoint;
class QWidget;

namespace tv::qt {

class Bridge;

// What a person drags from one control of this program to another. Only what is dragged is known while it is
// under way; what was dropped is done when the button has been released and the drag is over.
namespace drag {

// The kind of what is dragged, for Qt.
inline QString format() { return QStringLiteral("application/x-kxgui-items"); }
// Null when nothing of this program is dragged.
KXGUIQT_EXPORT CWnd* source();
// Returns when the person has let go.
void run(Bridge& from, QWidget& widget, const QPixmap& picture, QPoint hot);
// How a drag goes on until he lets go: the window system's way, or another where that has none; empty: its own.
KXGUIQT_EXPORT void setWay(std::function<void(const QMimeData& data)> way);
// He let go above that item.
void dropped(Bridge& tree, int item, bool copy);

} // namespace drag

} // namespace tv::qt
