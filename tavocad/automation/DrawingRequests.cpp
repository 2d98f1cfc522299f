// The requests of the automation pipe that act on drawings and the program.
#include "tavocad/automation/AutomationServer.h"
#include "tavocad/automation/VariableJson.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "tavocad/Languages.h"
#include "tavocad/TavoSession.h"

using tv::text::format;

namespace {
void require(const tv::Problem& problem) {
    if (problem) throw RequestError{problem.sentence};
}

std::filesystem::path pathOf(const std::wstring& text) { return tv::text::toUtf8(text); }
} // namespace

TavoDocument& AutomationServer::document() const {
    if (TavoDocument* document = m_session.document()) return *document;
    throw RequestError{VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다.").c_str()};
}

void AutomationServer::requireIdle() const {
    if (!m_waiting->dialog && !m_waiting->supply && m_session.host().commands()->running().empty()) return;
    throw RequestError{VORD_ResourceString("IDS_TAVO_AUTO_BUSY",
                                           L"명령이 진행 중입니다. 먼저 열려 있는 창이나 점 요청에 답하십시오.")
                           .c_str()};
}

void AutomationServer::doOpen(const Fields& fields) {
    const std::wstring path = fields.text("path");
    requireIdle();
    std::vector<tv::Problem> faults;
    const tv::Problem problem = m_session.open(pathOf(path), &faults);
    auto& problems = m_reply->extra["problems"] = Json::array();
    for (const tv::Problem& fault : faults)
        problems.push_back(tv::text::toUtf8(fault.sentence));
    require(problem);
}

void AutomationServer::doNew(const Fields&) {
    requireIdle();
    if (!m_session.host().documentManager()->newDocument())
        throw RequestError{VORD_ResourceString("IDS_TAVO_NEW_FAILED", L"새 도면을 만들지 못했습니다.").c_str()};
}

void AutomationServer::doSave(const Fields& fields) {
    // Without a path onto the drawing's own file; an empty one is a mistake of the script.
    const std::optional<std::wstring> given = fields.optionalText("path");
    if (given && given->empty())
        throw RequestError{
            VORD_ResourceString("IDS_TAVO_AUTO_EMPTY_PATH", L"저장할 경로가 비어 있습니다.").c_str()};
    const std::wstring path = given.value_or(L"");
    const bool force = fields.optionalBool("force").value_or(false);
    requireIdle();
    document();
    require(m_session.save(pathOf(path), force));
}

void AutomationServer::doClose(const Fields&) {
    requireIdle();
    TavoDocument& closing = document();
    m_reply->extra["discarded"] = closing.isModified();
    m_session.host().documentManager()->closeDocument(&closing);
}

void AutomationServer::doUndo(const Fields&) {
    requireIdle();
    document();
    const auto step = m_session.undo();
    if (!step)
        throw RequestError{VORD_ResourceString("IDS_TAVO_NOTHING_TO_UNDO", L"취소할 작업이 없습니다.").c_str()};
    m_reply->extra["step"] = tv::text::toUtf8(step->wstr());
}

void AutomationServer::doRedo(const Fields&) {
    requireIdle();
    document();
    const auto step = m_session.redo();
    if (!step)
        throw RequestError{
            VORD_ResourceString("IDS_TAVO_NOTHING_TO_REDO", L"다시 실행할 작업이 없습니다.").c_str()};
    m_reply->extra["step"] = tv::text::toUtf8(step->wstr());
}

void AutomationServer::doGetVar(const Fields& fields) {
    m_reply->extra["value"] = readVariable(*m_session.host().sysvarManager(), fields.text("name"));
}

void AutomationServer::doSetVar(const Fields& fields) {
    const std::wstring name = fields.text("name");
    const auto& value = fields.value("value");
    requireIdle();
    writeVariable(*m_session.host().sysvarManager(), name, value);
}

void AutomationServer::doCommand(const Fields& fields) {
    const std::wstring name = fields.text("name");
    const std::wstring arguments = fields.optionalText("arguments").value_or(L"");
    requireIdle();
    m_toolkit.closeMenu();
    const OdString command = TavoSession::commandName(name);
    if (m_session.host().commands()->has(command))
        m_session.runCommand(command, arguments);
    else if (m_session.host().sysvarManager()->type(command) != TavoSysvarType::kNone)
        m_session.runCommand(L"SETVAR", arguments.empty() ? command : command + L" " + arguments);
    else
        throw RequestError{m_session.unknownCommand(command).wstr()};
}

void AutomationServer::doLanguage(const Fields& fields) {
    const std::wstring code = fields.text("name");
    requireIdle();
    const UiLanguage* language = uiLanguage(code);
    if (!language) throw RequestError{m_session.unknownLanguage(code).wstr()};
    m_session.setLanguage(*language);
}

void AutomationServer::doQuit(const Fields&) {
    requireIdle();
    m_session.requestQuit();
}
