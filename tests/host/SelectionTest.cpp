#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/host/embedded/EmbeddedHost.h"

#include <gmock/gmock.h>

#include <algorithm>

using testing::ElementsAre;
using Method = TavoSelectionQuery::Method;

namespace {

// Layer ICE is frozen, OFF is off, LOCK is locked. Entities from "TYPE|layer|colour" words, handles from 100
// up.
OdDbDatabasePtr drawingOf(const std::vector<std::string>& entities) {
    std::string text = "0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|4|0|LAYER|2|0|70|0|62|7|6|CONTINUOUS|"
                       "0|LAYER|2|OFF|70|0|62|-3|6|CONTINUOUS|0|LAYER|2|ICE|70|1|62|3|6|CONTINUOUS|"
                       "0|LAYER|2|LOCK|70|4|62|1|6|CONTINUOUS|0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|";
    int handle = 0x100;
    for (const std::string& entity : entities) {
        const std::size_t a = entity.find('|'), b = entity.rfind('|');
        char number[16];
        std::snprintf(number, sizeof number, "%X", static_cast<unsigned>(handle++));
        text += "0|" + entity.substr(0, a) + "|5|" + number + "|8|" + entity.substr(a + 1, b - a - 1) + "|62|" +
                entity.substr(b + 1) + "|10|0|20|0|11|1|21|1|";
    }
    text += "0|ENDSEC|0|EOF|";
    std::ranges::replace(text, '|', '\n');
    auto opened = OdDbDatabase::openBytes(text);
    EXPECT_TRUE(opened.database);
    return opened.database;
}

class Selection : public testing::Test {
  protected:
    void show(const std::vector<std::string>& entities) {
        database = drawingOf(entities);
        host.documentManager()->addDocument(database);
    }
    OdDbObjectId id(int handle) const {
        return database->getOdDbObjectId(OdDbHandle(static_cast<std::uint64_t>(handle)));
    }
    // The last digit of each chosen handle.
    std::string chosen(const TavoSelectionQuery& query, Tavo::ErrorStatus status = Tavo::eOk) {
        TavoSelectionSet found;
        EXPECT_EQ(tvedSSGet(query, found), status);
        std::string digits;
        for (const OdDbObjectId& one : found.ids())
            digits += one.handle().ascii().back();
        return digits;
    }
    static TavoSelectionQuery by(Method method) {
        TavoSelectionQuery query;
        query.method = method;
        return query;
    }
    tv::host::EmbeddedHost host;
    OdDbDatabasePtr database;
};

// Whoever answers everything to every question of geometry.
class Everywhere : public TavoEntityLocator {
  public:
    void everything(const OdDbDatabasePtr& database, std::vector<OdDbObjectId>& ids) override {
        for (const OdDbObjectId id : database->modelSpace())
            ids.push_back(id);
    }
    void at(const OdDbDatabasePtr& database, OdGePoint2d, double, std::vector<OdDbObjectId>& ids) override {
        everything(database, ids);
    }
    void inBox(const OdDbDatabasePtr& database, OdGePoint2d, OdGePoint2d, bool,
               std::vector<OdDbObjectId>& ids) override {
        everything(database, ids);
    }
    void inPolygon(const OdDbDatabasePtr& database, const std::vector<OdGePoint2d>&, bool,
                   std::vector<OdDbObjectId>& ids) override {
        everything(database, ids);
    }
    void alongFence(const OdDbDatabasePtr& database, const std::vector<OdGePoint2d>&,
                    std::vector<OdDbObjectId>& ids) override {
        everything(database, ids);
    }
};

} // namespace

