#pragma once

#include <QLineEdit>
#include <QStringList>

class QStringListModel;

// The line commands are typed into. Up and Down go through what was entered before, Escape empties the line or,
// when it is empty, asks for a cancel. Words are completed at their start. Undo, redo, Delete and Ctrl+A are
// the line's own only while something stands in it.
class CommandEdit : public QLineEdit {
    Q_OBJECT
  public:
    explicit CommandEdit(QWidget* parent);
    void setWords(const QStringList& words);

  Q_SIGNALS:
    void entered(const QString& line);
    void cancelled();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void enter();
    void showHistory(int step);
    QStringListModel* m_words;
    QStringList m_history;
    int m_at = 0; // index into the history; its size: the new line
    QString m_draft;
};
