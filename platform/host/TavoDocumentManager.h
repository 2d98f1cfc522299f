#pragma once

#include "platform/host/DrawingTypes.h"
#include "platform/host/Signal.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

#include <filesystem>
#include <functional>
#include <vector>

// An open drawing.
class TavoDocument {
  public:
    virtual ~TavoDocument() = default;

    // What the title bar says: the file's name without folder, or "Drawing1" for one never saved.
    virtual OdString name() const = 0;
    // Empty for a drawing never saved.
    virtual std::filesystem::path path() const = 0;
    virtual OdDbDatabasePtr database() const = 0;
    // Something was changed since the last save.
    virtual bool isModified() const = 0;
};

// The open drawings. The manager owns its documents; a document dies when it is closed.
class TavoDocumentManager {
  public:
    enum class Event { kOpened, kCurrentChanged, kSaved, kClosing, kClosed };
    // kClosed comes with the document already gone (null).
    using Listener = std::function<void(Event, TavoDocument*)>;

    virtual ~TavoDocumentManager() = default;

    virtual TavoDocument* currentDocument() const = 0; // null when none is open
    virtual void setCurrentDocument(TavoDocument* document) = 0;
    virtual std::vector<TavoDocument*> documents() const = 0;
    // How many drawing windows of the current project are open.
    virtual int drawingWindowCount() const = 0;

    // Both make the new document current. Opening a file that is open already makes that document current. A
    // damaged file may open as far as it goes: the document and what was wrong. Null and a problem when it does
    // not open at all.
    virtual TavoDocument* newDocument() = 0;
    virtual TavoDocument* openDocument(const std::filesystem::path& path,
                                       std::vector<tv::Problem>& problems) = 0;
    // An empty path saves onto the document's own file. A failed save leaves file and document as they were.
    // Onto the file that a damaged drawing was read from (eReadOnly), or one that somebody changed since it was
    // opened (eDuplicate), only when a person was `asked`.
    virtual tv::Problem saveDocument(TavoDocument* document, const std::filesystem::path& path,
                                     bool asked = false) = 0;
    // Closes without asking and without saving; the next open document becomes current.
    virtual void closeDocument(TavoDocument* document) = 0;

    // The program is shutting its main window down: no drawing may be used any more.
    virtual bool isClosing() const = 0;

    [[nodiscard]] virtual tv::host::Subscription onDocumentEvent(Listener listener) = 0;
};
