#include "platform/host/embedded/EmbeddedHost.h"

#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdResBuf.h"
#include "platform/text/Unicode.h"
#include "tests/drawing/Drawings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>
#include <set>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class Sysvars : public testing::Test {
  protected:
    OdString text(const wchar_t* name) {
        OdString value = L"(unread)";
        manager.getText(name, value, nullptr);
        return value;
    }

    tv::host::EmbeddedHost host;
    tv::host::DefaultSysvarManager& manager = *host.sysvarManager();
};

// Every variable answers its default on a drawing that lacks it, and takes that value back: a default outside
// its own range or of another type, or a row under a wrong name, shows here.
TEST_F(Sysvars, TheTableIsConsistent) {
    const auto oldDrawing = OdDbDatabase::create(OdDb::DxfVersion::kR12);
    std::set<std::wstring> names;
    for (const OdString& name : manager.names()) {
        EXPECT_TRUE(names.insert(name.wstr()).second) << "twice: " << tv::text::toUtf8(name.view());
        OdString value;
        ASSERT_EQ(manager.getText(name, value, oldDrawing), Tavo::eOk) << tv::text::toUtf8(name.view());
        if (manager.isReadOnly(name)) {
            EXPECT_EQ(manager.setText(name, value, oldDrawing), Tavo::eReadOnly)
                << tv::text::toUtf8(name.view());
            continue;
        }
        EXPECT_EQ(manager.setText(name, value, oldDrawing), Tavo::eOk)
            << tv::text::toUtf8(manager.lastProblem().sentence);
        if (const auto range = manager.range(name)) {
            EXPECT_LE(range->minimum, range->maximum) << tv::text::toUtf8(name.view());
        }
    }
    for (const auto& header : tv::dwg::headerVars())
        EXPECT_TRUE(names.contains(OdString(header.name).wstr()))
            << header.name << " of the drawing is unknown";
}

// Whatever a real drawing's header holds is understood, and writing back what was read changes not one byte.
TEST_F(Sysvars, RealDrawingsStayAsTheyAreWhenTheirOwnValuesAreWritten) {
    for (const auto& file : drawings::realDrawings()) {
        const auto database = OdDbDatabase::open(file).database;
        ASSERT_TRUE(database) << file;
        const auto before = database->bytes();
        for (const OdString& name : database->headerVarNames())
            EXPECT_NE(manager.type(name), TavoSysvarType::kNone)
                << file << " " << tv::text::toUtf8(name.view());
        for (const OdString& name : manager.names()) {
            OdResBuf value;
            ASSERT_EQ(manager.getVar(name, value, database), Tavo::eOk);
            if (manager.isReadOnly(name)) continue;
            EXPECT_EQ(manager.setVar(name, value, database), Tavo::eOk)
                << file << " " << tv::text::toUtf8(manager.lastProblem().sentence);
        }
        EXPECT_EQ(database->bytes(), before) << file;
        EXPECT_FALSE(database->hasUndo()) << file;
    }
}

TEST_F(Sysvars, ReadsAndWritesTheDrawingAsOneUndoableChange) {
    auto* document = host.documentManager()->newDocument();
    const auto database = document->database();
    std::vector<std::wstring> told;
    const auto listening = manager.onSysvarChanged([&](const OdString& name, const OdDbDatabasePtr& where) {
        EXPECT_EQ(where, database);
        told.push_back(name.wstr());
    });

    EXPECT_EQ(tvedSetVar(L"lunits", 4, nullptr), Tavo::eOk);
    int lunits = 0;
    EXPECT_EQ(tvedGetVar(L"Lunits", lunits, database), Tavo::eOk);
    EXPECT_EQ(lunits, 4);
    EXPECT_EQ(tvedSetVar(L"LUNITS", 4, database), Tavo::eOk) << "writing the same value";
    EXPECT_THAT(told, ElementsAre(L"LUNITS"));

    database->undo();
    EXPECT_EQ(text(L"LUNITS"), L"2");
    database->redo();
    EXPECT_EQ(text(L"LUNITS"), L"4");
    EXPECT_THAT(told, ElementsAre(L"LUNITS", L"LUNITS", L"LUNITS"));
}

