#include "tavocad/window/MainWindow.h"

#include "kxgui/controls/PropertiesBar.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSelection.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/host/TavoUnits.h"
#include "platform/text/Format.h"
#include "platform/text/MessageManager.h"
#include "platform/text/ResourceString.h"
#include "platform/text/SettingsStore.h"
#include "qt/QtToolkit.h"
#include "tavocad/DrawingScenes.h"
#include "tavocad/EntityText.h"
#include "tavocad/SelectionRequests.h"
#include "tavocad/TavoSession.h"
#include "tavocad/window/CommandEdit.h"
#include "tavocad/window/DrawingView.h"
#include "tavocad/window/LayoutTabs.h"
#include "tavocad/window/QtText.h"
#include "tavocad/window/SceneKeeper.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QGridLayout>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>

namespace {
constexpr int shownLines = 5000;
constexpr QSize usualSize(1100, 760);
constexpr wchar_t placeKey[] = L"Window";

QString droppedDrawing(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}
} // namespace

MainWindow::MainWindow(TavoSession& session) : m_session(session) {
    setObjectName(QStringLiteral("TavoCAD"));
    setAcceptDrops(true);
    resize(usualSize);
    buildPanes();
    buildMenus();
    observe();
    retranslate();
    updateWords();
    restorePlace();
    m_command->setFocus();
}

MainWindow::~MainWindow() = default;

void MainWindow::buildPanes() {
    auto* middle = new QWidget(this);
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_view = new DrawingView(middle);
    m_layouts = new LayoutTabs(middle);
    m_layouts->setShape(QTabBar::RoundedSouth);
    m_layouts->setDrawBase(false);
    m_layouts->setExpanding(false);
    holdPropertiesBar(*column);
    column->addWidget(m_view, 1);
    column->addWidget(m_layouts);
    setCentralWidget(middle);
    connect(m_layouts, &QTabBar::tabBarClicked, this, [this](int tab) {
        if (tab < 0) return;
        run([this, name = fromQt(m_layouts->tabData(tab).toString())] {
            m_session.runCommand(L"LAYOUT", name);
            showLayouts(); // refused, the old tab is the current one still
        });
    });

    auto* dock = new QDockWidget(this);
    dock->setObjectName(QStringLiteral("CommandLine"));
    dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    dock->setTitleBarWidget(new QWidget(dock));
    auto* pane = new QWidget(dock);
    auto* layout = new QGridLayout(pane);
    layout->setContentsMargins(6, 0, 6, 4);
    layout->setSpacing(4);
    m_history = new QPlainTextEdit(pane);
    m_history->setReadOnly(true);
    m_history->setMaximumBlockCount(shownLines);
    m_history->setMinimumHeight(m_history->fontMetrics().lineSpacing() * 3);
    m_prompt = new QLabel(pane);
    m_command = new CommandEdit(pane);
    m_prompt->setBuddy(m_command);
    layout->addWidget(m_history, 0, 0, 1, 2);
    layout->addWidget(m_prompt, 1, 0);
    layout->addWidget(m_command, 1, 1);
    dock->setWidget(pane);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    resizeDocks({dock}, {m_history->fontMetrics().lineSpacing() * 7 + m_command->sizeHint().height()},
                Qt::Vertical);

    statusBar()->setContentsMargins(6, 0, 6, 0);
    auto addField = [this](bool atEnd) {
        auto* label = new QLabel(this);
        if (atEnd)
            statusBar()->addPermanentWidget(label);
        else
            statusBar()->addWidget(label, 1);
        return label;
    };
    m_position = addField(false);
    m_selected = addField(true);
    m_layer = addField(true);
    m_space = addField(true);
    m_zoom = addField(true);
    m_texts.push_back([this] {
        m_view->setAccessibleName(toQt(VORD_ResourceString("IDS_TAVO_WIN_DRAWING_AREA", L"도면 영역")));
        m_history->setAccessibleName(toQt(VORD_ResourceString("IDS_TAVO_WIN_HISTORY", L"명령 기록")));
        m_command->setAccessibleName(toQt(VORD_ResourceString("IDS_TAVO_WIN_COMMAND_LINE", L"명령행")));
        m_position->setAccessibleName(toQt(VORD_ResourceString("IDS_TAVO_WIN_POSITION", L"좌표")));
        m_layer->setToolTip(toQt(VORD_ResourceString("IDS_TAVO_WIN_LAYER", L"현재 도면층")));
        m_space->setToolTip(toQt(VORD_ResourceString("IDS_TAVO_WIN_SPACE", L"보이는 공간")));
        m_zoom->setToolTip(
            toQt(VORD_ResourceString("IDS_TAVO_WIN_ZOOM", L"화면의 축척: 도면이 몇 분의 일로 보이는지")));
    });
}

