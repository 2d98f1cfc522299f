#include "platform/host/sysvars/SysvarDescriptions.h"

namespace tv::host {

namespace {

constexpr text::TableText kSurfaceDescriptions[] = {
    {"IDS_TAVO_SYSVAR_3DDWFPREC", L"3차원 DWF로 내보낼 때의 정밀도"},
    {"IDS_TAVO_SYSVAR_CAMERADISPLAY", L"카메라 기호의 표시: 0 끔, 1 켬"},
    {"IDS_TAVO_SYSVAR_CAMERAHEIGHT", L"새 카메라의 높이"},
    {"IDS_TAVO_SYSVAR_CMATERIAL", L"새 객체의 재료"},
    {"IDS_TAVO_SYSVAR_CSHADOW", L"새 객체의 그림자: 0 드리우고 받음, 1 드리우기만, 2 받기만, 3 없음"},
    {"IDS_TAVO_SYSVAR_DISPSILH", L"와이어프레임에서 3D 솔리드의 윤곽 모서리 표시: 0 끔, 1 켬"},
    {"IDS_TAVO_SYSVAR_DRAGVS", L"3D 객체를 만드는 동안의 비주얼 스타일"},
    {"IDS_TAVO_SYSVAR_HALOGAP", L"다른 객체에 가려진 선이 끊기는 간격(단위의 백분율)"},
    {"IDS_TAVO_SYSVAR_INTERFERECOLOR", L"간섭 객체의 색상"},
    {"IDS_TAVO_SYSVAR_INTERFEREOBJVS", L"간섭 객체의 비주얼 스타일"},
    {"IDS_TAVO_SYSVAR_INTERFEREVPVS", L"간섭 검사 중 뷰포트의 비주얼 스타일"},
    {"IDS_TAVO_SYSVAR_INTERSECTIONCOLOR", L"면이 교차하는 곳의 선 색상, 257은 객체의 색상"},
    {"IDS_TAVO_SYSVAR_INTERSECTIONDISPLAY", L"면이 교차하는 곳의 선 표시: 0 끔, 1 켬"},
    {"IDS_TAVO_SYSVAR_LATITUDE", L"도면 위치의 위도(도)"},
    {"IDS_TAVO_SYSVAR_LENSLENGTH", L"투시 뷰의 렌즈 길이(mm)"},
    {"IDS_TAVO_SYSVAR_LIGHTGLYPHDISPLAY", L"조명 기호의 표시: 0 끔, 1 켬"},
    {"IDS_TAVO_SYSVAR_LOFTANG1", L"로프트의 첫 번째 횡단면에서 기울기 각도"},
    {"IDS_TAVO_SYSVAR_LOFTANG2", L"로프트의 마지막 횡단면에서 기울기 각도"},
    {"IDS_TAVO_SYSVAR_LOFTMAG1", L"로프트의 첫 번째 횡단면에서 기울기의 크기"},
    {"IDS_TAVO_SYSVAR_LOFTMAG2", L"로프트의 마지막 횡단면에서 기울기의 크기"},
    {"IDS_TAVO_SYSVAR_LOFTNORMALS",
     L"로프트: 0 직선, 1 부드럽게, 횡단면에 직각 2 처음, 3 끝, 4 처음과 끝, 5 모두, 6 기울기 각도"},
    {"IDS_TAVO_SYSVAR_LOFTPARAM", L"로프트 방법의 합: 1 비틀림 없음, 2 방향 정렬, 4 단순화, 8 닫음"},
    {"IDS_TAVO_SYSVAR_LONGITUDE", L"도면 위치의 경도(도)"},
    {"IDS_TAVO_SYSVAR_NORTHDIRECTION", L"Y축에서 잰 북쪽의 각도"},
    {"IDS_TAVO_SYSVAR_OBSCOLOR", L"가려진 선의 색상, 257은 객체의 색상"},
    {"IDS_TAVO_SYSVAR_OBSLTYPE", L"가려진 선의 선종류: 0 숨김, 1 실선, 2 파선, 3 점선 등"},
    {"IDS_TAVO_SYSVAR_PSOLHEIGHT", L"새 폴리솔리드의 높이"},
    {"IDS_TAVO_SYSVAR_PSOLWIDTH", L"새 폴리솔리드의 폭"},
    {"IDS_TAVO_SYSVAR_REALWORLDSCALE", L"재료를 실제 크기로 렌더: 0 끔, 1 켬"},
    {"IDS_TAVO_SYSVAR_SHADEDGE", L"음영: 0 면, 1 면과 배경색 모서리, 2 모서리만, 3 색 채운 면과 배경색 모서리"},
    {"IDS_TAVO_SYSVAR_SHADEDIF", L"음영에서 확산광의 비율(%)"},
    {"IDS_TAVO_SYSVAR_SHADOWPLANELOCATION", L"그림자가 드리우는 바닥면의 높이"},
    {"IDS_TAVO_SYSVAR_SHOWHIST", L"솔리드의 작성 내역 표시: 0 숨김, 1 솔리드마다 정한 대로, 2 모두 표시"},
    {"IDS_TAVO_SYSVAR_SOLIDHIST", L"새 솔리드의 작성 내역 보존: 0 아니요, 1 예"},
    {"IDS_TAVO_SYSVAR_SPLFRAME", L"스플라인의 조정 다각형 표시: 0 끔, 1 켬"},
    {"IDS_TAVO_SYSVAR_SPLINESEGS", L"스플라인으로 맞춘 폴리선의 구간마다 선분 수"},
    {"IDS_TAVO_SYSVAR_SPLINETYPE", L"스플라인으로 맞춘 폴리선의 곡선: 5 2차, 6 3차"},
    {"IDS_TAVO_SYSVAR_STEPSIZE", L"보행 모드의 한 걸음 길이(도면 단위)"},
    {"IDS_TAVO_SYSVAR_STEPSPERSEC", L"보행 모드의 초당 걸음 수"},
    {"IDS_TAVO_SYSVAR_SURFTAB1", L"메쉬의 M 방향 분할 수"},
    {"IDS_TAVO_SYSVAR_SURFTAB2", L"메쉬의 N 방향 분할 수"},
    {"IDS_TAVO_SYSVAR_SURFTYPE", L"부드럽게 맞춘 메쉬의 곡면: 5 2차, 6 3차, 8 베지어"},
    {"IDS_TAVO_SYSVAR_SURFU", L"부드럽게 맞춘 메쉬의 M 방향 밀도"},
    {"IDS_TAVO_SYSVAR_SURFV", L"부드럽게 맞춘 메쉬의 N 방향 밀도"},
    {"IDS_TAVO_SYSVAR_TILEMODELIGHTSYNCH", L"모형 공간의 모든 뷰포트에 같은 조명: 0 끔, 1 켬"},
    {"IDS_TAVO_SYSVAR_TIMEZONE", L"도면 위치의 시간대(시간의 1/1000): -8000은 UTC-8"},
};

} // namespace

std::span<const text::TableText> surfaceDescriptions() { return kSurfaceDescriptions; }

} // namespace tv::host
