#include "tests/drawing/Drawings.h"

#include "platform/drawing/DimVariables.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/entities/EntityProperties.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <set>

using namespace drawings;
using namespace tv::dwg;
using testing::HasSubstr;

namespace {

constexpr double kPi = std::numbers::pi;

OdDbDatabasePtr drawing(const std::string& entities, const std::string& version = "AC1032") {
    return openText(lines("0|SECTION|2|HEADER|9|$ACADVER|1|" + version +
                          "|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|DIMSTYLE|70|1|0|DIMSTYLE|105|99|100|"
                          "AcDbSymbolTableRecord|100|AcDbDimStyleTableRecord|2|ISO|70|0|41|2.5|340|98|0|ENDTAB|"
                          "0|ENDSEC|0|SECTION|2|ENTITIES|" +
                          entities + "0|ENDSEC|0|EOF"));
}

Value get(OdDbObjectId id, std::wstring_view name) {
    const EntityProperty* property = findProperty(entityKindOf(id), name);
    return property ? propertyValue(id, *property) : Value();
}

Tavo::ErrorStatus set(OdDbObjectId id, std::wstring_view name, const Value& value) {
    const EntityProperty* property = findProperty(entityKindOf(id), name);
    return property ? setPropertyValue(id, *property, value) : Tavo::eKeyNotFound;
}

double real(OdDbObjectId id, std::wstring_view name) {
    const Value value = get(id, name);
    return std::holds_alternative<double>(value) ? std::get<double>(value) : std::nan("");
}

// Another value of the property's type, or monostate where nothing can be said without knowing the drawing.
Value another(const EntityProperty& property, const Value& now) {
    switch (property.kind) {
    case PropertyKind::kText:
        return OdString(L"Other");
    case PropertyKind::kInteger:
        return std::get<std::int64_t>(now) + 1;
    case PropertyKind::kBoolean:
        return 1 - std::get<std::int64_t>(now);
    case PropertyKind::kEnum:
        for (const PropertyChoice& choice : property.choices)
            if (Value(std::int64_t{choice.value}) != now) return std::int64_t{choice.value};
        return {};
    case PropertyKind::kReal:
    case PropertyKind::kLength:
    case PropertyKind::kArea:
    case PropertyKind::kAngle:
    case PropertyKind::kCoordinate:
        return std::get<double>(now) * 0.5 + 1;
    case PropertyKind::kLineWeight:
        return std::int64_t{50};
    case PropertyKind::kTransparency:
        return std::int64_t{30};
    default:
        return {};
    }
}

// Every property is read, set to itself (no change) and to another value, which is then read; undoing all
// gives the first bytes.
void exercise(const OdDbDatabasePtr& db, OdDbObjectId id, std::set<std::wstring>& kinds) {
    const std::string first = db->bytes();
    const EntityKind& kind = entityKindOf(id);
    kinds.insert(kind.name);
    for (const EntityProperty* property : propertiesOf(kind)) {
        const Value value = propertyValue(id, *property);
        const auto same = setPropertyValue(id, *property, value);
        EXPECT_FALSE(db->hasUndo()) << testing::PrintToString(std::wstring(property->name));
        if (std::holds_alternative<std::monostate>(value)) continue;
        if (!property->writable) {
            EXPECT_EQ(same, Tavo::eReadOnly);
            continue;
        }
        const Value next = another(*property, value);
        if (std::holds_alternative<std::monostate>(next)) continue;
        if (setPropertyValue(id, *property, next) != Tavo::eOk) continue;
        const Value now = propertyValue(id, *property);
        if (const auto* expected = std::get_if<double>(&next))
            EXPECT_NEAR(std::get<double>(now), *expected, 1e-9 * std::abs(*expected) + 1e-12)
                << testing::PrintToString(std::wstring(property->name));
        else
            EXPECT_EQ(now, next) << testing::PrintToString(std::wstring(property->name));
        while (db->undo()) {
        }
    }
    EXPECT_TRUE(db->bytes() == first);
}

} // namespace

