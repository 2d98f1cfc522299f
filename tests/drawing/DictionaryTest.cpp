#include "tests/drawing/Drawings.h"

#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbPlaceHolder.h"
#include "platform/drawing/OdDbXrecord.h"
#include "platform/text/Unicode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace drawings;
using OdDb::DxfVersion;
using tv::dwg::Binary;

namespace {

// A drawing of that version without objects; one layer, one line.
OdDbDatabasePtr bare(const char* version) {
    return openText(lines("0|SECTION|2|HEADER|9|$ACADVER|1|" + std::string(version) +
                          "|9|$HANDSEED|5|30|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|APPID|5|3|70|1|0|ENDTAB|"
                          "0|TABLE|2|LAYER|5|2|330|0|100|AcDbSymbolTable|70|1|0|LAYER|5|10|330|2|"
                          "100|AcDbSymbolTableRecord|100|AcDbLayerTableRecord|2|0|70|0|62|7|6|CONTINUOUS|"
                          "0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|"
                          "0|LINE|5|20|330|1F|100|AcDbEntity|8|0|100|AcDbLine|10|0.0|20|0.0|11|1.0|21|1.0|"
                          "0|ENDSEC|0|EOF"));
}

void undoAll(OdDbDatabase& db) {
    while (db.undo()) {
    }
}

std::vector<OdString> namesOf(const OdDbDictionary& dictionary) {
    std::vector<OdString> out;
    for (auto walk = dictionary.newIterator(); !walk->done(); walk->next())
        out.push_back(walk->name());
    return out;
}

// The buffers as "code=value" for the eye.
std::vector<std::string> shown(const OdResBuf* chain) {
    std::vector<std::string> out;
    for (; chain; chain = chain->next().get()) {
        const OdGePoint3d at = chain->getPoint3d();
        std::ostringstream text;
        text << chain->restype() << '=';
        if (std::holds_alternative<OdGePoint3d>(chain->value()))
            text << at.x << ',' << at.y << ',' << at.z;
        else if (std::holds_alternative<OdGePoint2d>(chain->value()))
            text << at.x << ',' << at.y;
        else if (std::holds_alternative<double>(chain->value()))
            text << chain->getDouble();
        else if (std::holds_alternative<std::int64_t>(chain->value()))
            text << chain->getInt32();
        else if (std::holds_alternative<Binary>(chain->value()))
            text << chain->getBinary().size() << " bytes";
        else
            text << tv::text::toUtf8(chain->getString().view());
        out.push_back(text.str());
    }
    return out;
}

OdResBufPtr chainOf(std::vector<OdResBuf> buffers) {
    OdResBufPtr first = OdResBuf::newRb();
    for (OdResBuf& buffer : buffers)
        first->append(std::make_shared<OdResBuf>(std::move(buffer)));
    return first->next();
}

} // namespace

TEST(Dictionaries, AreMadeWhereTheVersionHasObjects) {
    const auto old = bare("AC1009");
    const std::string untouched = old->bytes();
    EXPECT_TRUE(old->getNamedObjectsDictionaryId(true).isNull());
    EXPECT_TRUE(old->getPlotStyleNameDictionaryId(true).isNull());
    const auto oldLine = (*old->modelSpace().begin()).openObject(OdDb::kForWrite);
    EXPECT_EQ(oldLine->createExtensionDictionary(), Tavo::eNotHandled);
    EXPECT_EQ(old->bytes(), untouched);

    const auto db = bare("AC1024");
    const std::string first = db->bytes();
    EXPECT_TRUE(db->getGroupDictionaryId().isNull());
    const auto styles = db->getPlotStyleNameDictionaryId(true).open<OdDbDictionaryWithDefault>(OdDb::kForWrite);
    ASSERT_TRUE(styles);
    EXPECT_TRUE(styles->getAt(L"normal").open<OdDbPlaceHolder>());
    EXPECT_EQ(styles->getAtOrDefault(L"no such style"), styles->defaultId());
    EXPECT_TRUE(styles->getAt(L"no such style").isNull());
    const OdDbObjectId fine = tv::dwg::addPlaceHolder(styles->objectId(), L"Fine");
    EXPECT_EQ(styles->setDefaultId(fine), Tavo::eOk);
    EXPECT_EQ(db->getPlotStyleNameDictionaryId(true), styles->objectId()) << "made once";

    const auto again = openText(db->bytes());
    EXPECT_FALSE(again->damaged());
    const auto read = again->getPlotStyleNameDictionaryId().open<OdDbDictionary>();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->ownerId(), again->getNamedObjectsDictionaryId());
    EXPECT_THAT(namesOf(*read), testing::ElementsAre(L"Normal", L"Fine"));
    EXPECT_EQ(read->nameAt(read->defaultId()), L"Fine");
    undoAll(*db);
    EXPECT_EQ(db->bytes(), first);
    EXPECT_TRUE(db->getNamedObjectsDictionaryId().isNull());
}

