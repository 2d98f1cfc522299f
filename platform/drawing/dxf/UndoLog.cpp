#include "platform/drawing/dxf/UndoLog.h"

#include <iterator>
#include <utility>

namespace tv::dwg {
namespace {

bool same(const UndoLog::Block& a, const UndoLog::Block& b) { return a == b || (a && b && *a == *b); }

} // namespace

void UndoLog::start(std::wstring_view name) {
    if (m_starts.empty()) m_open = Step{std::wstring(name), {}};
    m_starts.push_back(m_open.changes.size());
}

void UndoLog::end() {
    if (m_starts.empty()) return;
    const std::size_t start = m_starts.back();
    m_starts.pop_back();
    if (m_starts.empty()) {
        if (!m_open.changes.empty()) close(std::exchange(m_open, Step{}));
    } else if (m_open.changes.size() == start + 1 && start > m_starts.back()) {
        joinLast();
    }
}

std::vector<Change> UndoLog::cancel() {
    std::vector<Change> taken;
    if (m_starts.empty()) return taken;
    const auto first = m_open.changes.begin() + static_cast<std::ptrdiff_t>(m_starts.back());
    taken.assign(std::make_move_iterator(first), std::make_move_iterator(m_open.changes.end()));
    m_open.changes.erase(first, m_open.changes.end());
    end();
    return taken;
}

void UndoLog::push(Change change) {
    if (m_starts.empty()) {
        close(Step{{}, {std::move(change)}});
        return;
    }
    m_open.changes.push_back(std::move(change));
    // What an outer record changed stays a change of its own as long as the inner one can be cancelled.
    if (m_open.changes.size() > m_starts.back() + 1) joinLast();
}

// Repeated changes of one record inside a step keep its first bytes and its last.
void UndoLog::joinLast() {
    const Change& last = m_open.changes.back();
    Change& before = m_open.changes[m_open.changes.size() - 2];
    if (last.kind != ChangeKind::kReplaced || before.kind != ChangeKind::kReplaced ||
        last.record != before.record)
        return;
    before.now = last.now;
    m_open.changes.pop_back();
    if (same(before.before, before.now)) m_open.changes.pop_back();
}

void UndoLog::close(Step step) {
    if (m_saved != kUnreachable && m_saved > m_position) m_saved = kUnreachable;
    m_steps.resize(m_position);
    m_steps.push_back(std::move(step));
    ++m_position;
}

} // namespace tv::dwg
