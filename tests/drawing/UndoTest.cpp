#include "tests/drawing/Drawings.h"
#include "tests/drawing/RandomEdits.h"

#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace drawings;
using tv::dwg::HeaderValue;

namespace {

std::string drawing() {
    std::string out = "0|SECTION|2|HEADER|9|$ACADVER|1|AC1024|9|$HANDSEED|5|100|0|ENDSEC|0|SECTION|2|TABLES|"
                      "0|TABLE|2|LAYER|5|2|70|1|0|LAYER|5|3|100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|"
                      "2|0|70|0|62|7|6|CONTINUOUS|0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|";
    for (int i = 0; i < 20; ++i)
        out += "0|LINE|5|" + OdDbHandle(static_cast<std::uint64_t>(0x20 + i)).ascii() +
               "|100|AcDbEntity|8|0|100|AcDbLine|10|0.0|20|0.0|11|1.0|21|1.0|";
    return lines(out +
                 "0|POLYLINE|5|60|8|0|66|1|0|VERTEX|5|61|8|0|10|1.0|20|2.0|0|SEQEND|5|62|8|0|0|ENDSEC|0|EOF");
}

// What long sequences of edits start from: small and old, new ones of each version, complete ones.
std::string startOf(unsigned seed) {
    using enum OdDb::DxfVersion;
    static const std::vector<std::string> kStarts = {
        drawing(),
        OdDbDatabase::create(kR12)->bytes(),
        OdDbDatabase::create(kR2000)->bytes(),
        OdDbDatabase::create(kR2018)->bytes(),
        slurp(std::filesystem::path(KX_SOURCE_DIR) / "samples" / "workshop.dxf"),
        slurp(std::filesystem::path(KX_SOURCE_DIR) / "fuzz" / "drawing" / "binary_r2000.dxf"),
        lines("0|SECTION|2|ENTITIES|0|LINE|8|0|10|0|20|0|0|ENDSEC|0|EOF"),
    };
    return kStarts[seed % kStarts.size()];
}

class Counter : public OdDbDatabaseReactor {
  public:
    std::vector<std::string> told;
    void objectModified(OdDbDatabase&, OdDbObjectId id) override {
        told.push_back("modified " + id.handle().ascii());
    }
    void objectAppended(OdDbDatabase&, OdDbObjectId id) override {
        told.push_back("appended " + id.handle().ascii());
    }
    void objectErased(OdDbDatabase&, OdDbObjectId id) override {
        told.push_back("erased " + id.handle().ascii());
    }
    void headerSysVarChanged(OdDbDatabase& db, std::wstring_view name) override {
        told.push_back("variable " + std::string(name.begin(), name.end()));
        refused = db.setHeaderVar(L"USERI5", HeaderValue::integer(1)).status;
    }
    void undoFinished(OdDbDatabase&) override { told.emplace_back("undone"); }
    void redoFinished(OdDbDatabase&) override { told.emplace_back("redone"); }
    void goodbye(OdDbDatabase&) override { told.emplace_back("goodbye"); }
    Tavo::ErrorStatus refused = Tavo::eOk;
};

} // namespace

TEST(Undo, LongRandomEditSequencesGoBackToTheFirstBytesAndForthToTheLast) {
    for (unsigned seed = 1; seed <= 42; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const auto some = [&](unsigned below) { return static_cast<unsigned>(random() % below); };
        const std::string first = startOf(seed);
        const auto db = openText(first);
        ASSERT_TRUE(db && !db->damaged());
        std::vector<std::string> states{first};
        for (int i = 0; i < 60; ++i) {
            if (some(8) == 0 && db->undo()) {
                states.pop_back();
                ASSERT_EQ(db->bytes(), states.back());
                continue;
            }
            const std::wstring name = L"step " + std::to_wstring(i);
            db->startUndoRecord(name);
            for (unsigned n = some(3) == 0 ? 5 : 1; n > 0; --n)
                editAnything(*db, some);
            if (some(4) == 0) {
                const std::string before = db->bytes();
                db->startUndoRecord(L"given up");
                for (unsigned n = some(4); n > 0; --n)
                    editAnything(*db, some);
                db->cancelUndoRecord();
                ASSERT_EQ(db->bytes(), before);
            }
            db->endUndoRecord();
            if (db->undoName() == OdString(name)) states.push_back(db->bytes());
        }
        const std::string last = db->bytes();
        // What is in memory is what a fresh reading of the bytes finds, and no handle was given twice.
        const auto again = openText(last);
        ASSERT_TRUE(again && !again->damaged());
        EXPECT_EQ(again->objectCount(), db->objectCount());
        std::set<std::string> handles;
        for (OdDbObjectId id = again->firstObject(); !id.isNull(); id = again->nextObject(id))
            if (!id.handle().isNull()) {
                EXPECT_TRUE(handles.insert(id.handle().ascii()).second) << id.handle().ascii();
            }
        int steps = 0;
        while (db->undo())
            ++steps;
        EXPECT_EQ(db->bytes(), first);
        EXPECT_FALSE(db->changed());
        while (steps-- > 0)
            EXPECT_TRUE(db->redo());
        EXPECT_EQ(db->bytes(), last);
    }
}

