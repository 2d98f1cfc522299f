#include "platform/drawing/dxf/NotADrawing.h"

#include "platform/text/ResourceString.h"

#include <algorithm>

namespace tv::dwg {

std::wstring seemsToBe(std::string_view bytes) {
    using namespace std::string_view_literals;
    const auto starts = [&](std::string_view with) { return bytes.starts_with(with); };
    if (bytes.empty()) return VORD_ResourceString("IDS_TAVO_DXF_SEEMS_EMPTY", L"빈 파일").c_str();
    if (bytes.size() >= 6 && (starts("AC10"sv) || starts("AC1."sv) || starts("AC2."sv)) && bytes[4] >= '0' &&
        bytes[4] <= '9')
        return VORD_ResourceString("IDS_TAVO_DXF_SEEMS_DWG", L"DWG 도면").c_str();
    if (starts("\x89PNG"sv) || starts("GIF8"sv) || starts("\xFF\xD8\xFF"sv) || starts("BM"sv) ||
        starts("II*\0"sv) || starts("MM\0*"sv))
        return VORD_ResourceString("IDS_TAVO_DXF_SEEMS_IMAGE", L"이미지").c_str();
    if (starts("%PDF"sv)) return VORD_ResourceString("IDS_TAVO_DXF_SEEMS_PDF", L"PDF 문서").c_str();
    if (starts("PK\x03\x04"sv) || starts("\x1F\x8B"sv) || starts("7z\xBC\xAF"sv) || starts("Rar!"sv))
        return VORD_ResourceString("IDS_TAVO_DXF_SEEMS_ARCHIVE", L"압축 파일").c_str();
    if (starts("\xFF\xFE"sv) || starts("\xFE\xFF"sv))
        return VORD_ResourceString("IDS_TAVO_DXF_SEEMS_UTF16", L"UTF-16 텍스트").c_str();
    const std::string_view start = bytes.substr(0, 4096);
    if (start.find('\0') != std::string_view::npos)
        return VORD_ResourceString("IDS_TAVO_DXF_SEEMS_BINARY", L"이진 데이터").c_str();
    const auto control = std::count_if(start.begin(), start.end(), [](char c) {
        return static_cast<unsigned char>(c) < 32 && c != '\n' && c != '\r' && c != '\t';
    });
    if (control * 20 > static_cast<std::ptrdiff_t>(start.size()))
        return VORD_ResourceString("IDS_TAVO_DXF_SEEMS_BINARY", L"이진 데이터").c_str();
    return VORD_ResourceString("IDS_TAVO_DXF_SEEMS_TEXT", L"다른 종류의 텍스트").c_str();
}

} // namespace tv::dwg
