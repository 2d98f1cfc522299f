#include "tavocad/Program.h"

#include "kxgui/frame/ModuleEntry.h"
#include "platform/text/MessageManager.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "tavocad/Languages.h"
#include "tavocad/Options.h"
#include "tavocad/TavoSession.h"
#include "tavocad/automation/AutomationServer.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

fs::path executablePath() {
    std::error_code error;
    fs::path path = fs::read_symlink("/proc/self/exe", error);
    return path;
}

fs::path findMessages(const fs::path& given, const fs::path& executable) {
    if (!given.empty()) return given;
    const fs::path folder = executable.parent_path();
    std::vector<fs::path> candidates{folder / "messages",
                                     folder.parent_path() / "share" / "kxGui" / "messages"};
    std::ifstream paths(folder / "tavocad.paths");
    for (std::string line; std::getline(paths, line);)
        candidates.push_back(folder / line);
    std::error_code error;
    for (const fs::path& candidate : candidates)
        if (fs::is_directory(candidate, error)) return candidate;
    return {};
}

namespace {
// Every message file of the folder follows the language; the Korean one is always there.
void addMessageFiles(const fs::path& folder) {
    const std::string ending = VORD_MSGFunction::languageSuffix(uiLanguages().front().id);
    std::vector<fs::path> bases;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename().string();
        if (name.ends_with(ending)) bases.push_back(folder / name.substr(0, name.size() - ending.size()));
    }
    std::sort(bases.begin(), bases.end());
    for (const fs::path& base : bases)
        VORD_MSGFunction::AddFileBase(base);
}
void useMessages(const fs::path& given) {
    if (const fs::path messages = findMessages(given, executablePath()); !messages.empty())
        addMessageFiles(messages);
}
} // namespace

void loadMessages(const fs::path& given, const UiLanguage& language) {
    useMessages(given);
    VORD_MSGFunction::SetCurrentLanguageId(language.id);
    VORD_MSGFunction::LoadFile();
}

void startSession(TavoSession& session, const Options& options) {
    _Init_ZEL_CAD_CTRLdll(); // the dialogs' templates come with the library
    useMessages(options.messages);
    session.setLanguage(options.language ? *options.language : session.rememberedLanguage());
    session.moreReferenceFolders = options.references;
    if (!options.drawing.empty()) session.print(session.open(options.drawing));
}

int runHeadless(const Options& options) {
    tv::ui::HeadlessToolkit toolkit;
    TavoSession session;
    startSession(session, options);
    session.startPropertiesBar();
    PipeChannel channel(STDIN_FILENO, STDOUT_FILENO);
    FaceAbilities abilities;
    abilities.advance = [&toolkit](std::chrono::milliseconds by) { toolkit.advance(by); };
    return AutomationServer(session, toolkit, channel, std::move(abilities)).run();
}
