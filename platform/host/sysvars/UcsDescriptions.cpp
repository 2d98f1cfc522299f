#include "platform/host/sysvars/SysvarDescriptions.h"

namespace tv::host {

namespace {

constexpr text::TableText kUcsDescriptions[] = {
    {"IDS_TAVO_SYSVAR_PUCSBASE", L"도면 공간에서 직교 UCS의 기준이 되는 UCS"},
    {"IDS_TAVO_SYSVAR_PUCSNAME", L"도면 공간의 현재 UCS 이름"},
    {"IDS_TAVO_SYSVAR_PUCSORG", L"도면 공간의 현재 UCS 원점"},
    {"IDS_TAVO_SYSVAR_PUCSORGBACK", L"도면 공간에서 배면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_PUCSORGBOTTOM", L"도면 공간에서 저면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_PUCSORGFRONT", L"도면 공간에서 정면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_PUCSORGLEFT", L"도면 공간에서 좌측면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_PUCSORGRIGHT", L"도면 공간에서 우측면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_PUCSORGTOP", L"도면 공간에서 평면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_PUCSORTHOREF", L"도면 공간의 직교 UCS가 참조하는 UCS"},
    {"IDS_TAVO_SYSVAR_PUCSORTHOVIEW",
     L"도면 공간의 직교 UCS: 0 없음, 1 평면, 2 저면, 3 정면, 4 배면, 5 좌측, 6 우측"},
    {"IDS_TAVO_SYSVAR_PUCSXDIR", L"도면 공간의 현재 UCS X축 방향"},
    {"IDS_TAVO_SYSVAR_PUCSYDIR", L"도면 공간의 현재 UCS Y축 방향"},
    {"IDS_TAVO_SYSVAR_UCSBASE", L"모형 공간에서 직교 UCS의 기준이 되는 UCS"},
    {"IDS_TAVO_SYSVAR_UCSNAME", L"모형 공간의 현재 UCS 이름"},
    {"IDS_TAVO_SYSVAR_UCSORG", L"모형 공간의 현재 UCS 원점"},
    {"IDS_TAVO_SYSVAR_UCSORGBACK", L"모형 공간에서 배면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_UCSORGBOTTOM", L"모형 공간에서 저면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_UCSORGFRONT", L"모형 공간에서 정면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_UCSORGLEFT", L"모형 공간에서 좌측면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_UCSORGRIGHT", L"모형 공간에서 우측면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_UCSORGTOP", L"모형 공간에서 평면도 UCS의 원점"},
    {"IDS_TAVO_SYSVAR_UCSORTHOREF", L"모형 공간의 직교 UCS가 참조하는 UCS"},
    {"IDS_TAVO_SYSVAR_UCSORTHOVIEW",
     L"모형 공간의 직교 UCS: 0 없음, 1 평면, 2 저면, 3 정면, 4 배면, 5 좌측, 6 우측"},
    {"IDS_TAVO_SYSVAR_UCSXDIR", L"모형 공간의 현재 UCS X축 방향"},
    {"IDS_TAVO_SYSVAR_UCSYDIR", L"모형 공간의 현재 UCS Y축 방향"},
};

} // namespace

std::span<const text::TableText> ucsDescriptions() { return kUcsDescriptions; }

} // namespace tv::host
