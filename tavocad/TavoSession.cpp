#include "tavocad/TavoSession.h"

#include "kxgui/controls/PropertiesBar.h"
#include "kxgui/frame/Messages.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/frx/MDlgMove.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/Format.h"
#include "platform/text/MessageManager.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Dialog.h"
#include "tavocad/DrawingScenes.h"
#include "tavocad/Languages.h"
#include "tavocad/NearNames.h"
#include "tavocad/References.h"
#include "tavocad/SceneLocator.h"
#include "tavocad/SelectionRequests.h"
#include "tavocad/VersionWarnings.h"
#include "tavocad/WarningBox.h"
#include "tavocad/commands/Commands.h"

#include <algorithm>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

using tv::text::format;

namespace {

constexpr wchar_t propertiesBarKey[] = L"PropertiesBar";

constexpr wchar_t referencePath[] = L"XREFPATH", fontPath[] = L"FONTPATH";

// UNDO and REDO run as commands, inside an undo record of their own, in which a drawing takes no step. The
// record is empty: ending it leaves no trace.
std::optional<OdString> stepOutsideRecord(OdDbDatabase& database, OdString (OdDbDatabase::*name)() const,
                                          bool (OdDbDatabase::*step)()) {
    const bool recording = database.isUndoRecording();
    if (recording) database.endUndoRecord();
    std::optional<OdString> taken = (database.*name)();
    if (!(database.*step)()) taken.reset();
    if (recording) database.startUndoRecord(L"");
    return taken;
}

bool isOwnFile(const TavoDocument& document, const std::filesystem::path& file) {
    std::error_code error;
    return file.empty() || file == document.path() || std::filesystem::equivalent(file, document.path(), error);
}

// As saving sees it, which leaves a write-protected file alone even for those who could write it.
bool isWritable(const std::filesystem::path& file) {
    using std::filesystem::perms;
    constexpr perms anyWrite = perms::owner_write | perms::group_write | perms::others_write;
    std::error_code error;
    return (std::filesystem::status(file, error).permissions() & anyWrite) != perms::none &&
           ::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) == 0;
}

// Whether saving there would put an end to a file that isn't the drawing's own. What is no file is refused
// anyway.
bool isOtherFile(const TavoDocument& document, const std::filesystem::path& file) {
    std::error_code error;
    return !isOwnFile(document, file) && std::filesystem::is_regular_file(file, error);
}

} // namespace

TavoSession::TavoSession(std::unique_ptr<tv::SettingsStore> settings)
    : m_points(std::make_unique<PointRequests>()),
      m_host(std::make_unique<tv::host::EmbeddedHost>(std::move(settings))) {
    m_scenes = std::make_unique<DrawingScenes>();
    m_locator = std::make_unique<SceneLocator>(*m_scenes);
    m_host->selection()->setLocator(m_locator.get());
    m_scenes->referenceFolders = [this] {
        OdString path;
        m_host->sysvarManager()->getText(referencePath, path, nullptr);
        std::vector<std::filesystem::path> folders = moreReferenceFolders;
        for (std::filesystem::path& folder : foldersOf(path.view()))
            folders.push_back(std::move(folder));
        return folders;
    };
    m_cutWatched = m_scenes->cut.connect([this](const tv::scene::Cut& cut) { tellCut(cut); });
    m_sysvarsWatched =
        m_host->sysvarManager()->onSysvarChanged([this](const OdString& name, const OdDbDatabasePtr&) {
            if (name == fontPath) findShapeFonts();
            if (name != referencePath || !document()) return;
            m_scenes->forget(document()->database().get());
            tellReferenceFaults(m_scenes->referencesOf(document()->database()), *m_host->commandLine());
        });
    m_documentsWatched = m_host->documentManager()->onDocumentEvent(
        [this](TavoDocumentManager::Event event, TavoDocument* document) {
            if (event == TavoDocumentManager::Event::kClosing) m_scenes->release(document->database().get());
            findShapeFonts();
        });
    findShapeFonts();
    m_objects = std::make_unique<SelectionRequests>(*m_host->selection(), [this] { return pickTolerance(); });
    m_versionWarnings = std::make_unique<VersionWarnings>(*m_host->documentManager(), *m_host->commandLine());
    m_host->setPointInput(m_points.get());
    zel::frx::setPlacementStore(m_host->settings());
    registerCommands(*this);
}

