#include "tests/drawing/Drawings.h"

#include "platform/drawing/DimVariables.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/drawing/VersionLimits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <numbers>

using namespace drawings;
using OdDb::DxfVersion;

namespace {

constexpr DxfVersion kVersions[] = {DxfVersion::kR12,   DxfVersion::kR2000, DxfVersion::kR2004,
                                    DxfVersion::kR2007, DxfVersion::kR2010, DxfVersion::kR2018};

template <class Record>
std::shared_ptr<Record> add(OdDbDatabase& db, const wchar_t* table, const wchar_t* name) {
    const auto opened = db.getTableId(table, true).open<OdDbSymbolTable>(OdDb::kForWrite);
    return opened ? opened->add(name).open<Record>(OdDb::kForWrite) : nullptr;
}

// What was written is read back by a drawing that knows nothing of the edits.
template <class Record>
std::shared_ptr<Record> again(OdDbDatabasePtr& reread, const OdDbDatabase& db, const wchar_t* table,
                              const wchar_t* name) {
    reread = openText(db.bytes());
    return reread->getTableId(table).open<OdDbSymbolTable>()->getAt(name).open<Record>();
}

void undoAll(OdDbDatabase& db, const std::string& first) {
    while (db.undo()) {
    }
    EXPECT_EQ(db.bytes(), first);
}

} // namespace

TEST(TableRecords, LayersKeepTransparencyDescriptionBookColourAndPlotStyle) {
    const auto db = OdDbDatabase::create(DxfVersion::kR2010);
    const std::string first = db->bytes();
    const auto layer = db->layers()->getAt(L"0").open<OdDbLayerTableRecord>(OdDb::kForWrite);
    EXPECT_TRUE(layer->transparency().isSolid());
    for (int percent = 0; percent <= 100; ++percent) {
        ASSERT_EQ(layer->setTransparency(OdCmTransparency::byPercent(percent)), Tavo::eOk);
        ASSERT_EQ(layer->transparency().percent(), percent);
    }
    EXPECT_EQ(layer->setTransparency(OdCmTransparency()), Tavo::eInvalidInput);
    EXPECT_EQ(layer->setDescription(L"바깥 벽"), Tavo::eOk);
    EXPECT_EQ(layer->setBookColor(OdCmColor::byRgb(97, 153, 59), L"RAL CLASSIC$RAL 6018"), Tavo::eOk);
    EXPECT_EQ(layer->setPlotStyleName(L"nobody"), Tavo::eKeyNotFound);
    EXPECT_EQ(layer->setPlotStyleName(L"normal"), Tavo::eOk);
    EXPECT_EQ(layer->setPlotStyleName(layer->objectId()), Tavo::eInvalidInput);

    OdDbDatabasePtr reread;
    const auto back = again<OdDbLayerTableRecord>(reread, *db, L"LAYER", L"0");
    EXPECT_EQ(back->transparency().alpha(), 0);
    EXPECT_EQ(back->description(), L"바깥 벽");
    EXPECT_EQ(back->bookColorName(), L"RAL CLASSIC$RAL 6018");
    EXPECT_EQ(back->color(), OdCmColor::byRgb(97, 153, 59));
    EXPECT_EQ(back->plotStyleName(), L"Normal");
    const auto apps = reread->getRegAppTableId().open<OdDbSymbolTable>();
    EXPECT_TRUE(apps->has(L"AcCmTransparency") && apps->has(L"AcAecLayerStandard"));

    // Changing one of them leaves the others' lines alone.
    const std::string before = db->bytes();
    EXPECT_EQ(layer->setDescription(L"outside"), Tavo::eOk);
    EXPECT_EQ(split(before).size(), split(db->bytes()).size());
    EXPECT_EQ(layer->setColor(OdCmColor::byIndex(3)), Tavo::eOk);
    EXPECT_TRUE(layer->bookColorName().isEmpty());
    undoAll(*db, first);
}

