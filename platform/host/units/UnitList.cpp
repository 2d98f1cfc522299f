#include "platform/host/units/UnitList.h"

#include "platform/text/ResourceString.h"

#include <iterator>
#include <numbers>

namespace kx::unit {

namespace {

constexpr int kUnitless = 0;
constexpr double kAstronomicalUnit = 149597870700.0; // metres, exact by definition
constexpr double kSurveyFoot = 1200.0 / 3937.0;      // metres, exact by definition

struct Unit {
    double metres;
    const wchar_t* abbreviation; // null where there is no common one
};

// By identifier.
constexpr Unit kUnits[] = {
    {0, nullptr},                                           // unitless
    {0.0254, L"in"},                                        // inches
    {0.3048, L"ft"},                                        // feet
    {1609.344, L"mi"},                                      // miles
    {0.001, L"mm"},                                         // millimetres
    {0.01, L"cm"},                                          // centimetres
    {1, L"m"},                                              // metres
    {1000, L"km"},                                          // kilometres
    {2.54e-8, L"µin"},                                      // microinches
    {2.54e-5, L"mil"},                                      // mils
    {0.9144, L"yd"},                                        // yards
    {1e-10, L"Å"},                                          // angstroms
    {1e-9, L"nm"},                                          // nanometres
    {1e-6, L"µm"},                                          // microns
    {0.1, L"dm"},                                           // decimetres
    {10, L"dam"},                                           // decametres
    {100, L"hm"},                                           // hectometres
    {1e9, L"Gm"},                                           // gigametres
    {kAstronomicalUnit, L"au"},                             // astronomical units
    {9460730472580800.0, L"ly"},                            // light years: 365.25 days at the speed of light
    {kAstronomicalUnit * 648000 / std::numbers::pi, L"pc"}, // parsecs
    {kSurveyFoot, nullptr},                                 // US survey feet
    {kSurveyFoot / 12, nullptr},                            // US survey inches
    {kSurveyFoot * 3, nullptr},                             // US survey yards
    {kSurveyFoot * 5280, nullptr},                          // US survey miles
};
constexpr int kUnitCount = static_cast<int>(std::size(kUnits));

OdString plainName(int id) {
    switch (id) {
    case 0:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_UL", L"단위 없음").c_str();
    case 1:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_IC", L"인치").c_str();
    case 2:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_FT", L"피트").c_str();
    case 3:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_MI", L"마일").c_str();
    case 4:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_MM", L"밀리미터").c_str();
    case 5:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_CM", L"센티미터").c_str();
    case 6:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_MT", L"미터").c_str();
    case 7:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_KM", L"킬로미터").c_str();
    case 8:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_UI", L"마이크로인치").c_str();
    case 9:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_ML", L"밀").c_str();
    case 10:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_YD", L"야드").c_str();
    case 11:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_AG", L"옹스트롬").c_str();
    case 12:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_NM", L"나노미터").c_str();
    case 13:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_MC", L"미크론").c_str();
    case 14:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_DM", L"데시미터").c_str();
    case 15:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_DK", L"데카미터").c_str();
    case 16:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_HM", L"헥토미터").c_str();
    case 17:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_GM", L"기가미터").c_str();
    case 18:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_AU", L"천문 단위").c_str();
    case 19:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_LY", L"광년").c_str();
    case 20:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_PC", L"파섹").c_str();
    case 21:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_UF", L"미국 측량 피트").c_str();
    case 22:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_UN", L"미국 측량 인치").c_str();
    case 23:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_UY", L"미국 측량 야드").c_str();
    case 24:
        return VORD_ResourceString("IDS_MGD_COMMON_UNIT_UM", L"미국 측량 마일").c_str();
    default:
        return {};
    }
}

} // namespace

void getUnitList(std::vector<int>& list, int flag) {
    list.clear();
    for (int id = flag == kInsertionScale ? kUnitless : kUnitless + 1; id < kUnitCount; ++id)
        list.push_back(id);
}

OdString getUnitName(int id, int flag) {
    if (id < 0 || id >= kUnitCount) return {};
    if (flag == kAbbreviation && kUnits[id].abbreviation) return OdString(kUnits[id].abbreviation);
    return plainName(id);
}

double getUnitMetres(int id) { return id < 0 || id >= kUnitCount ? 0 : kUnits[id].metres; }

} // namespace kx::unit
