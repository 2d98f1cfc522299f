#pragma once

#include <QLayout>
#include <QList>

namespace tv::qt {

// Puts its widgets side by side, each as wide as it wants to be, and begins another row where the width is used
// up. Named KxFlowLayout in Designer files.
class FlowLayout : public QLayout {
    Q_OBJECT
  public:
    using QLayout::QLayout;
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override { m_items.append(item); }
    QLayoutItem* itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem* takeAt(int index) override;
    int count() const override { return static_cast<int>(m_items.size()); }

    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return arrange(QRect(0, 0, width, 0), false); }
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

  private:
    // The height needed in a rectangle of that width; moves the items there when asked to.
    int arrange(const QRect& rect, bool move) const;
    QList<QLayoutItem*> m_items;
};

} // namespace tv::qt