TEST_F(Sysvars, RefusesWithVariableValueAndWhatIsAllowed) {
    const auto database = host.documentManager()->newDocument()->database();
    const auto before = database->bytes();
    const auto refused = [&](const wchar_t* name, const OdResBuf& value, Tavo::ErrorStatus status,
                             std::initializer_list<const wchar_t*> said) {
        EXPECT_EQ(manager.setVar(name, value, nullptr), status) << tv::text::toUtf8(name);
        EXPECT_EQ(manager.lastProblem().status, status);
        for (const wchar_t* part : said)
            EXPECT_THAT(manager.lastProblem().sentence, HasSubstr(part));
    };
    refused(L"LUNITS", OdResBuf(5003, std::int64_t{6}), Tavo::eOutOfRange, {L"LUNITS", L"\"6\"", L"1~5"});
    refused(L"LUNITS", OdResBuf(5001, 2.5), Tavo::eWrongType, {L"LUNITS", L"2.5", L"정수"});
    refused(L"LUNITS", OdResBuf(5005, OdString(L"x")), Tavo::eWrongType, {L"LUNITS"});
    refused(L"LTSCALE", OdResBuf(5001, 0.0), Tavo::eOutOfRange, {L"LTSCALE", L"0보다"});
    refused(L"LTSCALE", OdResBuf(5001, std::nan("")), Tavo::eWrongType, {L"LTSCALE"});
    refused(L"CELWEIGHT", OdResBuf(5003, std::int64_t{7}), Tavo::eOutOfRange,
            {L"CELWEIGHT", L"-3, -2, -1, 0, 5"});
    refused(L"CLAYER", OdResBuf(5005, OdString(L"no such layer")), Tavo::eKeyNotFound,
            {L"CLAYER", L"no such layer"});
    refused(L"CECOLOR", OdResBuf(5010, std::int64_t{257}), Tavo::eWrongType, {L"CECOLOR"});
    refused(L"INSBASE", OdResBuf(5001, 1.0), Tavo::eWrongType, {L"INSBASE"});
    refused(L"PSTYLEMODE", OdResBuf(5003, std::int64_t{0}), Tavo::eReadOnly, {L"PSTYLEMODE"});
    refused(L"CMDACTIVE", OdResBuf(5003, std::int64_t{1}), Tavo::eReadOnly, {L"CMDACTIVE"});
    refused(L"NOSUCH", OdResBuf(5003, std::int64_t{1}), Tavo::eKeyNotFound, {L"NOSUCH"});
    EXPECT_EQ(manager.setText(L"LIMMAX", L"1,2,3", nullptr), Tavo::eWrongType);
    EXPECT_EQ(database->bytes(), before);

    EXPECT_EQ(manager.setVar(L"LUPREC", OdResBuf(5001, 3.0), nullptr), Tavo::eOk)
        << "a whole real is an integer";
    EXPECT_FALSE(manager.lastProblem());
}

TEST_F(Sysvars, WithoutADrawingOnlyItsVariablesAreMissing) {
    int value = -7;
    EXPECT_EQ(tvedGetVar(L"LUNITS", value, nullptr), Tavo::eNoDatabase);
    EXPECT_EQ(value, -7);
    EXPECT_EQ(tvedSetVar(L"LUNITS", 2, nullptr), Tavo::eNoDatabase);
    EXPECT_EQ(tvedSetVar(L"TABCLOSEMODE", 2, nullptr), Tavo::eOk);
    EXPECT_EQ(tvedGetVar(L"TABCLOSEMODE", value, nullptr), Tavo::eOk);
    EXPECT_EQ(value, 2);
    EXPECT_EQ(host.settings()->getString(L"SystemVariables", L"TABCLOSEMODE"), L"2");
    // What somebody else wrote there in error is no value.
    host.settings()->setString(L"SystemVariables", L"TABCLOSEMODE", L"9");
    EXPECT_EQ(text(L"TABCLOSEMODE"), L"0");
}

