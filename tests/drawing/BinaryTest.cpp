#include "tests/drawing/Drawings.h"

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/dxf/DxfTags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace drawings;
using namespace tv::dwg;

namespace {

// The text form's tags in the binary form.
std::string binary(const std::string& bars, Encoding encoding) {
    DxfFormat text;
    DxfFormat target;
    target.encoding = encoding;
    std::string out("AutoCAD Binary DXF\r\n\x1A\0", 22);
    const std::string bytes = lines(bars);
    TagCursor cursor(text, bytes);
    for (Tag tag; cursor.next(tag);)
        out += tagBytes(target, tag.code, *rawValue(target, tag.code, valueOf(text, tag)));
    return out;
}

const char* const kDrawing =
    "0|SECTION|2|HEADER|9|$ACADVER|1|AC1009|9|$LUNITS|70|2|9|$LTSCALE|40|1.5|9|$INSBASE|10|1.0|"
    "20|2.0|30|3.0|0|ENDSEC|0|SECTION|2|ENTITIES|0|LINE|5|A|67|1|8|0|10|1.25|20|2|11|3|21|4|"
    "1001|ACAD|1004|00FF|1070|-7|1071|70000|0|ENDSEC|0|EOF";

} // namespace

TEST(BinaryDrawings, BothFormsAreReadAndOnlyTheValueChanges) {
    for (const Encoding encoding : {Encoding::kBinary, Encoding::kBinaryR12}) {
        const std::string bytes = binary(kDrawing, encoding);
        const auto opened = OdDbDatabase::openBytes(bytes, "b.dxf");
        ASSERT_TRUE(opened.database);
        EXPECT_TRUE(opened.problems.empty());
        OdDbDatabase& db = *opened.database;
        EXPECT_TRUE(db.isBinary());
        EXPECT_EQ(db.bytes(), bytes);
        EXPECT_EQ(db.headerVar(L"LTSCALE")->asReal(), 1.5);
        EXPECT_EQ(db.headerVar(L"INSBASE")->asPoint(), (OdGePoint3d{1, 2, 3}));
        ASSERT_FALSE(db.paperSpace().empty());
        EXPECT_EQ(std::get<LineGeometry>(geometryOf(*db.paperSpace().begin())).start.x, 1.25);
        const OdResBufPtr data = db.getOdDbObjectId(0xA).openObject()->xData(L"ACAD");
        ASSERT_TRUE(data && data->next());
        EXPECT_EQ(data->next()->getBinary(), (Binary{0, 0xFF}));
        EXPECT_EQ(data->last().getInt32(), 70000);

        EXPECT_FALSE(db.setHeaderVar(L"LUNITS", HeaderValue::integer(5)));
        std::string expected = bytes;
        const std::size_t value = expected.find("$LUNITS") + 8 + (encoding == Encoding::kBinary ? 2 : 1);
        expected[value] = 5;
        EXPECT_EQ(db.bytes(), expected);
        EXPECT_FALSE(db.setHeaderVar(L"AUNITS", HeaderValue::integer(1)));
        EXPECT_EQ(db.getOdDbObjectId(0xA).open<OdDbEntity>(OdDb::kForWrite)->setColor(OdCmColor::byIndex(3)),
                  Tavo::eOk);
        const auto again = OdDbDatabase::openBytes(db.bytes(), "b.dxf");
        EXPECT_TRUE(again.problems.empty());
        EXPECT_EQ(again.database->headerVar(L"AUNITS")->asInteger(), 1);
        EXPECT_EQ(again.database->getOdDbObjectId(0xA).open<OdDbEntity>()->color().colorIndex(), 3);
        while (db.undo()) {
        }
        EXPECT_EQ(db.bytes(), bytes);
    }
}

TEST(BinaryDrawings, CutOffAnywhereTheyKeepTheirBytesAndSayWhere) {
    const std::string bytes = binary(kDrawing, Encoding::kBinary);
    for (std::size_t length = 22; length < bytes.size(); ++length) {
        const auto opened = OdDbDatabase::openBytes(bytes.substr(0, length), "b.dxf");
        ASSERT_FALSE(opened.problems.empty()) << length;
        if (!opened.database) continue;
        EXPECT_EQ(opened.database->bytes(), bytes.substr(0, length));
        EXPECT_EQ(opened.problems[0].line, 0);
        EXPECT_THAT(opened.problems[0].sentence, testing::HasSubstr(L"b.dxf"));
    }
}
