#include "tavocad/Face.h"

#include <cstdio>

bool windowBuiltIn() { return false; }

int runWindow(const Options&, int, char**) {
    std::fputs("tavocad: this build has no window; use --face headless\n", stderr);
    return 2;
}
