#include "kxgui/frame/LineWeightNames.h"

#include "platform/host/TavoSysvarManager.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"

namespace kx::frame {

std::vector<OdDb::LineWeight> lineWeights(LineWeightOffer offer) {
    std::vector<OdDb::LineWeight> weights;
    if (offer == LineWeightOffer::withAll) weights = {OdDb::kLnWtByLayer, OdDb::kLnWtByBlock};
    if (offer != LineWeightOffer::widths) weights.push_back(OdDb::kLnWtByLwDefault);
    for (const OdDb::LineWeight weight : OdDb::kLineWeights)
        if (weight >= OdDb::kLnWt000) weights.push_back(weight);
    return weights;
}

std::wstring lineWeightText(OdDb::LineWeight weight, bool inches) {
    if (weight == OdDb::kLnWtByLayer) return VORD_ResourceString("IDC_TBMNU_513", L"ByLayer").c_str();
    if (weight == OdDb::kLnWtByBlock) return VORD_ResourceString("IDC_TBMNU_515", L"ByBlock").c_str();
    if (weight < OdDb::kLnWt000) return VORD_ResourceString("IDS_TAVO_LINEWEIGHT_DEFAULT", L"기본값").c_str();
    const double millimetres = millimetresOf(weight);
    return inches ? tv::text::printReal(millimetres / 25.4, 3) + L"\""
                  : tv::text::printReal(millimetres, 2) + L" mm";
}

double millimetresOf(OdDb::LineWeight weight) { return weight > 0 ? static_cast<int>(weight) / 100.0 : 0; }

bool lineWeightsInInches() {
    int units = 1;
    return tvedGetVar(L"LWUNITS", units, nullptr) == Tavo::eOk && units == 0;
}

} // namespace kx::frame