TavoSession::~TavoSession() {
    m_propertiesBar.reset(); // while there is a host to let go of
    m_host->selection()->setLocator(nullptr);
    zel::frx::setPlacementStore(nullptr);
}

void TavoSession::findShapeFonts() {
    std::vector<std::filesystem::path> folders;
    if (const TavoDocument* current = document(); current && !current->path().empty())
        folders.push_back(current->path().parent_path());
    OdString path;
    m_host->sysvarManager()->getText(fontPath, path, nullptr);
    for (std::filesystem::path& folder : foldersOf(path.view()))
        folders.push_back(std::move(folder));
    m_host->defaultFonts().setShapeFolders(std::move(folders));
}

TavoInterfaces& TavoSession::host() { return *m_host; }

TavoDocument* TavoSession::document() const { return m_host->documentManager()->currentDocument(); }

double TavoSession::pickTolerance() {
    constexpr double pixels = 1000;
    int pickBox = 3;
    tvedGetVar(L"PICKBOX", pickBox, nullptr);
    if (!document()) return 0;
    const tv::scene::Box box = m_scenes->sceneOf(document()->database())->box;
    return box.empty() ? 0 : std::max(box.right - box.left, box.top - box.bottom) * pickBox / pixels;
}

void TavoSession::print(const tv::Problem& problem) {
    if (problem) m_host->commandLine()->print(problem.sentence);
}

// --- commands ---

void TavoSession::addCommand(CommandSpec spec) {
    TavoCommands& commands = *m_host->commands();
    bool added = commands.add(spec.name, spec.function, spec.undo) == Tavo::eOk;
    for (const wchar_t* alias : spec.aliases)
        added = commands.addAlias(alias, spec.name) == Tavo::eOk && added;
    if (!added) throw std::logic_error("command defined twice: " + tv::text::toUtf8(spec.name));
    m_commands.push_back(std::move(spec));
}

OdString TavoSession::commandName(const OdString& word) {
    std::wstring_view name = word.view();
    while (!name.empty() && (name.front() == L'_' || name.front() == L'-' || name.front() == L'\''))
        name.remove_prefix(1);
    return tv::text::toUpper(name);
}

int TavoSession::enterLine(const OdString& line) {
    OdString text = line;
    text.trim();
    if (m_points->waiting()) {
        if (const auto result = m_points->supplyText(text.view()); !result)
            m_host->commandLine()->print(result.refusal);
        return RTNORM;
    }
    if (m_objects->waiting()) {
        if (const auto result = m_objects->supplyText(text.view()); !result)
            m_host->commandLine()->print(result.refusal);
        return RTNORM;
    }
    if (text.isEmpty()) return m_lastCommand.isEmpty() ? RTNORM : runCommand(m_lastCommand);
    const int blank = text.find(L' ');
    const OdString word = blank < 0 ? text : text.left(blank);
    OdString rest = blank < 0 ? OdString() : text.mid(blank + 1);
    rest.trim();
    const OdString name = commandName(word);
    if (m_host->commands()->has(name)) return runCommand(name, rest);
    if (m_host->sysvarManager()->type(name) != TavoSysvarType::kNone) return runCommand(L"SETVAR", text);
    m_host->commandLine()->print(unknownCommand(word));
    return RTERROR;
}

int TavoSession::runCommand(const OdString& name, const OdString& arguments) {
    if (!m_host->commands()->running().empty()) {
        m_host->commandLine()->print(
            format(VORD_ResourceString("IDS_TAVO_COMMAND_RUNNING",
                                       L"다른 명령이 실행 중이므로 %s 명령을 시작할 수 없습니다."),
                   name));
        return RTERROR;
    }
    const OdString command = fullName(name);
    m_arguments = arguments;
    m_lastCommand = command;
    const int result = m_host->commands()->run(command);
    m_arguments.empty();
    m_host->selection()->dropErased();
    m_commandEnded.notify(command, result);
    return result;
}

