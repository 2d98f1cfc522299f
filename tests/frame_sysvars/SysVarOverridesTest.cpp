#include "kxgui/frame/SysVarOverridesProcessor.h"

#include "platform/host/embedded/EmbeddedHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// Opens the protected operations, which a host's own settings dialogs reach by deriving.
class Processor : public SysVarOverridesProcessor {
  public:
    using SysVarOverridesProcessor::eraseSysVarFromOverridesList;
    using SysVarOverridesProcessor::putSysVarToOverridesList;
    using SysVarOverridesProcessor::SysVarOverridesProcessor;
};

class Overrides : public testing::Test {
  protected:
    void SetUp() override { getSysVarDlgItems().clear(); }
    void TearDown() override { getSysVarDlgItems().clear(); }

    _tSysVar_DlgItem& item(const wchar_t* name, int owner = 0, int kind = 0, bool shared = false) {
        return getSysVarDlgItems().emplace_back(
            _tSysVar_DlgItem{.name = name, .owner = owner, .kind = kind, .shared = shared});
    }
    int drawing(const wchar_t* name) {
        int value = -1;
        tvedGetVar(name, value, database);
        return value;
    }

    tv::host::EmbeddedHost host;
    OdDbDatabasePtr database = host.documentManager()->newDocument()->database();
};

TEST_F(Overrides, EveryTypeIsStagedReadBackAndCommittedAsOneUndoStep) {
    database->setHeaderVar(L"CELTYPE", tv::dwg::HeaderValue::text(L"Continuous"));
    OdDbObjectId continuous;
    tvedGetVar(L"CELTYPE", continuous, database);
    ASSERT_FALSE(continuous.isNull());
    host.sysvarManager()->setText(L"CELTYPE", L"ByLayer", database);

    Processor p(database);
    EXPECT_EQ(p.GetDataBase(), database);
    OdCmColor green;
    host.sysvarManager()->setText(L"INTERFERECOLOR", L"3", database);
    tvedGetVar(L"INTERFERECOLOR", green, database);
    const auto unstaged = database->bytes();
    EXPECT_TRUE(p.overrideSysVar(item(L"FILLMODE"), false));
    EXPECT_TRUE(p.overrideSysVar(item(L"LUPREC"), 7));
    EXPECT_TRUE(p.overrideSysVar(item(L"LTSCALE"), 2.5));
    EXPECT_TRUE(p.overrideSysVar(item(L"DIMPOST"), L"<> mm"));
    EXPECT_TRUE(p.overrideSysVar(item(L"LIMMAX"), OdGePoint2d{100, 50}));
    EXPECT_TRUE(p.overrideSysVar(item(L"INSBASE"), OdGePoint3d{1, 2, 3}));
    EXPECT_TRUE(p.overrideSysVar(item(L"CECOLOR"), green));
    EXPECT_TRUE(p.overrideSysVar(item(L"CELTYPE"), continuous));
    EXPECT_EQ(database->bytes(), unstaged) << "staging writes nothing";

    const auto readBack = [&](bool fromList) {
        auto& items = getSysVarDlgItems();
        bool flag = true;
        int whole = 0;
        double real = 0;
        TvString text;
        OdGePoint2d flat;
        OdGePoint3d point;
        OdCmColor color;
        OdDbObjectId id;
        EXPECT_EQ(p.getSysVarWithOverrides(items[0], flag), fromList);
        EXPECT_EQ(p.getSysVarWithOverrides(items[1], whole), fromList);
        EXPECT_EQ(p.getSysVarWithOverrides(L"LTSCALE", real), fromList);
        EXPECT_EQ(p.getSysVarWithOverrides(L"DIMPOST", text), fromList);
        EXPECT_EQ(p.getSysVarWithOverrides(L"LIMMAX", flat), fromList);
        EXPECT_EQ(p.getSysVarWithOverrides(items[5], point), fromList);
        EXPECT_EQ(p.getSysVarWithOverrides(L"CECOLOR", color), fromList);
        EXPECT_EQ(p.getSysVarWithOverrides(items[7], id), fromList);
        EXPECT_FALSE(flag);
        EXPECT_EQ(whole, 7);
        EXPECT_EQ(real, 2.5);
        EXPECT_EQ(text, L"<> mm");
        EXPECT_EQ(flat, (OdGePoint2d{100, 50}));
        EXPECT_EQ(point, (OdGePoint3d{1, 2, 3}));
        EXPECT_EQ(color, green);
        EXPECT_EQ(id, continuous);
    };
    readBack(true);
    EXPECT_TRUE(p.saveVariablesToDataBase().empty());
    p.cleanStorage();
    readBack(false);
    database->undo();
    EXPECT_EQ(database->bytes(), unstaged);
}

