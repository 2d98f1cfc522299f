#pragma once

#include <QString>
#include <QStringList>

#include <string>

class QWidget;

namespace tv::qt {

// Finds and loads Designer files.
class TemplateLoader {
  public:
    TemplateLoader();
    // Searched before all paths so far.
    void addPath(const QString& path) { m_paths.prepend(path); }

    // The widgets of a template under `parent`, to be owned by it; null with one sentence in `problem` when
    // there is no such file or it can't be read.
    QWidget* load(const std::string& templateName, QWidget* parent, std::wstring& problem) const;
    // A single widget of a class named as in Designer files; never null.
    static QWidget* create(const char* className, QWidget* parent);

  private:
    QStringList m_paths;
};

} // namespace tv::qt