TEST(TableRecords, LinetypesAreWrittenWhole) {
    using Element = OdDbLinetypeTableRecord::Element;
    for (const DxfVersion version : kVersions) {
        const auto db = OdDbDatabase::create(version);
        const std::string first = db->bytes();
        const auto gas = add<OdDbLinetypeTableRecord>(*db, L"LTYPE", L"GAS_LINE");
        ASSERT_TRUE(gas);
        std::vector<Element> pattern(3);
        pattern[0].length = 0.5;
        pattern[1].length = -0.2;
        pattern[2].length = -0.25;
        EXPECT_EQ(gas->setPattern(pattern), Tavo::eOk);
        EXPECT_EQ(gas->setComments(L"Gas line ----GAS----"), Tavo::eOk);
        EXPECT_DOUBLE_EQ(gas->patternLength(), 0.95);
        pattern[1].kind = Element::kText;
        pattern[1].text = L"GAS";
        EXPECT_EQ(gas->setPattern(pattern),
                  version == DxfVersion::kR12 ? Tavo::eNotHandled : Tavo::eInvalidInput)
            << "a text needs a style";
        pattern[1].style = OdDbHandle(0x11);
        pattern[1].scale = 0.1;
        pattern[1].rotation = std::numbers::pi / 2;
        pattern[1].absoluteRotation = true;
        pattern[1].offset = {-0.1, -0.05};
        pattern[2].kind = Element::kShape;
        pattern[2].shapeNumber = 132;
        pattern[2].style = OdDbHandle(0x12);
        if (version != DxfVersion::kR12) {
            EXPECT_EQ(gas->setPattern(pattern), Tavo::eOk);
            EXPECT_EQ(gas->pattern(), pattern);
            OdDbDatabasePtr reread;
            EXPECT_EQ(again<OdDbLinetypeTableRecord>(reread, *db, L"LTYPE", L"gas_line")->pattern(), pattern);
            const std::string same = db->bytes();
            EXPECT_EQ(gas->setPattern(pattern), Tavo::eOk);
            EXPECT_EQ(db->bytes(), same);
        }
        pattern[0].length = std::numeric_limits<double>::infinity();
        EXPECT_NE(gas->setPattern(pattern), Tavo::eOk);
        EXPECT_EQ(gas->setPattern({}), Tavo::eOk);
        EXPECT_TRUE(gas->dashes().empty());
        undoAll(*db, first);
    }
}

TEST(TableRecords, TextStylesKeepFacesAndSwitches) {
    for (const DxfVersion version : kVersions) {
        const auto db = OdDbDatabase::create(version);
        const std::string first = db->bytes();
        const auto style = add<OdDbTextStyleTableRecord>(*db, L"STYLE", L"Notes");
        ASSERT_TRUE(style);
        const OdDbTextStyleTableRecord::Font font{L"Malgun Gothic", true, true, 129, 0x22};
        EXPECT_EQ(style->setFont(font), Tavo::eOk);
        EXPECT_EQ(style->setIsBackwards(true), Tavo::eOk);
        EXPECT_EQ(style->setIsVertical(true), Tavo::eOk);
        EXPECT_EQ(style->setIsUpsideDown(true), Tavo::eOk);
        EXPECT_EQ(style->setIsBackwards(false), Tavo::eOk);
        const bool scales = db->canHold(OdDb::Feature::kAnnotativeScales);
        EXPECT_EQ(style->setAnnotative(true), scales ? Tavo::eOk : Tavo::eNotHandled);
        EXPECT_EQ(style->setPaperOrientation(true), Tavo::eOk);
        EXPECT_EQ(style->setPriorSize(7), Tavo::eOk);
        OdDbDatabasePtr reread;
        const auto back = again<OdDbTextStyleTableRecord>(reread, *db, L"STYLE", L"NOTES");
        EXPECT_EQ(back->font(), font);
        EXPECT_TRUE(back->isVertical() && back->isUpsideDown() && !back->isBackwards());
        EXPECT_TRUE(back->annotative() == scales && back->paperOrientation());
        EXPECT_EQ(back->priorSize(), 7);
        // Off again changes the one number, and the face goes as a whole.
        const std::size_t count = split(db->bytes()).size();
        EXPECT_EQ(style->setAnnotative(false), Tavo::eOk);
        EXPECT_EQ(split(db->bytes()).size(), count);
        EXPECT_EQ(style->setFont({}), Tavo::eOk);
        EXPECT_FALSE(style->annotative());
        EXPECT_FALSE(style->xData(L"ACAD"));
        undoAll(*db, first);
    }
}

