#include "kxgui/controls/ArrowCombo.h"

#include "kxgui/controls/ArrowPictures.h"
#include "kxgui/frame/MGUIManagerImpl.h"
#include "platform/text/OdString.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <array>

namespace {

// The built-in arrowheads in the order of the list.
constexpr std::array<const wchar_t*, 20> blocks = {
    L"_ClosedFilled", L"_ClosedBlank", L"_Closed",     L"_Dot",         L"_ArchTick", L"_Oblique",  L"_Open",
    L"_Origin",       L"_Origin2",     L"_Open90",     L"_Open30",      L"_DotSmall", L"_DotBlank", L"_Small",
    L"_BoxBlank",     L"_BoxFilled",   L"_DatumBlank", L"_DatumFilled", L"_Integral", L"_None"};

// What they are called, and last the user's choice.
std::vector<std::wstring> texts() {
    return {VORD_ResourceString("IDS_PROP_ARROW1", L"닫고 채움").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW2", L"닫고 비움").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW3", L"닫음").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW4", L"점").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW5", L"건축 눈금").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW6", L"기울기").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW7", L"열기").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW8", L"원점 지시자").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW9", L"원점 지시자 2").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW10", L"오른쪽 각도").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW11", L"열기 30").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW12", L"작은 점").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW13", L"빈 점").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW14", L"빈 작은 점").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW15", L"상자").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW16", L"상자 채움").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW17", L"데이텀 삼각형").c_str(),
            VORD_ResourceString("IDS_PROP_ARROW18", L"데이텀 삼각형 채우기").c_str(),
            VORD_ResourceString("IDS_PROP_INTEGRAL", L"정수").c_str(),
            VORD_ResourceString("IDS_PROP_NONE", L"없음").c_str(),
            VORD_ResourceString("IDS_ZEL_MANAGED_UI_DIMSTYLEDLG_12", L"사용자 화살표...").c_str()};
}

// -1 for a user's block.
int builtInEntry(std::wstring_view block) {
    if (block.empty()) return 0;
    const bool bare = block.front() != L'_';
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (tv::text::equalNoCase(std::wstring_view(blocks[i]).substr(bare ? 1 : 0), block))
            return static_cast<int>(i);
    return -1;
}

} // namespace

void CCobxArrowBlock::RefillList() {
    const OdDbDatabasePtr current = prepareUpdateList();
    m_userEntry = -1;
    if (!m_database && !current) return;
    std::vector<tv::ui::ListItem> items;
    for (std::wstring& text : texts()) {
        const std::size_t at = items.size();
        items.push_back(
            {std::move(text), 0, at < blocks.size() ? kx::controls::arrowPicture(blocks[at]) : nullptr});
    }
    SetItems(std::move(items));
    showBlock();
}

void CCobxArrowBlock::SelectItem(std::wstring_view block) {
    const int entry = builtInEntry(block);
    m_block = entry >= 0 ? std::wstring_view(blocks[static_cast<std::size_t>(entry)]) : block;
    showBlock();
}

void CCobxArrowBlock::showBlock() {
    if (GetCount() == 0) return;
    if (m_userEntry >= 0) DeleteString(m_userEntry);
    m_userEntry = -1;
    int entry = m_block.empty() ? -1 : builtInEntry(m_block);
    if (entry < 0 && !m_block.empty()) entry = m_userEntry = InsertString(GetCount() - 1, m_block);
    SetCurSel(entry);
}

void CCobxArrowBlock::OnSelChange() {
    const int chosen = GetCurSel();
    if (chosen == GetCount() - 1) return chooseUserBlock();
    if (chosen != m_userEntry) m_block = blocks[static_cast<std::size_t>(chosen)];
    VORDCobxBase::OnSelChange();
}

void CCobxArrowBlock::chooseUserBlock() {
    showBlock(); // what was selected before
    const OdDbDatabasePtr database = m_database ? m_database : checkCurrentDatabase();
    OdString name = builtInEntry(m_block) < 0 ? OdString(m_block) : OdString();
    if (!MGUIManagerImpl().chooseArrowBlock(database.get(), name, this) || !IsWindow()) return;
    SelectItem(name.view());
    VORDCobxBase::OnSelChange();
}
