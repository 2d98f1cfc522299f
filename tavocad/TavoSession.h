#pragma once

#include "platform/host/Signal.h"
#include "platform/host/TavoCommands.h"
#include "platform/host/TavoDocumentManager.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"
#include "platform/text/SettingsStore.h"
#include "platform/toolkit/Toolkit.h"
#include "tavocad/PointRequests.h"
#include "tavocad/ZoomRequest.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct UiLanguage;
class CPropertiesBar;
class DrawingScenes;
class SceneLocator;
class SelectionRequests;
class VersionWarnings;
class TavoInterfaces;

namespace tv::host {
class EmbeddedHost;
}
namespace tv::scene {
struct Cut;
}

// A command as a person meets it.
struct CommandSpec {
    const wchar_t* name; // upper case
    std::vector<const wchar_t*> aliases;
    OdString (*summary)(); // one line for HELP, in the current language
    TavoCommands::Function function;
    TavoCommands::Undo undo = TavoCommands::Undo::kOneStep;
};

// The program without its window: the embedded host with the program's commands, shared by the window, the
// automation pipe and the tests.
class TavoSession {
  public:
    static constexpr wchar_t settingsSection[] = L"TavoCAD";

    // Without a store the program forgets its settings when it ends.
    explicit TavoSession(std::unique_ptr<tv::SettingsStore> settings = nullptr);
    ~TavoSession();
    TavoSession(const TavoSession&) = delete;
    TavoSession& operator=(const TavoSession&) = delete;

    TavoInterfaces& host();
    PointRequests& points() { return *m_points; }
    SelectionRequests& objects() { return *m_objects; }
    DrawingScenes& scenes() { return *m_scenes; }
    // How near to an object a point must be when nobody looks at pixels: the pick box's, with the whole drawing
    // seen in a thousand of them.
    double pickTolerance();
    TavoDocument* document() const;

    // --- commands ---

    // A command or alias whose name is taken is a fault of the program.
    void addCommand(CommandSpec spec);
    // In the order they were added.
    const std::vector<CommandSpec>& commands() const { return m_commands; }

    // What a person typed into the command line: the answer to a request for a point, a command with its
    // arguments, or a system variable to show or set; an empty line repeats the last command. Faults are told
    // on the command line. Answers the result code.
    int enterLine(const OdString& line);
    // `arguments` is what follows the name. Refused (RTERROR, told on the command line) while another command
    // runs.
    int runCommand(const OdString& name, const OdString& arguments = {});
    // What followed the running command's name.
    const OdString& arguments() const { return m_arguments; }
    // The name a command line word stands for: without "_", "-" and "'" in front, in upper case.
    static OdString commandName(const OdString& word);

    // Why a word is no command: the sentence, with the names most like it.
    OdString unknownCommand(const OdString& word) const;
    static OdString unknownLanguage(const OdString& code);

    using CommandListener = std::function<void(const OdString& name, int result)>;
    [[nodiscard]] tv::host::Subscription onCommandEnded(CommandListener listener) {
        return m_commandEnded.connect(std::move(listener));
    }

    // --- documents ---

    // What was wrong with a file that opened nevertheless goes to the command line; the problem says why it did
    // not open. Many faults are told shortened; all of them come with `faults`.
    tv::Problem open(const std::filesystem::path& file, std::vector<tv::Problem>* faults = nullptr);
    // An empty path means the drawing's own file. Refused for one that is damaged or that somebody else changed
    // since it was opened, and for any other file that is there already, unless `force`.
    tv::Problem save(const std::filesystem::path& file = {}, bool force = false);
    enum class SaveResult { saved, givenUp, failed };
    struct SaveHow {
        bool boxes = false; // a failure is told in a box, else on the command line
        bool asked = false; // whoever named the file knows whether it is there
    };
    // The same with a person there: asks before writing over another file or what somebody else wrote, and for
    // another name when the drawing has none or is damaged.
    SaveResult saveAsking(TavoDocument& document, const std::filesystem::path& file, SaveHow how);
    // One step of the current drawing: its name ("_UNITS"), nothing when there is none to take. Also inside the
    // running UNDO and REDO commands.
    std::optional<OdString> undo();
    std::optional<OdString> redo();
    // Sentences for the command line.
    void print(const tv::Problem& problem);
    // Asks whether to save a changed drawing, saves it if so and closes it. False when the user gave up or
    // saving failed.
    bool closeAsking(TavoDocument* document);

    // Where drawings referred to are looked for before the folders of the user's XREFPATH.
    std::vector<std::filesystem::path> moreReferenceFolders;

    enum class FileQuestion { open, save };
    // Asks the person for a file name, and whether one that is there may be written over; unset when there is
    // nobody to ask. Nothing when he gave up.
    std::function<std::optional<std::filesystem::path>(FileQuestion)> askFile;

    // --- the program ---

    void setLanguage(const UiLanguage& language);
    // The one of the settings, else the system's.
    const UiLanguage& rememberedLanguage();
    static const UiLanguage& language();
    // The bar of properties: made once, by whoever shows the program, and shown unless a person has hidden it.
    void startPropertiesBar();
    CPropertiesBar* propertiesBar() const { return m_propertiesBar.get(); } // null before
    void showPropertiesBar(bool show);                                      // remembered in the settings
    void requestQuit();
    bool quitRequested() const { return m_quit; }

    // Somebody wants another part of the drawing in view.
    tv::host::Signal<const ZoomRequest&> zoom;
    tv::host::Signal<> quitting;
    tv::host::Signal<> propertiesBarShown; // or hidden

  private:
    // Beside the current drawing, then in the folders of the user's FONTPATH.
    void findShapeFonts();
    // An alias spelled out.
    OdString fullName(const OdString& typed) const;

    std::optional<std::filesystem::path> askSaveName();
    void say(const tv::Problem& problem, bool box);
    void tellFaults(const std::vector<tv::Problem>& problems);
    void tellCut(const tv::scene::Cut& cut);
    void tellHowToSave(TavoDocument& opened, bool faults);

    std::unique_ptr<PointRequests> m_points;
    std::unique_ptr<tv::host::EmbeddedHost> m_host;
    std::unique_ptr<DrawingScenes> m_scenes;
    std::unique_ptr<SceneLocator> m_locator;
    std::unique_ptr<SelectionRequests> m_objects;
    std::unique_ptr<VersionWarnings> m_versionWarnings;
    tv::ui::Timer m_layersAsked;
    std::unique_ptr<CPropertiesBar> m_propertiesBar;
    tv::host::Subscription m_documentsWatched, m_sysvarsWatched, m_cutWatched;
    tv::host::Signal<const OdString&, int> m_commandEnded;
    std::vector<CommandSpec> m_commands;
    OdString m_arguments, m_lastCommand;
    bool m_quit = false;
};
