#pragma once

#include "platform/host/Signal.h"
#include "platform/host/TavoSelection.h"
#include "platform/toolkit/UserAction.h"

#include <optional>
#include <string_view>

// Objects asked for by commands. While one is waited for, the current selection is the answer in the making:
// the drawing window, the command line and the automation pipe change it alike, and Enter or an empty line ends
// it. One request waits at a time.
class SelectionRequests {
  public:
    // `tolerance`: how near to an object a point must be when nobody looks at pixels.
    SelectionRequests(TavoSelection& selection, std::function<double()> tolerance)
        : m_selection(selection), m_tolerance(std::move(tolerance)) {}

    struct Answer {
        std::vector<OdDbObjectId> ids;
        std::size_t locked = 0; // left out for being on locked layers
    };
    // What is selected already, as long as PICKFIRST allows, or else what the person selects now. Nothing when
    // he gave up. What is answered becomes the previous selection; what was asked for is not left selected.
    std::optional<Answer> get(const OdString& prompt, const OdDbDatabasePtr& database, bool forEditing);
    // The same without a look at what is selected already, and left selected.
    std::optional<Answer> ask(const OdString& prompt, const OdDbDatabasePtr& database, bool forEditing);

    // Objects named otherwise. What is selected stays so.
    Answer use(const std::vector<OdDbObjectId>& ids, const OdDbDatabasePtr& database, bool forEditing);

    bool waiting() const { return m_request != nullptr; }
    OdString prompt() const { return m_request ? m_request->prompt : OdString(); }

    // A line as it is typed (see SelectionWords.h); an empty one ends the request.
    tv::ui::UserResult supplyText(std::wstring_view text);
    // The object at a point, with the usual tolerance.
    tv::ui::UserResult supplyPoint(OdGePoint2d point);
    void finish();
    void cancel();

    // A request begins (true) or has ended (false).
    [[nodiscard]] tv::host::Subscription onWaiting(std::function<void(bool)> listener) {
        return m_changed.connect(std::move(listener));
    }

  private:
    struct Request {
        OdString prompt;
        OdDbDatabasePtr database;
        bool ended = false, given = false;
    };

    TavoSelection& m_selection;
    std::function<double()> m_tolerance;
    Request* m_request = nullptr;
    tv::host::Signal<bool> m_changed;
};