TEST(TableRecords, DimensionStylesHoldEveryVariableTheirVersionHas) {
    for (const DxfVersion version : kVersions) {
        const auto db = OdDbDatabase::create(version);
        const std::string first = db->bytes();
        const auto style = add<OdDbDimStyleTableRecord>(*db, L"DIMSTYLE", L"Site");
        ASSERT_TRUE(style);
        ASSERT_FALSE(add<OdDbBlockTableRecord>(*db, L"BLOCK_RECORD", L"_Dot") == nullptr);
        ASSERT_TRUE(add<OdDbLinetypeTableRecord>(*db, L"LTYPE", L"Dashes"));
        tv::dwg::DimStyleData data = tv::dwg::dimStyleData(*style);
        const tv::dwg::DimStyleData usual = data;
        std::size_t set = 0;
        for (std::size_t i = 0; i < data.values.size(); ++i) {
            const auto& variable = tv::dwg::dimVariables()[i];
            tv::dwg::Value value = variable.defaultValue();
            if (auto* whole = std::get_if<std::int64_t>(&value)) *whole = *whole == 0 ? 1 : 0;
            if (auto* real = std::get_if<double>(&value)) *real += 0.25;
            if (variable.type == tv::dwg::DimVariable::kText) value = OdString(L"<> mm");
            if (variable.type == tv::dwg::DimVariable::kBlock) value = OdString(L"Dot");
            if (variable.type == tv::dwg::DimVariable::kLinetype) value = OdString(L"Dashes");
            if (variable.type == tv::dwg::DimVariable::kTextStyle) value = OdString(L"Standard");
            const auto status = style->setVariable(variable, value);
            const bool held = variable.first <= version && version <= variable.last;
            const bool kept = variable.application && version >= DxfVersion::kR2000;
            EXPECT_EQ(status, held || kept ? Tavo::eOk : Tavo::eNotHandled) << variable.name;
            if (status == Tavo::eOk) data.values[i] = value, ++set;
        }
        EXPECT_GT(set, 30u);
        OdDbDatabasePtr reread;
        const auto back = again<OdDbDimStyleTableRecord>(reread, *db, L"DIMSTYLE", L"site");
        EXPECT_THAT(tv::dwg::dimDifferences(tv::dwg::dimStyleData(*back), data), testing::IsEmpty());
        EXPECT_EQ(back->flags(), 0) << "the second 70 is not the first";
        // A copy by value is the same again, and giving the usual values back leaves no difference.
        const auto copy = add<OdDbDimStyleTableRecord>(*db, L"DIMSTYLE", L"Copy");
        EXPECT_EQ(copy->copyFrom(*back), Tavo::eOk) << "from another drawing";
        EXPECT_THAT(tv::dwg::dimDifferences(tv::dwg::dimStyleData(*copy), data), testing::IsEmpty());
        EXPECT_EQ(tv::dwg::setDimStyleData(*copy, usual), Tavo::eOk);
        EXPECT_THAT(tv::dwg::dimDifferences(tv::dwg::dimStyleData(*copy), usual), testing::IsEmpty());
        EXPECT_EQ(copy->setVariable(L"DIMBLK", OdString(L"NoSuchArrow")),
                  version == DxfVersion::kR12 ? Tavo::eOk : Tavo::eKeyNotFound);
        EXPECT_EQ(copy->setVariable(L"DIMSCALE", OdString(L"wide")), Tavo::eWrongType);
        EXPECT_EQ(copy->setVariable(L"LUNITS", std::int64_t{1}), Tavo::eKeyNotFound);
        undoAll(*db, first);
    }
}

