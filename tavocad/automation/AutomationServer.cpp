#include "tavocad/automation/AutomationServer.h"

#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Dialog.h"
#include "tavocad/NearNames.h"
#include "tavocad/SelectionRequests.h"
#include "tavocad/TavoSession.h"

#include <algorithm>
#include <cstdio>
#include <utility>

using tv::text::format;
using tv::text::toUtf8;

AutomationServer::AutomationServer(TavoSession& session, tv::ui::Toolkit& toolkit, Channel& channel,
                                   FaceAbilities abilities)
    : m_session(session), m_toolkit(toolkit), m_channel(channel), m_abilities(std::move(abilities)),
      m_commandEnded(session.onCommandEnded([this](const OdString& name, int result) {
          m_endedCommand = Json{{"command", toUtf8(name.wstr())}, {"result", result}};
      })) {
    toolkit.setDriver(this);
}

AutomationServer::~AutomationServer() {
    if (m_toolkit.driver() == this) m_toolkit.setDriver(nullptr);
}

int AutomationServer::run() {
    tv::ui::Waiting idle;
    idle.done = [this] { return m_session.quitRequested() || m_inputEnded; };
    m_toolkit.wait(idle);
    m_waiting = &idle;
    flush();
    m_waiting = nullptr;
    constexpr int inputEndedInsideWindow = 3;
    return m_cancelled ? inputEndedInsideWindow : 0;
}

AutomationServer::Handler AutomationServer::handler(std::wstring_view request) {
    struct Entry {
        const wchar_t* name;
        Handler handler;
    };
    static constexpr Entry entries[] = {{L"dialog", &AutomationServer::doDialog},
                                        {L"click", &AutomationServer::doAction},
                                        {L"type", &AutomationServer::doAction},
                                        {L"choose", &AutomationServer::doAction},
                                        {L"check", &AutomationServer::doAction},
                                        {L"selectRows", &AutomationServer::doAction},
                                        {L"cell", &AutomationServer::doAction},
                                        {L"header", &AutomationServer::doAction},
                                        {L"column", &AutomationServer::doAction},
                                        {L"tree", &AutomationServer::doAction},
                                        {L"menu", &AutomationServer::doAction},
                                        {L"drag", &AutomationServer::doAction},
                                        {L"key", &AutomationServer::doAction},
                                        {L"closeBox", &AutomationServer::doAction},
                                        {L"point", &AutomationServer::doPoint},
                                        {L"advance", &AutomationServer::doAdvance},
                                        {L"screenshot", &AutomationServer::doScreenshot},
                                        {L"open", &AutomationServer::doOpen},
                                        {L"new", &AutomationServer::doNew},
                                        {L"save", &AutomationServer::doSave},
                                        {L"close", &AutomationServer::doClose},
                                        {L"undo", &AutomationServer::doUndo},
                                        {L"redo", &AutomationServer::doRedo},
                                        {L"getvar", &AutomationServer::doGetVar},
                                        {L"setvar", &AutomationServer::doSetVar},
                                        {L"select", &AutomationServer::doSelect},
                                        {L"getselection", &AutomationServer::doGetSelection},
                                        {L"command", &AutomationServer::doCommand},
                                        {L"language", &AutomationServer::doLanguage},
                                        {L"quit", &AutomationServer::doQuit}};
    for (const Entry& entry : entries)
        if (request == entry.name) return entry.handler;
    std::vector<std::wstring> names;
    for (const Entry& entry : entries)
        names.emplace_back(entry.name);
    const auto near = nearNames(request, names);
    if (near.empty())
        throw RequestError{format(
            VORD_ResourceString("IDS_TAVO_AUTO_NO_REQUEST",
                                L"\"%s\"(이)라는 요청은 없습니다. 모든 요청은 docs/automation.md에 있습니다."),
            request)};
    throw RequestError{format(VORD_ResourceString("IDS_TAVO_AUTO_UNKNOWN_REQUEST",
                                                  L"\"%s\"(이)라는 요청은 없습니다. 비슷한 요청: %s."),
                              request, joined(near))};
}

bool AutomationServer::step(tv::ui::Waiting& waiting) {
    tv::ui::Waiting* const outer = std::exchange(m_waiting, &waiting);
    flush();
    bool acted = true;
    std::string line;
    switch (m_inputEnded ? Channel::State::ended : m_channel.next(line)) {
    case Channel::State::nothingYet:
        acted = false;
        break;
    case Channel::State::ended:
        acted = inputEnded(waiting);
        break;
    case Channel::State::tooLong:
        ++m_request;
        m_reply = Reply{};
        refuse(format(VORD_ResourceString("IDS_TAVO_AUTO_TOO_LONG",
                                          L"요청이 너무 깁니다. 한 줄은 %d바이트를 넘을 수 없습니다."),
                      static_cast<int>(Channel::maxLine)));
        break;
    case Channel::State::line:
        // A blank line is no request and gets no reply.
        if (line.find_first_not_of(" \t") != std::string::npos) answer(line);
        break;
    }
    m_waiting = outer;
    return acted;
}

void AutomationServer::answer(const std::string& line) {
    const auto request = ++m_request;
    m_reply = Reply{};
    try {
        const Fields fields = Fields::parse(line);
        (this->*handler(fields.text("do")))(fields);
    } catch (RequestError& error) {
        // When a window came up meanwhile, the reply has gone already.
        if (request == m_request) refuse(std::move(error.sentence));
    }
}

void AutomationServer::refuse(std::wstring sentence) {
    if (m_reply) m_reply->error = std::move(sentence);
}

// Sends the reply of the request under way, if there is one: the program has settled.
void AutomationServer::flush() {
    if (!m_reply) return;
    const Reply reply = *std::exchange(m_reply, std::nullopt);
    Json out = {{"ok", reply.error.empty()}};
    if (!reply.error.empty()) out["error"] = toUtf8(reply.error);
    for (const auto& [name, value] : reply.extra.items())
        out[name] = value;
    CDialog* const topmost = m_toolkit.topmost();
    out["modal"] = topmost ? Json(topmost->templateName()) : Json(nullptr);
    if (m_waiting && m_waiting->supply) out["prompt"] = toUtf8(m_waiting->prompt);
    if (m_endedCommand) out["ended"] = *std::exchange(m_endedCommand, std::nullopt);
    Json messages = Json::array();
    for (const OdString& message : m_session.host().commandLine()->takeNew())
        messages.push_back(toUtf8(message.wstr()));
    out["messages"] = std::move(messages);
    if (!m_channel.send(out.dump(-1, ' ', false, Json::error_handler_t::replace))) m_inputEnded = true;
}

// Nobody is there to answer any more: what waits is cancelled, aloud.
bool AutomationServer::inputEnded(tv::ui::Waiting& waiting) {
    m_inputEnded = true;
    if (waiting.dialog) {
        lost(waiting);
        waiting.dialog->EndDialog(IDCANCEL);
    } else if (waiting.supply) {
        lost(waiting);
        m_session.points().cancel();
        m_session.objects().cancel();
    }
    return true;
}

void AutomationServer::lost(tv::ui::Waiting& waiting) {
    m_cancelled = true;
    const std::wstring what =
        waiting.dialog ? tv::text::fromUtf8(waiting.dialog->templateName()) : waiting.prompt;
    const std::string sentence =
        toUtf8(format(VORD_ResourceString("IDS_TAVO_AUTO_INPUT_ENDED",
                                          L"입력이 끝났는데 \"%s\"이(가) 답을 기다리고 있어 취소했습니다."),
                      what));
    std::fprintf(stderr, "tavocad: %s\n", sentence.c_str());
}
