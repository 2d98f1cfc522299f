#include "platform/drawing/dxf/UndoLog.h"

#include <utility>

namespace tv::dwg {
namespace {

bool same(const UndoLog::Block& a, const UndoLog::Block& b) { return a == b || (a && b && *a == *b); }

} // namespace

void UndoLog::start(std::wstring_view name) {
    if (m_depth++ == 0) m_open = Step{std::wstring(name), {}};
}

void UndoLog::end() {
    if (m_depth == 0 || --m_depth > 0) return;
    if (!m_open.changes.empty()) close(std::exchange(m_open, Step{}));
}

void UndoLog::push(Change change) {
    if (m_depth == 0) {
        close(Step{{}, {std::move(change)}});
        return;
    }
    // Repeated changes of one record inside a step keep its first bytes and its last.
    if (change.kind == ChangeKind::kReplaced && !m_open.changes.empty()) {
        Change& last = m_open.changes.back();
        if (last.kind == ChangeKind::kReplaced && last.record == change.record) {
            last.now = std::move(change.now);
            if (same(last.before, last.now)) m_open.changes.pop_back();
            return;
        }
    }
    m_open.changes.push_back(std::move(change));
}

void UndoLog::close(Step step) {
    if (m_saved != kUnreachable && m_saved > m_position) m_saved = kUnreachable;
    m_steps.resize(m_position);
    m_steps.push_back(std::move(step));
    ++m_position;
}

} // namespace tv::dwg
