// The main window under mouse and keyboard.
#include "tests/tavocad/HeaderDifference.h"
#include "tests/tavocad/ScriptedWindow.h"

#include "platform/text/MessageManager.h"
#include "tavocad/window/FileQuestions.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTimer>
#include <QWheelEvent>

#include <cmath>
#include <csignal>
#include <fstream>
#include <sys/resource.h>

namespace fs = std::filesystem;
using testing::HasSubstr;
using Window = ScriptedWindow;

// From a typed command through the dialog to a saved file: the title's mark follows every step, one undo takes
// everything back, and only the changed line differs in the file.
TEST_F(Window, UnitsChangedUndoneRedoneAndSaved) {
    const std::string before = bytesOf(drawing);
    auto expectState = [this](bool modified, const char* lunits) {
        then([this, modified, lunits] {
            EXPECT_EQ(window.isWindowModified(), modified);
            EXPECT_EQ(QString::fromStdWString(variable(L"LUNITS").wstr()).toStdString(), lunits);
            EXPECT_EQ(action(QStringLiteral("실행 취소(&U)"))->isEnabled(), modified);
        });
    };
    enter(QStringLiteral("open ") + quoted(drawing));
    then([this] { EXPECT_EQ(window.windowTitle(), QStringLiteral("workshop.dxf[*] - TavoCAD")); });
    expectState(false, "2");
    type(QStringLiteral("UNITS"));
    key(Qt::Key_Return);
    then([this] { EXPECT_EQ(modal(), "IDD_UNITS"); });
    choose("IDC_UNITS_LTYPE", 4);
    click("IDOK");
    then([this] { EXPECT_EQ(modal(), ""); });
    const QString chosen = QStringLiteral("다시 실행(&R)");
    then([this] { EXPECT_NE(variable(L"LUNITS"), L"2"); });
    key(Qt::Key_Z, Qt::ControlModifier);
    expectState(false, "2");
    menu(chosen);
    then([this] { EXPECT_TRUE(window.isWindowModified()); });
    key(Qt::Key_S, Qt::ControlModifier);
    then([this] { EXPECT_FALSE(window.isWindowModified()); });
    run();
    const auto changed = changedVariables(before, bytesOf(drawing));
    EXPECT_TRUE(changed.contains("$LUNITS"));
    for (const auto& [name, value] : changed)
        EXPECT_TRUE(name == "$LUNITS" || name == "$LUPREC") << name;
}

TEST_F(Window, WheelDragAndExtentsMoveTheView) {
    enter(QStringLiteral("open ") + quoted(drawing));
    then([this] {
        const QPoint off(view.width() / 3, view.height() / 4);
        const OdGePoint2d start = at(off), corner = at({0, 0});
        auto wheel = [&](int delta) {
            QWheelEvent event(off, view.mapToGlobal(off), {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&view, &event);
        };
        wheel(360);
        EXPECT_NEAR(at(off).x, start.x, 1e-9);
        EXPECT_NEAR(at(off).y, start.y, 1e-9);
        EXPECT_NEAR((at(off).x - at({0, 0}).x) * std::pow(1.25, 3), start.x - corner.x, 1e-6);
        for (int i = 0; i < 500; ++i)
            wheel(120);
        EXPECT_NEAR(at(off).x, start.x, 1e-6) << "also at the end of the range";
        for (int i = 0; i < 1000; ++i)
            wheel(-120);
        EXPECT_TRUE(std::isfinite(at(off).x));
    });
    enter(QStringLiteral("ZOOM"));
    then([this] {
        const OdGePoint2d held = at({100, 80});
        QTest::mousePress(&view, Qt::MiddleButton, {}, {100, 80});
        QTest::mouseMove(&view, {160, 40});
        QTest::mouseRelease(&view, Qt::MiddleButton, {}, {160, 40});
        EXPECT_NEAR(at({160, 40}).x, held.x, 1e-9);
        EXPECT_NEAR(at({160, 40}).y, held.y, 1e-9);
        EXPECT_GT(std::abs(at({100, 80}).x - held.x), 1e-6) << "released, the view stays";
        window.resize(window.width() + 40, window.height());
    });
    enter(QStringLiteral("z"));
    then([this] {
        const QImage picture = view.grab().toImage();
        const QRgb back = picture.pixel(0, 0);
        int inside = 0, rim = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixel(x, y) != back)
                    ++(x < 4 || y < 4 || x >= picture.width() - 4 || y >= picture.height() - 4 ? rim : inside);
        EXPECT_GT(inside, 100);
        EXPECT_EQ(rim, 0) << "everything is in view, with a margin";
    });
    run();
}

