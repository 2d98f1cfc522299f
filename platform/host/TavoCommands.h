#pragma once

#include "platform/Export.h"
#include "platform/host/DrawingTypes.h"
#include "platform/host/Signal.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

#include <functional>
#include <vector>

class TavoDocument;

// What a command ends with.
inline constexpr int RTNORM = 5100;   // done
inline constexpr int RTERROR = -5001; // failed or unknown; the command line says why
inline constexpr int RTCAN = -5002;   // cancelled by the user

// The bits of CMDACTIVE.
enum TavoCommandActivity : int {
    kActiveCommand = 1,
    kActiveTransparent = 2,
    kActiveScript = 4,
    kActiveDialog = 8,
    kActiveDde = 16,
    kActiveRoutine = 32,
};

// What a running command works on. The database stays alive as long as the context, whatever happens to the
// document.
class KXPLATFORM_EXPORT TavoEdCommandContext {
  public:
    explicit TavoEdCommandContext(OdDbDatabasePtr database = nullptr, TavoDocument* document = nullptr)
        : m_database(std::move(database)), m_document(document) {}

    const OdDbDatabasePtr& database() const { return m_database; }
    TavoDocument* document() const { return m_document; }

  private:
    OdDbDatabasePtr m_database;
    TavoDocument* m_document;
};

// The commands a person types. Names and aliases ignore letter case; "_", "." and "'" in front and blanks
// around belong to the typing, not to the name.
class TavoCommands {
  public:
    enum class Undo {
        kOneStep,  // all it does to the drawing is one step named "_NAME"
        kOwnSteps, // it makes steps of its own, as a window does that writes each edit at once
    };
    using Function = std::function<int(TavoEdCommandContext&)>;
    using ActivityListener = std::function<void(int activity)>;

    virtual ~TavoCommands() = default;

    // eDuplicate when a command or alias has the name, eInvalidInput for an empty name or function.
    virtual Tavo::ErrorStatus add(const OdString& name, Function function, Undo undo = Undo::kOneStep) = 0;
    // eKeyNotFound when there is no such command.
    virtual Tavo::ErrorStatus addAlias(const OdString& alias, const OdString& name) = 0;
    virtual bool has(const OdString& name) const = 0;
    // Command names, without aliases, in alphabetical order.
    virtual std::vector<OdString> names() const = 0;

    // Runs a command on the current document and answers its result. What it does to the drawing is one undo
    // step (none when it changed nothing) unless it was added with steps of its own. An unknown command or one
    // that throws is told on the command line: RTERROR.
    virtual int run(const OdString& name) = 0;

    // Names of the running commands, the innermost last; empty when the program is idle.
    virtual std::vector<OdString> running() const = 0;

    // The bits of CMDACTIVE. Scripts, routines and modal windows add theirs for as long as they last.
    virtual int activity() const = 0;
    virtual void beginActivity(TavoCommandActivity bit) = 0;
    virtual void endActivity(TavoCommandActivity bit) = 0;
    [[nodiscard]] virtual tv::host::Subscription onActivityChanged(ActivityListener listener) = 0;
};
