#include "kxgui/frame/ColorDlg.h"

#include "kxgui/frame/ColorNames.h"
#include "kxgui/frame/ColorTable.h"
#include "kxgui/frame/RecentColors.h"
#include "kxgui/frame/Templates.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/ResourceString.h"

using namespace kx::frame;

namespace {

// One half of the preview: the colour as a filled field, ByLayer and ByBlock as words.
void addHalf(tv::ui::DisplayList& list, double left, const OdCmColor& color) {
    tv::ui::DrawItem item;
    item.points = {{left, 0}, {left + 2, 0}, {left + 2, 1}, {left, 1}};
    item.shape = tv::ui::DrawItem::Shape::polygon;
    if (color.isByLayer() || color.isByBlock()) {
        item.shape = tv::ui::DrawItem::Shape::text;
        item.points = {{left + 0.1, 0.35}};
        item.radius = 0.3;
        item.text = colorText(color);
    } else {
        item.fill = swatchRgb(color.rgb());
    }
    list.items.push_back(std::move(item));
}

} // namespace

CColorDlg::CColorDlg(const OdCmColor& color, unsigned options, CWnd* parent)
    : VORDRunDlg(IDD_COLOR, parent), m_result(color), m_special((options & kSpecial) != 0),
      m_indexPage(m_tabs, "IDC_COLOR_INDEX_PAGE", m_special),
      m_recent(*this, "IDC_COLOR_RECENT", static_cast<int>(recentColorCount)) {
    m_tabs.AddPage(m_indexPage, {});
    if (!(options & kHideTrueColorTab)) {
        m_truePage.emplace(m_tabs, "IDC_COLOR_TRUE_PAGE");
        m_tabs.AddPage(*m_truePage, {});
    }
    for (CColorPage* page : pages()) {
        page->onColor = [this, page](const OdCmColor& c) { chosen(c, page); };
        page->onAccept = [this] { OnOK(); };
    }
    m_recent.LabelledBy(m_recentLabel);
    m_recent.onSelChange = [this] {
        chosen(m_recentColors[static_cast<std::size_t>(m_recent.GetCurSel())], nullptr);
    };
    m_recent.onDoubleClick = [this] { OnOK(); };
}

std::vector<CColorPage*> CColorDlg::pages() {
    std::vector<CColorPage*> all{&m_indexPage};
    if (m_truePage) all.push_back(&*m_truePage);
    return all;
}

void CColorDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_CAPTION", L"색상 선택"));
    m_tabs.SetAccessibleName(VORD_ResourceString("IDS_TAVO_COLOR_TABS", L"색상 종류"));
    m_tabs.SetPageTitle(0, VORD_ResourceString("IDS_TAVO_COLOR_TAB_INDEX", L"색상 색인"));
    if (m_truePage) m_tabs.SetPageTitle(1, VORD_ResourceString("IDS_TAVO_COLOR_TAB_TRUE", L"트루컬러"));
    for (CColorPage* page : pages())
        page->SetText();
    m_recentLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_RECENT", L"최근 사용한 색상(&T):"));
    m_previewLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_PREVIEW", L"이전 색상과 새 색상:"));
    m_preview.SetAccessibleName(tv::ui::plainLabel(m_previewLabel.GetWindowText()));
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CColorDlg::InitCtrl() {
    for (CColorPage* page : pages())
        page->InitCtrl();
    m_recentColors = recentColors(tvedSettings());
    if (!m_truePage) std::erase_if(m_recentColors, [](const OdCmColor& color) { return color.isByColor(); });
    std::vector<tv::ui::ColorCell> cells;
    for (const OdCmColor& color : m_recentColors)
        cells.push_back(colorCell(color));
    m_recent.SetCells(std::move(cells));
    m_recent.EnableWindow(!m_recentColors.empty());
}

void CColorDlg::Data2Dlg() {
    m_color = m_result;
    if (!m_truePage && m_color.isByColor()) m_color = OdCmColor::byIndex(m_color.colorIndex());
    for (CColorPage* page : pages())
        page->Show(m_color);
    showPreview();
    const int shown = m_color.isByColor() ? 1 : 0;
    m_tabs.SetCurSel(shown);
    CEdit& field = pages()[static_cast<std::size_t>(shown)]->firstField();
    field.SetFocus();
    field.SelectAll();
}

void CColorDlg::chosen(const OdCmColor& color, const CColorPage* from) {
    m_color = color;
    for (CColorPage* page : pages())
        if (page != from) page->Show(color);
    if (from) m_recent.SetCurSel(-1);
    showPreview();
}

void CColorDlg::showPreview() {
    tv::ui::DisplayList list;
    list.high = {4, 1};
    addHalf(list, 0, m_result);
    addHalf(list, 2, m_color);
    m_preview.SetDisplayList(std::move(list));
}

int CColorDlg::Dlg2Data() {
    const auto all = pages();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!all[i]->faulty()) continue;
        m_tabs.SetCurSel(static_cast<int>(i));
        all[i]->ShowFault();
        return 0;
    }
    m_result = m_color;
    rememberColor(tvedSettings(), m_result);
    return 1;
}