TEST(TableRecords, TheDrawingsDimensionVariablesAreComparedWithTheCurrentStyle) {
    const auto db = OdDbDatabase::create(DxfVersion::kR2010);
    const auto style = db->getDimStyleTableId().open<OdDbSymbolTable>()->getAt(L"Standard");
    const auto record = style.open<OdDbDimStyleTableRecord>(OdDb::kForWrite);
    const auto differences = [&] {
        std::vector<std::string> names;
        for (const auto* variable :
             tv::dwg::dimDifferences(tv::dwg::dimStyleDataOfDrawing(*db), tv::dwg::dimStyleData(*record)))
            names.emplace_back(variable->name);
        return names;
    };
    EXPECT_THAT(differences(), testing::IsEmpty()) << "in a new drawing";
    const auto set = [&](const wchar_t* name, const tv::dwg::HeaderValue& value) {
        EXPECT_FALSE(db->setHeaderVar(name, value)) << name;
    };
    for (const auto& variable : tv::dwg::dimVariables()) {
        const std::string name = variable.name;
        const std::wstring wide(name.begin(), name.end());
        if (const auto* info = tv::dwg::headerVarInfo(wide); info && info->last == DxfVersion::kR2018)
            set(wide.c_str(), {0, tv::dwg::dimStyleData(*record).value(wide)});
    }
    EXPECT_THAT(differences(), testing::IsEmpty());
    set(L"DIMASZ", tv::dwg::HeaderValue::real(3));
    set(L"DIMTXSTY", tv::dwg::HeaderValue::text(L"STANDARD"));
    set(L"DIMBLK1", tv::dwg::HeaderValue::text(L"Dot"));
    EXPECT_THAT(differences(), testing::ElementsAre("DIMASZ", "DIMBLK1"));
    // The header leaves out the underscore that the block's name has.
    ASSERT_TRUE(add<OdDbBlockTableRecord>(*db, L"BLOCK_RECORD", L"_DOT"));
    EXPECT_EQ(record->setVariable(L"DIMBLK1", OdString(L"Dot")), Tavo::eOk);
    EXPECT_THAT(differences(), testing::ElementsAre("DIMASZ"));
}

TEST(TableRecords, DimensionsOverrideTheirStyle) {
    const auto db = openText(
        lines("0|SECTION|2|HEADER|9|$ACADVER|1|AC1024|9|$HANDSEED|5|50|0|ENDSEC|0|SECTION|2|TABLES|"
              "0|TABLE|2|STYLE|5|1|100|AcDbSymbolTable|70|1|"
              "0|STYLE|5|2|100|AcDbSymbolTableRecord|100|AcDbTextStyleTableRecord|2|Thin|70|0|0|ENDTAB|"
              "0|TABLE|2|DIMSTYLE|5|3|100|AcDbSymbolTable|70|1|"
              "0|DIMSTYLE|105|4|100|AcDbSymbolTableRecord|100|AcDbDimStyleTableRecord|2|A|70|0|41|9.0|"
              "0|ENDTAB|0|ENDSEC|0|SECTION|2|ENTITIES|"
              "0|DIMENSION|5|10|100|AcDbEntity|8|0|100|AcDbDimension|3|a|"
              "1001|ACAD|1000|DSTYLE|1002|{|1070|288|1070|1|1070|44|1040|2.0|1002|}|1000|more|"
              "1001|KX|1070|41|1040|5.0|0|LEADER|5|11|100|AcDbEntity|8|0|0|ENDSEC|0|EOF"));
    const std::string first = db->bytes();
    const auto dimension = db->getOdDbObjectId(0x10).openObject(OdDb::kForWrite);
    using namespace tv::dwg;
    EXPECT_EQ(dimOverrides(*dimension).size(), 2u);
    EXPECT_EQ(dimOverride(*dimension, L"DIMEXE"), Value(2.0));
    EXPECT_EQ(effectiveDimVariable(*dimension, L"dimasz"), Value(9.0)) << "from the style";
    EXPECT_EQ(effectiveDimVariable(*dimension, L"DIMTXT"), Value(0.18)) << "the default";
    EXPECT_EQ(effectiveDimVariable(*dimension, L"DIMTXSTY"), Value(OdString(L"Standard")));

    EXPECT_EQ(setDimOverride(*dimension, L"DIMEXE", std::int64_t{3}), Tavo::eOk);
    EXPECT_EQ(split(db->bytes()).size(), split(first).size());
    EXPECT_EQ(setDimOverride(*dimension, L"DIMTXSTY", OdString(L"thin")), Tavo::eOk);
    EXPECT_EQ(effectiveDimVariable(*dimension, L"DIMTXSTY"), Value(OdString(L"Thin")));
    EXPECT_EQ(setDimOverride(*dimension, L"DIMTXSTY", OdString(L"thick")), Tavo::eKeyNotFound);
    EXPECT_EQ(setDimOverride(*dimension, L"DIMASZ", OdString(L"9")), Tavo::eWrongType);
    EXPECT_EQ(removeDimOverride(*dimension, L"DIMUPT"), Tavo::eOk);
    EXPECT_EQ(removeDimOverride(*dimension, L"DIMTXSTY"), Tavo::eOk);
    EXPECT_EQ(effectiveDimVariable(*dimension, L"DIMEXE"), Value(3.0));
    EXPECT_EQ(removeDimOverride(*dimension, L"DIMEXE"), Tavo::eOk);
    EXPECT_TRUE(dimOverrides(*dimension).empty());
    EXPECT_EQ(dimension->xData(L"ACAD")->last().getString(), L"more") << "what else the data hold stays";

    const auto leader = db->getOdDbObjectId(0x11).openObject(OdDb::kForWrite);
    const std::string before = db->bytes();
    EXPECT_EQ(setDimOverride(*leader, L"DIMCLRD", std::int64_t{1}), Tavo::eOk);
    EXPECT_TRUE(db->getRegAppTableId().open<OdDbSymbolTable>()->has(L"ACAD")) << "with the table it lacked";
    EXPECT_EQ(removeDimOverrides(*leader), Tavo::eOk);
    EXPECT_FALSE(leader->xData());
    EXPECT_EQ(setDimOverride(*db->getOdDbObjectId(0x11).openObject(), L"DIMCLRD", std::int64_t{1}),
              Tavo::eNotOpenForWrite);
    undoAll(*db, first);
}