void MainWindow::holdPropertiesBar(QBoxLayout& column) {
    const auto* toolkit = dynamic_cast<const QtToolkit*>(tv::ui::Toolkit::current());
    m_session.startPropertiesBar();
    QWidget* bar = toolkit ? toolkit->windowOf(*m_session.propertiesBar()) : nullptr;
    if (!bar) return;
    column.addWidget(bar);
    bar->setVisible(m_session.propertiesBar()->shown());
}

QWidget& MainWindow::home() { return *m_command; }

// Command line, bar, drawing, and round again.
void MainWindow::nextPane() {
    CPropertiesBar& bar = *m_session.propertiesBar();
    if (tv::ui::Toolkit::current()->active() == &bar) {
        bar.LeaveKeyboard();
        m_view->setFocus();
    } else if (m_view->hasFocus()) {
        m_command->setFocus();
    } else if (bar.shown() && !bar.tabOrder().empty()) {
        bar.TakeKeyboard();
    } else {
        m_view->setFocus();
    }
}

void MainWindow::observe() {
    auto* keeper = new SceneKeeper(m_session, this);
    connect(keeper, &SceneKeeper::sceneGoing, m_view, &DrawingView::dropScene);
    connect(keeper, &SceneKeeper::sceneMade, this, [this](const auto& scene, bool fresh) {
        m_view->setScene(scene);
        if (fresh) m_view->zoomExtents();
        m_session.host().selection()->dropErased();
        showTitle();
        showSettings();
    });
    connect(keeper, &SceneKeeper::redrawAsked, m_view, &DrawingView::redraw);
    connect(m_command, &CommandEdit::entered, this, &MainWindow::enter);
    connect(m_command, &CommandEdit::cancelled, this, &MainWindow::cancel);
    connect(m_view, &DrawingView::cancelled, this, &MainWindow::cancel);
    connect(m_view, &DrawingView::finished, this, &MainWindow::finish);
    connect(m_view, &DrawingView::chosen, this, &MainWindow::choose);
    connect(m_view, &DrawingView::viewChanged, this, &MainWindow::showZoom);
    m_view->hint = [](const OdDbObjectId& id) { return toQt(entityHint(id).view()); };
    connect(m_view, &DrawingView::pickCancelled, this, [this] { m_session.points().cancel(); });
    connect(m_view, &DrawingView::picked, this, [this](double x, double y) {
        static_cast<void>(m_session.points().supply({x, y, 0}));
    });
    connect(m_view, &DrawingView::pointed, this, &MainWindow::showPosition);

    TavoInterfaces& host = m_session.host();
    for (const OdString& line : host.commandLine()->lines())
        m_history->appendPlainText(toQt(line.view()));
    m_subscriptions.push_back(host.commandLine()->onLine(
        [this](const OdString& line) { m_history->appendPlainText(toQt(line.view())); }));
    m_subscriptions.push_back(host.documentManager()->onDocumentEvent([this](auto, auto*) { showTitle(); }));
    m_subscriptions.push_back(m_session.onCommandEnded([this](const OdString&, int) { showTitle(); }));
    m_valuesChanged.setSingleShot(true);
    m_valuesChanged.setInterval(0);
    connect(&m_valuesChanged, &QTimer::timeout, this, [this] {
        showPosition(m_x, m_y);
        showTitle();
        showSettings();
    });
    m_subscriptions.push_back(host.selection()->onSelectionChanged([this] { showSelection(); }));
    m_subscriptions.push_back(m_session.objects().onWaiting([this](bool waiting) {
        if (waiting) m_view->setFocus();
        showPrompt();
    }));
    m_subscriptions.push_back(host.sysvarManager()->onSysvarChanged(
        [this](const OdString&, const OdDbDatabasePtr&) { m_valuesChanged.start(); }));
    m_subscriptions.push_back(m_session.quitting.connect([this] { rememberPlace(); }));
    m_subscriptions.push_back(m_session.propertiesBarShown.connect(
        [this] { m_propertiesBar->setChecked(m_session.propertiesBar()->shown()); }));
    m_subscriptions.push_back(
        m_session.zoom.connect([this](const ZoomRequest& request) { m_view->zoom(request); }));
    m_subscriptions.push_back(m_session.points().onWaiting([this](bool waiting) {
        if (waiting) {
            activateWindow(); // a dialog that got out of the way may have had the keyboard
            const auto base = m_session.points().base();
            m_view->beginPick(base ? std::optional(OdGePoint2d{base->x, base->y}) : std::nullopt);
        } else {
            m_view->endPick();
        }
        showPrompt();
    }));
    m_languageHandle = VORD_MSGFunction::onLanguageChanged([this] { retranslate(); });
}

