// What files hold that the library itself would not write: long and mixed names, named plot styles, styles of
// leaders.
#include "kxgui/controls/LayerCombos.h"
#include "kxgui/controls/StyleCombos.h"
#include "platform/text/AtomicFile.h"
#include "platform/text/Unicode.h"
#include "tests/combos/ComboTest.h"
#include "tests/text/TempFolder.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

// With letters of two directions and a combining accent.
const std::wstring longName = std::wstring(9990, L'\x05D0') + L"e\x0301 \x0627\x0628 z";

std::string layer(const char* handle, const std::wstring& name) {
    return "0\nLAYER\n5\n" + std::string(handle) +
           "\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n2\n" + tv::text::toUtf8(name) +
           "\n70\n0\n62\n7\n6\nContinuous\n";
}

std::string dictionary(const char* handle, const std::string& entries) {
    return "0\nDICTIONARY\n5\n" + std::string(handle) + "\n100\nAcDbDictionary\n" + entries;
}

std::string drawing() {
    return "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1021\n9\n$CLAYER\n8\n0\n9\n$PSTYLEMODE\n290\n0\n"
           "9\n$CEPSNTYPE\n380\n0\n0\nENDSEC\n"
           "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n5\n2\n100\nAcDbSymbolTable\n70\n3\n" +
           layer("10", L"0") + layer("11", longName) + layer("12", longName + L"2") +
           "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n" +
           dictionary("C", "3\nACAD_PLOTSTYLENAME\n350\n20\n3\nACAD_MLEADERSTYLE\n350\n30\n"
                           "3\nANY_ILeaderStyle\n350\n40\n") +
           "0\nACDBDICTIONARYWDFLT\n5\n20\n100\nAcDbDictionary\n3\nStyle 10\n350\n22\n3\nStyle 9\n350\n21\n"
           "100\nAcDbDictionaryWithDefault\n340\n21\n"
           "0\nACDBPLACEHOLDER\n5\n21\n0\nACDBPLACEHOLDER\n5\n22\n" +
           dictionary("30", "3\nNotes\n350\n31\n3\nArrows\n350\n32\n") +
           "0\nMLEADERSTYLE\n5\n31\n100\nAcDbMLeaderStyle\n0\nMLEADERSTYLE\n5\n32\n100\nAcDbMLeaderStyle\n" +
           dictionary("40", "3\nRemark\n350\n41\n") + "0\nILEADERSTYLE\n5\n41\n0\nENDSEC\n0\nEOF\n";
}

struct FileCombos : ComboTest {
    FileCombos() { open("first.dxf"); }
    void open(const char* name) {
        std::vector<tv::Problem> problems;
        host.documentManager()->openDocument(folder.write(name, drawing()), problems);
    }
    OdDbObjectId object(std::uint64_t handle) { return database()->getOdDbObjectId(OdDbHandle(handle)); }
    TempFolder folder;
};

} // namespace

TEST_F(FileCombos, NamesOfAnyLengthAndDirectionAreToldApart) {
    run<CCobxLayer>([&](CCobxLayer& combo, auto& u) {
        refill(combo);
        EXPECT_THAT(texts(combo), ElementsAre(L"0", longName, longName + L"2"));
        combo.ScheduleSelect(tv::text::toUtf8(longName + L"2").c_str(), -1);
        toolkit.advance(std::chrono::milliseconds(50));
        EXPECT_EQ(combo.GetLayerId(), object(0x12));
        EXPECT_EQ(combo.SelectString(-1, longName.c_str(), true), 1);
        combo.SetCurSel(0);
        u.choose("IDC_COMBO", longName + L"2");
        EXPECT_EQ(variable(L"CLAYER"), longName + L"2");
    });
}

TEST_F(FileCombos, NamedPlotStylesCanBeChosen) {
    run<CCobxPrintStyle>([&](CCobxPrintStyle& combo, auto& u) {
        refill(combo);
        EXPECT_THAT(texts(combo), ElementsAre(L"ByLayer", L"ByBlock", L"Style 9", L"Style 10"));
        EXPECT_TRUE(combo.IsWindowEnabled());
        EXPECT_EQ(combo.GetCurSel(), 0) << "CPLOTSTYLE";
        u.choose("IDC_COMBO", L"Style 10");
        EXPECT_EQ(variable(L"CPLOTSTYLE"), L"Style 10");
        EXPECT_EQ(database()->undoName(), L"플롯 스타일 변경");
        database()->undo();
        refill(combo);
        EXPECT_EQ(combo.GetWindowText(), L"ByLayer");
    });
}

TEST_F(FileCombos, StylesOfLeadersBelongToTheirDrawing) {
    run<CCobxILeaderStyle>([&](CCobxILeaderStyle& combo, auto&) {
        combo.SetComboBoxList();
        EXPECT_THAT(texts(combo), ElementsAre(L"Remark"));
    });
    run<CCobxMLeaderStyle>([&](CCobxMLeaderStyle& combo, auto& u) {
        combo.SelectId(object(0x31));
        EXPECT_TRUE(combo.GetSelectedId().isNull()) << "nothing is listed yet";
        refill(combo);
        EXPECT_THAT(texts(combo), ElementsAre(L"Arrows", L"Notes"));
        EXPECT_EQ(combo.GetSelectedId(), object(0x31)) << "asked for before";
        u.choose("IDC_COMBO", L"Arrows");
        refill(combo);
        EXPECT_EQ(combo.GetSelectedId(), object(0x32));

        host.documentManager()->closeDocument(host.documentManager()->currentDocument());
        open("second.dxf");
        refill(combo);
        EXPECT_EQ(combo.GetCount(), 2);
        EXPECT_TRUE(combo.GetSelectedId().isNull()) << "the style chosen was that of the drawing closed";
    });
}
