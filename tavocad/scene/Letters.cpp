#include "tavocad/scene/Letters.h"

namespace tv::scene {

namespace {

double widthOf(wchar_t letter) {
    constexpr std::wstring_view narrow = L"ijlI.,:;'|!()[]{} t/\\", wide = L"mwMW@%";
    if (letter >= 0x1100 && (letter <= 0x11FF || letter >= 0x2E80)) return 1.35; // Korean, Chinese, Japanese
    if (narrow.find(letter) != std::wstring_view::npos) return 0.45;
    if (wide.find(letter) != std::wstring_view::npos) return 1.2;
    return letter >= L'A' && letter <= L'Z' ? 0.95 : 0.85;
}

} // namespace

double widthOf(std::wstring_view letters) {
    double sum = 0;
    for (const wchar_t letter : letters)
        sum += widthOf(letter);
    return sum;
}

} // namespace tv::scene
