#include "tavocad/Options.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "tavocad/Languages.h"
#include "tavocad/NearNames.h"
#include "tavocad/Program.h"
#include "tavocad/Version.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <iostream>
#include <span>

using tv::text::format;
using tv::text::fromUtf8;

namespace {

bool displayThere() {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (const char* value = std::getenv(variable); value && *value) return true;
    return false;
}

// The options as they were typed.
struct Typed {
    std::string language, face, theme, messages, screenshots;
    std::vector<std::string> references;
};

template <class Value>
struct Choice {
    const char* name;
    Value value;
};
constexpr Choice<Face> faces[] = {{"headless", Face::headless}, {"qt", Face::qt}};
constexpr Choice<ThemeChoice> themes[] = {
    {"light", ThemeChoice::light}, {"dark", ThemeChoice::dark}, {"system", ThemeChoice::system}};

// The choice of that name; else a sentence with all that can be chosen.
template <class Value>
std::wstring choose(const wchar_t* option, const std::string& typed, std::span<const Choice<Value>> choices,
                    std::optional<Value>& chosen) {
    std::wstring all;
    for (const Choice<Value>& choice : choices) {
        if (typed == choice.name) chosen = choice.value;
        all += (all.empty() ? L"" : L", ") + fromUtf8(choice.name);
    }
    if (chosen || typed.empty()) return {};
    return format(VORD_ResourceString("IDS_TAVO_OPTION_BAD_VALUE",
                                      L"옵션 %s의 값 \"%s\"을(를) 알 수 없습니다. 가능한 값: %s."),
                  option, fromUtf8(typed), all);
}

std::wstring chooseFolder(const wchar_t* option, const std::string& typed, std::filesystem::path& folder) {
    std::error_code error;
    folder = typed;
    if (typed.empty() || std::filesystem::is_directory(folder, error)) return {};
    return format(VORD_ResourceString("IDS_TAVO_OPTION_NO_FOLDER", L"옵션 %s의 폴더 \"%s\"이(가) 없습니다."),
                  option, fromUtf8(typed));
}

// What the parser has against the words it was given.
std::wstring sentenceOf(const CLI::App& app, const CLI::ParseError& error) {
    std::vector<std::wstring> names;
    for (const CLI::Option* option : app.get_options())
        for (const std::string& name : option->get_lnames())
            names.push_back(L"--" + fromUtf8(name));
    const std::vector<std::string> left = app.remaining();
    if (!left.empty() && left.front().starts_with('-')) {
        const std::wstring word = fromUtf8(left.front());
        const auto near = nearNames(word, names);
        return near.empty()
                   ? format(VORD_ResourceString("IDS_TAVO_OPTION_UNKNOWN",
                                                L"\"%s\"(이)라는 옵션은 없습니다. 모든 옵션은 --help로 볼 "
                                                L"수 있습니다."),
                            word)
                   : format(VORD_ResourceString("IDS_TAVO_OPTION_NEAR",
                                                L"\"%s\"(이)라는 옵션은 없습니다. 비슷한 옵션: %s."),
                            word, joined(near));
    }
    if (!left.empty())
        return format(VORD_ResourceString("IDS_TAVO_OPTION_ONE_DRAWING",
                                          L"도면은 하나만 열 수 있습니다. \"%s\"은(는) 지나친 것입니다."),
                      fromUtf8(left.front()));
    // The parser's sentence begins with the option it is about.
    const std::wstring what = fromUtf8(error.what());
    for (const std::wstring& name : names)
        if (what.starts_with(name))
            return format(
                VORD_ResourceString("IDS_TAVO_OPTION_NEEDS_VALUE", L"옵션 %s에 맞는 값이 필요합니다."), name);
    return VORD_ResourceString("IDS_TAVO_OPTIONS_BAD",
                               L"옵션을 이해할 수 없습니다. 모든 옵션은 --help로 볼 수 있습니다.")
        .c_str();
}

// What was typed for an option, found without the parser, which forgets everything after a fault.
std::string typedFor(std::string_view option, int argc, const char* const* argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == option && i + 1 < argc) return argv[i + 1];
        if (word.starts_with(option) && word.size() > option.size() && word[option.size()] == '=')
            return std::string(word.substr(option.size() + 1));
    }
    return {};
}

// Before anything is open: in the language asked for, as far as that was understood.
int refuse(const Options& options, const std::function<std::wstring()>& sentence) {
    loadMessages(options.messages, options.language ? *options.language : systemUiLanguage());
    std::cerr << "tavocad: " << tv::text::toUtf8(sentence()) << '\n';
    return 2;
}

