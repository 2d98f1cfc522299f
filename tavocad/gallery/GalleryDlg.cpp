#include "tavocad/gallery/GalleryDlg.h"

#include "platform/host/TavoInterfaces.h"
#include "platform/text/ResourceString.h"
#include "tavocad/gallery/GalleryTemplates.h"

namespace {

// In the order of VORDCobxBase::ControlType.
constexpr tv::text::TableText types[] = {{"IDS_TAVO_GALLERY_TYPE_TOOLBAR", L"도구막대"},
                                         {"IDS_TAVO_GALLERY_TYPE_NO_LAYER", L"도면층 없는 대상"},
                                         {"IDS_TAVO_GALLERY_TYPE_DIALOG", L"대화상자"},
                                         {"IDS_TAVO_GALLERY_TYPE_PROPERTIES", L"선택한 객체의 특성"},
                                         {"IDS_TAVO_GALLERY_TYPE_LAYER", L"도면층 자체의 특성"}};
constexpr tv::text::TableText titles[] = {{"IDS_TAVO_GALLERY_COLORS", L"색상과 도면층"},
                                          {"IDS_TAVO_GALLERY_LINES", L"선"},
                                          {"IDS_TAVO_GALLERY_TEXT", L"문자"},
                                          {"IDS_TAVO_GALLERY_STYLES", L"스타일"},
                                          {"IDS_TAVO_GALLERY_UNITS", L"단위"},
                                          {"IDS_TAVO_GALLERY_LIST", L"편집 목록"}};

} // namespace

CGalleryDlg::CGalleryDlg(CWnd* parent) : VORDRunDlg(IDD_GALLERY, parent) {
    m_type.LabelledBy(m_typeLabel);
    for (CGalleryPage* page : pages())
        m_tabs.AddPage(*page, {});
    m_tabs.AddPage(m_list, {});
    m_type.onSelChange = [this] { showType(); };
    m_enabled.onClick = [this] {
        for (CGalleryPage* page : pages())
            page->EnableLists(m_enabled.GetCheck() != 0);
    };
    m_help.onClick = [this] { OnHelpInfo(); };
}

std::vector<CGalleryPage*> CGalleryDlg::pages() { return {&m_colors, &m_lines, &m_text, &m_styles, &m_units}; }

void CGalleryDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_CAPTION", L"갤러리"));
    m_note.SetWindowText(
        tvedWorkingDatabase()
            ? VORD_ResourceString("IDS_TAVO_GALLERY_NOTE", L"여기서 고르거나 입력해도 도면은 바뀌지 않습니다.")
            : VORD_ResourceString("IDS_TAVO_GALLERY_NO_DRAWING",
                                  L"열린 도면이 없어 도면의 내용을 나열하는 목록은 비어 있습니다."));
    m_typeLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_TYPE", L"목록의 자리(&L):"));
    m_type.SetToolTip(
        VORD_ResourceString("IDS_TAVO_GALLERY_TYPE_TIP", L"목록이 놓인 자리에 따라 특별한 항목이 달라집니다"));
    m_enabled.SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_ENABLED", L"사용 가능(&E)"));
    m_tabs.SetAccessibleName(VORD_ResourceString("IDS_TAVO_GALLERY_TABS", L"전시 분야"));
    for (int i = 0; i < m_tabs.GetItemCount(); ++i)
        m_tabs.SetPageTitle(i, titles[i].text());
    for (CGalleryPage* page : pages())
        page->SetText();
    m_list.SetText();
    m_help.SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_HELP", L"도움말(&H)"));
    m_close.SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_CLOSE", L"닫기"));
}

void CGalleryDlg::InitCtrl() {
    m_type.ResetContent();
    for (const tv::text::TableText& type : types)
        m_type.AddString(type.text());
    m_type.SetCurSel(VORDCobxBase::typeDialog);
    m_enabled.SetCheck(CCheckBox::checked);
    m_list.InitCtrl();
    m_tabs.SetCurSel(0);
}

void CGalleryDlg::OnDestroy() {
    m_list.SaveColumns();
    VORDRunDlg::OnDestroy();
}

void CGalleryDlg::Data2Dlg() { showType(); }

void CGalleryDlg::showType() {
    for (CGalleryPage* page : pages())
        page->SetType(static_cast<VORDCobxBase::ControlType>(m_type.GetCurSel()));
}
