#include "qt/controls/RowDrag.h"

#include "qt/controls/Bridge.h"

#include <QDrag>
#include <QMimeData>
#include <QPixmap>
#include <QPointer>
#include <QWidget>

#include <utility>

namespace tv::qt::drag {
namespace {

struct UnderWay {
    QPointer<Bridge> from, to;
    int item = 0;
    bool copy = false;
};
UnderWay g_now;
std::function<void(const QMimeData&)> g_way;

} // namespace

CWnd* source() { return g_now.from ? &g_now.from->wnd() : nullptr; }

void setWay(std::function<void(const QMimeData&)> way) { g_way = std::move(way); }

void run(Bridge& from, QWidget& widget, const QPixmap& picture, QPoint hot) {
    if (g_now.from) return;
    g_now = {&from, {}, 0, false};
    auto data = std::make_unique<QMimeData>();
    data->setData(format(), {});
    if (g_way) {
        g_way(*data);
    } else {
        auto* moving = new QDrag(&widget); // Qt destroys it
        moving->setMimeData(data.release());
        moving->setPixmap(picture);
        moving->setHotSpot(hot);
        moving->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
    }
    const UnderWay done = std::exchange(g_now, {});
    if (done.from && done.to)
        (void)static_cast<CTreeCtrl&>(done.to->wnd()).userDropOn(done.item, done.from->wnd(), done.copy);
}

void dropped(Bridge& tree, int item, bool copy) {
    g_now.to = &tree;
    g_now.item = item;
    g_now.copy = copy;
}

} // namespace tv::qt::drag