TEST_F(Sysvars, AnglesAreRadiansHereAndDegreesInTheFile) {
    const auto database = host.documentManager()->newDocument()->database();
    const double pi = std::numbers::pi;
    EXPECT_EQ(manager.setVar(L"ANGBASE", OdResBuf(5001, pi / 2), nullptr), Tavo::eOk);
    EXPECT_EQ(database->headerVar(L"ANGBASE")->asReal(), 90.0);
    // Degrees that are no double of radians stay as they were written when the same angle is written again.
    database->setHeaderVar(L"ANGBASE", tv::dwg::HeaderValue::real(33.3));
    const auto bytes = database->bytes();
    OdResBuf angle(5000, {});
    ASSERT_EQ(manager.getVar(L"ANGBASE", angle, nullptr), Tavo::eOk);
    EXPECT_EQ(manager.setVar(L"ANGBASE", angle, nullptr), Tavo::eOk);
    EXPECT_EQ(database->bytes(), bytes);
    for (const double degrees : {0.1, 33.3, 59.99, 123.456789, 359.9999999}) {
        manager.setVar(L"ANGBASE", OdResBuf(5001, degrees * pi / 180), nullptr);
        EXPECT_EQ(database->headerVar(L"ANGBASE")->asReal(), degrees);
    }
    // This one is radians in the file as well.
    EXPECT_EQ(manager.setText(L"DIMJOGANG", L"0.5", nullptr), Tavo::eOk);
    EXPECT_EQ(database->headerVar(L"DIMJOGANG")->asReal(), 0.5);
}

TEST_F(Sysvars, ColoursTravelAsColoursNumbersAndTexts) {
    host.documentManager()->newDocument();
    int index = 0;
    EXPECT_EQ(manager.setText(L"CECOLOR", L"red", nullptr), Tavo::eOk);
    EXPECT_EQ(tvedGetVar(L"CECOLOR", index, nullptr), Tavo::eOk);
    EXPECT_EQ(index, 1);
    OdCmColor color;
    EXPECT_EQ(tvedGetVar(L"CECOLOR", color, nullptr), Tavo::eOk);
    EXPECT_EQ(color.colorIndex(), 1);
    EXPECT_EQ(tvedSetVar(L"CECOLOR", 256, nullptr), Tavo::eOk);
    EXPECT_EQ(text(L"CECOLOR"), L"BYLAYER");
    EXPECT_EQ(manager.setVar(L"CECOLOR", color, nullptr), Tavo::eOk);
    EXPECT_EQ(text(L"CECOLOR"), L"1");
    EXPECT_EQ(manager.setText(L"CECOLOR", L"1,2,3", nullptr), Tavo::eOutOfRange)
        << "a header holds an index only";
    EXPECT_EQ(manager.setText(L"BKGCOLOR", L"RGB:33,40,48", nullptr), Tavo::eOk);
    EXPECT_EQ(text(L"BKGCOLOR"), L"33,40,48");
    EXPECT_EQ(tvedGetVar(L"BKGCOLOR", index, nullptr), Tavo::eWrongType);
    EXPECT_EQ(tvedGetVar(L"LUNITS", color, nullptr), Tavo::eWrongType);
}

