#include "tavocad/SelectionRequests.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Toolkit.h"
#include "tavocad/SelectionWords.h"

using tv::ui::UserAction;
using tv::ui::UserResult;

namespace {
UserResult nothingAwaited() {
    return {
        VORD_ResourceString("IDS_TAVO_NO_OBJECTS_AWAITED", L"지금은 객체를 기다리고 있지 않습니다.").c_str()};
}
} // namespace

std::optional<SelectionRequests::Answer>
SelectionRequests::get(const OdString& prompt, const OdDbDatabasePtr& database, bool forEditing) {
    int pickFirst = 1;
    tvedGetVar(L"PICKFIRST", pickFirst, nullptr);
    const bool own = m_selection.current().database() == database.get();
    if (auto selected = own && pickFirst ? m_selection.ids() : std::vector<OdDbObjectId>(); !selected.empty())
        return use(selected, database, forEditing);
    auto answer = ask(prompt, database, forEditing);
    m_selection.clear();
    return answer;
}

std::optional<SelectionRequests::Answer>
SelectionRequests::ask(const OdString& prompt, const OdDbDatabasePtr& database, bool forEditing) {
    tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current();
    if (!toolkit || m_request) return std::nullopt;
    m_selection.clear();
    Request request{prompt, database};
    m_request = &request;
    m_changed.notify(true);

    tv::ui::Waiting waiting;
    waiting.prompt = prompt.wstr();
    waiting.done = [&request] { return request.ended; };
    waiting.supply = [this](const UserAction& action) -> UserResult {
        using tv::ui::Key;
        const bool key = action.kind == UserAction::Kind::key;
        if (action.kind == UserAction::Kind::point) return supplyPoint({action.x, action.y});
        if (key && action.keyEvent.key == Key::escape)
            cancel();
        else if (key && action.keyEvent.key == Key::enter)
            finish();
        else
            return {
                VORD_ResourceString("IDS_TAVO_OBJECTS_AWAITED",
                                    L"객체 선택을 기다리고 있습니다. 선택을 마치려면 Enter 키를 누르십시오.")
                    .c_str()};
        return UserResult::done();
    };
    toolkit->wait(waiting);

    m_request = nullptr;
    m_changed.notify(false);
    if (!request.given) {
        m_selection.clear();
        return std::nullopt;
    }
    return use(m_selection.ids(), database, forEditing);
}

SelectionRequests::Answer SelectionRequests::use(const std::vector<OdDbObjectId>& ids,
                                                 const OdDbDatabasePtr& database, bool forEditing) {
    TavoSelectionQuery query;
    query.method = TavoSelectionQuery::Method::kGiven;
    query.ids = ids;
    TavoSelectionSet shown, editable;
    m_selection.select(query, database, shown);
    query.forEditing = forEditing;
    m_selection.select(query, database, editable);
    m_selection.setPrevious(editable.ids());
    return {editable.ids(), shown.size() - editable.size()};
}

UserResult SelectionRequests::supplyText(std::wstring_view text) {
    if (!m_request || m_request->ended) return nothingAwaited();
    if (text.find_first_not_of(L" \t") != std::wstring_view::npos)
        return selectByWords(m_selection, m_request->database, m_tolerance(), text);
    finish();
    return UserResult::done();
}

UserResult SelectionRequests::supplyPoint(OdGePoint2d point) {
    if (!m_request || m_request->ended) return nothingAwaited();
    TavoSelectionQuery query;
    query.method = TavoSelectionQuery::Method::kPoint;
    query.points = {point};
    query.tolerance = m_tolerance();
    TavoSelectionSet found;
    if (m_selection.select(query, m_request->database, found) != Tavo::eOk)
        return {VORD_ResourceString("IDS_TAVO_SELECT_NO_GEOMETRY", L"점으로 객체를 고를 수 없습니다.").c_str()};
    if (found.empty())
        return {VORD_ResourceString("IDS_TAVO_SELECT_NOTHING_THERE", L"그 점에는 객체가 없습니다.").c_str()};
    m_selection.add(found.ids());
    return UserResult::done();
}

void SelectionRequests::finish() {
    if (!m_request) return;
    m_request->given = true;
    m_request->ended = true;
}

void SelectionRequests::cancel() {
    if (m_request) m_request->ended = true;
}