OdString TavoSession::fullName(const OdString& typed) const {
    const OdString name = commandName(typed);
    for (const CommandSpec& command : m_commands)
        for (const wchar_t* alias : command.aliases)
            if (name == alias) return command.name;
    return name;
}

OdString TavoSession::unknownCommand(const OdString& word) const {
    std::vector<std::wstring> names;
    for (const OdString& name : m_host->commands()->names())
        names.push_back(name.wstr());
    const auto near = nearNames(commandName(word).view(), names);
    if (near.empty())
        return format(
            VORD_ResourceString(
                "IDS_TAVO_UNKNOWN_COMMAND",
                L"\"%s\"은(는) 명령이나 시스템 변수가 아닙니다. HELP를 입력하면 명령을 볼 수 있습니다."),
            word);
    return format(VORD_ResourceString("IDS_TAVO_UNKNOWN_COMMAND_NEAR",
                                      L"\"%s\"은(는) 명령이나 시스템 변수가 아닙니다. 비슷한 명령: %s."),
                  word, joined(near));
}

// --- documents ---

void TavoSession::tellFaults(const std::vector<tv::Problem>& problems) {
    constexpr std::size_t mostTold = 5;
    for (std::size_t i = 0; i < std::min(problems.size(), mostTold); ++i)
        print(problems[i]);
    if (problems.size() > mostTold)
        m_host->commandLine()->print(format(VORD_ResourceString("IDS_TAVO_FAULTS_MORE", L"... 그 밖에 %d개"),
                                            static_cast<long long>(problems.size() - mostTold)));
}

void TavoSession::tellHowToSave(TavoDocument& opened, bool faults) {
    if (faults && opened.database()->isReadOnly())
        m_host->commandLine()->print(
            format(VORD_ResourceString("IDS_TAVO_OPENED_READ_ONLY",
                                       L"손상된 도면 \"%s\"을(를) 읽기 전용으로 열었습니다. 편집하려면 "
                                       L"SAVEAS로 다른 이름에 저장하십시오."),
                   opened.name()));
    else if (!isWritable(opened.path()))
        m_host->commandLine()->print(
            format(VORD_ResourceString("IDS_TAVO_OPENED_NOT_WRITABLE",
                                       L"파일 \"%s\"에는 쓸 수 없습니다. 변경 내용은 SAVEAS로 다른 이름에 "
                                       L"저장하십시오."),
                   opened.name()));
}

void TavoSession::tellCut(const tv::scene::Cut& cut) {
    TavoCommandLine& line = *m_host->commandLine();
    if (cut.inserts > 0)
        line.print(
            format(VORD_ResourceString("IDS_TAVO_CUT_INSERTS",
                                       L"모두 그리기에는 너무 많아 블록 삽입 %d개를 일부만 보여 주거나 보여 "
                                       L"주지 않습니다. 그중 첫째는 블록 \"%s\"입니다."),
                   static_cast<long long>(cut.inserts), cut.block));
    else
        line.print(format(VORD_ResourceString("IDS_TAVO_CUT_ENTITIES",
                                              L"모두 그리기에는 너무 많아 객체 %d개를 보여 주지 않습니다."),
                          static_cast<long long>(cut.entities)));
}

tv::Problem TavoSession::open(const std::filesystem::path& file, std::vector<tv::Problem>* faults) {
    std::vector<tv::Problem> problems;
    const std::size_t before = m_host->documentManager()->documents().size();
    TavoDocument* const opened = m_host->documentManager()->openDocument(file, problems);
    if (faults) *faults = problems;
    if (opened) {
        tellFaults(problems);
        if (m_host->documentManager()->documents().size() == before) return {};
        tellHowToSave(*opened, !problems.empty());
        tellReferenceFaults(m_scenes->referencesOf(opened->database()), *m_host->commandLine());
        return {};
    }
    if (!problems.empty()) return problems.front();
    const std::wstring name = tv::text::fromUtf8(file.string());
    return {Tavo::eBadFile,
            format(VORD_ResourceString("IDS_TAVO_NOT_OPENED", L"도면 \"%s\"을(를) 열지 못했습니다."), name),
            name};
}