TEST(Properties, EveryPropertyOfEveryKindIsReadAndSet) {
    const char* kBare[] = {"LINE",      "CIRCLE",       "ARC",         "ELLIPSE",   "POINT",      "RAY",
                           "XLINE",     "LWPOLYLINE",   "POLYLINE",    "SPLINE",    "SOLID",      "TRACE",
                           "3DFACE",    "TEXT",         "MTEXT",       "ATTRIB",    "ATTDEF",     "INSERT",
                           "DIMENSION", "LEADER",       "MULTILEADER", "TOLERANCE", "ACAD_TABLE", "HATCH",
                           "MPOLYGON",  "IMAGE",        "WIPEOUT",     "VIEWPORT",  "MLINE",      "PDFUNDERLAY",
                           "3DSOLID",   "ARC_DIMENSION"};
    std::set<std::wstring> kinds;
    for (const char* version : {"AC1032", "AC1009"})
        for (const char* type : kBare) {
            SCOPED_TRACE(type);
            // Nothing but what every entity has: every property then is a tag that is missing.
            const bool marks = std::string_view(version) == "AC1032";
            const auto db =
                drawing("0|" + std::string(type) + "|5|1|" + (marks ? "100|AcDbEntity|8|0|" : "8|0|"), version);
            exercise(db, db->getOdDbObjectId(1), kinds);
        }
    EXPECT_EQ(kinds.size(), std::size(kBare));
}

TEST(Properties, RealDrawingsHoldWhatIsSet) {
    const auto files = realDrawings();
    if (files.empty()) GTEST_SKIP() << "no drawings on this machine";
    std::set<std::wstring> kinds;
    for (const auto& file : files) {
        const auto db = OdDbDatabase::open(file).database;
        ASSERT_TRUE(db) << file;
        if (db->isReadOnly()) continue;
        SCOPED_TRACE(file);
        std::map<std::wstring, int> seen;
        for (OdDbObjectId id = db->firstObject(); !id.isNull(); id = db->nextObject(id))
            if (id.open<OdDbEntity>() && seen[entityKindOf(id).name]++ < 3) exercise(db, id, kinds);
    }
    EXPECT_GT(kinds.size(), 10u);
}

TEST(Properties, MeasuresAreComputed) {
    const auto db =
        drawing("0|LINE|5|1|8|0|10|1|20|1|11|4|21|5|0|CIRCLE|5|2|8|0|40|2|"
                "0|ARC|5|3|8|0|40|2|50|270|51|90|0|ELLIPSE|5|4|8|0|11|3|21|4|40|0.5|41|0|42|6.283185307179586|"
                "0|LWPOLYLINE|5|5|8|0|90|4|70|1|10|0|20|0|10|4|20|0|42|1|10|4|20|2|10|0|20|2|"
                "0|DIMENSION|5|6|8|0|70|2|42|1.5|0|DIMENSION|5|7|8|0|70|36|0|INSERT|5|8|8|0|70|2|");
    const auto id = [&](std::uint64_t handle) { return db->getOdDbObjectId(handle); };
    EXPECT_DOUBLE_EQ(real(id(1), L"Length"), 5);
    EXPECT_DOUBLE_EQ(real(id(1), L"Angle"), std::atan2(4, 3));
    EXPECT_EQ(set(id(1), L"Length", 2.0), Tavo::eReadOnly);
    EXPECT_DOUBLE_EQ(real(id(2), L"Area"), 4 * kPi);
    EXPECT_EQ(set(id(2), L"Diameter", -1.0), Tavo::eOutOfRange);
    EXPECT_DOUBLE_EQ(real(id(3), L"TotalAngle"), kPi);
    EXPECT_DOUBLE_EQ(real(id(3), L"Area"), 2 * kPi);
    EXPECT_DOUBLE_EQ(real(id(4), L"MajorRadius"), 5);
    EXPECT_NEAR(real(id(4), L"Area"), 12.5 * kPi, 1e-9);
    // A rectangle with half a circle at one end.
    EXPECT_DOUBLE_EQ(real(id(5), L"Length"), 10 + kPi);
    EXPECT_DOUBLE_EQ(real(id(5), L"Area"), 8 + kPi / 2);
    EXPECT_DOUBLE_EQ(real(id(6), L"Measurement"), 1.5) << "angles are measured in radians";
    EXPECT_EQ(entityKindName(id(6)), L"Angular Dimension");
    EXPECT_EQ(entityKindName(id(7)), L"Radial Dimension");
    EXPECT_EQ(get(id(8), L"Columns"), Value(std::int64_t{2}));
    // What both have; Z coordinates have other names.
    const EntityKind* both[] = {&entityKindOf(id(2)), &entityKindOf(id(3))};
    std::vector<std::wstring> names;
    for (const EntityProperty* property : propertiesOfAll(both))
        names.push_back(property->name);
    EXPECT_THAT(names, testing::IsSupersetOf({L"Layer", L"CenterX", L"Radius", L"Area", L"Thickness"}));
    EXPECT_THAT(names, testing::Not(testing::Contains(std::wstring(L"StartAngle"))));
    // A property of one kind means the one of that name in another.
    EXPECT_DOUBLE_EQ(std::get<double>(propertyValue(id(3), *findProperty(*both[0], L"Radius"))), 2);
    EXPECT_EQ(findProperty(*both[0], L"Radius")->valueClass(), OdResBuf::kRtDouble);
    EXPECT_EQ(findProperty(*both[0], L"Color")->valueClass(), OdResBuf::kRtNone);
}

