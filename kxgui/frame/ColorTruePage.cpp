#include "kxgui/frame/ColorTruePage.h"

#include "kxgui/frame/Templates.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"

using namespace kx::frame;

namespace {

std::wstring partName(ColorModel model, std::size_t part) {
    if (model == ColorModel::rgb) {
        if (part == 0) return VORD_ResourceString("IDS_TAVO_COLOR_RED", L"빨강(&R):").c_str();
        if (part == 1) return VORD_ResourceString("IDS_TAVO_COLOR_GREEN", L"초록(&G):").c_str();
        return VORD_ResourceString("IDS_TAVO_COLOR_BLUE", L"파랑(&B):").c_str();
    }
    if (part == 0) return VORD_ResourceString("IDS_TAVO_COLOR_HUE", L"색조(&H):").c_str();
    if (part == 1) return VORD_ResourceString("IDS_TAVO_COLOR_SATURATION", L"채도(&S):").c_str();
    return VORD_ResourceString("IDS_TAVO_COLOR_LUMINANCE", L"명도(&U):").c_str();
}

} // namespace

CColorTruePage::CColorTruePage(CWnd& parent, const char* name) : CColorPage(IDD_COLOR_TRUE, parent, name) {
    m_modelBox.LabelledBy(m_modelLabel);
    m_hex.LabelledBy(m_hexLabel);
    m_modelBox.onSelChange = [this] {
        m_model = m_modelBox.GetCurSel() == 1 ? ColorModel::hsl : ColorModel::rgb;
        m_values = partsOf(m_model, m_rgb);
        showModel();
        showParts(nullptr);
    };
    for (std::size_t part = 0; part < m_parts.size(); ++part)
        wire(part);
    m_hex.onChange = [this] { hexEntered(); };
}

void CColorTruePage::wire(std::size_t part) {
    m_parts[part].edit.LabelledBy(m_parts[part].label);
    m_parts[part].edit.onChange = [this, part] { partEntered(part); };
    m_parts[part].slider.onChange = [this, part] {
        m_values[part] = m_parts[part].slider.GetPos();
        partsChanged(nullptr);
    };
}

void CColorTruePage::SetText() {
    m_modelLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_MODEL", L"색상 모형(&M):"));
    m_hexLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_COLOR_HEX", L"16진수(&X):"));
    showModel();
}

void CColorTruePage::InitCtrl() {
    m_modelBox.ResetContent();
    m_modelBox.AddString(L"RGB");
    m_modelBox.AddString(L"HSL");
    m_modelBox.SetCurSel(m_model == ColorModel::hsl ? 1 : 0);
}

void CColorTruePage::showModel() {
    for (std::size_t part = 0; part < m_parts.size(); ++part) {
        const std::wstring name = partName(m_model, part);
        m_parts[part].label.SetWindowText(name);
        m_parts[part].slider.SetAccessibleName(tv::text::format(
            VORD_ResourceString("IDS_TAVO_COLOR_SLIDER", L"%s 슬라이더"), tv::ui::plainLabel(name)));
        m_parts[part].slider.SetRange(0, highestPart(m_model, part));
    }
}

void CColorTruePage::showColor(const OdCmColor& color) {
    m_rgb = color.rgb();
    m_values = partsOf(m_model, m_rgb);
    showParts(nullptr);
}

void CColorTruePage::showParts(const CEdit* but) {
    for (std::size_t part = 0; part < m_parts.size(); ++part) {
        m_parts[part].slider.SetPos(m_values[part]);
        if (&m_parts[part].edit != but) m_parts[part].edit.SetWindowText(tv::text::printInt(m_values[part]));
    }
    if (&m_hex != but) m_hex.SetWindowText(hexText(m_rgb));
}

void CColorTruePage::partsChanged(const CEdit* but) {
    m_rgb = colorOfParts(m_model, m_values);
    showParts(but);
    choose(OdCmColor::byRgb(m_rgb.red, m_rgb.green, m_rgb.blue));
}

void CColorTruePage::partEntered(std::size_t part) {
    CEdit& edit = m_parts[part].edit;
    const int highest = highestPart(m_model, part);
    const auto value = tv::text::parseInt(edit.GetWindowText());
    if (value && *value >= 0 && *value <= highest) {
        m_values[part] = static_cast<int>(*value);
        return partsChanged(&edit);
    }
    setFault(
        edit,
        tv::text::format(
            VORD_ResourceString(
                "IDS_TAVO_COLOR_BAD_PART",
                L"색상 값을 사용할 수 없습니다. %s에 입력한 \"%s\" 대신 0에서 %d 사이의 정수를 입력하십시오."),
            tv::ui::plainLabel(partName(m_model, part)), edit.GetWindowText(), highest));
}

void CColorTruePage::hexEntered() {
    const auto color = colorOfHex(m_hex.GetWindowText());
    if (!color) {
        setFault(m_hex,
                 tv::text::format(VORD_ResourceString("IDS_TAVO_COLOR_BAD_HEX",
                                                      L"16진수 색상을 읽을 수 없습니다. 입력한 값 \"%s\" 대신 "
                                                      L"#FF8000과 같이 여섯 자리로 입력하십시오."),
                                  m_hex.GetWindowText()));
        return;
    }
    m_rgb = *color;
    m_values = partsOf(m_model, m_rgb);
    showParts(&m_hex);
    choose(OdCmColor::byRgb(m_rgb.red, m_rgb.green, m_rgb.blue));
}
