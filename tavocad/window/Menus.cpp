// The menus of the main window.
#include "tavocad/window/MainWindow.h"

#include "kxgui/controls/PropertiesBar.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSelection.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/SettingsStore.h"
#include "platform/text/Unicode.h"
#include "qt/Theme.h"
#include "tavocad/Languages.h"
#include "tavocad/TavoSession.h"
#include "tavocad/Version.h"
#include "tavocad/window/QtText.h"

#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

QMenu* MainWindow::addMenu(Text text) {
    QMenu* menu = menuBar()->addMenu(QString());
    m_texts.push_back([menu, text] { menu->setTitle(text()); });
    return menu;
}

QAction* MainWindow::addAction(QMenu* menu, Text text, std::function<void()> does, const QKeySequence& keys) {
    QAction* action = menu->addAction(QString());
    if (!keys.isEmpty()) action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [this, does] { run(does); });
    m_texts.push_back([action, text] { action->setText(text()); });
    return action;
}

QAction* MainWindow::addCommand(QMenu* menu, Text text, const wchar_t* command, const QKeySequence& keys) {
    return addAction(
        menu, std::move(text), [this, command] { m_session.runCommand(command); }, keys);
}

void MainWindow::buildMenus() {
    QMenu* file = addMenu([] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_FILE", L"파일(&F)")); });
    addCommand(
        file, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_NEW", L"새로 만들기(&N)")); }, L"NEW",
        QKeySequence::New);
    addCommand(
        file, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_OPEN", L"열기(&O)...")); }, L"OPEN",
        QKeySequence::Open);
    addCommand(
        file, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_SAVE", L"저장(&S)")); }, L"SAVE",
        QKeySequence::Save);
    addCommand(
        file, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_SAVEAS", L"다른 이름으로 저장(&A)...")); },
        L"SAVEAS", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    addCommand(
        file, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_CLOSE", L"닫기(&C)")); }, L"CLOSE",
        QKeySequence(Qt::CTRL | Qt::Key_W));
    file->addSeparator();
    addCommand(
        file, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_QUIT", L"끝내기(&X)")); }, L"QUIT",
        QKeySequence(Qt::CTRL | Qt::Key_Q));

    QMenu* edit = addMenu([] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_EDIT", L"편집(&E)")); });
    m_undo = addCommand(
        edit, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_UNDO", L"실행 취소(&U)")); }, L"UNDO",
        QKeySequence(Qt::CTRL | Qt::Key_Z));
    m_redo = addCommand(
        edit, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_REDO", L"다시 실행(&R)")); }, L"REDO",
        QKeySequence(Qt::CTRL | Qt::Key_Y));

    edit->addSeparator();
    addCommand(
        edit, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_ERASE", L"지우기(&E)")); }, L"ERASE",
        QKeySequence::Delete);
    addAction(
        edit, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_SELECT_ALL", L"모두 선택(&A)")); },
        [this] { choose(TavoSelectionQuery(), false); }, QKeySequence::SelectAll);
    addCommand(
        edit, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_LIST", L"특성 나열(&L)")); }, L"LIST");

    QMenu* format = addMenu([] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_FORMAT", L"형식(&O)")); });
    addCommand(
        format, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_LAYER", L"도면층(&L)...")); }, L"LAYER");
    addCommand(
        format, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_COLOR", L"색상(&C)...")); }, L"COLOR");
    addCommand(
        format, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_LINETYPE", L"선종류(&N)...")); },
        L"LINETYPE");
    addCommand(
        format, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_LWEIGHT", L"선가중치(&W)...")); },
        L"LWEIGHT");
    format->addSeparator();
    addCommand(
        format, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_UNITS", L"단위(&U)...")); }, L"UNITS");

    QMenu* view = addMenu([] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_VIEW", L"뷰(&V)")); });
    addCommand(
        view, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_EXTENTS", L"전체 보기(&E)")); }, L"ZOOM");
    auto addZoom = [&](Text text, const wchar_t* how, const QKeySequence& keys = {}) {
        addAction(
            view, std::move(text), [this, how] { m_session.runCommand(L"ZOOM", how); }, keys);
    };
    addZoom([] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_ZOOM_WINDOW", L"창으로 확대(&W)")); },
            L"WINDOW");
    addZoom([] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_ZOOM_IN", L"확대(&I)")); }, L"IN",
            QKeySequence::ZoomIn);
    addZoom([] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_ZOOM_OUT", L"축소(&O)")); }, L"OUT",
            QKeySequence::ZoomOut);
    addZoom([] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_ZOOM_BACK", L"이전 보기(&P)")); }, L"PREVIOUS");
    addCommand(
        view, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_REGEN", L"다시 만들기(&R)")); }, L"REGEN",
        QKeySequence::Refresh);
    view->addSeparator();
    m_lineweights = addAction(
        view, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_LINEWEIGHTS", L"선가중치 표시(&L)")); },
        [this] {
            m_session.runCommand(L"SETVAR", m_lineweights->isChecked() ? L"LWDISPLAY 1" : L"LWDISPLAY 0");
        });
    m_lineweights->setCheckable(true);
    m_propertiesBar = addAction(
        view, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_PROPERTIESBAR", L"특성 도구막대(&B)")); },
        [this] { m_session.runCommand(L"PROPERTIESBAR", m_propertiesBar->isChecked() ? L"ON" : L"OFF"); });
    m_propertiesBar->setCheckable(true);
    m_propertiesBar->setChecked(m_session.propertiesBar()->shown());
    auto* next = new QAction(this); // no menu's, and known in the whole window
    next->setShortcut(Qt::Key_F6);
    connect(next, &QAction::triggered, this, &MainWindow::nextPane);
    QWidget::addAction(next);
    QMenu* theme = view->addMenu(QString());
    m_texts.push_back(
        [theme] { theme->setTitle(toQt(VORD_ResourceString("IDS_TAVO_MENU_THEME", L"테마(&T)"))); });
    m_themes = new QActionGroup(this);
    auto addTheme = [&](ThemeChoice choice, Text text) {
        QAction* action = addAction(theme, std::move(text), [this, choice] {
            setTheme(choice);
            m_session.host().settings()->setInt(TavoSession::settingsSection, L"Theme",
                                                static_cast<int>(choice));
        });
        action->setCheckable(true);
        action->setData(static_cast<int>(choice));
        m_themes->addAction(action);
    };
    addTheme(ThemeChoice::light, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_LIGHT", L"밝게(&L)")); });
    addTheme(ThemeChoice::dark, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_DARK", L"어둡게(&D)")); });
    addTheme(ThemeChoice::system,
             [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_SYSTEM", L"시스템 설정(&S)")); });

    QMenu* languages = addMenu([] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_LANGUAGE", L"언어(&L)")); });
    m_languages = new QActionGroup(this);
    for (const UiLanguage& language : uiLanguages()) {
        QAction* action = addAction(
            languages, [&language] { return toQt(language.ownName); },
            [this, &language] {
                // Refused, the mark goes back to the language in use.
                if (m_session.runCommand(L"LANGUAGE", language.code) != RTNORM) retranslate();
            });
        action->setCheckable(true);
        m_languages->addAction(action);
        m_texts.push_back(
            [action, &language] { action->setChecked(TavoSession::language().id == language.id); });
    }

    QMenu* help = addMenu([] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_HELP", L"도움말(&H)")); });
    addCommand(
        help, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_COMMANDS", L"명령 목록(&C)")); }, L"HELP",
        QKeySequence::HelpContents);
    addCommand(
        help, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_GALLERY", L"갤러리(&G)...")); }, L"GALLERY");
    addAction(
        help, [] { return toQt(VORD_ResourceString("IDS_TAVO_MENU_ABOUT", L"정보(&A)")); },
        [this] {
            m_session.host().commandLine()->print(m_session.host().productName() + L" " +
                                                  tv::text::fromUtf8(tavocadVersion));
        });
}

void MainWindow::setTheme(ThemeChoice theme) {
    using tv::qt::Theme;
    tv::qt::applyTheme(theme == ThemeChoice::light  ? Theme::light
                       : theme == ThemeChoice::dark ? Theme::dark
                                                    : Theme::system);
    for (QAction* action : m_themes->actions())
        action->setChecked(action->data().toInt() == static_cast<int>(theme));
}