// What can't be seen is never chosen, however it is asked for; what is locked is, but not for editing.
TEST_F(Selection, OnlyWhatIsShownIsChosen) {
    show({"LINE|ICE|1", "LINE|LOCK|1", "LINE|0|1", "CIRCLE|0|5", "LINE|OFF|1"});
    EXPECT_EQ(chosen(by(Method::kAll)), "123");
    EXPECT_EQ(chosen(by(Method::kLast)), "3");
    TavoSelectionQuery editing = by(Method::kAll);
    editing.forEditing = true;
    EXPECT_EQ(chosen(editing), "23");
    Everywhere locator;
    host.selection()->setLocator(&locator);
    TavoSelectionQuery point = by(Method::kPoint);
    EXPECT_EQ(chosen(point, Tavo::eInvalidInput), "") << "no point";
    point.points = {{0, 0}};
    EXPECT_EQ(chosen(point), "1") << "the first that can be seen";
    point.points = {{0, std::numeric_limits<double>::quiet_NaN()}};
    EXPECT_EQ(chosen(point, Tavo::eInvalidInput), "");
    host.selection()->setLocator(nullptr);
    point.points = {{0, 0}};
    EXPECT_EQ(chosen(point, Tavo::eNotHandled), "") << "nobody knows where anything is";
    host.selection()->set({id(0x100), id(0x103)});
    EXPECT_EQ(chosen(by(Method::kImplied)), "3");
}

TEST_F(Selection, FiltersGoByWhatTheEntityItselfSays) {
    show({"LINE|0|1", "LINE|wall-1|256", "CIRCLE|Wall-2|1", "LWPOLYLINE|0|5"});
    TavoSelectionQuery query = by(Method::kAll);
    query.filter.types = {L"line", L"*POLYLINE"};
    EXPECT_EQ(chosen(query), "013");
    query.filter.layers = {L"WALL-?"};
    EXPECT_EQ(chosen(query), "1");
    query.filter = {};
    query.filter.colors = {OdCmColor::byIndex(1)};
    EXPECT_EQ(chosen(query), "02");
    query.filter.also = [](const OdDbEntity& entity) { return entity.layer() != L"0"; };
    EXPECT_EQ(chosen(query), "2");
    using tv::host::fitsPattern;
    EXPECT_TRUE(fitsPattern(L"abcabd", L"*ab?"));
    EXPECT_TRUE(fitsPattern(L"", L"**"));
    EXPECT_FALSE(fitsPattern(L"abcabde", L"*ab?"));
    EXPECT_FALSE(fitsPattern(std::wstring(30000, L'a'), L"*a*a*a*a*a*a*b")) << "and it does not take forever";
}

// Each drawing remembers its own previous selection; what was erased falls out everywhere, and comes back with
// undo only where it is remembered.
TEST_F(Selection, PreviousBelongsToTheDrawingAndErasedObjectsFallOut) {
    show({"LINE|0|1", "LINE|0|2", "LINE|0|3"});
    auto& selection = *host.selection();
    int told = 0;
    const auto listening = selection.onSelectionChanged([&] { ++told; });
    selection.set({id(0x102), id(0x100)});
    selection.add({id(0x100), id(0x101)});
    EXPECT_THAT(selection.ids(), ElementsAre(id(0x102), id(0x100), id(0x101)));
    selection.remove({id(0x100)});
    selection.remove({id(0x100)});
    EXPECT_EQ(told, 3);
    EXPECT_FALSE(selection.current().has(id(0x100)));
    selection.setPrevious(selection.ids());
    id(0x101).openObject(OdDb::kForWrite)->erase();
    EXPECT_THAT(selection.ids(), ElementsAre(id(0x102)));
    EXPECT_EQ(chosen(by(Method::kPrevious)), "2");
    selection.dropErased();
    EXPECT_EQ(told, 4);
    database->undo();
    EXPECT_EQ(chosen(by(Method::kPrevious)), "21");
    EXPECT_THAT(selection.ids(), ElementsAre(id(0x102)));

    TavoDocument* first = host.documentManager()->currentDocument();
    host.documentManager()->newDocument();
    EXPECT_TRUE(selection.ids().empty());
    EXPECT_EQ(chosen(by(Method::kPrevious)), "");
    host.documentManager()->setCurrentDocument(first);
    EXPECT_EQ(chosen(by(Method::kPrevious)), "21");
}
