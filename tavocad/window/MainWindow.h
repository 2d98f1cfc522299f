#pragma once

#include "platform/host/Signal.h"
#include "tavocad/Options.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class CommandEdit;
class DrawingView;
class TavoDocument;
class TavoSession;
struct TavoSelectionQuery;
class QActionGroup;
class QBoxLayout;
class QLabel;
class QPlainTextEdit;
class QTabBar;

// The program's window: menus, the drawing, what the program said and the line to tell it what to do. It knows
// no command; everything goes through the session. Its size and place are remembered in the settings when the
// program quits.
class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit MainWindow(TavoSession& session);
    ~MainWindow() override;

    void setTheme(ThemeChoice theme);
    // Where the keyboard belongs when nobody else wants it.
    QWidget& home();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    // Letters typed into the drawing go to the command line.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    using Text = std::function<QString()>;
    void buildMenus();
    void buildPanes();
    void holdPropertiesBar(QBoxLayout& column);
    void nextPane();
    void observe();
    QMenu* addMenu(Text text);
    QAction* addAction(QMenu* menu, Text text, std::function<void()> does, const QKeySequence& keys = {});
    QAction* addCommand(QMenu* menu, Text text, const wchar_t* command, const QKeySequence& keys = {});
    void retranslate();
    void run(std::function<void()> work); // after the event that asked for it
    void enter(const QString& line);
    void showPrompt();
    void showTitle();
    void showPosition(double x, double y);
    void showZoom();
    void showSelection();
    void showSettings();
    void showLayouts();
    void choose(const TavoSelectionQuery& query, bool remove);
    void finish();
    void cancel();
    void updateWords();
    void restorePlace();
    void rememberPlace();

    TavoSession& m_session;
    DrawingView* m_view = nullptr;
    QPlainTextEdit* m_history = nullptr;
    QLabel* m_prompt = nullptr;
    QLabel* m_position = nullptr;
    QLabel *m_zoom = nullptr, *m_layer = nullptr, *m_space = nullptr, *m_selected = nullptr;
    CommandEdit* m_command = nullptr;
    QTabBar* m_layouts = nullptr;
    QActionGroup *m_themes = nullptr, *m_languages = nullptr;
    QAction *m_undo = nullptr, *m_redo = nullptr, *m_lineweights = nullptr, *m_propertiesBar = nullptr;
    std::vector<std::function<void()>> m_texts; // put every text of the window in the current language
    std::vector<tv::host::Subscription> m_subscriptions;
    std::shared_ptr<void> m_languageHandle;
    double m_x = 0, m_y = 0;
    QTimer m_valuesChanged; // once for all variables that change in an event
};