// The dialog gets out of the way, the points come from the mouse or the command line, and the dialog is back.
TEST_F(Window, BaseAngleIsPickedByMouseOrTyped) {
    enter(QStringLiteral("open ") + quoted(drawing));
    enter(QStringLiteral("UNITS"));
    auto pick = [this] {
        click("IDC_UNITS_DIRECTION");
        click("IDC_UNITDIR_OTHER");
        click("IDC_UNITDIR_PICK");
        then([this] {
            EXPECT_EQ(modal(), "");
            EXPECT_THAT(prompt().toStdWString(), HasSubstr(L"첫 번째 점"));
            EXPECT_TRUE(view.hasFocus());
        });
    };
    pick();
    then([this] { QTest::mouseClick(&view, Qt::LeftButton, {}, {200, 200}); });
    then([this] {
        EXPECT_THAT(prompt().toStdWString(), HasSubstr(L"두 번째 점"));
        const QImage without = view.grab().toImage();
        QTest::mouseMove(&view, {300, 100});
        EXPECT_NE(view.grab().toImage(), without) << "a line leads from the first point to the pointer";
        QTest::mouseClick(&view, Qt::LeftButton, {}, {200, 100});
    });
    then([this] {
        EXPECT_EQ(modal(), "IDD_UNITS");
        EXPECT_EQ(prompt(), QStringLiteral("명령:"));
    });
    click("IDOK");
    then([this] {
        EXPECT_EQ(QString::fromStdWString(variable(L"ANGBASE").wstr()).left(8), QStringLiteral("1.570796"));
    });

    enter(QStringLiteral("UNITS"));
    pick();
    type(QStringLiteral("1,x"));
    key(Qt::Key_Return);
    then([this] {
        EXPECT_THAT(said(), HasSubstr(L"1,x"));
        EXPECT_THAT(prompt().toStdWString(), HasSubstr(L"첫 번째 점")) << "the question stands";
    });
    type(QStringLiteral("10,10"));
    key(Qt::Key_Return);
    type(QStringLiteral("@-5,0"));
    key(Qt::Key_Return);
    then([this] { EXPECT_EQ(modal(), "IDD_UNITS"); });
    // Escape, a half typed point and the right button give up; the angle stays.
    pick();
    key(Qt::Key_Escape);
    then([this] { EXPECT_EQ(modal(), "IDD_UNITS"); });
    pick();
    type(QStringLiteral("7,"));
    key(Qt::Key_Escape);
    then([this] { EXPECT_EQ(modal(), "") << "it only empties the line"; });
    key(Qt::Key_Escape);
    then([this] { EXPECT_EQ(modal(), "IDD_UNITS"); });
    pick();
    then([this] { QTest::mouseClick(&view, Qt::RightButton, {}, {5, 5}); });
    click("IDOK");
    then([this] {
        EXPECT_EQ(QString::fromStdWString(variable(L"ANGBASE").wstr()).left(7), QStringLiteral("3.14159"));
    });
    // Pixels mean no point when nobody asks.
    then([this] {
        said();
        QTest::mouseClick(&view, Qt::LeftButton, {}, {50, 50});
        EXPECT_EQ(said(), L"");
    });
    run();
}

TEST_F(Window, LanguageMenuRetranslatesAtOnce) {
    const fs::path messages = fs::path(KX_SOURCE_DIR) / "messages";
    for (const fs::directory_entry& entry : fs::directory_iterator(messages)) {
        const std::string name = entry.path().filename().string();
        if (name.ends_with("_kr.ini"))
            VORD_MSGFunction::AddFileBase(messages / name.substr(0, name.size() - 7));
    }
    menu(QStringLiteral("English"));
    then([this] {
        EXPECT_EQ(window.menuBar()->actions().front()->text(), QStringLiteral("&File"));
        EXPECT_EQ(prompt(), QStringLiteral("Command:"));
        EXPECT_TRUE(action(QStringLiteral("English"))->isChecked());
    });
    // While a command runs the language stays, and so does the mark.
    enter(QStringLiteral("NEW"));
    enter(QStringLiteral("UNITS"));
    click("IDC_UNITS_DIRECTION");
    click("IDC_UNITDIR_OTHER");
    click("IDC_UNITDIR_PICK");
    menu(QStringLiteral("日本語"));
    then([this] {
        EXPECT_TRUE(action(QStringLiteral("English"))->isChecked());
        EXPECT_FALSE(action(QStringLiteral("日本語"))->isChecked());
        EXPECT_EQ(window.menuBar()->actions().front()->text(), QStringLiteral("&File"));
    });
    key(Qt::Key_Escape);
    click("IDCANCEL");
    menu(QStringLiteral("한국어"));
    then([this] { EXPECT_EQ(window.menuBar()->actions().front()->text(), QStringLiteral("파일(&F)")); });
    run();
}