// Fills `options` with what was typed; the first fault is the answer.
std::wstring understand(const Typed& typed, bool window, Options& options, std::optional<Face>& face) {
    std::span<const Choice<Face>> built = faces;
    if (!window) built = built.first(1);
    std::wstring all;
    for (const UiLanguage& language : uiLanguages())
        all += (all.empty() ? L"" : L", ") + std::wstring(language.code);
    if (!typed.language.empty() && !options.language)
        return format(VORD_ResourceString("IDS_TAVO_OPTION_BAD_VALUE",
                                          L"옵션 %s의 값 \"%s\"을(를) 알 수 없습니다. 가능한 값: %s."),
                      L"--language", fromUtf8(typed.language), all);
    if (auto fault = choose(L"--face", typed.face, built, face); !fault.empty()) return fault;
    if (auto fault = choose<ThemeChoice>(L"--theme", typed.theme, themes, options.theme); !fault.empty())
        return fault;
    std::filesystem::path messages;
    if (auto fault = chooseFolder(L"--messages", typed.messages, messages); !fault.empty()) return fault;
    options.messages = messages;
    options.references.clear();
    for (const std::string& typedFolder : typed.references) {
        std::filesystem::path& folder = options.references.emplace_back();
        if (auto fault = chooseFolder(L"--references", typedFolder, folder); !fault.empty()) return fault;
    }
    return chooseFolder(L"--screenshots", typed.screenshots, options.screenshots);
}

} // namespace

std::optional<int> parseOptions(int argc, const char* const* argv, bool window, Options& options) {
    CLI::App app("TavoCAD opens drawings, shows them and changes their settings in dialogs.", "tavocad");
    Typed typed;
    app.add_option("drawing", options.drawing, "Drawing to open (.dxf)");
    app.add_flag("--automation", options.automation, "Take requests as JSON lines on standard input");
    app.add_option("--face", typed.face, "How dialogs are shown; without it qt when there is a display")
        ->option_text(window ? "headless|qt" : "headless");
    app.add_option("--language", typed.language, "Language of the texts")->option_text("kr|en|jp|rs|ch");
    app.add_option("--theme", typed.theme, "Colours of the windows")->option_text("light|dark|system");
    app.add_option("--messages", typed.messages, "Folder with the message files")->option_text("FOLDER");
    app.add_option("--references", typed.references,
                   "Folder in which drawings referred to are looked for; may be given several times")
        ->option_text("FOLDER")
        ->allow_extra_args(false);
    app.add_option("--screenshots", typed.screenshots, "Folder that relative screenshot paths start from")
        ->option_text("FOLDER");
    app.set_version_flag("--version", std::string("tavocad ") + tavocadVersion);
    app.footer("The file docs/automation.md describes the requests.");
    std::optional<Face> face;
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& shown) {
        return app.exit(shown);
    } catch (const CLI::ParseError& error) {
        options.language = uiLanguage(fromUtf8(typedFor("--language", argc, argv)));
        static_cast<void>(chooseFolder(L"--messages", typedFor("--messages", argc, argv), options.messages));
        return refuse(options, [&] { return sentenceOf(app, error); });
    }
    options.language = uiLanguage(fromUtf8(typed.language));
    std::wstring fault = understand(typed, window, options, face);
    if (!fault.empty()) return refuse(options, [&] { return understand(typed, window, options, face); });
    options.face = face.value_or(window && displayThere() ? Face::qt : Face::headless);
    if (options.face == Face::qt && !displayThere())
        return refuse(options, [] {
            return std::wstring(VORD_ResourceString("IDS_TAVO_OPTION_NO_DISPLAY",
                                                    L"창을 보여 줄 화면이 없습니다. --face headless "
                                                    L"--automation을 사용하십시오."));
        });
    if (options.face == Face::headless && !options.automation)
        return refuse(options, [&] {
            return std::wstring(
                face ? VORD_ResourceString(
                           "IDS_TAVO_OPTION_NOBODY",
                           L"화면 없이 쓰려면 --automation이 필요합니다. 볼 사람이 없기 때문입니다.")
                           .c_str()
                : window ? VORD_ResourceString("IDS_TAVO_OPTION_NO_DISPLAY",
                                               L"창을 보여 줄 화면이 없습니다. --face headless "
                                               L"--automation을 사용하십시오.")
                               .c_str()
                         : VORD_ResourceString("IDS_TAVO_OPTION_NO_WINDOW",
                                               L"이 빌드에는 창이 없습니다. --automation을 사용하십시오.")
                               .c_str());
        });
    return std::nullopt;
}
