#pragma once

#include "platform/host/Signal.h"
#include "platform/text/Problem.h"
#include "platform/toolkit/Toolkit.h"
#include "tavocad/automation/Channel.h"
#include "tavocad/automation/Fields.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

class TavoSession;
class TavoDocument;

// What only one of the faces can do; the other leaves it empty and the request is refused.
struct FaceAbilities {
    std::function<void(std::chrono::milliseconds)> advance;
    std::function<tv::Problem(const std::filesystem::path&)> screenshot;
    std::filesystem::path
        screenshotFolder; // where relative screenshot paths start; empty: the working directory
};

// The person at the other end of a pipe: one JSON object a line in, one a line out. A request's reply is sent
// when the program has settled, that is when it asks for the next action: in a window, for a point, or being
// idle. Whoever makes it runs the toolkit's loop with it as the driver.
class AutomationServer : public tv::ui::Driver {
  public:
    AutomationServer(TavoSession& session, tv::ui::Toolkit& toolkit, Channel& channel, FaceAbilities abilities);
    ~AutomationServer() override;

    // Serves requests until the session quits or the input ends. Returns the process's exit code: 0, or 3 when
    // the input ended while a window or a request for a point waited (those were cancelled, which stderr says).
    int run();

    bool step(tv::ui::Waiting& waiting) override;
    void lost(tv::ui::Waiting& waiting) override;

  private:
    using Json = nlohmann::ordered_json;
    struct Reply {
        std::wstring error; // empty: ok
        Json extra = Json::object();
    };
    using Handler = void (AutomationServer::*)(const Fields&);
    static Handler handler(std::wstring_view request);

    void answer(const std::string& line);
    void refuse(std::wstring sentence);
    void flush();
    bool inputEnded(tv::ui::Waiting& waiting);

    // requests about windows
    void doDialog(const Fields&);
    void doAction(const Fields&);
    void doPoint(const Fields&);
    void doAdvance(const Fields&);
    void doScreenshot(const Fields&);
    // requests about drawings and the program
    void doOpen(const Fields&);
    void doNew(const Fields&);
    void doSave(const Fields&);
    void doClose(const Fields&);
    void doUndo(const Fields&);
    void doRedo(const Fields&);
    void doGetVar(const Fields&);
    void doSetVar(const Fields&);
    void doSelect(const Fields&);
    void doGetSelection(const Fields&);
    void doCommand(const Fields&);
    void doLanguage(const Fields&);
    void doQuit(const Fields&);

    // The one the request names, at rest, or the modal one a person can act on; throws RequestError when there is
    // none.
    CDialog& window(const Fields& fields) const;
    TavoDocument& document() const; // throws likewise
    void requireIdle() const;       // throws while a command runs or something waits for an answer

    TavoSession& m_session;
    tv::ui::Toolkit& m_toolkit;
    Channel& m_channel;
    FaceAbilities m_abilities;
    tv::ui::Waiting* m_waiting = nullptr; // what the program waits for now
    std::optional<Reply> m_reply;         // of the request under way, until the program settles
    unsigned long long m_request = 0;     // counts requests, so that a handler sees whether its reply has gone
    std::optional<Json> m_endedCommand;
    tv::host::Subscription m_commandEnded;
    bool m_inputEnded = false;
    bool m_cancelled = false;
};
