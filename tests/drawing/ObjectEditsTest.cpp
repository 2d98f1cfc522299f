#include "tests/drawing/Drawings.h"

#include "platform/drawing/LayerFilters.h"
#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/LayerStates.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbGroup.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbPlaceHolder.h"
#include "platform/drawing/OdDbScale.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/drawing/OdDbXrecord.h"
#include "platform/drawing/dxf/DxfTags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

using namespace drawings;
using namespace tv::dwg;

namespace {

// A new drawing with two layers, a line and a viewport on its sheet, whose handles are FF0 and FF1.
std::string furnished() {
    const auto db = OdDbDatabase::create(OdDb::DxfVersion::kR2010);
    for (const wchar_t* name : {L"Wall", L"Door"})
        db->layers(OdDb::kForWrite)->add(name);
    const auto sheet = db->layoutIds().back().open<OdDbLayout>()->getBlockTableRecordId().handle().ascii();
    const auto model = db->layoutIds().front().open<OdDbLayout>()->getBlockTableRecordId().handle().ascii();
    std::string bytes = db->bytes();
    const std::string mark = "ENTITIES\r\n";
    bytes.insert(bytes.find(mark) + mark.size(),
                 lines("0|LINE|5|FF0|330|" + model +
                           "|100|AcDbEntity|8|0|100|AcDbLine|10|0.0|20|0.0|30|0.0|11|1.0|21|1.0|31|0.0|"
                           "0|VIEWPORT|5|FF1|330|" +
                           sheet +
                           "|100|AcDbEntity|67|1|8|0|100|AcDbViewport|10|0.0|20|0.0|30|0.0|40|10.0|41|10.0|"
                           "68|2|69|2|12|0.0|22|0.0|17|0.0|27|0.0|37|0.0|45|20.0|72|100|90|32864",
                       "\r\n"));
    return bytes;
}

std::string toBinary(const std::string& bytes) {
    const DxfFormat text;
    DxfFormat target;
    target.encoding = Encoding::kBinary;
    std::string out("AutoCAD Binary DXF\r\n\x1A\0", 22);
    TagCursor cursor(text, bytes);
    for (Tag tag; cursor.next(tag);)
        out += tagBytes(target, tag.code, *rawValue(target, tag.code, valueOf(text, tag)));
    return out;
}

// What one edit answers; refusals are as welcome as changes.
using Edit = Tavo::ErrorStatus (*)(OdDbDatabase& db, int n);

Tavo::ErrorStatus made(OdDbObjectId id) { return id.isNull() ? Tavo::eNotHandled : Tavo::eOk; }
std::wstring named(int n) { return L"name " + std::to_wstring(n); }
OdDbObjectId line(OdDbDatabase& db) { return db.getOdDbObjectId(0xFF0); }
OdDbObjectId view(OdDbDatabase& db) { return db.getOdDbObjectId(0xFF1); }
OdDbObjectId layer(OdDbDatabase& db, int n) { return db.layers()->getAt(n % 2 ? L"Wall" : L"Door"); }

const Edit kEdits[] = {
    [](OdDbDatabase& db, int n) {
        const OdResBufPtr chain = OdResBuf::newRb(1, OdString(named(n)));
        chain->append(OdResBuf::newRb(310, Binary(static_cast<std::size_t>(n * 50), 7)));
        return writeXrecord(db.getNamedDictionaryId(L"DATA", true), named(n % 3), chain.get());
    },
    [](OdDbDatabase& db, int n) {
        const auto data = db.getNamedDictionaryId(L"DATA").open<OdDbDictionary>(OdDb::kForWrite);
        return data ? data->eraseEntry(named(n % 3)) : Tavo::eKeyNotFound;
    },
    [](OdDbDatabase& db, int n) {
        const auto object = (n % 2 ? line(db) : layer(db, n)).openObject(OdDb::kForWrite);
        return n % 3 ? object->createExtensionDictionary() : object->releaseExtensionDictionary();
    },
    [](OdDbDatabase& db, int n) {
        const OdDbObjectId id = addGroup(db, named(n % 3));
        const auto groups = db.getGroupDictionaryId().open<OdDbDictionary>();
        const auto group = groups ? groups->getAt(named(n % 3)).open<OdDbGroup>(OdDb::kForWrite) : nullptr;
        if (!group) return made(id);
        return n % 4 == 0 ? group->erase() : group->append(std::vector{line(db), view(db)});
    },
    [](OdDbDatabase& db, int n) { return made(addScale(db, named(n), 1, 1 + n)); },
    [](OdDbDatabase& db, int n) {
        const auto sheet = db.layoutIds().back().open<OdDbLayout>(OdDb::kForWrite);
        sheet->setPlotFlag(OdDbPlotSettings::kPlotHidden, n % 2);
        return n % 3 ? sheet->setStdScaleType(n) : sheet->setLayoutName(named(n));
    },
    [](OdDbDatabase& db, int n) { return made(addPlotSettings(db, named(n), n % 2)); },
    [](OdDbDatabase& db, int n) { return overrideColor(layer(db, n), view(db), OdCmColor::byIndex(1 + n)); },
    [](OdDbDatabase& db, int n) {
        return n % 2 ? removeViewportOverrides(view(db))
                     : overrideLineWeight(layer(db, n), view(db), OdDb::kLnWt025);
    },
    [](OdDbDatabase& db, int n) {
        const auto opened = view(db).open<OdDbViewport>(OdDb::kForWrite);
        return n % 2 ? opened->freezeLayersInViewport(std::vector{layer(db, n / 2)})
                     : opened->thawAllLayersInViewport();
    },
    [](OdDbDatabase& db, int n) {
        if (n % 3 == 0) return deleteLayerState(db, L"state");
        LayerState state = currentLayerState(db);
        state.name = L"state";
        return n % 3 == 1 ? writeLayerState(db, state)
                          : restoreLayerState(db, state, {kLayerEverything, true, true});
    },
    [](OdDbDatabase& db, int n) {
        LayerFilter filter;
        filter.name = named(n);
        const auto known = layerFilters(db);
        if (n % 3 == 0 && !known.empty()) return removeLayerFilter(known.front().record);
        return made(addLayerFilter(db, filter, known.empty() ? OdDbObjectId() : known.front().record));
    },
    [](OdDbDatabase& db, int n) {
        return made(addPlaceHolder(db.getPlotStyleNameDictionaryId(true), named(n)));
    },
    [](OdDbDatabase& db, int n) {
        return db.setCurrentLayout(db.layoutIds()[static_cast<std::size_t>(n % 2)]);
    },
};

} // namespace

