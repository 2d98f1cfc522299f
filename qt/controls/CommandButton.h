#pragma once

#include <QCommandLinkButton>

namespace tv::qt {

// A command link whose texts follow the button's font and wrap within its width, both of which Qt's own does
// not do.
class CommandButton : public QCommandLinkButton {
    Q_OBJECT
  public:
    explicit CommandButton(QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QFont titleFont() const;
    QFont descriptionFont() const;
    int titleHeight(int textWidth) const;
    int descriptionHeight(int textWidth) const;
};

} // namespace tv::qt
