#include "kxgui/frame/ArrowBlockDlg.h"

#include "kxgui/frame/Messages.h"
#include "kxgui/frame/Templates.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/text/Collation.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>

namespace kx::frame {

bool isBuiltInArrow(std::wstring_view name) {
    static constexpr const wchar_t* names[] = {
        L"ClosedFilled", L"ClosedBlank", L"Closed", L"Dot",        L"ArchTick", L"Oblique",    L"Open",
        L"Origin",       L"Origin2",     L"Open90", L"Open30",     L"DotSmall", L"DotBlank",   L"Small",
        L"BoxBlank",     L"BoxFilled",   L"None",   L"DatumBlank", L"Integral", L"DatumFilled"};
    if (name.starts_with(L'_')) name.remove_prefix(1);
    return std::any_of(std::begin(names), std::end(names),
                       [&](const wchar_t* own) { return tv::text::equalNoCase(own, name); });
}

std::vector<std::wstring> arrowBlockNames(const OdDbDatabase& database) {
    std::vector<std::wstring> names;
    const auto table = database.getBlockTableId().open<OdDbBlockTable>();
    if (!table) return names;
    table->forEach([&](OdDbObjectId id) {
        const auto block = id.open<OdDbBlockTableRecord>();
        if (!block || block->isLayout() || block->isAnonymous() || block->isFromExternalReference() ||
            block->isXrefDependent())
            return;
        std::wstring name = block->getName().wstr();
        const bool builtIn = name.starts_with(L'_') && isBuiltInArrow(name);
        if (!name.empty() && name.front() != L'*' && !builtIn) names.push_back(std::move(name));
    });
    std::stable_sort(names.begin(), names.end(),
                     tv::text::Collator({.digitsAsNumbers = true, .ignoreCase = true}));
    return names;
}

} // namespace kx::frame

CArrowBlockDlg::CArrowBlockDlg(const OdDbDatabasePtr& database, CWnd* parent)
    : VORDRunDlg(IDD_ARROW_BLOCK, parent), m_database(database) {
    m_list.LabelledBy(m_label);
    m_list.onDoubleClick = [this] { OnOK(); };
}

void CArrowBlockDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_ARROW_BLOCK_CAPTION", L"사용자 화살표 블록 선택"));
    m_label.SetWindowText(VORD_ResourceString("IDS_TAVO_ARROW_BLOCK_LIST", L"도면의 블록(&B):"));
    m_list.SetToolTip(VORD_ResourceString("IDS_TAVO_ARROW_BLOCK_TIP", L"이 블록을 화살표 머리로 사용합니다."));
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CArrowBlockDlg::InitCtrl() {
    std::vector<tv::ui::ListItem> items;
    if (m_database)
        for (std::wstring& name : kx::frame::arrowBlockNames(*m_database))
            items.push_back({std::move(name), 0, nullptr});
    m_list.SetItems(std::move(items));
}

void CArrowBlockDlg::Data2Dlg() {
    m_list.SetCurSel(std::max(0, m_list.FindStringExact(-1, m_name)));
    m_list.SetFocus();
}

int CArrowBlockDlg::Dlg2Data() {
    if (m_list.GetCurSel() < 0) {
        MessageDlg(this, VORD_ResourceString("IDS_TAVO_ARROW_BLOCK_NONE", L"목록에서 블록을 선택하십시오."),
                   GetWindowText().c_str(), 0x30);
        m_list.SetFocus();
        return 0;
    }
    m_name = m_list.GetText(m_list.GetCurSel());
    return 1;
}
