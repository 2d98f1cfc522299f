#pragma once

#include "platform/toolkit/Dialog.h"
#include "qt/Binder.h"

#include <QDialog>

#include <optional>

namespace tv::qt {

// The native window of one dialog while it runs. It passes on what a person does to the window as a whole:
// keys, the focus, moving, resizing, the close box; what is done to the controls is their bridges' matter.
class DialogWindow : public QDialog {
    Q_OBJECT
  public:
    DialogWindow(CDialog& dialog, const TemplateLoader& loader, QWidget* owner);
    ~DialogWindow() override;

    // The dialog may be gone from now on: the window leaves the screen and does nothing any more until it is
    // deleted.
    void retire();
    // An embedded window is shown and placed by whoever holds it.
    bool embedded() const { return m_embedded; }
    void setVisible(bool visible) override;

    // Puts the window on screen, above the others, or takes it away without ending the dialog.
    void present();
    void getOutOfTheWay() { hide(); }

    void changed(CWnd& wnd, ui::Change change);
    // Brings the keyboard's place of the dialog onto the screen.
    void showFocus();
    CDialog& dialog() const { return m_dialog; }
    Bridge* bridgeOf(const CWnd& wnd) const;
    const std::vector<std::wstring>& problems() const { return m_problems; }

    // Escape is the dialog's matter.
    void reject() override {}

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void build(const TemplateLoader& loader);
    void watch(QWidget& part); // the widget and all below it
    void linkLabels();
    void showAll();
    void showNamesLabelledBy(const CWnd& label);
    // The smallest size at which no text is cut off, and not below the dialog's own.
    QSize neededSize(int width) const;
    void applySize();
    void place();
    bool keyPressed(QKeyEvent& event);
    void focusArrived(QObject& object, Qt::FocusReason reason);
    void composing(QEvent& event);
    Bridge* bridgeOfWidget(const QObject* object) const;

    CDialog& m_dialog;
    std::vector<std::unique_ptr<Bridge>> m_bridges;
    std::vector<std::wstring> m_problems;
    const bool m_embedded;
    bool m_retired = false;
    bool m_settingGeometry = false; // what happens now is ours, not a person's
    bool m_movingFocus = false;
    bool m_presented = false;
    bool m_composing = false;
    // What the window manager says later is news only when it differs from these.
    QSize m_set;                      // the window's size as it is known
    QPoint m_put;                     // the place of its frame as it is known
    CRect m_known;                    // the dialog's rectangle they stand for
    std::optional<QPoint> m_dragFrom; // of the pointer within the window, while it drags the window by its body
};

} // namespace tv::qt
