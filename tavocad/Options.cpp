#include "tavocad/Options.h"

#include "platform/text/Unicode.h"
#include "tavocad/Languages.h"
#include "tavocad/Version.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <map>

namespace {
bool displayThere() {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (const char* value = std::getenv(variable); value && *value) return true;
    return false;
}
} // namespace

std::optional<int> parseOptions(int argc, const char* const* argv, bool window, Options& options) {
    CLI::App app("TavoCAD opens drawings, shows them and changes their settings in dialogs.", "tavocad");
    std::string language;
    std::optional<Face> face;
    std::map<std::string, Face> faces{{"headless", Face::headless}};
    if (window) faces.emplace("qt", Face::qt);
    const std::map<std::string, ThemeChoice> themes{
        {"light", ThemeChoice::light}, {"dark", ThemeChoice::dark}, {"system", ThemeChoice::system}};

    app.add_option("drawing", options.drawing, "Drawing to open (.dxf)");
    app.add_flag("--automation", options.automation, "Take requests as JSON lines on standard input");
    app.add_option("--face", face, "How dialogs are shown; without it qt when there is a display")
        ->transform(CLI::Transformer(faces))
        ->check(CLI::IsMember(std::vector<Face>{Face::headless, Face::qt}))
        ->option_text(window ? "headless|qt" : "headless");
    app.add_option("--language", language, "Language of the texts")
        ->check(CLI::IsMember({"kr", "en", "jp", "rs", "ch"}))
        ->option_text("kr|en|jp|rs|ch");
    app.add_option("--theme", options.theme, "Colours of the windows")
        ->transform(CLI::Transformer(themes))
        ->option_text("light|dark|system");
    app.add_option("--messages", options.messages, "Folder with the message files")
        ->check(CLI::ExistingDirectory);
    app.add_option("--screenshots", options.screenshots, "Folder that relative screenshot paths start from")
        ->check(CLI::ExistingDirectory);
    app.set_version_flag("--version", std::string("tavocad ") + tavocadVersion);
    app.footer("The file docs/automation.md describes the requests.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error);
    }
    if (!language.empty()) options.language = uiLanguage(tv::text::fromUtf8(language));
    options.face = face.value_or(window && displayThere() ? Face::qt : Face::headless);
    if (options.face == Face::headless && !options.automation) {
        std::fputs(face     ? "tavocad: the headless face needs --automation: there is nobody to look at it\n"
                   : window ? "tavocad: there is no display to show a window on; use --automation\n"
                            : "tavocad: this build has no window; use --automation\n",
                   stderr);
        return 2;
    }
    if (options.face == Face::qt && !displayThere()) {
        std::fputs("tavocad: there is no display to show a window on; use --face headless --automation\n",
                   stderr);
        return 2;
    }
    return std::nullopt;
}
