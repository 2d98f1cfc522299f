#include "tavocad/window/CommandEdit.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStringListModel>

CommandEdit::CommandEdit(QWidget* parent) : QLineEdit(parent), m_words(new QStringListModel(this)) {
    auto* completer = new QCompleter(m_words, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    setCompleter(completer);
}

void CommandEdit::setWords(const QStringList& words) { m_words->setStringList(words); }

bool CommandEdit::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && text().isEmpty()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo) ||
            key->matches(QKeySequence::Delete) || key->matches(QKeySequence::SelectAll) ||
            key->keyCombination() == (Qt::CTRL | Qt::Key_Y)) {
            event->ignore(); // the menu's
            return false;
        }
    }
    return QLineEdit::event(event);
}

void CommandEdit::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        enter();
        return;
    case Qt::Key_Escape:
        completer()->popup()->hide();
        if (text().isEmpty()) Q_EMIT cancelled();
        clear();
        m_at = static_cast<int>(m_history.size());
        return;
    case Qt::Key_Up:
        showHistory(-1);
        return;
    case Qt::Key_Down:
        showHistory(1);
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void CommandEdit::enter() {
    const QString line = text();
    completer()->popup()->hide();
    clear();
    if (!line.trimmed().isEmpty() && (m_history.isEmpty() || m_history.last() != line)) m_history.append(line);
    m_at = static_cast<int>(m_history.size());
    Q_EMIT entered(line);
}

void CommandEdit::showHistory(int step) {
    const int newest = static_cast<int>(m_history.size());
    const int at = m_at + step;
    if (at < 0 || at > newest) return;
    if (m_at == newest) m_draft = text();
    m_at = at;
    setText(at == newest ? m_draft : m_history[at]);
}