TEST_F(Window, CommandLineRemembersCompletesAndForgets) {
    auto expectLine = [this](const char* text) {
        then([this, text] { EXPECT_EQ(command.text().toStdString(), text); });
    };
    QAbstractItemView* popup = command.completer()->popup();
    enter(QStringLiteral("LUPREC"));
    enter(QStringLiteral("ZOOM"));
    enter(QStringLiteral("ZOOM"));
    then([this] { command.setText(QStringLiteral("half")); });
    for (const char* text : {"ZOOM", "LUPREC", "LUPREC"}) {
        key(Qt::Key_Up);
        expectLine(text);
    }
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    expectLine("half");
    key(Qt::Key_Down);
    expectLine("half");
    key(Qt::Key_Escape);
    expectLine("");
    key(Qt::Key_Up);
    expectLine("ZOOM");
    key(Qt::Key_Escape);
    // Letters typed into the drawing arrive in the command line, shortcuts nobody has do not.
    then([this] { view.setFocus(); });
    key(Qt::Key_J, Qt::AltModifier);
    then([this] { view.setFocus(); });
    type(QStringLiteral("lan"));
    then([popup] { EXPECT_TRUE(popup->isVisible()); });
    expectLine("lan");
    key(Qt::Key_Down);
    expectLine("LANGUAGE");
    then([this] { said(); });
    key(Qt::Key_Return);
    then([this, popup] {
        EXPECT_FALSE(popup->isVisible());
        EXPECT_THAT(said(), HasSubstr(L"* kr")) << "the completed command ran, once";
    });
    type(QStringLiteral("un"));
    key(Qt::Key_Escape);
    then([popup] { EXPECT_FALSE(popup->isVisible()); });
    expectLine("");
    // An unknown word, and an empty line repeating the last command.
    enter(QStringLiteral("UNTIS"));
    then([this] { EXPECT_THAT(said(), HasSubstr(L"UNITS")); });
    key(Qt::Key_Return);
    then([this] { EXPECT_THAT(said(), HasSubstr(L"* kr")); });
    run();
}

// Closing the window asks for every changed drawing: giving up keeps the program, no keeps the file as it was,
// yes saves.
TEST_F(Window, ClosingAChangedDrawingAsks) {
    const fs::path second = folder / "second.dxf";
    fs::copy_file(drawing, second);
    const std::string before = bytesOf(drawing);
    for (const fs::path& file : {drawing, second}) {
        enter(QStringLiteral("open ") + quoted(file));
        enter(QStringLiteral("LUNITS 5"));
    }
    auto close = [this] {
        then([this] { window.close(); });
        then([this] {
            EXPECT_EQ(modal(), "IDD_TASK_DIALOG");
            EXPECT_TRUE(window.isVisible());
        });
    };
    close();
    click("IDCANCEL");
    then([this] {
        EXPECT_FALSE(session.quitRequested());
        EXPECT_EQ(session.host().documentManager()->documents().size(), 2U);
        EXPECT_TRUE(window.isWindowModified());
    });
    close();
    click("IDYES"); // the second one is in front
    then([this] { EXPECT_EQ(modal(), "IDD_TASK_DIALOG") << "the first one too"; });
    click("IDNO");
    then([this] {
        EXPECT_TRUE(session.quitRequested());
        EXPECT_TRUE(window.close());
    });
    run();
    EXPECT_TRUE(bytesOf(drawing) == before);
    EXPECT_TRUE(changedVariables(before, bytesOf(second)).contains("$LUNITS"));
}