TEST(TableRecords, BlocksViewsAndCoordinateSystemsAreMadeAndChanged) {
    for (const DxfVersion version : kVersions) {
        const auto db = OdDbDatabase::create(version);
        const std::string first = db->bytes();
        const bool old = version == DxfVersion::kR12;
        const auto block = add<OdDbBlockTableRecord>(*db, L"BLOCK_RECORD", L"Door");
        ASSERT_TRUE(block);
        EXPECT_FALSE(add<OdDbBlockTableRecord>(*db, L"BLOCK_RECORD", L"DOOR")) << "the name exists";
        EXPECT_TRUE(block->entities().empty());
        EXPECT_EQ(block->setOrigin({1, 2, 3}), Tavo::eOk);
        EXPECT_EQ(block->setComments(L"a door"), Tavo::eOk);
        EXPECT_EQ(block->setPathName(L"..\\doors\\one.dxf"), Tavo::eOk);
        EXPECT_EQ(block->setXrefKind(OdDbBlockTableRecord::XrefKind::kOverlaid), Tavo::eOk);
        EXPECT_EQ(block->setIsXrefResolved(true), Tavo::eOk);
        EXPECT_EQ(block->setBlockInsertUnits(4), old ? Tavo::eNotHandled : Tavo::eOk);
        const bool modern = version >= DxfVersion::kR2007;
        EXPECT_EQ(block->setExplodable(false), modern ? Tavo::eOk : Tavo::eNotHandled);
        OdDbDatabasePtr reread;
        const auto back = again<OdDbBlockTableRecord>(reread, *db, L"BLOCK_RECORD", L"door");
        EXPECT_EQ(back->origin(), (OdGePoint3d{1, 2, 3}));
        EXPECT_EQ(back->comments(), L"a door");
        EXPECT_EQ(back->pathName(), L"..\\doors\\one.dxf");
        EXPECT_TRUE(back->isFromOverlayReference() && back->isXrefResolved());
        EXPECT_EQ(back->blockInsertUnits(), old ? 0 : 4);
        EXPECT_EQ(back->explodable(), !modern);
        EXPECT_EQ(block->setXrefKind(OdDbBlockTableRecord::XrefKind::kNone), Tavo::eOk);
        EXPECT_EQ(block->blockFlags(), 0);

        const auto view = add<OdDbViewTableRecord>(*db, L"VIEW", L"Front");
        const auto port = add<OdDbViewportTableRecord>(*db, L"VPORT", L"Split");
        const auto ucs = add<OdDbUCSTableRecord>(*db, L"UCS", L"Site");
        ASSERT_TRUE(view && port && ucs);
        for (OdDbAbstractViewTableRecord* one :
             std::initializer_list<OdDbAbstractViewTableRecord*>{view.get(), port.get()}) {
            EXPECT_EQ(one->setWidth(30), Tavo::eOk);
            EXPECT_EQ(one->setHeight(20), Tavo::eOk);
            EXPECT_DOUBLE_EQ(one->width(), 30);
            EXPECT_EQ(one->setHeight(0), Tavo::eInvalidInput);
            EXPECT_EQ(one->setCenterPoint({5, 6}), Tavo::eOk);
            EXPECT_EQ(one->setTarget({7, 8, 9}), Tavo::eOk);
            EXPECT_EQ(one->setViewDirection({0, -1, 0}), Tavo::eOk);
            EXPECT_EQ(one->setViewDirection({0, 0, 0}), Tavo::eInvalidInput);
            EXPECT_EQ(one->setViewTwist(1), Tavo::eOk);
            const OdDbAbstractViewTableRecord::Ucs frame{{1, 1, 1}, {0, 1, 0}, {-1, 0, 0}, 2};
            EXPECT_EQ(one->setUcs(frame), old ? Tavo::eNotHandled : Tavo::eOk);
            if (old) continue;
            EXPECT_EQ(one->ucs(), frame);
        }
        EXPECT_EQ(ucs->setAxes({0, 2, 0}, {-4, 0, 0}), Tavo::eOk);
        EXPECT_EQ(ucs->setAxes({1, 0, 0}, {1, 1, 0}), Tavo::eInvalidInput);
        EXPECT_EQ(ucs->setOrigin({100, 0, 0}), Tavo::eOk);
        const auto front = again<OdDbViewTableRecord>(reread, *db, L"VIEW", L"Front");
        EXPECT_EQ(front->centerPoint(), (OdGePoint2d{5, 6}));
        EXPECT_EQ(front->viewDirection(), (OdGeVector3d{0, -1, 0}));
        EXPECT_DOUBLE_EQ(front->viewTwist(), 1);
        const auto side = again<OdDbViewportTableRecord>(reread, *db, L"VPORT", L"Split");
        EXPECT_EQ(side->target(), (OdGePoint3d{7, 8, 9}));
        EXPECT_DOUBLE_EQ(side->viewTwist(), 1);
        EXPECT_EQ(side->snapAngle(), 0);
        EXPECT_EQ(again<OdDbUCSTableRecord>(reread, *db, L"UCS", L"Site")->xAxis(), (OdGeVector3d{0, 1, 0}));
        EXPECT_FALSE(reread->damaged());

        EXPECT_EQ(block->erase(), Tavo::eOk);
        EXPECT_FALSE(again<OdDbBlockTableRecord>(reread, *db, L"BLOCK_RECORD", L"Door"));
        undoAll(*db, first);
    }
}