void MainWindow::retranslate() {
    for (const auto& text : m_texts)
        text();
    showPrompt();
    showTitle();
    showPosition(m_x, m_y);
    showZoom();
    showSelection();
    showSettings();
}

void MainWindow::run(std::function<void()> work) { QTimer::singleShot(0, this, std::move(work)); }

void MainWindow::enter(const QString& line) {
    const QString prompt = m_prompt->text();
    m_history->appendPlainText(prompt + QLatin1Char(' ') + line);
    run([this, text = fromQt(line)] { m_session.enterLine(text); });
}

void MainWindow::updateWords() {
    QStringList words;
    for (const OdString& name : m_session.host().commands()->names())
        words.append(toQt(name.view()));
    for (const OdString& name : m_session.host().sysvarManager()->names())
        words.append(toQt(name.view()));
    m_command->setWords(words);
}

void MainWindow::restorePlace() {
    const auto stored = m_session.host().settings()->getString(TavoSession::settingsSection, placeKey);
    if (stored) restoreGeometry(QByteArray::fromBase64(toQt(*stored).toLatin1()));
    // A damaged setting is taken for what its beginning says.
    if (size() != size().expandedTo(minimumSizeHint())) resize(usualSize);
}

void MainWindow::rememberPlace() {
    m_session.host().settings()->setString(TavoSession::settingsSection, placeKey,
                                           fromQt(QString::fromLatin1(saveGeometry().toBase64())).view());
}

// --- what the window shows ---

void MainWindow::showPrompt() {
    const OdString asked =
        m_session.objects().waiting() ? m_session.objects().prompt() : m_session.points().prompt();
    m_prompt->setText(asked.isEmpty() ? toQt(VORD_ResourceString("IDS_TAVO_WIN_PROMPT", L"명령:"))
                                      : toQt(asked.view()));
}

void MainWindow::showTitle() {
    const QString product = toQt(m_session.host().productName().view());
    TavoDocument* document = m_session.document();
    const QString mark = QStringLiteral("[*]"); // where Qt shows that something was changed; doubled: itself
    QString title = product;
    if (document) {
        title = toQt(document->name().view()).replace(mark, mark + mark) + mark;
        if (document->database()->isReadOnly())
            title += QLatin1Char(' ') + toQt(VORD_ResourceString("IDS_TAVO_WIN_READ_ONLY", L"(읽기 전용)"));
        title += QStringLiteral(" - ") + product;
    }
    setWindowTitle(title);
    setWindowModified(document && document->isModified());
    const OdDbDatabasePtr database = document ? document->database() : nullptr;
    m_undo->setEnabled(database && database->hasUndo());
    m_redo->setEnabled(database && database->hasRedo());
}

void MainWindow::showPosition(double x, double y) {
    m_x = x;
    m_y = y;
    TavoInterfaces& host = m_session.host();
    int lunits = 2, luprec = 4, dimzin = 0, unitmode = 0;
    tvedGetVar(L"LUNITS", lunits, nullptr);
    tvedGetVar(L"LUPREC", luprec, nullptr);
    tvedGetVar(L"DIMZIN", dimzin, nullptr);
    tvedGetVar(L"UNITMODE", unitmode, nullptr);
    const tv::host::LengthOptions options{dimzin & 3, unitmode};
    m_position->setText(toQt(host.units()->formatLinear(x, lunits, luprec, options).view()) +
                        QStringLiteral(", ") +
                        toQt(host.units()->formatLinear(y, lunits, luprec, options).view()));
}

namespace {

// Millimetres of one drawing unit; drawings that name none are taken for millimetres.
double millimetresPerUnit() {
    int unit = 0;
    tvedGetVar(L"INSUNITS", unit, nullptr);
    switch (unit) {
    case 1:
        return 25.4;
    case 2:
        return 304.8;
    case 5:
        return 10;
    case 6:
        return 1000;
    case 7:
        return 1e6;
    default:
        return 1;
    }
}

} // namespace

