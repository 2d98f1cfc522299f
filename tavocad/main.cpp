#include "tavocad/Face.h"
#include "tavocad/Options.h"
#include "tavocad/Program.h"

#include <csignal>

int main(int argc, char** argv) {
    // A reader that goes away ends the automation in good order instead of killing the process.
    std::signal(SIGPIPE, SIG_IGN);
    // A save beyond the allowed file size fails like one onto a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    Options options;
    if (const auto code = parseOptions(argc, argv, windowBuiltIn(), options)) return *code;
    if (options.face == Face::qt) return runWindow(options, argc, argv);
    return runHeadless(options);
}
