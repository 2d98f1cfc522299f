// The requests of the automation pipe that act on the window in front.
#include "tavocad/automation/Actions.h"
#include "tavocad/automation/AutomationServer.h"
#include "tavocad/automation/SnapshotJson.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/Snapshot.h"
#include "tavocad/NearNames.h"
#include "tavocad/SelectionRequests.h"
#include "tavocad/TavoSession.h"

#include <algorithm>
#include <limits>

using tv::ui::UserAction;
using tv::ui::UserResult;

CDialog& AutomationServer::window(const Fields& fields) const {
    if (const auto wanted = fields.optionalText("window")) {
        std::vector<CDialog*> open = m_toolkit.modalStack();
        open.insert(open.begin(), m_toolkit.modelessWindows().begin(), m_toolkit.modelessWindows().end());
        std::vector<std::wstring> names;
        for (const CDialog* dialog : open)
            names.push_back(tv::text::fromUtf8(dialog->templateName()));
        const auto at = std::find(names.rbegin(), names.rend(), *wanted);
        if (at == names.rend())
            throw RequestError{tv::text::format(
                VORD_ResourceString("IDS_TAVO_AUTO_NO_SUCH_WINDOW",
                                    L"\"%s\"(이)라는 창은 열려 있지 않습니다. 열려 있는 창: %s."),
                *wanted, names.empty() ? L"-" : joined(names))};
        CDialog& found = *open[static_cast<std::size_t>(names.rend() - at) - 1];
        found.settle();
        return found;
    }
    if (CDialog* topmost = m_toolkit.topmost()) return *topmost;
    throw RequestError{VORD_ResourceString("IDS_TAVO_AUTO_NO_WINDOW", L"열려 있는 창이 없습니다.").c_str()};
}

void AutomationServer::doDialog(const Fields& fields) {
    const int first = std::max(0, fields.optionalInteger("first").value_or(0));
    const int count = std::max(0, fields.optionalInteger("count").value_or(20));
    const int fitting = std::min(count, std::numeric_limits<int>::max() - first);
    m_reply->extra["dialog"] = toJson(tv::ui::snapshot(window(fields), first, fitting));
}

void AutomationServer::doAction(const Fields& fields) {
    const std::wstring name = fields.text("do");
    const UserAction action = actionOf(name, fields);
    using Kind = UserAction::Kind;
    // A key and the close box belong to the window unless a control is named, and Escape also ends a request
    // for a point.
    const bool ofWindow =
        action.kind == Kind::key || action.kind == Kind::closeBox || action.kind == Kind::menu;
    const auto control = ofWindow ? fields.optionalText("control") : fields.text("control");
    const auto request = m_request;
    UserResult result;
    if (action.kind == Kind::menu) {
        result = m_toolkit.userMenu(action.path.empty() ? std::vector{action.text} : action.path);
    } else if (action.kind == Kind::key && !m_toolkit.topmost() && m_waiting->supply &&
               !fields.find("window")) {
        result = m_waiting->supply(action);
    } else {
        CDialog& dialog = window(fields);
        CWnd& target = control ? controlOf(dialog, *control) : dialog;
        result = target.perform(action);
    }
    if (!result && request == m_request) throw RequestError{result.refusal};
}

void AutomationServer::doPoint(const Fields& fields) {
    m_toolkit.closeMenu();
    SelectionRequests& objects = m_session.objects();
    if (fields.optionalBool("cancel").value_or(false)) {
        if (objects.waiting()) return objects.cancel();
        if (!m_session.points().waiting()) throw RequestError{m_session.points().supply({}).refusal};
        m_session.points().cancel();
        return;
    }
    const std::vector<double> at = fields.numbers("at");
    if (at.size() < 2 || at.size() > 3)
        Fields::wrongType("at", VORD_ResourceString("IDS_TAVO_AUTO_TYPE_POINT", L"[x, y] 또는 [x, y, z]"));
    const UserResult result = objects.waiting()
                                  ? objects.supplyPoint({at[0], at[1]})
                                  : m_session.points().supply({at[0], at[1], at.size() == 3 ? at[2] : 0});
    if (!result) throw RequestError{result.refusal};
}

void AutomationServer::doAdvance(const Fields& fields) {
    const int ms = fields.integer("ms");
    if (ms < 0)
        Fields::wrongType("ms", VORD_ResourceString("IDS_TAVO_AUTO_TYPE_DURATION", L"0 이상의 정수(밀리초)"));
    if (!m_abilities.advance)
        throw RequestError{
            VORD_ResourceString("IDS_TAVO_AUTO_REAL_TIME",
                                L"이 화면에서는 시간이 저절로 흐르므로 advance를 쓸 수 없습니다.")
                .c_str()};
    m_abilities.advance(std::chrono::milliseconds(ms));
}

void AutomationServer::doScreenshot(const Fields& fields) {
    const std::filesystem::path path = tv::text::toUtf8(fields.text("path"));
    if (!m_abilities.screenshot)
        throw RequestError{VORD_ResourceString("IDS_TAVO_AUTO_NO_PIXELS",
                                               L"이 화면은 그림을 그리지 않으므로 screenshot을 쓸 수 없습니다.")
                               .c_str()};
    for (CDialog* open : m_toolkit.modelessWindows())
        open->settle();
    if (const tv::Problem problem = m_abilities.screenshot(m_abilities.screenshotFolder / path))
        throw RequestError{problem.sentence};
}
