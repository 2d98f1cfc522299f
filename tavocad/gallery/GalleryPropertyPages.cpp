#include "tavocad/gallery/GalleryPropertyPages.h"

#include "platform/drawing/OdDbScale.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "tavocad/gallery/GalleryTemplates.h"
#include "tavocad/gallery/GalleryTexts.h"

using gallery::handleText;
using kx::controls::Property;
using tv::text::format;

namespace {

constexpr tv::text::TableText colorLabels[] = {{"IDS_TAVO_GALLERY_COLOR", L"색상(&C):"},
                                               {"IDS_TAVO_GALLERY_SIMPLE_COLOR", L"단순 색상 목록(&S):"},
                                               {"IDS_TAVO_GALLERY_LAYER", L"도면층(&A):"},
                                               {"IDS_TAVO_GALLERY_SIMPLE_LAYER", L"단순 도면층 목록(&I):"}};
constexpr tv::text::TableText lineLabels[] = {{"IDS_TAVO_GALLERY_LINETYPE", L"선종류(&T):"},
                                              {"IDS_TAVO_GALLERY_SIMPLE_LINETYPE", L"단순 선종류 목록(&S):"},
                                              {"IDS_TAVO_GALLERY_LINEWEIGHT", L"선가중치(&W):"},
                                              {"IDS_TAVO_GALLERY_ARROW", L"화살촉(&A):"}};
constexpr tv::text::TableText textLabels[] = {{"IDS_TAVO_GALLERY_TEXT_STYLE", L"문자 스타일(&S):"},
                                              {"IDS_TAVO_GALLERY_TEXT_SIZE", L"문자 높이(&T):"},
                                              {"IDS_TAVO_GALLERY_FONT", L"글꼴(&F):"},
                                              {"IDS_TAVO_GALLERY_FONT_STYLE", L"글꼴 유형(&O):"}};
constexpr tv::text::TableText styleLabels[] = {{"IDS_TAVO_GALLERY_DIM_STYLE", L"치수 스타일(&D):"},
                                               {"IDS_TAVO_GALLERY_ILEADER_STYLE", L"주석 지시선 스타일(&N):"},
                                               {"IDS_TAVO_GALLERY_MLEADER_STYLE", L"다중 지시선 스타일(&M):"},
                                               {"IDS_TAVO_GALLERY_PLOT_STYLE", L"플롯 스타일(&P):"},
                                               {"IDS_TAVO_GALLERY_SCALE", L"축척(&A):"}};

std::wstring colorValue(CCobxColor& list) {
    return gallery::colorItem(list.GetSelectedItem(), list.GetColor());
}

// A record's name, and its handle where it has one.
std::wstring named(const std::wstring& name, OdDbObjectId id) {
    if (id.isNull() || id.handle().isNull()) return name;
    return format(L"%s (%s)", gallery::shortened(name, gallery::longest - 10), handleText(id));
}

} // namespace

// --- what they have in common ---

void CGalleryPropertyPage::addProperty(CCobxPropertyBase& list, Property property) {
    list.SetFollowsDrawing(false); // a choice is for looking at
    m_properties.emplace_back(&list, property);
}

void CGalleryPropertyPage::OnFilled() {
    CGalleryPage::OnFilled();
    for (const auto& [list, property] : m_properties) {
        if (list->GetValue()) continue;
        const auto current = kx::controls::currentValue(tvedWorkingDatabase(), property);
        if (current.known) list->SelectValue(current.value);
    }
}

// --- the pages ---

CGalleryColorsPage::CGalleryColorsPage(CWnd& parent, const char* name)
    : CGalleryPropertyPage(IDD_GALLERY_COLORS, parent, name) {
    add<CCobxColor>(m_color, colorLabels[0], colorValue);
    add<CSimpleColorCobx>(m_simpleColor, colorLabels[1], colorValue);
    const auto layer = [](CCobxLayer& list) { return named(list.GetLayerName(), list.GetLayerId()); };
    add<CCobxLayer>(m_layer, colorLabels[2], layer);
    add<CCobxLayerSimple>(m_simpleLayer, colorLabels[3], layer);
    addProperty(m_color.combo, Property::color);
    addProperty(m_layer.combo, Property::layer);
    addProperty(m_simpleLayer.combo, Property::layer);
}

