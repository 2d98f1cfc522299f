#include "kxgui/frame/ColorIndexPage.h"

#include "kxgui/frame/ColorNames.h"
#include "kxgui/frame/ColorTable.h"
#include "kxgui/frame/Templates.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

using namespace kx::frame;

CColorIndexPage::CColorIndexPage(CWnd& parent, const char* name, bool special)
    : CColorPage(IDD_COLOR_INDEX, parent, name), m_special(special),
      m_palette(*this, "IDC_COLOR_PALETTE", paletteColumns),
      m_standard(*this, "IDC_COLOR_STANDARD", standardColumns), m_grey(*this, "IDC_COLOR_GREY", greyColumns) {
    m_palette.LabelledBy(m_paletteLabel);
    m_standard.LabelledBy(m_standardLabel);
    m_grey.LabelledBy(m_greyLabel);
    m_edit.LabelledBy(m_editLabel);
    for (CSwatchGrid* grid : {&m_palette, &m_standard, &m_grey})
        wire(*grid);
    m_byLayer.onClick = [this] { pick(OdCmColor::byIndex(OdCmColor::kACIbyLayer)); };
    m_byBlock.onClick = [this] { pick(OdCmColor::byIndex(OdCmColor::kACIbyBlock)); };
    m_edit.onChange = [this] { entered(); };
}

void CColorIndexPage::wire(CSwatchGrid& grid) {
    const auto colorAt = [&grid](int cell) {
        return OdCmColor::byIndex(static_cast<int>(grid.cells()[static_cast<std::size_t>(cell)].data));
    };
    grid.onSelChange = [this, &grid, colorAt] { pick(colorAt(grid.GetCurSel())); };
    grid.onDoubleClick = [this] {
        if (onAccept) onAccept();
    };
    grid.onHover = [this, colorAt](int cell) { showInfo(cell < 0 ? m_color : colorAt(cell)); };
}

void CColorIndexPage::pick(const OdCmColor& color) {
    showColor(color);
    choose(color);
}

void CColorIndexPage::SetText() {
    m_paletteLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_PALETTE", L"색상 색인 팔레트(&P):"));
    m_standardLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_STANDARD", L"표준 색상(&D):"));
    m_greyLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_GREY", L"회색조(&Y):"));
    m_byLayer.SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_BYLAYER", L"ByLayer(&L)"));
    m_byBlock.SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_BYBLOCK", L"ByBlock(&K)"));
    m_editLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_NAME", L"색상(&C):"));
}

void CColorIndexPage::InitCtrl() {
    m_palette.SetCells(paletteCells());
    m_standard.SetCells(standardCells());
    m_grey.SetCells(greyCells());
    for (CButton* button : {&m_byLayer, &m_byBlock}) {
        button->ShowWindow(m_special);
        button->EnableWindow(m_special);
    }
}

void CColorIndexPage::showColor(const OdCmColor& color) {
    m_color = color;
    m_edit.SetWindowText(color.isByColor() ? std::wstring() : colorText(color));
    markCell(color);
    showInfo(color);
}

void CColorIndexPage::markCell(const OdCmColor& color) {
    for (CSwatchGrid* grid : {&m_palette, &m_standard, &m_grey})
        grid->SetCurSel(color.isByACI() ? grid->FindData(static_cast<std::uintptr_t>(color.colorIndex())) : -1);
}

void CColorIndexPage::showInfo(const OdCmColor& color) {
    if (color.isByLayer() || color.isByBlock()) return m_info.SetWindowText(colorText(color));
    const int red = color.red(), green = color.green(), blue = color.blue();
    m_info.SetWindowText(
        color.isByColor()
            ? tv::text::format(VORD_ResourceString("IDS_TAVO_COLOR_INFO_RGB", L"트루컬러, RGB: %d, %d, %d"),
                               red, green, blue)
            : tv::text::format(VORD_ResourceString("IDS_TAVO_COLOR_INFO_INDEX", L"색인: %d, RGB: %d, %d, %d"),
                               color.colorIndex(), red, green, blue));
}

void CColorIndexPage::entered() {
    const std::wstring text = m_edit.GetWindowText();
    if (const auto color = indexedColorOf(text, m_special)) {
        m_color = *color;
        markCell(*color);
        showInfo(*color);
        return choose(*color);
    }
    setFault(m_edit,
             tv::text::format(
                 m_special
                     ? VORD_ResourceString("IDS_TAVO_COLOR_BAD_NAME",
                                           L"색상을 읽을 수 없습니다. 입력한 값 \"%s\" 대신 1에서 255 사이의 "
                                           L"번호, 표준 색상 이름, ByLayer 또는 ByBlock을 입력하십시오.")
                           .c_str()
                     : VORD_ResourceString("IDS_TAVO_COLOR_BAD_INDEX",
                                           L"색상을 읽을 수 없습니다. 입력한 값 \"%s\" 대신 1에서 255 사이의 "
                                           L"번호 또는 표준 색상 이름을 입력하십시오.")
                           .c_str(),
                 text));
}
