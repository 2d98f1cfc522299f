#pragma once

// What a picture of a scene leaves out or simplifies because nobody could see it.
namespace tv::scene {

inline constexpr double legibleHeight = 2.5; // pixels; smaller text is painted as a line
inline constexpr double legibleArea = 60;    // pixels; texts that have less lie upon each other
inline constexpr double legiblePattern = 4;  // pixels; a finer pattern is painted as a continuous line
inline constexpr double farOut = 1e6;        // pixels; what reaches beyond is cut to the view first

} // namespace tv::scene