TEST_F(Overrides, AValueKeepsItsPlaceAndGoesWhenItIsTheDrawingsAgain) {
    Processor p(database);
    auto& luprec = item(L"LUPREC");
    auto& auprec = item(L"AUPREC");
    EXPECT_TRUE(p.overrideSysVar(luprec, 1));
    EXPECT_TRUE(p.overrideSysVar(auprec, 1));
    EXPECT_TRUE(p.overrideSysVar(luprec, 2));
    std::vector<std::wstring> written;
    const auto listening = host.sysvarManager()->onSysvarChanged(
        [&](const OdString& name, const OdDbDatabasePtr&) { written.push_back(name.wstr()); });
    p.saveVariablesToDataBase();
    EXPECT_THAT(written, ElementsAre(L"LUPREC", L"AUPREC"));
    EXPECT_EQ(drawing(L"LUPREC"), 2);

    EXPECT_TRUE(p.overrideSysVar(luprec, 5));
    EXPECT_FALSE(p.overrideSysVar(luprec, 2));
    EXPECT_FALSE(luprec.overridden);
    int value = 0;
    EXPECT_FALSE(p.getSysVarWithOverrides(luprec, value));
    EXPECT_EQ(value, 2);
    EXPECT_TRUE(p.overrideSysVar(luprec, 70000));
    EXPECT_TRUE(p.getSysVarWithOverrides(luprec, value));
    EXPECT_EQ(value, 32767) << "brought into 16 bits";
}

TEST_F(Overrides, IntegersAreReadFromTwoBufferTypesOnly) {
    Processor p(database);
    auto& luprec = item(L"LUPREC");
    for (const auto& [type, expected] : {std::pair{5003, 6}, {280, 6}, {5010, -9}, {70, -9}, {5001, -9}}) {
        p.putSysVarToOverridesList(luprec, OdResBuf(type, std::int64_t{6}));
        int value = -9;
        EXPECT_TRUE(p.getSysVarWithOverrides(luprec, value)) << type;
        EXPECT_EQ(value, expected) << type;
    }
}

TEST_F(Overrides, LookUpMindsTheCaseAndRemovalDoesNot) {
    Processor p(database);
    auto& luprec = item(L"LUPREC");
    p.overrideSysVar(luprec, 1);
    int value = 0;
    EXPECT_FALSE(p.getSysVarWithOverrides(L"luprec", value));
    EXPECT_EQ(value, drawing(L"LUPREC"));
    EXPECT_TRUE(p.getSysVarWithOverrides(L"LUPREC", value));
    auto& namesake = item(L"luprec");
    p.eraseSysVarFromOverridesList(namesake);
    EXPECT_FALSE(luprec.overridden) << "nothing may point at the removed value";
    EXPECT_EQ(luprec.node, nullptr);
    EXPECT_FALSE(p.getSysVarWithOverrides(L"LUPREC", value));
}

TEST_F(Overrides, SharedNamesakesFollow) {
    Processor p(database);
    auto& first = item(L"LUPREC", 1, 0, true);
    auto& second = item(L"luprec", 1, 0, true);
    auto& alone = item(L"LUPREC", 1, 0, false);
    auto& elsewhere = item(L"LUPREC", 2, 0, true);
    EXPECT_TRUE(p.overrideSysVar(first, 1));
    int value = 0;
    EXPECT_TRUE(p.getSysVarWithOverrides(second, value));
    EXPECT_EQ(value, 1);
    EXPECT_FALSE(alone.overridden);
    EXPECT_FALSE(elsewhere.overridden);
    EXPECT_TRUE(p.overrideSysVar(second, 3));
    EXPECT_TRUE(p.getSysVarWithOverrides(first, value));
    EXPECT_EQ(value, 3);
    EXPECT_FALSE(p.overrideSysVar(second, drawing(L"LUPREC")));
    EXPECT_FALSE(first.overridden);
    EXPECT_EQ(first.node, nullptr);

    auto& unmarked = item(L"AUPREC", 1, _tSysVar_DlgItem::kNotMarked, true);
    auto& follower = item(L"AUPREC", 1, 0, true);
    p.overrideSysVar(unmarked, 5);
    EXPECT_FALSE(follower.overridden);
    p.cleanStorage();
    EXPECT_FALSE(unmarked.overridden);
}

TEST_F(Overrides, ValuesAreClampedToTheRangeOfTheVariable) {
    Processor p(database);
    int precision = 12;
    EXPECT_FALSE(p.validateSysvarValue(L"LUPREC", precision));
    EXPECT_EQ(precision, 8);
    EXPECT_TRUE(p.validateSysvarValue(L"LUPREC", precision));
    double low = -1;
    EXPECT_FALSE(p.validateSysvarValue(L"DIMTSZ", low));
    EXPECT_EQ(low, 0);
    double free = -1e300;
    EXPECT_TRUE(p.validateSysvarValue(L"THICKNESS", free));
    EXPECT_TRUE(p.validateSysvarValue(L"NOSUCH", free));
    EXPECT_EQ(free, -1e300);
    EXPECT_EQ(p.getVarType(L"ltscale"), TavoSysvarType::kReal);
    EXPECT_EQ(p.getVarType(L"NOSUCH"), TavoSysvarType::kNone);
}