TEST(Dictionaries, EntriesAreNamedRenamedOwnedAndErased) {
    const auto db = OdDbDatabase::create();
    const std::string first = db->bytes();
    const auto root = db->getNamedDictionaryId(L"PLANT", true).open<OdDbDictionary>(OdDb::kForWrite);
    ASSERT_TRUE(root);
    const OdDbObjectId pump = tv::dwg::addXrecord(root->objectId(), L"Pump", nullptr);
    const OdDbObjectId valve = tv::dwg::addXrecord(root->objectId(), L"Valve", nullptr);
    EXPECT_TRUE(tv::dwg::addXrecord(root->objectId(), L"PUMP", nullptr).isNull());
    EXPECT_EQ(root->setName(L"pump", L"Valve"), Tavo::eDuplicate);
    EXPECT_EQ(root->getAt(L"P\\U+0055MP"), pump);
    EXPECT_EQ(root->setName(L"pump", L"\\U+0056alve"), Tavo::eDuplicate) << "that is how it reads back";
    EXPECT_EQ(root->setName(L"pump", L"PUMP 1"), Tavo::eOk);
    EXPECT_THAT(namesOf(*root), testing::ElementsAre(L"PUMP 1", L"Valve"));
    EXPECT_EQ(root->setTreatElementsAsHard(true), Tavo::eOk);
    EXPECT_EQ(root->numEntries(), 2u);
    EXPECT_TRUE(root->find(360) && !root->find(350));
    // An extension dictionary goes with what it hangs on, and so do its contents; a foreign object stays.
    const auto record = pump.open<OdDbXrecord>(OdDb::kForWrite);
    EXPECT_EQ(record->createExtensionDictionary(), Tavo::eOk);
    const auto below = record->extensionDictionary().open<OdDbDictionary>(OdDb::kForWrite);
    ASSERT_TRUE(below);
    const OdDbObjectId inside = tv::dwg::addXrecord(below->objectId(), L"inside", nullptr);
    below->setAt(L"valve", valve);
    below->setAt(L"itself", below->objectId());
    EXPECT_EQ(root->eraseEntry(L"pump 1"), Tavo::eOk);
    EXPECT_TRUE(pump.isErased() && inside.isErased() && below->isErased());
    EXPECT_FALSE(valve.isErased());
    EXPECT_EQ(root->eraseEntry(L"pump 1"), Tavo::eKeyNotFound);
    undoAll(*db);
    EXPECT_EQ(db->bytes(), first);
}

TEST(Dictionaries, ExtensionDictionariesComeAndGo) {
    const auto db = bare("AC1015");
    const std::string first = db->bytes();
    const OdDbObjectId line = *db->modelSpace().begin();
    const auto layer = db->layers()->getAt(L"0").openObject(OdDb::kForWrite);
    for (const OdDbObjectPtr& object : {line.openObject(OdDb::kForWrite), layer}) {
        EXPECT_EQ(object->createExtensionDictionary(), Tavo::eOk);
        const OdDbObjectId made = object->extensionDictionary();
        ASSERT_TRUE(made.open<OdDbDictionary>());
        EXPECT_EQ(made.openObject()->ownerId(), object->objectId());
        EXPECT_EQ(object->addPersistentReactor(made), Tavo::eOk);
        EXPECT_EQ(object->addPersistentReactor(made), Tavo::eOk);
        tv::dwg::addXrecord(made, L"data", nullptr);
        EXPECT_EQ(object->releaseExtensionDictionary(), Tavo::eNotHandled);
        const auto again = openText(db->bytes());
        EXPECT_EQ(again->getOdDbObjectId(object->handle()).openObject()->extensionDictionary().handle(),
                  made.handle());
        EXPECT_EQ(made.open<OdDbDictionary>(OdDb::kForWrite)->eraseEntry(L"DATA"), Tavo::eOk);
        EXPECT_EQ(object->removePersistentReactor(made), Tavo::eOk);
        EXPECT_EQ(object->releaseExtensionDictionary(), Tavo::eOk);
        EXPECT_TRUE(object->extensionDictionary().isNull());
    }
    // Both records are what they were.
    EXPECT_EQ(db->bytes().find("{ACAD_"), std::string::npos);
    undoAll(*db);
    EXPECT_EQ(db->bytes(), first);
}

