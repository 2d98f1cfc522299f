#include "tavocad/WarningBox.h"

#include "kxgui/frame/MessageStyle.h"
#include "platform/frx/TaskDialog.h"
#include "platform/host/TavoComEvents.h"

namespace {

class WarningBox final : public CTaskDialogVE {
  public:
    WarningBox(std::wstring_view caption, const kx::frame::MessageText& text)
        : CTaskDialogVE(nullptr, caption, text.instruction, text.content, zel::frx::taskYes | zel::frx::taskNo,
                        zel::frx::taskIconWarning) {}

    int OnInitDialog() override {
        const int result = CTaskDialogVE::OnInitDialog();
        if (auto* no = dynamic_cast<CButton*>(GetDlgItem("IDNO"))) {
            SetDefaultButton(*no);
            no->SetFocus();
        }
        return result;
    }
    void OnCancel() override { EndDialog(IDNO); }
};

} // namespace

bool askWarning(std::wstring_view caption, std::wstring_view question) {
    WarningBox box(caption, kx::frame::splitMessage(question));
    const tv::host::ModalBracket bracket;
    return box.DoModal() == IDYES;
}
