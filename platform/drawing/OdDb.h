#pragma once

#include <array>
#include <cstdint>

// The enumerations of the drawing database.
namespace OdDb {

enum OpenMode { kForRead = 0, kForWrite = 1 };

// The file format versions a drawing can have, oldest first, so that they compare.
enum class DxfVersion : std::uint8_t {
    kUnknown, // no $ACADVER, or one nobody knows
    kR10,
    kR12,
    kR13,
    kR14,
    kR2000,
    kR2004,
    kR2007, // texts are UTF-8 from here on
    kR2010,
    kR2013,
    kR2018,
};

// Lineweights in 1/100 mm; the negative ones are no width but where the width comes from.
enum LineWeight : std::int16_t {
    kLnWtByLwDefault = -3,
    kLnWtByBlock = -2,
    kLnWtByLayer = -1,
    kLnWt000 = 0,
    kLnWt005 = 5,
    kLnWt009 = 9,
    kLnWt013 = 13,
    kLnWt015 = 15,
    kLnWt018 = 18,
    kLnWt020 = 20,
    kLnWt025 = 25,
    kLnWt030 = 30,
    kLnWt035 = 35,
    kLnWt040 = 40,
    kLnWt050 = 50,
    kLnWt053 = 53,
    kLnWt060 = 60,
    kLnWt070 = 70,
    kLnWt080 = 80,
    kLnWt090 = 90,
    kLnWt100 = 100,
    kLnWt106 = 106,
    kLnWt120 = 120,
    kLnWt140 = 140,
    kLnWt158 = 158,
    kLnWt200 = 200,
    kLnWt211 = 211,
};

// Where an entity's plot style comes from.
enum PlotStyleNameType : std::uint8_t {
    kPlotStyleNameByLayer = 0,
    kPlotStyleNameByBlock = 1,
    kPlotStyleNameIsDictDefault = 2,
    kPlotStyleNameById = 3,
};

// What an entity does to light.
enum ShadowFlags : std::uint8_t {
    kShadowsCastAndReceive = 0,
    kShadowsCast = 1,
    kShadowsReceive = 2,
    kShadowsIgnore = 3,
};

// Every lineweight a file may hold, in rising order.
inline constexpr std::array<LineWeight, 27> kLineWeights = {
    kLnWtByLwDefault, kLnWtByBlock, kLnWtByLayer, kLnWt000, kLnWt005, kLnWt009, kLnWt013, kLnWt015, kLnWt018,
    kLnWt020,         kLnWt025,     kLnWt030,     kLnWt035, kLnWt040, kLnWt050, kLnWt053, kLnWt060, kLnWt070,
    kLnWt080,         kLnWt090,     kLnWt100,     kLnWt106, kLnWt120, kLnWt140, kLnWt158, kLnWt200, kLnWt211};

} // namespace OdDb
