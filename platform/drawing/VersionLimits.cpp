#include "platform/drawing/VersionLimits.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

namespace tv::dwg {
namespace {

using OdDb::Feature;

std::wstring nameOf(Feature feature) {
    switch (feature) {
    case Feature::kLinetypeScale:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_LTSCALE", L"객체의 선종류 축척").c_str();
    case Feature::kVisibility:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_VISIBILITY", L"객체 숨기기").c_str();
    case Feature::kDictionaries:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_DICTIONARIES", L"명명된 객체 사전").c_str();
    case Feature::kLineWeight:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_LWEIGHT", L"선가중치").c_str();
    case Feature::kPlotFlag:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_PLOT_FLAG", L"도면층의 플롯 금지").c_str();
    case Feature::kPlotStyle:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_PLOT_STYLE", L"플롯 스타일").c_str();
    case Feature::kLayouts:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_LAYOUTS", L"여러 배치").c_str();
    case Feature::kTrueColor:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_TRUE_COLOR", L"트루컬러").c_str();
    case Feature::kTransparency:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_TRANSPARENCY", L"투명도").c_str();
    case Feature::kMaterial:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_MATERIAL", L"재료와 그림자").c_str();
    case Feature::kAnnotativeScales:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_ANNOTATIVE", L"주석 축척").c_str();
    case Feature::kViewportOverrides:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_OVERRIDES", L"뷰포트별 도면층 특성").c_str();
    case Feature::kLongNames:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_LONG_NAMES", L"31자를 넘는 이름").c_str();
    case Feature::kMultilineText:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_MTEXT", L"여러 줄 문자 객체").c_str();
    case Feature::kObjectKind:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_OBJECT_KIND", L"이 종류의 객체").c_str();
    case Feature::kSheetSettings:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_SHEETS", L"뷰와 배치의 설정").c_str();
    case Feature::kBlockSettings:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_BLOCKS", L"블록의 설정").c_str();
    case Feature::kDimVariables:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_DIM_VARIABLES", L"새로운 치수 변수").c_str();
    case Feature::kComplexLinetypes:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_COMPLEX_LTYPES", L"문자나 쉐이프가 든 선종류").c_str();
    case Feature::kLayerFilters:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_LAYER_FILTERS", L"도면층 특성 필터와 그룹 필터").c_str();
    case Feature::kExtendedData:
        return VORD_ResourceString("IDS_TAVO_DXF_HOLD_XDATA", L"하이퍼링크와 확장 데이터").c_str();
    }
    return {};
}

} // namespace

OdDb::DxfVersion firstVersionOf(Feature feature) {
    using enum OdDb::DxfVersion;
    switch (feature) {
    case Feature::kExtendedData:
        return kR12;
    case Feature::kLinetypeScale:
    case Feature::kVisibility:
    case Feature::kDictionaries:
    case Feature::kMultilineText:
    case Feature::kObjectKind:
    case Feature::kComplexLinetypes:
        return kR13;
    case Feature::kLineWeight:
    case Feature::kPlotFlag:
    case Feature::kPlotStyle:
    case Feature::kLayouts:
    case Feature::kLongNames:
    case Feature::kSheetSettings:
    case Feature::kDimVariables:
        return kR2000;
    case Feature::kTrueColor:
    case Feature::kTransparency:
    case Feature::kLayerFilters:
        return kR2004;
    case Feature::kMaterial:
    case Feature::kAnnotativeScales:
    case Feature::kViewportOverrides:
    case Feature::kBlockSettings:
        return kR2007;
    }
    return kUnknown;
}

tv::Problem notHeld(const OdDbDatabase& database, Feature feature) {
    tv::Problem problem;
    problem.status = Tavo::eNotHandled;
    problem.file = tv::text::fromUtf8(database.fileName().native());
    problem.sentence =
        tv::text::format(VORD_ResourceString("IDS_TAVO_DXF_NOT_HELD",
                                             L"이 도면의 버전(%s)에는 담을 수 없어 바꾸지 않았습니다: %s."),
                         database.versionText(), nameOf(feature));
    return problem;
}

} // namespace tv::dwg
