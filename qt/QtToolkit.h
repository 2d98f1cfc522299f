#pragma once

#include "platform/toolkit/Toolkit.h"
#include "qt/Export.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

class QString;
class QWidget;

// Shows dialogs with Qt widgets. Needs a QApplication that lives longer; GUI thread only, except wake().
//
// A dialog's window is made from the Designer file `<template name>.ui`, whose widgets are tied to the dialog's
// controls by name. The window's size is the dialog's, or what its layout needs in the current language when
// that is more; the dialog is not told of that enlargement.
class KXGUIQT_EXPORT QtToolkit : public tv::ui::Toolkit {
  public:
    QtToolkit();
    ~QtToolkit() override;

    // Where Designer files are looked for before the library's own: a folder, or a resource path (":/myhost").
    // The path added last is searched first.
    void addTemplatePath(const QString& path);
    // The window dialogs without an owner stand above, and its widget that gets the keyboard when a bar or a
    // modeless window gives it back; not owned, may be null.
    void setMainWindow(QWidget* window, QWidget* home = nullptr);

    // Saves a picture of the topmost dialog, or of the main window when there is none, with the menus and
    // drop-down lists that are open. False when there is nothing to show or the file can't be written; the
    // file's ending decides the format.
    bool screenshot(const std::filesystem::path& file) const;

    // The native window of a dialog and the widget of one of its controls; null when there is none. The window
    // of a bar (CDialog::embedded) has no place of its own: the main window takes it into one of its layouts.
    // It goes with the bar.
    QWidget* windowOf(const CDialog& dialog) const;
    QWidget* widgetOf(const CWnd& control) const;
    // What does not fit between a dialog on screen and its Designer file, one sentence each: controls without
    // widget, widgets without control, widgets of the wrong class.
    std::vector<std::wstring> bindingProblems(const CDialog& dialog) const;

    std::chrono::milliseconds now() const override;
    void wait(tv::ui::Waiting& waiting) override;
    CRect workArea() const override;
    void changed(CWnd& wnd, tv::ui::Change change) override;
    void show(CDialog& dialog) override;
    void hide(CDialog& dialog) override;
    int textWidth(const CWnd& wnd, std::wstring_view text) const override;
    void setClipboardText(const std::wstring& text) override;
    std::wstring clipboardText() const override;
    const char* name() const override { return "qt"; }
    // May be called from any thread.
    void wake() override;

  protected:
    void showActive(CDialog* dialog) override;
    void showMenu(const tv::ui::Menu& menu) override;
    void hideMenu() override;
    void menuMoved(const tv::ui::Menu& menu) override;
    void schedule(std::chrono::milliseconds delay, std::shared_ptr<tv::ui::Timer::Task> task) override;

  private:
    struct Impl;
    std::unique_ptr<Impl> m;
};