tv::Problem TavoSession::save(const std::filesystem::path& file, bool force) {
    TavoDocument* current = document();
    if (!current)
        return {Tavo::eNoDatabase,
                VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다.").c_str(),
                {}};
    if (!force && isOtherFile(*current, file)) {
        const std::wstring name = tv::text::fromUtf8(file.native());
        return {Tavo::eDuplicate,
                format(VORD_ResourceString("IDS_TAVO_SAVE_OTHER_EXISTS",
                                           L"도면을 저장하지 않았습니다: 파일 \"%s\"이(가) 이미 있습니다."),
                       name),
                name};
    }
    return m_host->documentManager()->saveDocument(current, file, force);
}

std::optional<std::filesystem::path> TavoSession::askSaveName() {
    if (askFile) return askFile(FileQuestion::save);
    m_host->commandLine()->print(
        format(VORD_ResourceString("IDS_TAVO_FILE_NAME_MISSING", L"파일 이름이 필요합니다. 예: %s drawing.dxf"),
               L"SAVEAS"));
    return std::nullopt;
}

void TavoSession::say(const tv::Problem& problem, bool box) {
    constexpr unsigned okError = 0x10;
    // The first sentence becomes the box's instruction, and the reason may hold a file's name with its dot.
    if (box)
        MessageDlg(format(VORD_ResourceString("IDS_TAVO_SAVE_FAILED", L"도면을 저장하지 못했습니다. %s"),
                          problem.sentence)
                       .c_str(),
                   m_host->productName(), okError);
    else
        print(problem);
}

TavoSession::SaveResult TavoSession::saveAsking(TavoDocument& document, const std::filesystem::path& file,
                                                SaveHow how) {
    const OdDbDatabase& database = *document.database();
    const bool damaged = database.isReadOnly() && database.damaged();
    std::filesystem::path target = file;
    if (damaged && target.empty() &&
        QuestionDlg(
            m_host->productName(),
            VORD_ResourceString("IDS_TAVO_SAVE_DAMAGED", L"손상된 도면을 다른 이름으로 저장하시겠습니까?"),
            VORD_ResourceString("IDS_TAVO_SAVE_DAMAGED_WHY",
                                L"읽지 못한 내용이 있으므로 원래 파일은 그대로 둡니다."),
            VORD_ResourceString("IDS_TAVO_SAVE_OTHER_NAME", L"다른 이름으로 저장"),
            VORD_ResourceString("IDS_TAVO_SAVE_NOT", L"저장하지 않음"), 1, 1) != 0)
        return SaveResult::givenUp;
    if (target.empty() && (damaged || document.path().empty())) {
        const auto asked = askSaveName();
        if (!asked) return SaveResult::givenUp;
        target = *asked;
        how.asked = true;
    }
    // The box takes the first sentence as its instruction, so the file's name with its dot comes later.
    std::wstring warning;
    if (isOwnFile(document, target) && damaged)
        warning =
            format(VORD_ResourceString("IDS_TAVO_SAVE_OVER_DAMAGED",
                                       L"손상된 파일에 덮어쓰시겠습니까? \"%s\" 파일에서 읽지 못한 내용을 "
                                       L"다른 방법으로 되찾을 수 없게 될 수 있습니다."),
                   document.name());
    else if (isOwnFile(document, target) && database.changedOnDisk())
        warning =
            format(VORD_ResourceString("IDS_TAVO_CHANGED_OUTSIDE_ASK",
                                       L"다른 곳에서 변경된 파일에 저장하시겠습니까? \"%s\" 파일은 연 "
                                       L"뒤에 다른 곳에서 변경되었고, 저장하면 그 변경 내용을 잃게 됩니다."),
                   document.name());
    else if (!how.asked && isOtherFile(document, target))
        warning = format(VORD_ResourceString("IDS_TAVO_SAVE_OVER_OTHER",
                                             L"이미 있는 파일에 덮어쓰시겠습니까? 파일 \"%s\"의 지금 내용을 "
                                             L"잃게 됩니다."),
                         tv::text::fromUtf8(target.native()));
    if (!warning.empty() && !askWarning(m_host->productName().view(), warning)) return SaveResult::givenUp;
    const tv::Problem problem = m_host->documentManager()->saveDocument(&document, target, !warning.empty());
    if (!problem) return SaveResult::saved;
    say(problem, how.boxes);
    return SaveResult::failed;
}

