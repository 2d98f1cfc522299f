#include "tavocad/Face.h"
#include "tavocad/Options.h"
#include "tavocad/Program.h"
#include "tavocad/TavoSession.h"
#include "tavocad/automation/AutomationServer.h"
#include "tavocad/window/FileQuestions.h"
#include "tavocad/window/MainWindow.h"
#include "tavocad/window/QtText.h"
#include "tavocad/window/Templates.h"
#include "tavocad/window/WatchedChannel.h"

#include "platform/host/TavoInterfaces.h"
#include "platform/text/FileError.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/SettingsStore.h"
#include "platform/text/Unicode.h"
#include "qt/QtToolkit.h"

#include <QApplication>
#include <QFileInfo>
#include <QImageWriter>
#include <QStandardPaths>

#include <cerrno>
#include <clocale>
#include <fcntl.h>
#include <unistd.h>

namespace {

std::unique_ptr<tv::SettingsStore> settingsOf(const Options& options) {
    // A script finds the same program every time, whatever a person set.
    if (options.automation) return nullptr;
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::make_unique<tv::FileSettingsStore>(std::filesystem::path(folder.toStdString()) / "TavoCAD" /
                                                   "settings.ini");
}

ThemeChoice themeOf(const Options& options, TavoSession& session) {
    if (options.theme) return *options.theme;
    const int stored = session.host()
                           .settings()
                           ->getInt(TavoSession::settingsSection, L"Theme")
                           .value_or(static_cast<int>(ThemeChoice::system));
    return stored >= 0 && stored <= static_cast<int>(ThemeChoice::system) ? static_cast<ThemeChoice>(stored)
                                                                          : ThemeChoice::system;
}

tv::Problem saveScreenshot(const QtToolkit& toolkit, const std::filesystem::path& file) {
    const std::wstring name = tv::text::fromUtf8(file.string());
    const QString format = QFileInfo(toQt(name)).suffix();
    if (!QImageWriter::supportedImageFormats().contains(format.toLower().toLatin1()))
        return {Tavo::eInvalidInput,
                tv::text::format(VORD_ResourceString("IDS_TAVO_SCREENSHOT_FORMAT",
                                                     L"화면 그림을 \"%s\"에 저장하지 못했습니다: 그림 파일의 "
                                                     L"확장자가 아닙니다. 예: .png"),
                                 name),
                name};
    // Whether and why the file can't be written is asked before Qt, which says neither.
    std::error_code ignored;
    const bool there = std::filesystem::exists(file, ignored);
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor < 0) return tv::fileProblem(tv::FileAction::Write, file, errno);
    ::close(descriptor);
    if (toolkit.screenshot(file)) return {};
    if (!there) std::filesystem::remove(file, ignored);
    return {Tavo::eFileAccess,
            tv::text::format(
                VORD_ResourceString("IDS_TAVO_SCREENSHOT_FAILED", L"화면 그림을 \"%s\"에 저장하지 못했습니다."),
                name),
            name};
}

int serve(TavoSession& session, QtToolkit& toolkit, const Options& options) {
    WatchedChannel channel(STDIN_FILENO, STDOUT_FILENO, [&toolkit] { toolkit.wake(); });
    FaceAbilities abilities;
    abilities.screenshot = [&toolkit](const std::filesystem::path& file) {
        return saveScreenshot(toolkit, file);
    };
    abilities.screenshotFolder = options.screenshots;
    return AutomationServer(session, toolkit, channel, std::move(abilities)).run();
}

} // namespace

bool windowBuiltIn() { return true; }

int runWindow(const Options& options, int argc, char** argv) {
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // the application object took the system's
    application.setApplicationName(QStringLiteral("TavoCAD"));
    application.setQuitOnLastWindowClosed(false); // the QUIT command ends the program
    QtToolkit toolkit;
    addProgramTemplates(toolkit);
    TavoSession session(settingsOf(options));
    startSession(session, options);
    MainWindow window(session);
    toolkit.setMainWindow(&window, &window.home());
    window.setTheme(themeOf(options, session));
    int code = 0;
    if (options.automation) {
        window.show();
        code = serve(session, toolkit, options);
    } else {
        session.askFile = [&](TavoSession::FileQuestion question) {
            return askFile(window, session, question);
        };
        if (!session.document()) session.host().documentManager()->newDocument();
        window.show();
        tv::ui::Waiting idle;
        idle.done = [&session] { return session.quitRequested(); };
        toolkit.wait(idle);
        session.print(session.host().settings()->flush());
    }
    toolkit.setMainWindow(nullptr);
    return code;
}
