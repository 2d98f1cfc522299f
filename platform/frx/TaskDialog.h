#pragma once

#include "platform/frx/MDialog.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Static.h"

#include <memory>
#include <string>

namespace zel::frx {

// What a box is copied as: title, visible texts and button names, one group a paragraph.
KXPLATFORM_EXPORT std::wstring boxText(const CDialog& box);
// Ctrl+C puts a box's text on the clipboard; false for every other key.
KXPLATFORM_EXPORT bool copyKey(const CDialog& box, const tv::ui::KeyEvent& key);

// Task-dialog common buttons, combined as flags.
enum TaskButtons : unsigned { taskOK = 1, taskYes = 2, taskNo = 4, taskCancel = 8, taskRetry = 16 };

// Task-dialog icon numbers; 0: no icon.
enum TaskIcon : unsigned {
    taskIconQuestion = 0xFFF7,
    taskIconInformation = 0xFFFD,
    taskIconError = 0xFFFE,
    taskIconWarning = 0xFFFF
};

constexpr unsigned taskDialogTemplate = 0x7F01; // IDD_TASK_DIALOG

} // namespace zel::frx

// A dialog drawn as a task dialog: an icon, a main instruction in large letters, the content below it, and
// buttons. Ctrl+C copies all its texts.
class KXPLATFORM_EXPORT CTaskDialogVE : public zel::frx::MDialog {
  public:
    // The standard box. Its end code is the result of the pressed button (IDOK, IDCANCEL, IDRETRY, IDYES,
    // IDNO). Escape and the close box press Cancel, or OK when that is the only button; a box with Yes and No
    // only has to be answered. Enter presses the button numbered `defaultButton` from the left, counted from 0;
    // the first when there are not so many.
    CTaskDialogVE(CWnd* owner, std::wstring_view caption, std::wstring_view instruction,
                  std::wstring_view content, unsigned buttons, unsigned icon, int defaultButton = 0);
    // A box with a template and controls of its own.
    CTaskDialogVE(unsigned templateId, CWnd* owner);
    ~CTaskDialogVE() override;

    int OnInitDialog() override;
    void OnCancel() override;
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override;

  private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
    std::wstring m_caption, m_instruction, m_content;
    unsigned m_buttons = 0, m_icon = 0;
    int m_defaultButton = 0;
};
