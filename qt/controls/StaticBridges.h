#pragma once

#include "platform/toolkit/Static.h"
#include "qt/controls/Bridge.h"

class QGroupBox;
class QLabel;

namespace tv::qt {

class LabelBridge : public Bridge {
  public:
    LabelBridge(CStatic& label, QLabel& widget);
    // The widget Alt and the label's mnemonic lead to.
    void leadTo(QWidget& widget);

  protected:
    void show(ui::Change change) override;

  private:
    QLabel& m_label;
};

class GroupBoxBridge : public Bridge {
  public:
    GroupBoxBridge(CGroupBox& box, QGroupBox& widget);

  protected:
    void show(ui::Change change) override;
    void showEnabled() override;

  private:
    QGroupBox& m_box;
};

class ImageBridge : public Bridge {
  public:
    ImageBridge(CImage& image, QLabel& widget);

  protected:
    void show(ui::Change change) override;

  private:
    CImage& m_image;
    QLabel& m_label;
};

} // namespace tv::qt