TEST(TableRecords, TablesAreMadeInTheirUsualPlace) {
    // From nothing but a header, and from one table in the middle.
    for (const char* version : {"AC1009", "AC1015", "AC1032"})
        for (const char* tables : {"", "0|SECTION|2|TABLES|0|TABLE|2|STYLE|70|0|0|ENDTAB|0|ENDSEC|"}) {
            const auto db =
                openText(lines("0|SECTION|2|HEADER|9|$ACADVER|1|" + std::string(version) +
                               "|9|$HANDSEED|5|20|0|ENDSEC|" + tables + "0|SECTION|2|ENTITIES|0|ENDSEC|0|EOF"));
            const std::string first = db->bytes();
            for (const wchar_t* name : {L"UCS", L"LAYER", L"VPORT", L"APPID", L"BLOCK_RECORD", L"LTYPE",
                                        L"VIEW", L"DIMSTYLE", L"STYLE", L"layer"})
                ASSERT_FALSE(db->getTableId(name, true).isNull());
            EXPECT_TRUE(db->getTableId(L"ENTITIES", true).isNull());
            EXPECT_FALSE(db->newRegApp(L"KX").isNull());
            EXPECT_EQ(db->newRegApp(L"kx"), db->newRegApp(L"KX"));
            EXPECT_FALSE(db->getBlockTableId().open<OdDbBlockTable>(OdDb::kForWrite)->add(L"B").isNull());
            const auto reread = openText(db->bytes());
            EXPECT_FALSE(reread->damaged());
            std::vector<std::string> order;
            const auto all = split(reread->bytes());
            for (std::size_t i = 0; i + 3 < all.size(); ++i)
                if (all[i] == "TABLE" || all[i] == "SECTION") order.push_back(all[i + 2]);
            std::vector<std::string> expected{"HEADER", "TABLES", "VPORT", "LTYPE", "LAYER",
                                              "STYLE",  "VIEW",   "UCS",   "APPID", "DIMSTYLE"};
            if (std::string(version) != "AC1009") expected.emplace_back("BLOCK_RECORD");
            expected.insert(expected.end(), {"BLOCKS", "ENTITIES"});
            EXPECT_EQ(order, expected) << version;
            undoAll(*db, first);
        }
}
