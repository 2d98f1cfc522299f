#include "platform/host/sysvars/SysvarRules.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"

namespace tv::host {

namespace {

std::wstring recordForm(SysvarRecord record) {
    switch (record) {
    case SysvarRecord::kLayer:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_LAYER", L"도면층 이름").c_str();
    case SysvarRecord::kLinetype:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_LINETYPE", L"선종류 이름").c_str();
    case SysvarRecord::kTextStyle:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_TEXT_STYLE", L"문자 스타일 이름").c_str();
    case SysvarRecord::kDimStyle:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_DIMSTYLE", L"치수 스타일 이름").c_str();
    case SysvarRecord::kArrowBlock:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_ARROW", L"화살촉 블록 이름").c_str();
    case SysvarRecord::kUcs:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_UCS", L"UCS 이름").c_str();
    case SysvarRecord::kHandle:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_HANDLE", L"핸들").c_str();
    case SysvarRecord::kNone:
        break;
    }
    return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_NAME", L"이름").c_str();
}

} // namespace

std::wstring formText(const SysvarInfo& info) {
    switch (info.type) {
    case TavoSysvarType::kInt16:
    case TavoSysvarType::kInt32:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_INTEGER", L"정수").c_str();
    case TavoSysvarType::kReal:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_REAL", L"실수").c_str();
    case TavoSysvarType::kAngle:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_ANGLE", L"각도(라디안)").c_str();
    case TavoSysvarType::kPoint2d:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_POINT2D", L"2차원 점(x,y)").c_str();
    case TavoSysvarType::kPoint3d:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_POINT3D", L"3차원 점(x,y,z)").c_str();
    case TavoSysvarType::kColor:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_COLOR", L"색상").c_str();
    case TavoSysvarType::kObjectId:
        return recordForm(info.record);
    default:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_FORM_TEXT", L"문자열").c_str();
    }
}

std::wstring indexColorText() {
    return VORD_ResourceString("IDS_TAVO_SYSVAR_ALLOWED_INDEX_COLOR", L"ByLayer, ByBlock, 색상 번호 1~255")
        .c_str();
}

namespace {

std::wstring allowedNumbers(const SysvarInfo& info) {
    switch (info.limit) {
    case SysvarLimit::kRange:
        return text::format(VORD_ResourceString("IDS_TAVO_SYSVAR_ALLOWED_RANGE", L"%s~%s"),
                            text::printReal(info.minimum), text::printReal(info.maximum));
    case SysvarLimit::kPositive:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_ALLOWED_POSITIVE", L"0보다 큰 수").c_str();
    case SysvarLimit::kNotNegative:
        return VORD_ResourceString("IDS_TAVO_SYSVAR_ALLOWED_NOT_NEGATIVE", L"0 이상의 수").c_str();
    case SysvarLimit::kOneOf: {
        std::wstring list;
        for (const std::int16_t value : info.allowed)
            list += (list.empty() ? L"" : L", ") + text::printInt(value);
        return list;
    }
    case SysvarLimit::kNone:
        break;
    }
    return info.type == TavoSysvarType::kColor ? indexColorText() : formText(info);
}

} // namespace

tv::Problem refusal(const SysvarInfo& info, Tavo::ErrorStatus status, std::wstring_view value) {
    tv::Problem problem;
    problem.status = status;
    const std::wstring name = info.name;
    switch (status) {
    case Tavo::eReadOnly:
        problem.sentence = text::format(
            VORD_ResourceString("IDS_TAVO_SYSVAR_READ_ONLY",
                                L"시스템 변수 %s은(는) 읽기 전용이므로 값 \"%s\"을(를) 쓸 수 없습니다."),
            name, value);
        break;
    case Tavo::eWrongType:
        problem.sentence = text::format(
            VORD_ResourceString("IDS_TAVO_SYSVAR_WRONG_TYPE",
                                L"시스템 변수 %s에 값 \"%s\"을(를) 쓸 수 없습니다. 필요한 형식: %s."),
            name, value, formText(info));
        break;
    case Tavo::eOutOfRange:
        problem.sentence = text::format(
            VORD_ResourceString("IDS_TAVO_SYSVAR_OUT_OF_RANGE",
                                L"시스템 변수 %s의 값 \"%s\"이(가) 허용 범위를 벗어났습니다. 허용 값: %s."),
            name, value, allowedNumbers(info));
        break;
    case Tavo::eKeyNotFound:
        problem.sentence =
            text::format(VORD_ResourceString(
                             "IDS_TAVO_SYSVAR_NO_RECORD",
                             L"시스템 변수 %s에 값 \"%s\"을(를) 쓸 수 없습니다. 도면에 그런 이름이 없습니다."),
                         name, value);
        break;
    case Tavo::eNoDatabase:
        problem.sentence = text::format(
            VORD_ResourceString("IDS_TAVO_SYSVAR_NO_DRAWING",
                                L"시스템 변수 %s에 값 \"%s\"을(를) 쓸 수 없습니다. 열려 있는 도면이 없습니다."),
            name, value);
        break;
    default:
        problem.sentence =
            text::format(VORD_ResourceString(
                             "IDS_TAVO_SYSVAR_NOT_WRITTEN",
                             L"시스템 변수 %s에 값 \"%s\"을(를) 쓸 수 없습니다. 도면이 변경을 거부했습니다."),
                         name, value);
        break;
    }
    return problem;
}

tv::Problem unknownVariable(std::wstring_view name) {
    tv::Problem problem;
    problem.status = Tavo::eKeyNotFound;
    problem.sentence = text::format(
        VORD_ResourceString("IDS_TAVO_SYSVAR_UNKNOWN", L"시스템 변수 \"%s\"은(는) 없는 이름입니다."), name);
    return problem;
}

} // namespace tv::host