void CGalleryColorsPage::OnFilled() {
    CGalleryPropertyPage::OnFilled();
    if (!m_simpleColor.combo.GetValue()) m_simpleColor.combo.SelectColor(OdCmColor::byIndex(7));
}

CGalleryLinesPage::CGalleryLinesPage(CWnd& parent, const char* name)
    : CGalleryPropertyPage(IDD_GALLERY_LINES, parent, name) {
    const auto linetype = [](CCobxLineType& list) {
        return named(list.GetLinetypeName(), list.GetLinetypeId());
    };
    add<CCobxLineType>(m_linetype, lineLabels[0], linetype);
    add<CCobxSimpleLineType>(m_simpleLinetype, lineLabels[1], linetype);
    add<CCobxLineWeight>(m_lineweight, lineLabels[2],
                         [](CCobxLineWeight& list) { return tv::text::printInt(list.GetLineWeight()); });
    add<CCobxArrowBlock>(m_arrow, lineLabels[3], [](CCobxArrowBlock& list) { return list.GetSelectedItem(); });
    addProperty(m_linetype.combo, Property::linetype);
    addProperty(m_simpleLinetype.combo, Property::linetype);
    addProperty(m_lineweight.combo, Property::lineWeight);
}

void CGalleryLinesPage::OnFilled() {
    CGalleryPropertyPage::OnFilled();
    if (m_arrow.combo.GetSelectedItem().empty()) m_arrow.combo.SelectItem(L"_ClosedFilled");
}

CGalleryTextPage::CGalleryTextPage(CWnd& parent, const char* name)
    : CGalleryPropertyPage(IDD_GALLERY_TEXT, parent, name) {
    add<CCobxTextStyle>(m_style, textLabels[0],
                        [](CCobxTextStyle& list) { return named(list.GetName(), list.GetStyleId()); });
    add<CCobxTextSize>(m_size, textLabels[1],
                       [](CCobxTextSize& list) { return tv::text::printReal(list.GetTextSize()); });
    add<CCobxFont>(m_font, textLabels[2], [](CCobxFont& list) { return list.GetFont(); });
    add<CCobxFontStyle>(m_fontStyle, textLabels[3], [](CCobxFontStyle& list) {
        return format(L"bold %d, italic %d", list.IsBold() ? 1 : 0, list.IsItalic() ? 1 : 0);
    });
    addProperty(m_style.combo, Property::textStyle);
    addProperty(m_size.combo, Property::textHeight);
}

void CGalleryTextPage::OnFilled() {
    CGalleryPropertyPage::OnFilled();
    if (m_font.combo.GetFont().empty()) m_font.combo.SelectFont(m_font.combo.GetLBText(0));
    m_fontStyle.combo.SetFont(m_font.combo.GetFont());
}

void CGalleryTextPage::OnChosen(VORDCobxBase& combo) {
    if (&combo == &m_font.combo) m_fontStyle.combo.SetFont(m_font.combo.GetFont());
}

CGalleryStylesPage::CGalleryStylesPage(CWnd& parent, const char* name)
    : CGalleryPropertyPage(IDD_GALLERY_STYLES, parent, name) {
    const auto style = [](auto& list) { return named(list.GetWindowText(), list.GetSelectedId()); };
    add<CCobxDimStyle>(m_dimension, styleLabels[0], style);
    add<CCobxILeaderStyle>(m_leader, styleLabels[1], style);
    add<CCobxMLeaderStyle>(m_multileader, styleLabels[2], style);
    add<CCobxPrintStyle>(m_plot, styleLabels[3], [](CCobxPrintStyle& list) { return list.GetName(); });
    add<CCobxScaleList>(m_scale, styleLabels[4], [](CCobxScaleList& list) {
        const auto scale = list.GetSelectedId().open<OdDbScale>();
        return scale ? format(L"%s = %s", list.GetWindowText(), tv::text::printReal(scale->scale()))
                     : std::wstring();
    });
    addProperty(m_dimension.combo, Property::dimStyle);
    addProperty(m_plot.combo, Property::plotStyle);
}
