#pragma once

#include <cmath>

//! [rule]
// What the STAIR command needs to know; lengths in millimetres.
struct T_STAIR_D {
    double height = 2800.0; // from floor to floor
    double riser = 175.0;   // the wanted height of a step
};

// The number of risers that comes closest to the wanted one without being steeper; 0 when there is no such
// stair.
inline int riserCount(const T_STAIR_D& stair) {
    if (!(stair.height > 0.0) || !(stair.riser > 0.0) || stair.height / stair.riser > 1000.0) return 0;
    return static_cast<int>(std::ceil(stair.height / stair.riser - 1e-9));
}
//! [rule]
