#include "tavocad/gallery/GalleryUnitsPage.h"

#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "tavocad/gallery/GalleryTemplates.h"
#include "tavocad/gallery/GalleryTexts.h"

namespace {

constexpr tv::text::TableText labels[] = {{"IDS_TAVO_GALLERY_LUNIT", L"길이 유형(&T):"},
                                          {"IDS_TAVO_GALLERY_LPREC", L"길이 정밀도(&P):"},
                                          {"IDS_TAVO_GALLERY_AUNIT", L"각도 유형(&Y):"},
                                          {"IDS_TAVO_GALLERY_APREC", L"각도 정밀도(&N):"},
                                          {"IDS_TAVO_GALLERY_DSEP", L"소수점 기호(&M):"}};

auto valueOf(const wchar_t* name) {
    return [name](CCobxUnitBase& list) { return gallery::variable(name, list.GetValue(0)); };
}

// The drawing's value; without a drawing that of a new one.
int current(const wchar_t* name, int otherwise) {
    int value = otherwise;
    return tvedGetVar(name, value, tvedWorkingDatabase()) == Tavo::eOk ? value : otherwise;
}

} // namespace

CGalleryUnitsPage::CGalleryUnitsPage(CWnd& parent, const char* name)
    : CGalleryPage(IDD_GALLERY_UNITS, parent, name) {
    add<CCobxLUnit>(m_lengthType, labels[0], valueOf(L"LUNITS"));
    add<CCobxLPrec>(m_lengthPrecision, labels[1], valueOf(L"LUPREC"));
    add<CCobxAUnit>(m_angleType, labels[2], valueOf(L"AUNITS"));
    add<CCobxAPrec>(m_anglePrecision, labels[3], valueOf(L"AUPREC"));
    add<CCobxDSep>(m_separator, labels[4],
                   [](CCobxDSep& list) { return gallery::variable(L"DIMDSEP", list.GetSeparator()); });
    m_lengthType.combo.SetChild({&m_lengthPrecision.combo});
    m_angleType.combo.SetChild({&m_anglePrecision.combo});
}

void CGalleryUnitsPage::OnFilled() {
    if (m_lengthType.combo.GetCurSel() < 0) {
        m_lengthType.combo.SelectType(current(L"LUNITS", 2));
        m_lengthPrecision.combo.SelectValue(current(L"LUPREC", 4));
    }
    if (m_angleType.combo.GetCurSel() < 0) {
        m_angleType.combo.SelectType(current(L"AUNITS", 0));
        m_anglePrecision.combo.SelectValue(current(L"AUPREC", 0));
    }
    if (m_separator.combo.GetCurSel() < 0)
        m_separator.combo.SelectSeparator(static_cast<wchar_t>(current(L"DIMDSEP", L'.')));
}
