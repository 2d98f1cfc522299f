#pragma once

struct Options;

// Whether this build can show windows.
bool windowBuiltIn();
// The program with its window; returns the exit code. A build without windows says so and returns 2.
int runWindow(const Options& options, int argc, char** argv);