TEST(ObjectEdits, RandomOnesReadAgainAndGoBackInBothForms) {
    const std::string text = furnished();
    for (const std::string& first : {text, toBinary(text)}) {
        const auto db = openText(first);
        ASSERT_TRUE(db && !db->damaged());
        std::mt19937 random(20);
        int done = 0;
        for (int i = 0; i < 600; ++i) {
            done += kEdits[random() % std::size(kEdits)](*db, static_cast<int>(random() % 12)) == Tavo::eOk;
            if (random() % 4 == 0) db->undo();
            if (i % 60 != 0) continue;
            // Every handle named by a dictionary is there, and no record was torn.
            const auto again = openText(db->bytes());
            ASSERT_TRUE(again && !again->damaged());
            for (OdDbObjectId id = again->firstObject(); !id.isNull(); id = again->nextObject(id)) {
                const auto dictionary = id.open<OdDbDictionary>();
                if (!dictionary) continue;
                for (const OdDbDictionary::Entry& entry : dictionary->entries()) {
                    EXPECT_FALSE(again->getOdDbObjectId(entry.handle).isNull());
                }
            }
        }
        EXPECT_GT(done, 300);
        const std::string last = db->bytes();
        while (db->undo()) {
        }
        EXPECT_EQ(db->bytes(), first);
        while (db->redo()) {
        }
        EXPECT_EQ(db->bytes(), last);
    }
}

TEST(ObjectEdits, ReadOnlyDrawingsRefuseThemAll) {
    const auto db = openText(furnished());
    const std::string first = db->bytes();
    db->setReadOnly(true);
    for (const Edit edit : kEdits)
        for (int n = 0; n < 4; ++n)
            edit(*db, n);
    EXPECT_EQ(db->bytes(), first);
    EXPECT_FALSE(db->hasUndo());
    EXPECT_EQ(overrideColor(layer(*db, 0), view(*db), OdCmColor::byIndex(1)), Tavo::eReadOnly);
    EXPECT_EQ(db->layoutIds().back().open<OdDbLayout>(OdDb::kForWrite)->setStdScaleType(1), Tavo::eReadOnly);
}
