#include "kxgui/controls/SelectedProperties.h"
#include "kxgui/controls/LayerCombos.h"
#include "kxgui/controls/TextSizeCombo.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/text/AtomicFile.h"
#include "tests/combos/ComboTest.h"

#include <unistd.h>

using namespace kx::controls;

namespace {

const char* const drawing =
    "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n9\n$CLAYER\n8\n0\n0\nENDSEC\n"
    "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n5\n2\n100\nAcDbSymbolTable\n70\n3\n"
    "0\nLAYER\n5\n10\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n2\n0\n70\n0\n62\n7\n6\nContinuous"
    "\n"
    "0\nLAYER\n5\n11\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n2\nWall\n70\n0\n62\n1\n6\nContinuo"
    "us\n"
    "0\nLAYER\n5\n12\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n2\nLocked\n70\n4\n62\n1\n6\nContin"
    "uous\n"
    "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n"
    "0\nLINE\n5\n20\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0\n20\n0\n11\n1\n21\n1\n"
    "0\nTEXT\n5\n21\n100\nAcDbEntity\n8\nWall\n100\nAcDbText\n10\n0\n20\n0\n40\n2.5\n1\nA\n100\nAcDbText\n"
    "0\nTEXT\n5\n22\n100\nAcDbEntity\n8\nLocked\n100\nAcDbText\n10\n0\n20\n0\n40\n5\n1\nB\n100\nAcDbText\n"
    "0\nENDSEC\n0\nEOF\n";

struct SelectedProperties : ComboTest {
    SelectedProperties() {
        const auto file =
            std::filesystem::temp_directory_path() / ("picked." + std::to_string(getpid()) + ".dxf");
        EXPECT_FALSE(tv::writeFileAtomically(file, drawing));
        std::vector<tv::Problem> problems;
        host.documentManager()->openDocument(file, problems);
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
    OdDbObjectId object(int handle) {
        return database()->getOdDbObjectId(OdDbHandle(static_cast<std::uint64_t>(handle)));
    }
    void pick(std::initializer_list<int> handles) {
        std::vector<OdDbObjectId> ids;
        for (const int handle : handles)
            ids.push_back(object(handle));
        host.selection()->set(ids);
    }
    std::wstring layerOf(int handle) { return object(handle).open<OdDbEntity>()->layer().wstr(); }
};

} // namespace

TEST_F(SelectedProperties, AListShowsWhatTheSelectedObjectsHaveInCommon) {
    run<CCobxLayer>([&](CCobxLayer& combo, auto& u) {
        const std::string before = database()->bytes();
        pick({0x20, 0x21});
        combo.OnSelectionSetChanged();
        toolkit.advance(std::chrono::milliseconds(50));
        EXPECT_TRUE(combo.Varies());
        EXPECT_EQ(combo.GetWindowText(), L"*다양함*");
        u.choose("IDC_COMBO", L"Wall");
        EXPECT_EQ(layerOf(0x20), L"Wall");
        EXPECT_EQ(combo.GetWindowText(), L"Wall");
        EXPECT_EQ(variable(L"CLAYER"), L"0") << "the objects changed, not the variable";
        database()->undo();
        EXPECT_EQ(database()->bytes(), before) << "one step";

        pick({0x20, 0x22});
        refill(combo);
        u.choose("IDC_COMBO", L"Wall");
        EXPECT_EQ(layerOf(0x20), L"Wall");
        EXPECT_EQ(layerOf(0x22), L"Locked") << "on a locked layer";
        EXPECT_FALSE(host.commandLine()->takeNew().empty()) << "which is said";
        EXPECT_TRUE(combo.Varies());

        host.sysvarManager()->setText(L"PICKFIRST", L"0", nullptr);
        refill(combo);
        u.choose("IDC_COMBO", L"Wall");
        EXPECT_EQ(variable(L"CLAYER"), L"Wall") << "the selection doesn't count";
    });
}

TEST_F(SelectedProperties, ObjectsWithoutThePropertyDontCount) {
    const auto shown = [&] { return shownValue(database(), Property::textHeight); };
    pick({0x20, 0x21});
    EXPECT_EQ(shown().value, tv::dwg::Value(2.5));
    EXPECT_FALSE(shown().varies);
    pick({0x20});
    EXPECT_EQ(shown().value, currentValue(database(), Property::textHeight).value) << "a line has none";
    run<CCobxTextSize>([&](CCobxTextSize& combo, auto& u) {
        pick({0x20, 0x21});
        refill(combo);
        u.type("IDC_COMBO", L"7");
        u.key(L"Enter");
        EXPECT_EQ(shown().value, tv::dwg::Value(7.0));
        object(0x21).openObject(OdDb::kForWrite)->erase();
        EXPECT_FALSE(commonValue({object(0x21)}, Property::textHeight).known);
        EXPECT_FALSE(changeObjects({object(0x21), OdDbObjectId()}, Property::layer, OdString(L"Wall"), L"x"));
    });
}