// How many times larger the drawn thing is than its picture on the screen: 1:50, 20:1.
void MainWindow::showZoom() {
    const double millimetresPerPixel = 25.4 / m_view->logicalDpiX();
    const double larger = millimetresPerUnit() / (m_view->pixelsPerUnit() * millimetresPerPixel);
    m_zoom->setText(larger >= 1 ? QStringLiteral("1:%1").arg(larger, 0, 'g', 4)
                                : QStringLiteral("%1:1").arg(1 / larger, 0, 'g', 4));
}

void MainWindow::showSelection() {
    const TavoSelectionSet& selection = m_session.host().selection()->current();
    m_view->setSelection(selection);
    const auto count = static_cast<long long>(selection.size());
    m_selected->setText(
        count == 0 ? QString()
                   : toQt(tv::text::format(VORD_ResourceString("IDS_TAVO_WIN_SELECTED", L"%d개 선택"), count)));
}

void MainWindow::showLayouts() {
    const OdDbDatabasePtr database = tvedWorkingDatabase();
    const OdDbObjectId shown = m_session.scenes().layoutOf(database);
    QStringList names;
    const std::vector<OdDbObjectId> ids = database ? database->layoutIds() : std::vector<OdDbObjectId>();
    int current = -1;
    const QString model = toQt(VORD_ResourceString("IDS_TAVO_WIN_MODEL", L"모형"));
    m_space->setText(model);
    for (const OdDbObjectId& id : ids) {
        const auto layout = id.open<OdDbLayout>();
        const int tab = static_cast<int>(names.size());
        names.append(layout ? toQt(layout->getLayoutName().view()) : QString());
        if (m_layouts->count() <= tab) m_layouts->addTab(QString());
        m_layouts->setTabText(tab, layout && layout->isModelLayout() ? model : names.last());
        m_layouts->setTabData(tab, names.last());
        if (id == shown) {
            current = tab;
            m_space->setText(m_layouts->tabText(tab));
        }
    }
    while (m_layouts->count() > names.size())
        m_layouts->removeTab(m_layouts->count() - 1);
    m_layouts->setCurrentIndex(current);
    m_layouts->setVisible(names.size() > 1);
}

// What variables and the drawing say about the view.
void MainWindow::showSettings() {
    OdString layer;
    m_session.host().sysvarManager()->getText(L"CLAYER", layer, nullptr);
    m_layer->setText(
        m_session.document()
            ? toQt(tv::text::format(VORD_ResourceString("IDS_TAVO_WIN_LAYER_IS", L"도면층: %s"), layer))
            : QString());
    showLayouts();
    int lineweights = 0, pickBox = 3, preview = 3;
    tvedGetVar(L"LWDISPLAY", lineweights, nullptr);
    tvedGetVar(L"PICKBOX", pickBox, nullptr);
    tvedGetVar(L"SELECTIONPREVIEW", preview, nullptr);
    m_view->setLineweights(lineweights != 0);
    m_view->setPickBox(pickBox);
    m_view->setPreview((preview & (m_session.objects().waiting() ? 2 : 1)) != 0);
    m_lineweights->setChecked(lineweights != 0);
    m_lineweights->setEnabled(m_session.document());
    showZoom();
}

// --- objects ---

void MainWindow::choose(const TavoSelectionQuery& query, bool remove) {
    TavoSelection& selection = *m_session.host().selection();
    TavoSelectionSet found;
    if (selection.select(query, tvedWorkingDatabase(), found) != Tavo::eOk) return;
    if (remove)
        selection.remove(found.ids());
    else
        selection.add(found.ids());
}

// Enter ends a selection; else it is the command line's.
void MainWindow::finish() {
    if (m_session.objects().waiting())
        m_session.objects().finish();
    else if (!m_session.points().waiting())
        run([this] { m_session.enterLine({}); });
}

void MainWindow::cancel() {
    if (m_session.points().waiting())
        m_session.points().cancel();
    else if (m_session.objects().waiting())
        m_session.objects().cancel();
    else
        m_session.host().selection()->clear();
}

// --- events ---

void MainWindow::closeEvent(QCloseEvent* event) {
    if (m_session.quitRequested()) return;
    event->ignore();
    run([this] { m_session.runCommand(L"QUIT"); });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedDrawing(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QString file = droppedDrawing(event->mimeData());
    if (file.isEmpty()) return;
    event->acceptProposedAction();
    run([this, file = fromQt(file)] { m_session.runCommand(L"OPEN", file); });
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    // Alt and a letter nobody listens to is no text.
    const bool shortcut = event->modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier);
    if (shortcut || text.isEmpty() || !text.front().isPrint()) return QMainWindow::keyPressEvent(event);
    m_command->setFocus();
    m_command->insert(text);
}