// A drawing dropped on the window opens; what is none says so in one sentence, and the drawing stays.
TEST_F(Window, DroppedAndBadFiles) {
    auto drop = [this](const fs::path& file) {
        then([this, file] {
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(quoted(file))});
            QDragEnterEvent dragged({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(&window, &dragged);
            EXPECT_TRUE(dragged.isAccepted());
            QDropEvent dropped({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(&window, &dropped);
            EXPECT_TRUE(dropped.isAccepted());
        });
    };
    const fs::path odd = folder / "odd name [*] %s.dxf", garbage = folder / "garbage.dxf";
    fs::copy_file(drawing, odd);
    const std::string whole = bytesOf(drawing);
    auto write = [](const fs::path& file, std::string_view bytes) {
        std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    };
    write(garbage, std::string_view("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 17));
    drop(odd);
    then([this] {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("odd name [*][*] %s.dxf[*] - TavoCAD"));
        said();
    });
    for (const fs::path& file : {garbage, folder / "missing.dxf", folder}) {
        drop(file);
        then([this, file] {
            const std::wstring sentence = said();
            EXPECT_THAT(sentence, HasSubstr(file.filename().wstring()));
            EXPECT_EQ(std::count(sentence.begin(), sentence.end(), L'\n'), 1);
            EXPECT_EQ(session.document()->name(), L"odd name [*] %s.dxf");
        });
    }
    // Cut off anywhere: opens as far as it goes with a sentence, or does not open with one.
    for (const std::size_t part : {3U, 10U, 50U, 90U}) {
        const fs::path cut = folder / ("cut" + std::to_string(part) + ".dxf");
        write(cut, std::string_view(whole).substr(0, whole.size() * part / 100));
        drop(cut);
        then([this, cut] { EXPECT_THAT(said(), HasSubstr(cut.filename().wstring())); });
    }
    enter(QStringLiteral("LUNITS"));
    then([this] { EXPECT_THAT(said(), HasSubstr(L"LUNITS = ")); });
    run();
}

// A save that can't be finished leaves the old file whole and the drawing changed; the next one works.
TEST_F(Window, FailedSavesLeaveTheOldFile) {
    const std::string before = bytesOf(drawing);
    enter(QStringLiteral("open ") + quoted(drawing));
    enter(QStringLiteral("LUNITS 5"));
    auto expectRefused = [this, before] {
        key(Qt::Key_S, Qt::ControlModifier);
        then([this, before] {
            const std::wstring sentence = said();
            EXPECT_THAT(sentence, HasSubstr(L"workshop.dxf"));
            EXPECT_EQ(std::count(sentence.begin(), sentence.end(), L'\n'), 1);
            EXPECT_TRUE(window.isWindowModified());
            EXPECT_TRUE(bytesOf(drawing) == before);
            EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "nothing is left behind";
        });
    };
    // A disk that is full: no file may grow beyond a few bytes.
    rlimit whole{};
    ::getrlimit(RLIMIT_FSIZE, &whole);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    then([this, whole] {
        const rlimit tight{4096, whole.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &tight);
        said();
    });
    expectRefused();
    then([whole] { ::setrlimit(RLIMIT_FSIZE, &whole); });
    // A folder nobody may write into, the administrator neither.
    const uid_t user = ::geteuid();
    constexpr uid_t nobody = 65534;
    then([this, user] {
        fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read |
                                    fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec);
        EXPECT_EQ(::seteuid(user == 0 ? nobody : user), 0);
    });
    expectRefused();
    then([this, user] {
        EXPECT_EQ(::seteuid(user), 0);
        fs::permissions(folder, fs::perms::owner_all);
    });
    key(Qt::Key_S, Qt::ControlModifier);
    then([this] { EXPECT_FALSE(window.isWindowModified()); });
    run();
    std::signal(SIGXFSZ, handler);
    EXPECT_TRUE(bytesOf(drawing) != before);
}

TEST_F(Window, PlaceIsRememberedAndRubbishIgnored) {
    tv::SettingsStore& settings = *session.host().settings();
    window.resize(777, 555);
    QApplication::processEvents();
    enter(QStringLiteral("QUIT"));
    run();
    MainWindow again(session);
    EXPECT_EQ(again.size(), QSize(777, 555));
    const auto stored = settings.getString(TavoSession::settingsSection, L"Window");
    ASSERT_TRUE(stored);
    for (const std::wstring& rubbish : {std::wstring(), std::wstring(L"한글"), stored->substr(0, 20)}) {
        settings.setString(TavoSession::settingsSection, L"Window", rubbish);
        EXPECT_EQ(MainWindow(session).size(), QSize(1100, 760));
    }
}

// File questions start in the drawing's folder, and a name without ending gets the usual one.
TEST_F(Window, FileQuestionsStartAtTheDrawing) {
    session.askFile = [this](TavoSession::FileQuestion question) { return askFile(window, session, question); };
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    auto answer = [this](const QString& name) {
        QTimer::singleShot(0, &window, [this, name] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            EXPECT_EQ(dialog->directory().canonicalPath(),
                      QString::fromStdString(fs::canonical(folder).string()));
            dialog->selectFile(name);
            QTest::keyClick(dialog, Qt::Key_Return);
            if (name.isEmpty()) dialog->reject();
        });
    };
    enter(QStringLiteral("open ") + quoted(drawing));
    then([answer, this] {
        answer(QStringLiteral("copy"));
        session.enterLine(L"SAVEAS");
        EXPECT_EQ(session.document()->name(), L"copy.dxf");
        EXPECT_TRUE(bytesOf(folder / "copy.dxf") == bytesOf(drawing));
        session.enterLine(L"NEW");
        answer({});
        EXPECT_EQ(session.enterLine(L"OPEN"), RTCAN);
        answer(QStringLiteral("workshop.dxf"));
        EXPECT_EQ(session.enterLine(L"OPEN"), RTNORM);
        EXPECT_EQ(session.document()->path().filename(), "workshop.dxf");
    });
    run();
}
