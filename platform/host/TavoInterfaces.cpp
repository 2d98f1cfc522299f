#include "platform/host/TavoInterfaces.h"

#include "platform/host/CommandRefHelp.h"
#include "platform/host/TavoComEvents.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoDisplay.h"
#include "platform/host/TavoDocumentManager.h"
#include "platform/host/TavoSelection.h"

#include <utility>

namespace {
TavoInterfaces* installedHost = nullptr;

template <class Service>
Service* serviceOf(Service* (TavoInterfaces::*accessor)()) {
    return installedHost ? (installedHost->*accessor)() : nullptr;
}

void requestDisplay(TavoDisplay::Request request, const OdDbDatabasePtr& database) {
    if (auto* display = serviceOf(&TavoInterfaces::display))
        display->request(request, database ? database : tvedWorkingDatabase());
}
} // namespace

TavoInterfaces* getTavoInterfaces() { return installedHost; }

TavoInterfaces* setTavoInterfaces(TavoInterfaces* host) { return std::exchange(installedHost, host); }

TavoSysvarManager* getSysvarManagerInterface(TavoInterfaces* host) {
    return host ? host->sysvarManager() : nullptr;
}

OdDbDatabasePtr tvedWorkingDatabase() {
    auto* documents = serviceOf(&TavoInterfaces::documentManager);
    if (!documents || documents->isClosing()) return nullptr;
    auto* document = documents->currentDocument();
    return document ? document->database() : nullptr;
}

tv::SettingsStore* tvedSettings() { return serviceOf(&TavoInterfaces::settings); }

void tvedPrint(const OdString& text) {
    if (auto* line = serviceOf(&TavoInterfaces::commandLine)) line->print(text);
}

void tvedRedraw(const OdDbDatabasePtr& database) { requestDisplay(TavoDisplay::Request::kRedraw, database); }
void tvedRegen(const OdDbDatabasePtr& database) { requestDisplay(TavoDisplay::Request::kRegen, database); }

Tavo::ErrorStatus tvedSSGet(const TavoSelectionQuery& query, TavoSelectionSet& found) {
    auto* selection = serviceOf(&TavoInterfaces::selection);
    return selection ? selection->select(query, tvedWorkingDatabase(), found) : Tavo::eNotHandled;
}

void TavoComEvents::appBeginModal() {
    if (auto* events = serviceOf(&TavoInterfaces::modalEvents)) events->beginModal();
}

void TavoComEvents::appEndModal() {
    if (auto* events = serviceOf(&TavoInterfaces::modalEvents)) events->endModal();
}

void CommandRefHelp::LocalSearch(CWnd* window, const OdString& topic) {
    if (auto* help = serviceOf(&TavoInterfaces::help)) help->search(window, topic);
}
