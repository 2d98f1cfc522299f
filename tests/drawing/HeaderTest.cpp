#include "tests/drawing/Drawings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace drawings;
using OdDb::DxfVersion;
using tv::dwg::HeaderValue;

TEST(Header, ValuesKeepTheirStyleAndPlace) {
    const auto db =
        openText(lines("  0|SECTION|  2|HEADER|  9|$ACADVER|  1|AC1009|  9|$INSBASE| 10|0.0| 20|1.0| 30|0.0|"
                       "  9|$LUNITS| 70|     2|  9|$USERR1| 40|0.50|  0|ENDSEC|  0|EOF",
                       "\r\n"));
    const std::string first = db->bytes();
    // The values they have already, in another spelling even, are no change.
    EXPECT_FALSE(db->setHeaderVar(L"$lunits", HeaderValue::integer(2)));
    EXPECT_FALSE(db->setHeaderVar(L"USERR1", HeaderValue::real(0.5)));
    EXPECT_FALSE(db->setHeaderVar(L"INSBASE", HeaderValue::point(OdGePoint3d{0, 1, 0})));
    EXPECT_EQ(db->bytes(), first);
    EXPECT_FALSE(db->hasUndo());

    EXPECT_FALSE(db->setHeaderVar(L"LUNITS", HeaderValue::integer(4)));
    EXPECT_FALSE(db->setHeaderVar(L"INSBASE", HeaderValue::point(OdGePoint3d{0, 1, 2.5})));
    EXPECT_FALSE(db->setHeaderVar(L"AUNITS", HeaderValue::integer(1)));
    EXPECT_EQ(db->bytes(),
              lines("  0|SECTION|  2|HEADER|  9|$ACADVER|  1|AC1009|  9|$INSBASE| 10|0.0| 20|1.0| 30|2.5|"
                    "  9|$LUNITS| 70|     4|  9|$AUNITS| 70|     1|  9|$USERR1| 40|0.50|  0|ENDSEC|  0|EOF",
                    "\r\n"));
    EXPECT_EQ(db->undoName(), L"AUNITS");
    while (db->undo()) {
    }
    EXPECT_EQ(db->bytes(), first);
}

TEST(Header, WrongValuesAndVersionsAreRefusedWithASentence) {
    const auto db = OdDbDatabase::create(DxfVersion::kR12);
    const std::string first = db->bytes();
    EXPECT_EQ(db->setHeaderVar(L"INSUNITS", HeaderValue::integer(4)).status, Tavo::eNotHandled);
    EXPECT_EQ(db->setHeaderVar(L"NOSUCHTHING", HeaderValue::integer(4)).status, Tavo::eKeyNotFound);
    EXPECT_EQ(db->setHeaderVar(L"도면", HeaderValue::integer(4)).status, Tavo::eKeyNotFound);
    for (const HeaderValue& value :
         {HeaderValue::text(L"two"), HeaderValue::integer(40000), HeaderValue::real(2.5)}) {
        const tv::Problem problem = db->setHeaderVar(L"LUNITS", value);
        EXPECT_EQ(problem.status, Tavo::eWrongType);
        EXPECT_THAT(problem.sentence, testing::HasSubstr(L"LUNITS"));
    }
    EXPECT_EQ(db->setHeaderVar(L"LTSCALE", HeaderValue::real(1.0 / 0.0)).status, Tavo::eWrongType);
    EXPECT_EQ(db->setHeaderVar(L"LIMMIN", HeaderValue::point(OdGePoint3d{1, 2, 3})).status, Tavo::eWrongType);
    EXPECT_EQ(db->bytes(), first);
    EXPECT_FALSE(db->changed());
}

TEST(Header, AMissingSectionIsMadeAndTakenAwayAgain) {
    const std::string bytes = lines("999|only what is drawn|0|SECTION|2|ENTITIES|0|POINT|8|0|0|ENDSEC|0|EOF");
    const auto db = openText(bytes);
    ASSERT_FALSE(db->setHeaderVar(L"LUNITS", HeaderValue::integer(3)));
    EXPECT_EQ(db->bytes(), lines("999|only what is drawn|0|SECTION|2|HEADER|9|$LUNITS|70|3|0|ENDSEC|"
                                 "0|SECTION|2|ENTITIES|0|POINT|8|0|0|ENDSEC|0|EOF"));
    EXPECT_EQ(db->headerVar(L"LUNITS")->asInteger(), 3);
    EXPECT_TRUE(db->undo());
    EXPECT_EQ(db->bytes(), bytes);
    EXPECT_FALSE(db->headerVar(L"LUNITS"));
    EXPECT_TRUE(db->redo());
    EXPECT_EQ(db->headerVar(L"LUNITS")->asInteger(), 3);
}

TEST(Header, EveryVersionHasItsVariables) {
    for (const DxfVersion version :
         {DxfVersion::kR12, DxfVersion::kR2000, DxfVersion::kR2004, DxfVersion::kR2007, DxfVersion::kR2010,
          DxfVersion::kR2013, DxfVersion::kR2018}) {
        const auto db = OdDbDatabase::create(version);
        ASSERT_TRUE(db);
        EXPECT_EQ(db->version(), version);
        EXPECT_FALSE(db->damaged());
        db->startUndoRecord(L"fill");
        for (const auto& info : tv::dwg::headerVars()) {
            const std::wstring name(info.name, info.name + std::string_view(info.name).size());
            const auto current = db->headerVar(name);
            HeaderValue value = HeaderValue::text(L"7");
            if (info.coordinates == 2) value = HeaderValue::point(OdGePoint2d{1, 2});
            if (info.coordinates == 3) value = HeaderValue::point(OdGePoint3d{1, 2, 3});
            if (info.coordinates == 0 && tv::dwg::valueKind(info.group) != tv::dwg::ValueKind::kText)
                value = tv::dwg::valueKind(info.group) == tv::dwg::ValueKind::kHandle
                            ? HeaderValue{0, OdDbHandle(0x1F)}
                            : HeaderValue::integer(1);
            if (name == L"ACADVER" || name == L"DWGCODEPAGE") continue; // never change
            const bool fits = version >= info.first && version <= info.last;
            EXPECT_EQ(!db->setHeaderVar(name, value), fits || current) << info.name;
        }
        db->endUndoRecord();
        // Read again, every name is in the place its neighbours give it.
        const auto again = openText(db->bytes());
        std::vector<std::wstring> expected;
        for (const auto& info : tv::dwg::headerVars())
            if (again->headerVar(std::wstring(info.name, info.name + std::string_view(info.name).size())))
                expected.emplace_back(info.name, info.name + std::string_view(info.name).size());
        std::vector<std::wstring> found;
        for (const OdString& name : again->headerVarNames())
            found.push_back(name.wstr());
        EXPECT_EQ(found, expected);
    }
}