TEST(Xrecords, ChainsComeBackAsTheyWereWritten) {
    for (const DxfVersion version : {DxfVersion::kR2000, DxfVersion::kR2018}) {
        const auto db = OdDbDatabase::create(version);
        const OdDbObjectId root = db->getNamedObjectsDictionaryId();
        const Binary big(300, 0xA5);
        const OdResBufPtr chain =
            chainOf({OdResBuf(1, OdString(L"text^x")), OdResBuf(102, OdString(L"{GROUP")),
                     OdResBuf(10, OdGePoint3d{1, 2, 3}), OdResBuf(40, 0.5), OdResBuf(11, OdGePoint2d{4, 5}),
                     OdResBuf(102, OdString(L"}")), OdResBuf(280, std::int64_t{3}), OdResBuf(310, big),
                     OdResBuf(330, OdDbHandle(0x1F)), OdResBuf(1070, std::int64_t{7})});
        const OdDbObjectId id = tv::dwg::addXrecord(root, L"DATA", chain.get());
        ASSERT_FALSE(id.isNull());
        const auto again = openText(db->bytes());
        const auto record = again->getOdDbObjectId(id.handle()).open<OdDbXrecord>(OdDb::kForWrite);
        ASSERT_TRUE(record);
        const auto wanted = {"1=text^x", "102={GROUP",    "10=1,2,3",      "40=0.5",       "11=4,5", "102=}",
                             "280=3",    "310=127 bytes", "310=127 bytes", "310=46 bytes", "330=1F", "1070=7"};
        EXPECT_THAT(shown(record->rbChain().get()), testing::ElementsAreArray(wanted));
        // Written again what was read is no change.
        const std::string before = again->bytes();
        EXPECT_EQ(record->setFromRbChain(record->rbChain().get()), Tavo::eOk);
        EXPECT_FALSE(again->changed());
        for (const OdResBuf& bad :
             {OdResBuf(0, OdString(L"LINE")), OdResBuf(5, OdDbHandle(1)), OdResBuf(1001, OdString(L"A")),
              OdResBuf(70, OdString(L"x")), OdResBuf(40, OdGePoint3d()), OdResBuf(1072, std::int64_t{1})})
            EXPECT_NE(record->setFromRbChain(&bad), Tavo::eOk) << bad.restype();
        EXPECT_EQ(again->bytes(), before);
        EXPECT_EQ(record->setFromRbChain(nullptr), Tavo::eOk);
        EXPECT_FALSE(record->rbChain());
        EXPECT_EQ(record->mergeStyle(), 1);
        undoAll(*again);
        EXPECT_EQ(again->bytes(), before);
    }
}

TEST(ExtendedData, RegistersItsApplicationAndKeepsToTheLimits) {
    const auto db = OdDbDatabase::create();
    const auto layer = db->layers()->getAt(L"0").openObject(OdDb::kForWrite);
    const auto data = [](std::vector<OdResBuf> more) {
        more.insert(more.begin(), OdResBuf(1001, OdString(L"PIPES")));
        return chainOf(std::move(more));
    };
    const std::string first = db->bytes();
    const OdResBuf open(1002, OdString(L"{"));
    const OdResBuf close(1002, OdString(L"}"));
    const OdResBuf chunk(1004, Binary(300, 1));
    EXPECT_EQ(layer->setXData(data({open, open, close}).get()), Tavo::eInvalidInput);
    EXPECT_EQ(layer->setXData(data({close, open}).get()), Tavo::eInvalidInput);
    EXPECT_EQ(layer->setXData(data({OdResBuf(1004, Binary(16400, 1))}).get()), Tavo::eOutOfRange);
    EXPECT_EQ(db->bytes(), first);
    EXPECT_EQ(layer->setXData(data({open, chunk, OdResBuf(1010, OdGePoint3d{1, 2, 3}), close}).get()),
              Tavo::eOk);
    EXPECT_TRUE(db->getRegAppTableId().open<OdDbSymbolTable>()->has(L"pipes"));
    EXPECT_THAT(shown(layer->xData(L"pipes").get()),
                testing::ElementsAre("1001=PIPES", "1002={", "1004=127 bytes", "1004=127 bytes",
                                     "1004=46 bytes", "1010=1,2,3", "1002=}"));
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), first) << "one step";
}
