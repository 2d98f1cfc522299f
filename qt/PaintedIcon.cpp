#include "qt/PaintedIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

namespace tv::qt {
namespace {

class PaintedEngine : public QIconEngine {
  public:
    PaintedEngine(QSizeF size, std::function<void(QPainter&, bool selected)> paint)
        : m_size(size), m_paint(std::move(paint)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (mode == QIcon::Disabled) painter->setOpacity(0.4);
        const double scale = std::min(rect.width() / m_size.width(), rect.height() / m_size.height());
        painter->translate(rect.center() + QPointF(0.5, 0.5));
        painter->scale(scale, scale);
        painter->translate(-m_size.width() / 2, -m_size.height() / 2);
        m_paint(*painter, mode == QIcon::Selected);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap out(size);
        out.fill(Qt::transparent);
        QPainter painter(&out);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return out;
    }

    // As it is, or smaller with its shape kept.
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
        const QSize own = m_size.toSize();
        return own.width() <= size.width() && own.height() <= size.height()
                   ? own
                   : own.scaled(size, Qt::KeepAspectRatio);
    }

    QIconEngine* clone() const override { return new PaintedEngine(m_size, m_paint); }

  private:
    QSizeF m_size;
    std::function<void(QPainter&, bool selected)> m_paint;
};

} // namespace

QIcon paintedIcon(QSizeF size, std::function<void(QPainter&)> paint) {
    return selectableIcon(size, [paint = std::move(paint)](QPainter& painter, bool) { paint(painter); });
}

QIcon selectableIcon(QSizeF size, std::function<void(QPainter&, bool selected)> paint) {
    return QIcon(new PaintedEngine(size, std::move(paint)));
}

} // namespace tv::qt
