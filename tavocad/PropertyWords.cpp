#include "tavocad/PropertyWords.h"

#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <string>

namespace {

// By the names that properties and their choices have in the database; in the order of the keys.
constexpr tv::text::TableText words[] = {
    {"IDS_TAVO_WORD_ALIGNED", L"정렬됨"},
    {"IDS_TAVO_WORD_ALIGNMENT", L"정렬점"},
    {"IDS_TAVO_WORD_ANGLE", L"각도"},
    {"IDS_TAVO_WORD_ARC", L"호"},
    {"IDS_TAVO_WORD_AREA", L"면적"},
    {"IDS_TAVO_WORD_ARROW", L"화살표"},
    {"IDS_TAVO_WORD_ASSOCIATIVE", L"연관"},
    {"IDS_TAVO_WORD_ATTACHMENT", L"부착점"},
    {"IDS_TAVO_WORD_AT_LEAST", L"최소"},
    {"IDS_TAVO_WORD_BACKGROUNDFILL", L"배경 채우기"},
    {"IDS_TAVO_WORD_BACKWARD", L"거꾸로"},
    {"IDS_TAVO_WORD_BASE", L"기준점"},
    {"IDS_TAVO_WORD_BEZIER", L"베지어"},
    {"IDS_TAVO_WORD_BLOCK", L"블록"},
    {"IDS_TAVO_WORD_BOTTOM", L"맨아래"},
    {"IDS_TAVO_WORD_BOTTOM_CENTER", L"맨아래 중심"},
    {"IDS_TAVO_WORD_BOTTOM_LEFT", L"맨아래 왼쪽"},
    {"IDS_TAVO_WORD_BOTTOM_RIGHT", L"맨아래 오른쪽"},
    {"IDS_TAVO_WORD_BRIGHTNESS", L"밝기"},
    {"IDS_TAVO_WORD_BY_STYLE", L"스타일별"},
    {"IDS_TAVO_WORD_CENTER", L"중심"},
    {"IDS_TAVO_WORD_CHORD", L"현의 점"},
    {"IDS_TAVO_WORD_CIRCUMFERENCE", L"원주"},
    {"IDS_TAVO_WORD_CLIPPED", L"잘림"},
    {"IDS_TAVO_WORD_CLOSED", L"닫힘"},
    {"IDS_TAVO_WORD_COLUMNS", L"열"},
    {"IDS_TAVO_WORD_COLUMNSPACING", L"열 간격"},
    {"IDS_TAVO_WORD_CONSTANT", L"상수"},
    {"IDS_TAVO_WORD_CONTENTS", L"내용"},
    {"IDS_TAVO_WORD_CONTENTTYPE", L"내용 종류"},
    {"IDS_TAVO_WORD_CONTRAST", L"대비"},
    {"IDS_TAVO_WORD_CONTROLPOINTS", L"조정점"},
    {"IDS_TAVO_WORD_CORNER1", L"첫 번째 구석"},
    {"IDS_TAVO_WORD_CORNER2", L"두 번째 구석"},
    {"IDS_TAVO_WORD_CORNER3", L"세 번째 구석"},
    {"IDS_TAVO_WORD_CORNER4", L"네 번째 구석"},
    {"IDS_TAVO_WORD_CUBIC", L"3차"},
    {"IDS_TAVO_WORD_CUSTOM", L"사용자"},
    {"IDS_TAVO_WORD_DEFINEDHEIGHT", L"정의된 높이"},
    {"IDS_TAVO_WORD_DEFINEDWIDTH", L"정의된 폭"},
    {"IDS_TAVO_WORD_DEFINITION", L"정의점"},
    {"IDS_TAVO_WORD_DEGREE", L"차수"},
    {"IDS_TAVO_WORD_DELTA", L"증분"},
    {"IDS_TAVO_WORD_DIAMETER", L"지름"},
    {"IDS_TAVO_WORD_DIMSTYLE", L"치수 스타일"},
    {"IDS_TAVO_WORD_DIRECTION", L"방향"},
    {"IDS_TAVO_WORD_DOUBLE", L"이중"},
    {"IDS_TAVO_WORD_EDGE1INVISIBLE", L"첫 번째 모서리 숨김"},
    {"IDS_TAVO_WORD_EDGE2INVISIBLE", L"두 번째 모서리 숨김"},
    {"IDS_TAVO_WORD_EDGE3INVISIBLE", L"세 번째 모서리 숨김"},
    {"IDS_TAVO_WORD_EDGE4INVISIBLE", L"네 번째 모서리 숨김"},
    {"IDS_TAVO_WORD_ELEVATION", L"고도"},
    {"IDS_TAVO_WORD_END", L"끝점"},
    {"IDS_TAVO_WORD_ENDANGLE", L"끝 각도"},
    {"IDS_TAVO_WORD_ENDPARAMETER", L"끝 매개변수"},
    {"IDS_TAVO_WORD_ENDWIDTH", L"끝 폭"},
    {"IDS_TAVO_WORD_EXACTLY", L"정확히"},
    {"IDS_TAVO_WORD_FACES", L"면"},
    {"IDS_TAVO_WORD_FADE", L"페이드"},
    {"IDS_TAVO_WORD_FIT", L"맞춤"},
    {"IDS_TAVO_WORD_FITPOINTS", L"맞춤점"},
    {"IDS_TAVO_WORD_FITTOLERANCE", L"맞춤 공차"},
    {"IDS_TAVO_WORD_GLOBALWIDTH", L"전역 폭"},
    {"IDS_TAVO_WORD_GRADIENT", L"그라데이션"},
    {"IDS_TAVO_WORD_GRADIENTANGLE", L"그라데이션 각도"},
    {"IDS_TAVO_WORD_GRADIENTNAME", L"그라데이션 이름"},
    {"IDS_TAVO_WORD_HEIGHT", L"높이"},
    {"IDS_TAVO_WORD_HORIZONTAL", L"수평"},
    {"IDS_TAVO_WORD_IGNORE", L"무시"},
    {"IDS_TAVO_WORD_INVISIBLE", L"보이지 않음"},
    {"IDS_TAVO_WORD_ISLANDS", L"고립영역"},
    {"IDS_TAVO_WORD_JUSTIFICATION", L"자리맞추기"},
    {"IDS_TAVO_WORD_JUSTIFY", L"자리맞추기"},
    {"IDS_TAVO_WORD_KNOTS", L"매듭"},
    {"IDS_TAVO_WORD_LEADERLENGTH", L"지시선 길이"},
    {"IDS_TAVO_WORD_LEFT", L"왼쪽"},
    {"IDS_TAVO_WORD_LENGTH", L"길이"},
    {"IDS_TAVO_WORD_LENSLENGTH", L"렌즈 길이"},
    {"IDS_TAVO_WORD_LINE", L"선"},
    {"IDS_TAVO_WORD_LINESPACEFACTOR", L"행 간격 비율"},
    {"IDS_TAVO_WORD_LINESPACESTYLE", L"행 간격 스타일"},
    {"IDS_TAVO_WORD_LINETYPEGENERATION", L"선종류 생성"},
    {"IDS_TAVO_WORD_LOCKED", L"잠김"},
    {"IDS_TAVO_WORD_LOOPS", L"루프"},
    {"IDS_TAVO_WORD_MAJORAXIS", L"장축"},
    {"IDS_TAVO_WORD_MAJORRADIUS", L"장반지름"},
    {"IDS_TAVO_WORD_MCLOSED", L"M 닫힘"},
    {"IDS_TAVO_WORD_MEASUREMENT", L"측정값"},
    {"IDS_TAVO_WORD_MIDDLE", L"중간"},
    {"IDS_TAVO_WORD_MIDDLE_CENTER", L"중간 중심"},
    {"IDS_TAVO_WORD_MIDDLE_LEFT", L"중간 왼쪽"},
    {"IDS_TAVO_WORD_MIDDLE_RIGHT", L"중간 오른쪽"},
    {"IDS_TAVO_WORD_MINORRADIUS", L"단반지름"},
    {"IDS_TAVO_WORD_MONOCHROME", L"단색"},
    {"IDS_TAVO_WORD_MTEXT", L"여러 줄 문자"},
    {"IDS_TAVO_WORD_MVERTICES", L"M 정점"},
    {"IDS_TAVO_WORD_NAME", L"이름"},
    {"IDS_TAVO_WORD_NCLOSED", L"N 닫힘"},
    {"IDS_TAVO_WORD_NONE", L"없음"},
    {"IDS_TAVO_WORD_NORMAL", L"일반"},
    {"IDS_TAVO_WORD_NUMBER", L"번호"},
    {"IDS_TAVO_WORD_NVERTICES", L"N 정점"},
    {"IDS_TAVO_WORD_OBLIQUE", L"기울기 각도"},
    {"IDS_TAVO_WORD_OFF", L"끄기"},
    {"IDS_TAVO_WORD_OTHER", L"기타"},
    {"IDS_TAVO_WORD_OUTER", L"외부"},
    {"IDS_TAVO_WORD_PATH", L"경로"},
    {"IDS_TAVO_WORD_PATTERNANGLE", L"패턴 각도"},
    {"IDS_TAVO_WORD_PATTERNNAME", L"패턴 이름"},
    {"IDS_TAVO_WORD_PATTERNSCALE", L"패턴 축척"},
    {"IDS_TAVO_WORD_PATTERNTYPE", L"패턴 종류"},
    {"IDS_TAVO_WORD_PLANAR", L"평면"},
    {"IDS_TAVO_WORD_POINT1", L"첫 번째 점"},
    {"IDS_TAVO_WORD_POINT2", L"두 번째 점"},
    {"IDS_TAVO_WORD_POSITION", L"위치"},
    {"IDS_TAVO_WORD_PREDEFINED", L"미리 정의됨"},
    {"IDS_TAVO_WORD_PRESET", L"사전 설정"},
    {"IDS_TAVO_WORD_PROMPT", L"프롬프트"},
    {"IDS_TAVO_WORD_QUADRATIC", L"2차"},
    {"IDS_TAVO_WORD_RADIUS", L"반지름"},
    {"IDS_TAVO_WORD_RADIUSRATIO", L"반지름 비율"},
    {"IDS_TAVO_WORD_RIGHT", L"오른쪽"},
    {"IDS_TAVO_WORD_ROTATION", L"회전"},
    {"IDS_TAVO_WORD_ROWS", L"행"},
    {"IDS_TAVO_WORD_ROWSPACING", L"행 간격"},
    {"IDS_TAVO_WORD_SCALE", L"축척"},
    {"IDS_TAVO_WORD_SHOWN", L"표시됨"},
    {"IDS_TAVO_WORD_SMOOTHING", L"부드럽게 하기"},
    {"IDS_TAVO_WORD_SOLID", L"솔리드"},
    {"IDS_TAVO_WORD_SPLINE", L"스플라인"},
    {"IDS_TAVO_WORD_START", L"시작점"},
    {"IDS_TAVO_WORD_STARTANGLE", L"시작 각도"},
    {"IDS_TAVO_WORD_STARTPARAMETER", L"시작 매개변수"},
    {"IDS_TAVO_WORD_STARTWIDTH", L"시작 폭"},
    {"IDS_TAVO_WORD_STRAIGHT", L"직선"},
    {"IDS_TAVO_WORD_STYLE", L"스타일"},
    {"IDS_TAVO_WORD_TABLESTYLE", L"테이블 스타일"},
    {"IDS_TAVO_WORD_TAG", L"태그"},
    {"IDS_TAVO_WORD_TEXT", L"문자"},
    {"IDS_TAVO_WORD_TEXTMOVED", L"문자 이동됨"},
    {"IDS_TAVO_WORD_TEXTOVERRIDE", L"문자 재지정"},
    {"IDS_TAVO_WORD_TEXTPOSITION", L"문자 위치"},
    {"IDS_TAVO_WORD_TEXTROTATION", L"문자 회전"},
    {"IDS_TAVO_WORD_TEXTSTYLE", L"문자 스타일"},
    {"IDS_TAVO_WORD_THICKNESS", L"두께"},
    {"IDS_TAVO_WORD_TOLERANCE", L"공차"},
    {"IDS_TAVO_WORD_TOP", L"맨위"},
    {"IDS_TAVO_WORD_TOP_CENTER", L"맨위 중심"},
    {"IDS_TAVO_WORD_TOP_LEFT", L"맨위 왼쪽"},
    {"IDS_TAVO_WORD_TOP_RIGHT", L"맨위 오른쪽"},
    {"IDS_TAVO_WORD_TOTALANGLE", L"전체 각도"},
    {"IDS_TAVO_WORD_TRANSPARENT", L"투명"},
    {"IDS_TAVO_WORD_TWISTANGLE", L"비틀기 각도"},
    {"IDS_TAVO_WORD_TYPE", L"종류"},
    {"IDS_TAVO_WORD_UPSIDEDOWN", L"위아래로"},
    {"IDS_TAVO_WORD_USER_DEFINED", L"사용자 정의"},
    {"IDS_TAVO_WORD_VALUE", L"값"},
    {"IDS_TAVO_WORD_VERIFY", L"검증"},
    {"IDS_TAVO_WORD_VERTEX", L"정점"},
    {"IDS_TAVO_WORD_VERTICAL", L"수직"},
    {"IDS_TAVO_WORD_VERTICES", L"정점"},
    {"IDS_TAVO_WORD_VIEWCENTER", L"뷰 중심"},
    {"IDS_TAVO_WORD_VIEWHEIGHT", L"뷰 높이"},
    {"IDS_TAVO_WORD_WIDTH", L"폭"},
    {"IDS_TAVO_WORD_WIDTHFACTOR", L"폭 비율"},
    {"IDS_TAVO_WORD_ZERO", L"0"},
};

// "Start width" is IDS_TAVO_WORD_START_WIDTH.
std::string keyOf(std::wstring_view name) {
    std::string key = "IDS_TAVO_WORD_";
    for (const wchar_t letter : tv::text::toUpper(name)) {
        const bool plain = (letter >= L'A' && letter <= L'Z') || (letter >= L'0' && letter <= L'9');
        key += plain ? static_cast<char>(letter) : '_';
    }
    return key;
}

const tv::text::TableText* find(std::wstring_view name) {
    const std::string key = keyOf(name);
    const auto* const row = std::ranges::lower_bound(
        words, std::string_view(key), {}, [](const auto& word) { return std::string_view(word.key); });
    return row != std::end(words) && row->key == key ? row : nullptr;
}

} // namespace

OdString propertyWord(std::wstring_view name) {
    if (const auto* word = find(name)) return word->text();
    // A coordinate is its point and the axis.
    if (name.size() > 1 && name.back() >= L'X' && name.back() <= L'Z')
        if (const auto* word = find(name.substr(0, name.size() - 1)))
            return OdString(word->text()) + L" " + name.substr(name.size() - 1);
    return OdString(name);
}
