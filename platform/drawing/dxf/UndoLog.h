#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tv::dwg {

enum class ChangeKind : std::uint8_t { kReplaced, kInserted, kRemoved };

// One primitive change of the record list.
struct Change {
    using Block = std::shared_ptr<const std::string>;
    ChangeKind kind;
    RecordId record;
    RecordId after; // the record it stood or stands behind
    Block before;   // bytes before and after a replacement; null means as read
    Block now;
};

// The steps taken and undone. Keeps books only; the record store carries the changes out.
class KXPLATFORM_EXPORT UndoLog {
  public:
    using Block = Change::Block;
    struct Step {
        std::wstring name;
        std::vector<Change> changes;
    };

    void start(std::wstring_view name);
    void end();
    bool recording() const { return !m_starts.empty(); }
    // The next end() ends the step.
    bool outermost() const { return m_starts.size() == 1; }
    // Ends the innermost record; its changes, which the caller carries back from the last one on, are no part
    // of the step.
    std::vector<Change> cancel();
    // Outside a record the change is a step of its own.
    void push(Change change);

    const Step* nextUndo() const { return m_position == 0 ? nullptr : &m_steps[m_position - 1]; }
    const Step* nextRedo() const { return m_position == m_steps.size() ? nullptr : &m_steps[m_position]; }
    void stepBack() { --m_position; }
    void stepForward() { ++m_position; }

    void markSaved() { m_saved = m_position; }
    bool changed() const { return m_saved != m_position || !m_open.changes.empty(); }

  private:
    void close(Step step);
    void joinLast();

    static constexpr std::size_t kUnreachable = static_cast<std::size_t>(-1);
    std::vector<Step> m_steps;
    std::size_t m_position = 0;
    std::size_t m_saved = 0;
    Step m_open;
    std::vector<std::size_t> m_starts; // of the open records: how many changes the step had
};

} // namespace tv::dwg
