#pragma once

#include "platform/toolkit/Edit.h"
#include "qt/controls/Bridge.h"

class QLineEdit;
class QPlainTextEdit;

namespace tv::qt {

class LineEditBridge : public Bridge {
  public:
    LineEditBridge(CEdit& edit, QLineEdit& widget);

  protected:
    void show(ui::Change change) override;

  private:
    CEdit& m_edit;
    QLineEdit& m_line;
};

class TextEditBridge : public Bridge {
  public:
    TextEditBridge(CEdit& edit, QPlainTextEdit& widget);

  protected:
    void show(ui::Change change) override;

  private:
    CEdit& m_edit;
    QPlainTextEdit& m_text;
};

} // namespace tv::qt