TEST(Properties, ChoicesColoursAndNamesAreChecked) {
    const auto db = drawing("0|TEXT|5|1|100|AcDbEntity|8|0|100|AcDbText|10|1|20|2|40|1|1|x|100|AcDbText|"
                            "0|ODDITY|5|2|8|0|");
    const OdDbObjectId text = db->getOdDbObjectId(1);
    EXPECT_EQ(set(text, L"Justify", std::int64_t{13}), Tavo::eOutOfRange);
    EXPECT_EQ(set(text, L"Justify", std::int64_t{21}), Tavo::eOk);
    EXPECT_THAT(db->bytes(), HasSubstr(lines("40|1|1|x|72|1|11|1.0|21|2.0|31|0.0|100|AcDbText|73|2")));
    EXPECT_TRUE(db->undo());
    EXPECT_FALSE(db->hasUndo());
    EXPECT_EQ(set(text, L"Color", std::int64_t{0xC2010203}), Tavo::eOk);
    EXPECT_EQ(get(text, L"Color"), Value(std::int64_t{0xC2010203}));
    EXPECT_EQ(set(text, L"Color", std::int64_t{257}), Tavo::eOutOfRange);
    EXPECT_EQ(set(text, L"TextStyle", OdString(L"None")), Tavo::eKeyNotFound);
    EXPECT_EQ(set(text, L"Height", OdString(L"1")), Tavo::eWrongType);
    EXPECT_EQ(set(text, L"Height", std::nan("")), Tavo::eWrongType);
    EXPECT_EQ(set(text, L"Hyperlink", OdString(L"www")), Tavo::eOk);
    EXPECT_EQ(set(text, L"Hyperlink", OdString()), Tavo::eOk);
    EXPECT_THAT(db->bytes(), testing::Not(HasSubstr(lines("1001|PE_URL"))));
    EXPECT_EQ(entityKindName(db->getOdDbObjectId(2)), L"ODDITY");
    EXPECT_EQ(set(db->getOdDbObjectId(2), L"Layer", OdString(L"Wall")), Tavo::eKeyNotFound) << "no layers here";
}

TEST(Properties, DimensionVariablesAreOverriddenByTheEntity) {
    const std::string other =
        "0|DIMENSION|5|2|100|AcDbEntity|8|0|100|AcDbDimension|70|0|3|ISO|1001|ACAD|1000|OTHER|"
        "1001|MINE|1070|1|";
    const auto db =
        drawing("0|DIMENSION|5|1|100|AcDbEntity|8|0|100|AcDbDimension|70|0|3|ISO|1001|ACAD|1000|DSTYLE|"
                "1002|{|1070|41|1040|7.0|1002|}|" +
                other);
    const std::string first = db->bytes();
    const OdDbObjectId a = db->getOdDbObjectId(1);
    const OdDbObjectId b = db->getOdDbObjectId(2);
    EXPECT_EQ(real(a, L"DIMASZ"), 7);
    EXPECT_EQ(real(b, L"DIMASZ"), 2.5) << "the style's";
    EXPECT_EQ(real(b, L"DIMEXE"), 0.18) << "nobody's";
    EXPECT_EQ(set(b, L"DIMASZ", 3.0), Tavo::eOk);
    EXPECT_EQ(set(b, L"DIMCLRD", std::int64_t{1}), Tavo::eOk);
    EXPECT_THAT(db->bytes(),
                HasSubstr(lines("1001|ACAD|1000|OTHER|1000|DSTYLE|1002|{|1070|41|1040|3.0|1070|176|1070|1|"
                                "1002|}|1001|MINE")));
    EXPECT_EQ(set(a, L"DIMASZ", 8.0), Tavo::eOk);
    EXPECT_EQ(removeDimOverride(*a.openObject(OdDb::kForWrite), L"DIMASZ"), Tavo::eOk);
    EXPECT_EQ(real(a, L"DIMASZ"), 2.5);
    EXPECT_EQ(set(a, L"DIMPOST", OdString(L"<> mm")), Tavo::eOk);
    EXPECT_EQ(get(a, L"DIMPOST"), Value(OdString(L"<> mm")));
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);
}
