#pragma once

#include <cstdio>
#include <cstdlib>

// What must hold for every input; the driver's run ends where it doesn't.
inline void require(bool good, const char* what) {
    if (good) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}