// What the manager refuses is named and does not stop the rest; names and selection sets are passed over.
TEST_F(Overrides, CommitWritesByTypeAndReportsWhatIsRefused) {
    Processor p(database);
    p.putSysVarToOverridesList(item(L"LUNITS"), OdResBuf(5003, std::int64_t{9}));
    p.putSysVarToOverridesList(item(L"CLAYER"), OdResBuf(5006, OdString(L"0")));
    p.putSysVarToOverridesList(item(L"AUNITS"), OdResBuf(5007, std::int64_t{1}));
    p.putSysVarToOverridesList(item(L"ANGBASE"), OdResBuf(5004, 1.0));
    p.putSysVarToOverridesList(item(L"DIMJOGANG"), OdResBuf(5008, 0.5));
    p.putSysVarToOverridesList(item(L"LTSCALE"), OdResBuf(70, std::int64_t{1}));
    p.putSysVarToOverridesList(item(L"USERI1"), OdResBuf(5010, std::int64_t{77}));
    p.putSysVarToOverridesList(item(L"LUPREC"), OdResBuf(5000, std::int64_t{3}));
    p.putSysVarToOverridesList(item(L"dimtaln"), OdResBuf(280, std::int64_t{2}));
    p.putSysVarToOverridesList(item(L"AUPREC"), OdResBuf(5003, std::int64_t{4}));
    host.commandLine()->takeNew();
    EXPECT_THAT(p.saveVariablesToDataBase(), ElementsAre(L"LUNITS", L"LTSCALE"));
    const auto lines = host.commandLine()->takeNew();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_THAT(lines[0].wstr(), HasSubstr(L"LUNITS"));
    EXPECT_THAT(lines[1].wstr(), HasSubstr(L"LTSCALE"));
    EXPECT_EQ(drawing(L"AUNITS"), 0);
    OdResBuf angle;
    host.sysvarManager()->getVar(L"ANGBASE", angle, database);
    EXPECT_EQ(angle.getDouble(), 1.0);
    host.sysvarManager()->getVar(L"DIMJOGANG", angle, database);
    EXPECT_EQ(angle.getDouble(), 0.5);
    EXPECT_EQ(drawing(L"USERI1"), 77);
    EXPECT_EQ(drawing(L"LUPREC"), 3);
    EXPECT_EQ(drawing(L"DIMTALN"), 2);
    EXPECT_EQ(drawing(L"AUPREC"), 4);
    EXPECT_EQ(drawing(L"LUNITS"), 2);
}

TEST_F(Overrides, TheListHasALimitAndCancellingLeavesEverything) {
    const auto before = database->bytes();
    auto& last = item(L"LUPREC");
    {
        Processor p(database);
        for (std::size_t i = 0; i < Processor::kMaxOverrides; ++i)
            p.putSysVarToOverridesList(item(L"AUPREC"), OdResBuf(5003, std::int64_t{1}));
        EXPECT_FALSE(p.overrideSysVar(last, 1));
        EXPECT_FALSE(last.overridden);
        EXPECT_THAT(host.commandLine()->takeNew(), Contains(OdString(L"list<T> too long")));

        // A copy dropped earlier takes nothing of the original along.
        { const Processor copy(p); }
        EXPECT_TRUE(getSysVarDlgItems().back().overridden);
    }
    for (const auto& record : getSysVarDlgItems())
        ASSERT_FALSE(record.overridden || record.node);
    EXPECT_EQ(database->bytes(), before);
}

TEST_F(Overrides, WithoutDrawingOrHost) {
    auto& luprec = item(L"LUPREC");
    host.documentManager()->closeDocument(host.documentManager()->currentDocument());
    Processor p(nullptr);
    int value = -4;
    EXPECT_FALSE(p.getSysVarWithOverrides(luprec, value));
    EXPECT_EQ(value, -4);
    EXPECT_TRUE(p.overrideSysVar(luprec, 1));
    EXPECT_TRUE(p.overrideSysVar(item(L"PICKFIRST"), 0));
    EXPECT_THAT(p.saveVariablesToDataBase(), ElementsAre(L"LUPREC"));
    EXPECT_EQ(drawing(L"PICKFIRST"), 0);

    auto* installed = setTavoInterfaces(nullptr);
    Processor alone(nullptr);
    EXPECT_TRUE(alone.overrideSysVar(item(L"AUPREC"), 1));
    EXPECT_TRUE(alone.validateSysvarValue(L"AUPREC", value));
    EXPECT_THAT(alone.saveVariablesToDataBase(), ElementsAre(L"AUPREC"));
    setTavoInterfaces(installed);
}

} // namespace
