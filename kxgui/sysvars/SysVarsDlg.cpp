#include "kxgui/sysvars/SysVarsDlg.h"

#include "kxgui/frame/ColorDlg.h"
#include "kxgui/frame/Messages.h"
#include "kxgui/frame/Templates.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

#include <algorithm>
#include <utility>

using namespace kx::sysvar;
using tv::ui::Key;

CSysVarsDlg::CSysVarsDlg(const OdDbDatabasePtr& database, CWnd* parent)
    : VORDRunDlg(IDD_SYSVARS, parent), m_edits(database), m_columns(tvedSettings(), L"IDC_SYSVARS_LIST"),
      m_model(std::make_shared<SysVarModel>(m_edits)) {
    m_model->chooseColor = [this](const OdCmColor& present, bool indexOnly) {
        return chooseColor(present, indexOnly);
    };
    m_filter.LabelledBy(m_filterLabel);
    m_filter.onChange = [this] { refresh(); };
    m_onlyChanged.onClick = [this] { refresh(); };
    m_list.LabelledBy(m_listLabel);
    m_list.onEntered = [this](int, int, const InPlaceAnswer& answer) { entered(answer); };
    m_list.onSelChange = [this] { showState(); };
    m_list.onColumnsChange = [this] { m_columns.save(m_list); };
    m_reset.onClick = [this] { resetSelected(); };
    m_default.onClick = [this] { defaultSelected(); };
    m_apply.onClick = [this] {
        m_list.EndLabelEditing();
        write();
        refresh();
    };
}

void CSysVarsDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_SYSVARS_CAPTION", L"시스템 변수"));
    m_filterLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_SYSVARS_FILTER", L"찾기(&F):"));
    m_onlyChanged.SetWindowText(VORD_ResourceString("IDS_TAVO_SYSVARS_ONLY_CHANGED", L"바꾼 변수만(&C)"));
    m_listLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_SYSVARS_LIST", L"변수(&V):"));
    m_list.SetColumns({{L"*", 20},
                       {VORD_ResourceString("IDS_TAVO_SYSVARS_COL_NAME", L"이름").c_str(), 130},
                       {VORD_ResourceString("IDS_TAVO_SYSVARS_COL_VALUE", L"값").c_str(), 110},
                       {VORD_ResourceString("IDS_TAVO_SYSVARS_COL_RANGE", L"허용 값").c_str(), 140},
                       {VORD_ResourceString("IDS_TAVO_SYSVARS_COL_PLACE", L"저장 위치").c_str(), 165},
                       {VORD_ResourceString("IDS_TAVO_SYSVARS_COL_DESCRIPTION", L"설명").c_str(), 330}});
    m_reset.SetWindowText(VORD_ResourceString("IDS_TAVO_SYSVARS_RESET", L"되돌리기(&R)"));
    m_reset.SetToolTip(VORD_ResourceString("IDS_TAVO_SYSVARS_RESET_TIP",
                                           L"선택한 변수를 이 창을 열었을 때의 값으로 되돌립니다 (Delete)"));
    m_default.SetWindowText(VORD_ResourceString("IDS_TAVO_SYSVARS_DEFAULT", L"기본값(&D)"));
    m_default.SetToolTip(
        VORD_ResourceString("IDS_TAVO_SYSVARS_DEFAULT_TIP", L"선택한 변수에 새 도면의 값을 넣습니다"));
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
    m_apply.SetWindowText(VORD_ResourceString("IDS_TAVO_SYSVARS_APPLY", L"적용(&A)"));
}

void CSysVarsDlg::InitCtrl() {
    m_filter.SetLimitText(1000);
    m_list.SetCellModel(m_model);
    m_list.SetSortMark(kName, true);
    m_columns.restore(m_list);
}

void CSysVarsDlg::Data2Dlg() {
    refresh();
    m_list.SetFocusCell(0, kValue);
    m_list.SetSelection({0});
    m_list.SetFocus();
    if (!m_edits.GetDataBase())
        say(VORD_ResourceString("IDS_TAVO_SYSVARS_NO_DRAWING",
                                L"열린 도면이 없어 도면에 저장되는 변수는 값이 없습니다.")
                .c_str());
    showState();
}

// --- what is shown -------------------------------------------------------------------------------------------

