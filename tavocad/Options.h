#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

struct UiLanguage;

enum class Face { headless, qt };
enum class ThemeChoice { light, dark, system };

// What the program was asked for on its command line.
struct Options {
    std::filesystem::path drawing; // empty: none
    bool automation = false;
    Face face = Face::headless;
    const UiLanguage* language = nullptr;          // null: as last time, else as the system says
    std::optional<ThemeChoice> theme;              // unset: as last time
    std::filesystem::path messages;                // empty: found beside the program
    std::vector<std::filesystem::path> references; // where drawings referred to are looked for
    std::filesystem::path screenshots;             // where relative screenshot paths start
};

// Fills `options`; `window`: this build can show windows. An exit code when the program ends here: help or
// version was shown, or an option makes no sense (stderr says which).
std::optional<int> parseOptions(int argc, const char* const* argv, bool window, Options& options);