TEST_F(Sysvars, RecordNamesStandForRecords) {
    const auto database = host.documentManager()->newDocument()->database();
    OdDbObjectId layer;
    ASSERT_EQ(tvedGetVar(L"CLAYER", layer, nullptr), Tavo::eOk);
    EXPECT_FALSE(layer.isNull());
    OdDbObjectId style;
    ASSERT_EQ(tvedGetVar(L"TEXTSTYLE", style, nullptr), Tavo::eOk);
    EXPECT_FALSE(style.isNull());
    EXPECT_EQ(manager.setVar(L"CLAYER", layer, nullptr), Tavo::eOk);
    EXPECT_EQ(manager.setVar(L"CLAYER", style, nullptr), Tavo::eKeyNotFound) << "a text style is no layer";
    EXPECT_EQ(manager.setVar(L"CLAYER", OdDbObjectId(), nullptr), Tavo::eKeyNotFound);
    EXPECT_EQ(manager.setText(L"CELTYPE", L"byblock", nullptr), Tavo::eOk);
    EXPECT_EQ(manager.setText(L"DIMBLK", L"NoSuchArrow", nullptr), Tavo::eKeyNotFound);
    int none = 0;
    EXPECT_EQ(tvedGetVar(L"CLAYER", none, nullptr), Tavo::eWrongType);
}

// The same variable lives in the header of an old drawing and with the user for a new one.
TEST_F(Sysvars, OldDrawingsKeepWhatNewerOnesLeaveToTheUser) {
    const auto r12 = OdDbDatabase::create(OdDb::DxfVersion::kR12);
    const auto r2018 = OdDbDatabase::create();
    EXPECT_EQ(tvedSetVar(L"OSMODE", 5, r12), Tavo::eOk);
    EXPECT_EQ(r12->headerVar(L"OSMODE")->asInteger(), 5);
    EXPECT_EQ(tvedSetVar(L"OSMODE", 7, r2018), Tavo::eOk);
    EXPECT_FALSE(r2018->headerVar(L"OSMODE"));
    EXPECT_EQ(host.settings()->getString(L"SystemVariables", L"OSMODE"), L"7");
    // With the open drawing only, each its own.
    EXPECT_EQ(manager.setText(L"DIMMZS", L"cm", r2018), Tavo::eOk);
    OdString other = L"?";
    EXPECT_EQ(manager.getText(L"DIMMZS", other, r12), Tavo::eOk);
    EXPECT_TRUE(other.isEmpty());
    // A variable the drawing's version has no room for says so and changes nothing.
    const auto before = r12->bytes();
    EXPECT_NE(tvedSetVar(L"INSUNITS", 4, r12), Tavo::eOk);
    EXPECT_FALSE(manager.lastProblem().sentence.empty());
    EXPECT_EQ(r12->bytes(), before);
}

TEST_F(Sysvars, PlotStyleAndTextAlignmentOfDimensions) {
    const auto database = host.documentManager()->newDocument()->database();
    EXPECT_EQ(text(L"CPLOTSTYLE"), L"ByColor");
    EXPECT_NE(manager.setText(L"CPLOTSTYLE", L"ByBlock", nullptr), Tavo::eOk)
        << "plot styles follow the colours here";
    database->setHeaderVar(L"PSTYLEMODE", tv::dwg::HeaderValue::integer(0));
    EXPECT_EQ(text(L"CPLOTSTYLE"), L"ByLayer");
    EXPECT_EQ(manager.setText(L"CPLOTSTYLE", L"byblock", nullptr), Tavo::eOk);
    EXPECT_EQ(database->headerVar(L"CEPSNTYPE")->asInteger(), 1);
    EXPECT_EQ(text(L"CPLOTSTYLE"), L"ByBlock");
    EXPECT_EQ(manager.setText(L"CPLOTSTYLE", L"no such style", nullptr), Tavo::eKeyNotFound);

    EXPECT_EQ(text(L"DIMTALN"), L"0");
    EXPECT_EQ(tvedSetVar(L"DIMTALN", 2, nullptr), Tavo::eOk);
    EXPECT_EQ(text(L"DIMTALN"), L"2");
    EXPECT_EQ(tvedSetVar(L"DIMTALN", 1, nullptr), Tavo::eOk);
    EXPECT_EQ(text(L"DIMTALN"), L"1");
    database->undo();
    database->undo();
    EXPECT_EQ(text(L"DIMTALN"), L"0");
}

} // namespace