void CSysVarsDlg::refresh() {
    const std::vector<int> entries = selectedEntries();
    const int focused = m_model->entryOf(m_list.focusRow());
    SysVarView view = m_model->view();
    view.filter = m_filter.GetWindowText();
    view.onlyChanged = m_onlyChanged.GetCheck() != 0;
    m_model->refresh(view);

    std::vector<int> rows;
    for (const int entry : entries)
        if (const int row = m_model->rowOfKey(static_cast<std::uintptr_t>(entry)); row >= 0)
            rows.push_back(row);
    m_list.RowsChanged();
    m_list.SetSelection(tv::ui::RowSet(std::move(rows)));
    if (const int row = m_model->rowOfKey(static_cast<std::uintptr_t>(focused)); focused >= 0 && row >= 0) {
        m_list.SetFocusCell(row, m_list.focusColumn());
        m_list.EnsureVisible(row);
    }
    showState();
}

void CSysVarsDlg::showState() {
    m_count.SetWindowText(tv::text::format(
        VORD_ResourceString("IDS_TAVO_SYSVARS_COUNT", L"표시 %d / %d, 바꾼 변수 %d"), m_model->rowCount(),
        static_cast<int>(m_edits.entries().size()), m_edits.changedCount()));
    const auto selected = selectedEntries();
    m_reset.EnableWindow(std::ranges::any_of(selected, [this](int entry) { return m_edits.changed(entry); }));
    m_default.EnableWindow(std::ranges::any_of(selected, [this](int entry) {
        return editorOf(m_edits.entries()[static_cast<std::size_t>(entry)]) != SysVarEditor::none;
    }));
    m_apply.EnableWindow(m_edits.changedCount() > 0);
}

void CSysVarsDlg::say(const std::wstring& sentence) { m_said.SetWindowText(sentence); }

void CSysVarsDlg::entered(const InPlaceAnswer& answer) {
    const std::wstring& sentence = answer.refusal.empty() ? answer.notice : answer.refusal;
    say(sentence);
    m_toRead = !sentence.empty() && (m_confirming || GetFocus() == &m_ok);
    showState();
}

std::vector<int> CSysVarsDlg::selectedEntries() const {
    std::vector<int> entries;
    for (const int row : m_list.selection().rows())
        if (const int entry = m_model->entryOf(row); entry >= 0) entries.push_back(entry);
    return entries;
}

// --- what is done --------------------------------------------------------------------------------------------

void CSysVarsDlg::resetSelected() {
    for (const int entry : selectedEntries())
        m_edits.reset(entry);
    say({});
    refresh();
}

void CSysVarsDlg::defaultSelected() {
    std::wstring refusal;
    for (const int entry : selectedEntries()) {
        if (editorOf(m_edits.entries()[static_cast<std::size_t>(entry)]) == SysVarEditor::none) continue;
        if (const Entered entered = m_edits.enterDefault(entry); !entered) refusal = entered.refusal;
    }
    say(refusal);
    refresh();
}

bool CSysVarsDlg::PreTranslateMessage(const tv::ui::KeyEvent& key) {
    if (key.key == Key::del && !key.ctrl && !key.alt && !key.shift && GetFocus() == &m_list) {
        resetSelected();
        return true;
    }
    return VORDRunDlg::PreTranslateMessage(key);
}

std::optional<OdCmColor> CSysVarsDlg::chooseColor(const OdCmColor& present, bool indexOnly) {
    unsigned options = CColorDlg::kSpecial;
    if (indexOnly) options |= CColorDlg::kHideTrueColorTab;
    CColorDlg dialog(present, options, this);
    if (dialog.DoModal() != IDOK) return std::nullopt;
    return dialog.GetColor();
}

bool CSysVarsDlg::write() {
    const auto refused = m_edits.commit();
    if (refused.empty()) return true;
    std::wstring names;
    for (const std::wstring& name : refused)
        names += (names.empty() ? L"" : L", ") + name;
    MessageDlg(this,
               tv::text::format(VORD_ResourceString("IDS_TAVO_SYSVARS_REFUSED",
                                                    L"바꾸지 못한 변수: %s. 이유는 명령행에 있습니다."),
                                names)
                   .c_str(),
               GetWindowText().c_str(), 0x30);
    return false;
}

int CSysVarsDlg::Dlg2Data() {
    // A text that is refused, or brought into its range, on the way to OK is shown first.
    m_confirming = true;
    m_list.EndLabelEditing();
    m_confirming = false;
    if (std::exchange(m_toRead, false)) {
        refresh();
        return 0;
    }
    if (write()) return 1;
    refresh();
    return 0;
}

void CSysVarsDlg::OnCancel() {
    m_edits.cleanStorage();
    VORDRunDlg::OnCancel();
}

void CSysVarsDlg::OnDestroy() {
    m_edits.cleanStorage();
    VORDRunDlg::OnDestroy();
}
