#include "platform/host/sysvars/SysvarDescriptions.h"

namespace tv::host {

namespace {

constexpr text::TableText kUserDescriptions[] = {
    {"IDS_TAVO_SYSVAR_ACTIVEPV", L"활성 뷰포트: 0 없음, 1 용지, 2 이상 용지의 뷰포트"},
    {"IDS_TAVO_SYSVAR_BKGCOLOR", L"도면 영역의 배경색"},
    {"IDS_TAVO_SYSVAR_CMDACTIVE", L"실행 중인 명령의 종류(비트)"},
    {"IDS_TAVO_SYSVAR_COLORINDEX", L"마지막으로 고른 색상의 번호: 0 ByBlock, 256 ByLayer"},
    {"IDS_TAVO_SYSVAR_DCTCUST", L"사용자 맞춤법 사전 파일"},
    {"IDS_TAVO_SYSVAR_DCTMAIN", L"기본 맞춤법 사전"},
    {"IDS_TAVO_SYSVAR_EXPERT", L"생략하는 경고의 단계: 0 모두 표시, 5 가장 많이 생략"},
    {"IDS_TAVO_SYSVAR_FINDSTRINGS", L"최근에 찾은 문자열"},
    {"IDS_TAVO_SYSVAR_FONTPATH", L"셰이프 글꼴 파일을 찾는 폴더들, 세미콜론으로 구분, 점 하나는 없음"},
    {"IDS_TAVO_SYSVAR_LWUNITS", L"선가중치의 표시 단위: 0 인치, 1 밀리미터"},
    {"IDS_TAVO_SYSVAR_PICKBOX", L"클릭으로 객체를 찾는 사각형의 한 변의 절반(픽셀)"},
    {"IDS_TAVO_SYSVAR_PICKFIRST", L"명령 전에 선택한 객체를 명령에 씀: 0 끔, 1 켬"},
    {"IDS_TAVO_SYSVAR_REPLACESTRINGS", L"최근에 바꿔 넣은 문자열"},
    {"IDS_TAVO_SYSVAR_SELECTSIMILARMODE",
     L"비슷한 객체의 기준의 합: 1 색상, 2 도면층, 4 선종류, 16 선가중치, 128 이름 등"},
    {"IDS_TAVO_SYSVAR_SELECTIONPREVIEW",
     L"포인터 아래 객체의 강조: 0 끔, 1 명령이 없을 때, 2 객체를 고를 때, 3 둘 다"},
    {"IDS_TAVO_SYSVAR_TABCLOSEMODE", L"도면 창을 닫을 때: 0 물어봄, 1 숨김, 2 삭제, 3 내보냄"},
    {"IDS_TAVO_SYSVAR_XREFPATH", L"외부 참조를 찾는 폴더들, 세미콜론으로 구분, 점 하나는 없음"},
};

} // namespace

std::span<const text::TableText> userDescriptions() { return kUserDescriptions; }

} // namespace tv::host
