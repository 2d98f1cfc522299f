#include "kxgui/frame/RecentColors.h"

#include "kxgui/frame/ColorModel.h"
#include "platform/text/Numbers.h"
#include "platform/text/SettingsStore.h"

#include <algorithm>
#include <optional>

namespace kx::frame {
namespace {

constexpr const wchar_t* section = L"RecentColors";

std::wstring key(std::size_t place) { return tv::text::printInt(static_cast<std::int64_t>(place + 1)); }

// Numbers rather than names: the settings outlive a change of language.
std::wstring stored(const OdCmColor& color) {
    return color.isByColor() ? hexText(color.rgb()) : tv::text::printInt(color.colorIndex());
}

std::optional<OdCmColor> restored(const std::wstring& text) {
    if (text.starts_with(L'#')) {
        const auto rgb = colorOfHex(text);
        return rgb ? std::optional(OdCmColor::byRgb(rgb->red, rgb->green, rgb->blue)) : std::nullopt;
    }
    const auto index = tv::text::parseInt(text);
    if (!index || *index < 1 || *index > 255) return std::nullopt;
    return OdCmColor::byIndex(static_cast<int>(*index));
}

} // namespace

std::vector<OdCmColor> recentColors(const tv::SettingsStore* store) {
    std::vector<OdCmColor> colors;
    for (std::size_t i = 0; store && i < recentColorCount; ++i) {
        const auto text = store->getString(section, key(i));
        const auto color = text ? restored(*text) : std::nullopt;
        if (color && std::find(colors.begin(), colors.end(), *color) == colors.end()) colors.push_back(*color);
    }
    return colors;
}

void rememberColor(tv::SettingsStore* store, const OdCmColor& color) {
    if (!store || color.isByLayer() || color.isByBlock()) return;
    auto colors = recentColors(store);
    std::erase(colors, color);
    colors.insert(colors.begin(), color);
    if (colors.size() > recentColorCount) colors.resize(recentColorCount);
    for (std::size_t i = 0; i < colors.size(); ++i)
        store->setString(section, key(i), stored(colors[i]));
}

} // namespace kx::frame