std::optional<OdString> TavoSession::undo() {
    if (!document()) return std::nullopt;
    return stepOutsideRecord(*document()->database(), &OdDbDatabase::undoName, &OdDbDatabase::undo);
}

std::optional<OdString> TavoSession::redo() {
    if (!document()) return std::nullopt;
    return stepOutsideRecord(*document()->database(), &OdDbDatabase::redoName, &OdDbDatabase::redo);
}

bool TavoSession::closeAsking(TavoDocument* document) {
    if (document->isModified()) {
        // The box takes the first sentence as its instruction, so the file's name with its dot comes later.
        const std::wstring question = format(
            VORD_ResourceString("IDS_TAVO_SAVE_CHANGES",
                                L"변경 내용을 저장하시겠습니까? 저장하지 않으면 도면 \"%s\"의 변경 내용을 "
                                L"잃게 됩니다."),
            document->name());
        constexpr unsigned yesNoCancelWarning = 0x33;
        const unsigned answer = MessageDlg(question.c_str(), m_host->productName(), yesNoCancelWarning);
        if (answer != IDYES && answer != IDNO) return false;
        if (answer == IDYES && saveAsking(*document, {}, {.boxes = true}) != SaveResult::saved) return false;
    }
    m_host->documentManager()->closeDocument(document);
    return true;
}

// --- the program ---

void TavoSession::setLanguage(const UiLanguage& language) {
    VORD_MSGFunction::SetCurrentLanguageId(language.id);
    if (!VORD_MSGFunction::LoadFile())
        for (const tv::Problem& problem : VORD_MSGFunction::problems())
            print(problem);
    m_host->settings()->setString(settingsSection, L"Language", language.code);
}

const UiLanguage& TavoSession::rememberedLanguage() {
    const auto stored = m_host->settings()->getString(settingsSection, L"Language");
    const UiLanguage* language = stored ? uiLanguage(*stored) : nullptr;
    return language ? *language : systemUiLanguage();
}

const UiLanguage& TavoSession::language() {
    const UiLanguage* current = uiLanguage(VORD_MSGFunction::GetCurrentLanguageId());
    return current ? *current : uiLanguages().front();
}

OdString TavoSession::unknownLanguage(const OdString& code) {
    return format(VORD_ResourceString("IDS_TAVO_UNKNOWN_LANGUAGE",
                                      L"\"%s\"(이)라는 언어는 없습니다. 가능한 값: kr, en, jp, rs, ch."),
                  code);
}

void TavoSession::startPropertiesBar() {
    if (m_propertiesBar) return;
    m_propertiesBar = std::make_unique<CPropertiesBar>();
    // After the click, which must have ended before a command may run a window.
    m_propertiesBar->onLayers = [this] {
        m_layersAsked = tv::ui::Toolkit::current()->post([this] { runCommand(L"LAYER"); });
    };
    m_propertiesBar->ShowBar(m_host->settings()->getInt(settingsSection, propertiesBarKey).value_or(1) != 0);
    m_propertiesBar->Create();
}

void TavoSession::showPropertiesBar(bool show) {
    if (!m_propertiesBar || m_propertiesBar->shown() == show) return;
    m_propertiesBar->ShowBar(show);
    m_host->settings()->setInt(settingsSection, propertiesBarKey, show);
    propertiesBarShown.notify();
}

void TavoSession::requestQuit() {
    m_quit = true;
    quitting.notify();
}
