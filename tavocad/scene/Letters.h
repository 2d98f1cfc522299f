#pragma once

#include <string_view>

namespace tv::scene {

// About how wide a line of text comes out, in heights of its capital letters. What paints it knows better.
double widthOf(std::wstring_view letters);

} // namespace tv::scene
