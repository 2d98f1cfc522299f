#include "platform/host/embedded/EmbeddedHost.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/TavoSharedGlobals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

using testing::ElementsAre;
using testing::HasSubstr;
using tv::host::EmbeddedHost;

namespace {

int activity() {
    int bits = -1;
    tvedGetVar(L"CMDACTIVE", bits, nullptr);
    return bits;
}

TEST(Host, NothingIsOfferedWithoutOneAndThePreviousComesBack) {
    ASSERT_EQ(getTavoInterfaces(), nullptr);
    int value = 5;
    EXPECT_EQ(tvedGetVar(L"LUNITS", value, nullptr), Tavo::eNotHandled);
    EXPECT_EQ(value, 5);
    EXPECT_TRUE(TavoSharedGlobals::IsOnEXPERTMode(1));
    TavoComEvents::appBeginModal();
    CommandRefHelp::LocalSearch(nullptr, L"");
    tvedPrint(L"nobody listens");
    tvedRedraw(nullptr);
    EXPECT_EQ(tvedWorkingDatabase(), nullptr);

    EmbeddedHost outer;
    {
        EmbeddedHost inner;
        EXPECT_EQ(getTavoInterfaces(), &inner);
    }
    EXPECT_EQ(getTavoInterfaces(), &outer);
}

TEST(Host, ExpertSilencesTheLevelsUpToIt) {
    EmbeddedHost host;
    tvedSetVar(L"EXPERT", 2, nullptr);
    EXPECT_FALSE(TavoSharedGlobals::IsOnEXPERTMode(1));
    EXPECT_FALSE(TavoSharedGlobals::IsOnEXPERTMode(2));
    EXPECT_TRUE(TavoSharedGlobals::IsOnEXPERTMode(3));
}

TEST(Host, ACommandIsOneUndoStepAndLeavesNoTraceWhenItChangesNothing) {
    EmbeddedHost host;
    auto* commands = host.commands();
    int seen = 0;
    commands->add(L"Change", [&](TavoEdCommandContext& context) {
        seen = activity();
        EXPECT_EQ(context.document(), host.documentManager()->currentDocument());
        tvedSetVar(L"LUNITS", 4, context.database());
        tvedSetVar(L"LUPREC", 1, context.database());
        return RTNORM;
    });
    commands->add(L"LOOK", [](TavoEdCommandContext&) { return RTCAN; });
    commands->add(L"THROW", [](TavoEdCommandContext&) -> int { throw std::runtime_error("out of paper"); });
    EXPECT_EQ(commands->addAlias(L"c", L"change"), Tavo::eOk);
    EXPECT_EQ(commands->addAlias(L"look", L"change"), Tavo::eDuplicate);
    EXPECT_EQ(commands->add(L"C", [](TavoEdCommandContext&) { return RTNORM; }), Tavo::eDuplicate);
    EXPECT_EQ(commands->addAlias(L"x", L"nothing"), Tavo::eKeyNotFound);

    const auto database = host.documentManager()->newDocument()->database();
    EXPECT_EQ(commands->run(L" _c "), RTNORM);
    EXPECT_EQ(seen, kActiveCommand);
    EXPECT_EQ(activity(), 0);
    EXPECT_EQ(database->undoName(), L"_CHANGE");
    EXPECT_EQ(commands->run(L"look"), RTCAN);
    EXPECT_TRUE(database->undo());
    EXPECT_FALSE(database->hasUndo());

    commands->add(
        L"STEPS",
        [](TavoEdCommandContext& context) {
            for (const int units : {3, 4}) {
                const OdDbUndoScope step(*context.database(), L"_STEP");
                tvedSetVar(L"LUNITS", units, context.database());
            }
            return RTNORM;
        },
        TavoCommands::Undo::kOwnSteps);
    EXPECT_EQ(commands->run(L"steps"), RTNORM);
    EXPECT_EQ(database->undoName(), L"_STEP");
    EXPECT_TRUE(database->undo() && database->undo());
    EXPECT_FALSE(database->hasUndo());

    host.commandLine()->takeNew();
    EXPECT_EQ(commands->run(L"throw"), RTERROR);
    EXPECT_EQ(commands->run(L"nonsense"), RTERROR);
    EXPECT_EQ(activity(), 0);
    const auto lines = host.commandLine()->takeNew();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_THAT(lines[0].wstr(), HasSubstr(L"out of paper"));
    EXPECT_THAT(lines[1].wstr(), HasSubstr(L"NONSENSE"));
    EXPECT_TRUE(host.commandLine()->takeNew().empty());
}

TEST(Host, ModalRunsNestAndShowInCmdactive) {
    EmbeddedHost host;
    std::vector<int> depths;
    const auto listening = host.modalEvents()->onDepthChanged([&](int depth) { depths.push_back(depth); });
    {
        const tv::host::ModalBracket outer;
        const tv::host::ModalBracket inner;
        EXPECT_EQ(activity(), kActiveDialog);
        host.commands()->beginActivity(kActiveScript);
        EXPECT_EQ(activity(), kActiveDialog | kActiveScript);
        host.commands()->endActivity(kActiveScript);
    }
    EXPECT_EQ(activity(), 0);
    TavoComEvents::appEndModal();
    host.commands()->endActivity(kActiveRoutine);
    EXPECT_EQ(activity(), 0) << "an end without a begin";
    EXPECT_THAT(depths, ElementsAre(1, 2, 1, 0));
}

TEST(Host, DocumentsOpenSaveAndClose) {
    EmbeddedHost host;
    auto& documents = *host.documentManager();
    const auto folder = std::filesystem::path(testing::TempDir()) / "kx_host_documents";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    const auto file = folder / "plan.dxf";

    std::vector<TavoDocumentManager::Event> events;
    const auto listening = documents.onDocumentEvent(
        [&](TavoDocumentManager::Event event, TavoDocument*) { events.push_back(event); });
    auto* first = documents.newDocument();
    EXPECT_FALSE(first->isModified());
    EXPECT_TRUE(documents.saveDocument(first, {})) << "it has no file yet";
    tvedSetVar(L"LUNITS", 3, nullptr);
    EXPECT_TRUE(first->isModified());
    EXPECT_FALSE(documents.saveDocument(first, file));
    EXPECT_FALSE(first->isModified());
    EXPECT_EQ(first->name(), L"plan.dxf");

    auto* second = documents.newDocument();
    EXPECT_EQ(documents.drawingWindowCount(), 2);
    std::vector<tv::Problem> problems;
    EXPECT_EQ(documents.openDocument(folder / "." / "plan.dxf", problems), first) << "open already";
    EXPECT_EQ(documents.currentDocument(), first);
    EXPECT_EQ(documents.openDocument(folder / "missing.dxf", problems), nullptr);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_THAT(problems[0].sentence, HasSubstr(L"missing.dxf"));

    const auto database = first->database();
    documents.closeDocument(first);
    EXPECT_EQ(documents.currentDocument(), second);
    documents.closeDocument(first);
    EXPECT_EQ(documents.drawingWindowCount(), 1);
    EXPECT_EQ(tvedWorkingDatabase(), second->database());
    documents.setClosing(true);
    EXPECT_EQ(tvedWorkingDatabase(), nullptr);
    using enum TavoDocumentManager::Event;
    EXPECT_THAT(events, ElementsAre(kOpened, kCurrentChanged, kSaved, kOpened, kCurrentChanged, kCurrentChanged,
                                    kClosing, kCurrentChanged, kClosed));
    std::filesystem::remove_all(folder);
}

TEST(Host, TheSelectionHoldsEachLivingObjectOnceAndForgetsAClosedDrawing) {
    EmbeddedHost host;
    auto* document = host.documentManager()->newDocument();
    const auto database = document->database();
    const OdDbObjectId a = database->firstObject();
    const OdDbObjectId b = database->nextObject(a);
    int told = 0;
    const auto listening = host.selection()->onSelectionChanged([&] { ++told; });
    host.selection()->set({b, a, b, OdDbObjectId()});
    EXPECT_THAT(host.selection()->ids(), ElementsAre(b, a));
    host.selection()->set({b, a});
    EXPECT_EQ(told, 1);
    host.documentManager()->closeDocument(document);
    EXPECT_TRUE(host.selection()->ids().empty());
    EXPECT_EQ(told, 2);
}

// Observers come and go while they are being told.
TEST(Host, SignalsSurviveChangesWhileTelling) {
    tv::host::Signal<int> signal;
    std::vector<int> seen;
    tv::host::Subscription second;
    tv::host::Subscription late;
    auto first = signal.connect([&](int) {
        seen.push_back(1);
        second.reset();
        late = signal.connect([&](int) { seen.push_back(3); });
    });
    second = signal.connect([&](int) { seen.push_back(2); });
    signal.notify(0);
    EXPECT_THAT(seen, ElementsAre(1));
    first.reset();
    signal.notify(0);
    EXPECT_THAT(seen, ElementsAre(1, 3));
    tv::host::Subscription outliving;
    {
        tv::host::Signal<> shortLived;
        outliving = shortLived.connect([] {});
    }
    outliving.reset();
}

} // namespace