TEST(Undo, OfTwoRecordsWithOneHandleTheFirstIsMeantAgain) {
    const auto db =
        openText(lines("0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|1|0|LAYER|5|21|2|A|70|0|62|1|0|ENDTAB|0|ENDSEC|"
                       "0|SECTION|2|ENTITIES|0|LINE|5|21|8|A|10|0|0|ENDSEC|0|EOF"));
    const OdDbHandle handle(0x21);
    const OdDbObjectId layer = db->getOdDbObjectId(handle);
    ASSERT_EQ(layer.openObject()->isA(), L"LAYER");
    layer.openObject(OdDb::kForWrite)->erase();
    const OdDbObjectId line = db->getOdDbObjectId(handle);
    ASSERT_EQ(line.openObject()->isA(), L"LINE");
    line.openObject(OdDb::kForWrite)->erase();
    EXPECT_TRUE(db->getOdDbObjectId(handle).isNull());
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->getOdDbObjectId(handle), line);
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->getOdDbObjectId(handle), layer);
}

TEST(Undo, RecordsNestAndEmptyOnesLeaveNoTrace) {
    const auto db = openText(drawing());
    {
        const OdDbUndoScope step(*db, L"there and back");
        const auto layer = db->layers()->first().open<OdDbLayerTableRecord>(OdDb::kForWrite);
        layer->setIsFrozen(true);
        layer->setIsFrozen(false);
    }
    EXPECT_FALSE(db->hasUndo() || db->changed());
    db->startUndoRecord(L"nothing");
    db->setHeaderVar(L"NOSUCH", HeaderValue::integer(1));
    db->endUndoRecord();
    EXPECT_FALSE(db->hasUndo() || db->changed());
    {
        const OdDbUndoScope outer(*db, L"_UNITS");
        const OdDbUndoScope inner(*db, L"inner");
        db->setHeaderVar(L"LUNITS", HeaderValue::integer(4));
        db->setHeaderVar(L"AUNITS", HeaderValue::integer(1));
        EXPECT_FALSE(db->undo()) << "not while recording";
    }
    EXPECT_EQ(db->undoName(), L"_UNITS");
    EXPECT_TRUE(db->undo());
    EXPECT_FALSE(db->headerVar(L"LUNITS") || db->headerVar(L"AUNITS"));
    EXPECT_EQ(db->redoName(), L"_UNITS");
    db->setHeaderVar(L"LUNITS", HeaderValue::integer(3));
    EXPECT_FALSE(db->hasRedo()) << "a new edit forgets what was undone";
}

TEST(Undo, ReactorsHearEditsUndoAndRedoAndCannotEditMeanwhile) {
    Counter counter;
    {
        const auto db = openText(drawing());
        db->addReactor(&counter);
        db->startUndoRecord(L"edit");
        db->getOdDbObjectId(0x20).open<OdDbEntity>(OdDb::kForWrite)->setVisible(false);
        db->getOdDbObjectId(0x60).openObject(OdDb::kForWrite)->erase();
        db->endUndoRecord();
        EXPECT_THAT(counter.told, testing::ElementsAre("modified 20", "erased 61", "erased 62", "erased 60"));
        counter.told.clear();
        EXPECT_TRUE(db->undo());
        EXPECT_THAT(counter.told,
                    testing::ElementsAre("appended 60", "appended 62", "appended 61", "modified 20", "undone"));
        counter.told.clear();
        EXPECT_TRUE(db->redo());
        EXPECT_EQ(counter.told.size(), 5u);
        db->removeReactor(&counter);
        db->setHeaderVar(L"LUPREC", HeaderValue::integer(2));
        EXPECT_EQ(counter.told.size(), 5u);
        db->addReactor(&counter);
        EXPECT_TRUE(db->undo());
        EXPECT_EQ(counter.refused, Tavo::eReadOnly);
    }
    EXPECT_EQ(counter.told.back(), "goodbye");
}
