#pragma once

#include "platform/Export.h"
#include "platform/toolkit/DisplayList.h"

#include <functional>
#include <string_view>

// The pictures of list items. Asking twice for the same one answers the same object while anybody shows it.
namespace tv::ui {

// A filled square, 0xRRGGBB.
KXPLATFORM_EXPORT Picture colorPicture(std::uint32_t rgb);
// A linetype sample: lengths of dashes, negative for gaps, 0 for dots. The pattern shows twice at least. One
// that is empty or makes no sense shows as a line without gaps.
KXPLATFORM_EXPORT Picture dashPicture(const std::vector<double>& dashes);
// A lineweight sample.
KXPLATFORM_EXPORT Picture linePicture(double millimetres);

struct LayerLook {
    bool off = false, frozen = false, locked = false;
    std::uint32_t rgb = 0;
};
// A lamp, a sun or a snow crystal, a lock, and the layer's colour.
KXPLATFORM_EXPORT Picture layerPicture(const LayerLook& look);

// Some letters of a font. Too long a family name answers none.
KXPLATFORM_EXPORT Picture fontPicture(const std::wstring& family, bool bold, bool italic);

// Any other: `make` is asked unless a picture of that name is in use. Names begin with the maker's own word and
// a colon ("arrow:_Dot").
KXPLATFORM_EXPORT Picture namedPicture(std::string_view name, const std::function<DisplayList()>& make);

// Its width and height in logical pixels; 0 for none.
KXPLATFORM_EXPORT DrawPoint pictureSize(const Picture& picture);

} // namespace tv::ui
