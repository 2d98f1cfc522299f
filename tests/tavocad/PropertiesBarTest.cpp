// The bar of properties as a script uses it; with windows it is the same.
#include "tests/tavocad/ScriptedSession.h"

#include "kxgui/controls/PropertiesBar.h"
#include "platform/host/TavoSelection.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/MessageManager.h"
#include "platform/text/SettingsStore.h"
#include "platform/text/Unicode.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>

using testing::HasSubstr;
using namespace std::chrono_literals;

namespace {

// Two lines on layers 0 and WALL, a circle on a locked layer, two texts: handles A1 to A5.
class PropertiesBar : public ScriptedSession {
  protected:
    PropertiesBar() {
        VORD_MSGFunction::Reset();
        std::string text =
            "0|SECTION|2|HEADER|9|$ACADVER|1|AC1015|9|$CLAYER|8|0|0|ENDSEC|0|SECTION|2|TABLES|"
            "0|TABLE|2|LAYER|70|3|0|LAYER|5|11|2|0|70|0|62|7|6|CONTINUOUS|"
            "0|LAYER|5|12|2|LOCK|70|4|62|1|6|CONTINUOUS|0|LAYER|5|13|2|WALL|70|0|62|3|6|CONTINUOUS|"
            "0|ENDTAB|0|TABLE|2|STYLE|70|2|0|STYLE|5|21|2|STANDARD|70|0|40|0|41|1|50|0|71|0|42|2.5|3|txt|4||"
            "0|STYLE|5|22|2|NOTES|70|0|40|0|41|1|50|0|71|0|42|3.5|3|txt|4||0|ENDTAB|"
            "0|ENDSEC|0|SECTION|2|ENTITIES|"
            "0|LINE|5|A1|8|0|10|0|20|0|11|2|21|1|0|LINE|5|A2|8|WALL|62|1|10|8|20|8|11|12|21|12|"
            "0|CIRCLE|5|A3|8|LOCK|10|5|20|5|40|1|"
            "0|TEXT|5|A4|8|0|10|4|20|4|40|3.5|1|NOTE|7|NOTES|0|TEXT|5|A5|8|0|10|4|20|6|40|1|1|PLAIN|0|ENDSEC|0|EOF|";
        std::ranges::replace(text, '|', '\n');
        std::ofstream(file, std::ios::binary) << text;
        runWell("{\"do\":\"open\",\"path\":" + quoted(file) + "}\n");
        session.startPropertiesBar();
    }
    static std::string onBar(const std::string& request) {
        return "{\"window\":\"IDD_PROPERTIES_BAR\"," + request + "}\n";
    }
    static std::string choose(const char* list, const char* text) {
        return onBar(std::string("\"do\":\"choose\",\"control\":\"IDC_PROPBAR_") + list + "\",\"text\":\"" +
                     text + "\"");
    }
    static std::string select(const char* handles) {
        return std::string("{\"do\":\"select\",\"handles\":[") + handles + "]}\n";
    }
    // "text", or "text (off)" for a list that is disabled.
    std::string shown(const char* list) {
        const auto reply = runWell(onBar("\"do\":\"dialog\"")).front();
        for (const auto& control : reply["dialog"]["controls"])
            if (control["name"] == std::string("IDC_PROPBAR_") + list)
                return control["text"].get<std::string>() + (control["enabled"].get<bool>() ? "" : " (off)");
        return "?";
    }
    std::string variable(const wchar_t* name) {
        OdString text;
        session.host().sysvarManager()->getText(name, text, nullptr);
        return tv::text::toUtf8(text.view());
    }
    const std::filesystem::path file = folder / "plan.dxf";
    const std::string varies = "*다양함*";
};

} // namespace

TEST_F(PropertiesBar, ShowsAndChangesWhatNewObjectsGet) {
    EXPECT_EQ(shown("LAYER"), "0");
    EXPECT_EQ(shown("COLOR"), "ByLayer");
    EXPECT_EQ(shown("PLOTSTYLE").substr(shown("PLOTSTYLE").size() - 5), "(off)")
        << "its plot styles follow colours";
    auto replies = runWell(choose("LAYER", "WALL") + choose("COLOR", "Red") + "{\"do\":\"undo\"}\n");
    EXPECT_EQ(variable(L"CLAYER"), "WALL");
    EXPECT_EQ(variable(L"CECOLOR"), "BYLAYER");
    EXPECT_EQ(replies[2]["step"], "색상 변경");
    EXPECT_EQ(shown("LAYER"), "WALL");
    EXPECT_EQ(shown("COLOR"), "ByLayer");
    runWell("{\"do\":\"redo\"}\n{\"do\":\"setvar\",\"name\":\"CLAYER\",\"value\":\"0\"}\n");
    EXPECT_EQ(shown("LAYER"), "0");
    EXPECT_EQ(shown("COLOR"), "Red");
}

TEST_F(PropertiesBar, ShowsAndChangesWhatSelectedObjectsHaveInCommon) {
    const std::string before = bytesOf(file);
    runWell(select("\"A1\",\"A2\""));
    EXPECT_EQ(shown("LAYER"), varies);
    EXPECT_EQ(shown("COLOR"), varies);
    EXPECT_THAT(shown("TEXTSTYLE"), HasSubstr("(off)")) << "no line has one";
    EXPECT_THAT(shown("TEXTHEIGHT"), HasSubstr("(off)"));
    const auto replies = runWell(choose("LAYER", "WALL"));
    EXPECT_EQ(shown("LAYER"), "WALL");
    EXPECT_EQ(variable(L"CLAYER"), "0");
    EXPECT_EQ(runWell("{\"do\":\"undo\"}\n")[0]["step"], "도면층 변경");
    EXPECT_EQ(shown("LAYER"), varies);
    const std::filesystem::path copy = folder / "copy.dxf";
    EXPECT_FALSE(session.save(copy));
    EXPECT_EQ(bytesOf(copy), before) << "one step";

    runWell(select("\"A4\""));
    EXPECT_EQ(shown("TEXTSTYLE"), "NOTES");
    EXPECT_EQ(shown("TEXTHEIGHT"), "3.5");
    runWell(select("\"A5\""));
    EXPECT_EQ(shown("TEXTSTYLE"), "STANDARD") << "it names none";
    runWell("{\"do\":\"setvar\",\"name\":\"PICKFIRST\",\"value\":0}\n");
    EXPECT_EQ(shown("TEXTSTYLE"), "STANDARD") << "nothing counts as selected";
    runWell("{\"do\":\"setvar\",\"name\":\"PICKFIRST\",\"value\":1}\n" + select(""));
    EXPECT_EQ(shown("COLOR"), "ByLayer");
}

TEST_F(PropertiesBar, TellsWhatIsRefusedAndShowsTheTruth) {
    auto replies = runWell(select("\"A1\",\"A3\"") + choose("COLOR", "Blue"));
    EXPECT_EQ(replies[1]["messages"].size(), 1U);
    EXPECT_EQ(shown("COLOR"), varies) << "the circle is on a locked layer";
    replies = runWell(select("\"A3\"") + choose("LAYER", "WALL"));
    EXPECT_EQ(replies[1]["messages"].size(), 1U);
    EXPECT_EQ(shown("LAYER"), "LOCK");
}

TEST_F(PropertiesBar, SelectColorOpensTheDialogAndCancelLeavesEverything) {
    const auto replies = runWell(choose("COLOR", "Select Color...") + onBar("\"do\":\"dialog\"") +
                                 "{\"do\":\"click\",\"control\":\"IDCANCEL\"}\n");
    EXPECT_EQ(replies[0]["modal"], "IDD_COLOR");
    EXPECT_EQ(replies[2]["modal"], nullptr);
    EXPECT_EQ(shown("COLOR"), "ByLayer");
    const auto refused = run(choose("COLOR", "Select Color...") + choose("LAYER", "WALL") +
                             "{\"do\":\"click\",\"control\":\"IDCANCEL\"}\n");
    EXPECT_EQ(refused[1]["ok"], false) << "a dialog is open above the bar";
    EXPECT_EQ(variable(L"CLAYER"), "0");
}

TEST_F(PropertiesBar, FollowsDrawingsComingAndGoing) {
    EXPECT_EQ(shown("LAYER"), "0");
    runWell(choose("LAYER", "WALL") + "{\"do\":\"new\"}\n");
    EXPECT_EQ(shown("LAYER"), "0");
    runWell("{\"do\":\"close\"}\n");
    EXPECT_EQ(shown("LAYER"), "WALL");
    // Closed while a refill is pending.
    runWell("{\"do\":\"setvar\",\"name\":\"CLAYER\",\"value\":\"LOCK\"}\n");
    toolkit.advance(10ms);
    runWell("{\"do\":\"close\"}\n");
    toolkit.advance(1000ms);
    EXPECT_EQ(shown("LAYER"), " (off)");
    EXPECT_TRUE(session.propertiesBar()->box(kx::controls::Property::layer).combo().GetCount() == 0);
    EXPECT_EQ(run(choose("LAYER", "0"))[0]["ok"], false);
}

TEST_F(PropertiesBar, IsRefilledOnceAfterAScript) {
    CComboBox& layers = session.propertiesBar()->box(kx::controls::Property::layer).combo();
    toolkit.advance(1000ms);
    session.host().commands()->beginActivity(kActiveScript);
    for (const char* layer : {"WALL", "LOCK", "WALL"}) {
        runWell(std::string("{\"do\":\"setvar\",\"name\":\"CLAYER\",\"value\":\"") + layer + "\"}\n");
        toolkit.advance(200ms);
        EXPECT_EQ(layers.GetWindowText(), L"0");
    }
    session.host().commands()->endActivity(kActiveScript);
    toolkit.advance(100ms);
    EXPECT_EQ(layers.GetWindowText(), L"WALL");
}

TEST_F(PropertiesBar, CanBeHiddenAndSpeaksTheLanguageInUse) {
    run("{\"do\":\"command\",\"name\":\"PROPERTIESBAR\"}\n");
    EXPECT_EQ(toolkit.active(), session.propertiesBar());
    runWell(onBar("\"do\":\"key\",\"key\":\"Escape\""));
    EXPECT_EQ(toolkit.active(), nullptr);
    EXPECT_TRUE(session.propertiesBar()->running());

    runWell("{\"do\":\"command\",\"name\":\"PROPERTIESBAR\",\"arguments\":\"off\"}\n");
    EXPECT_EQ(run(choose("LAYER", "WALL"))[0]["ok"], false);
    EXPECT_EQ(session.host().settings()->getInt(TavoSession::settingsSection, L"PropertiesBar"), 0);
    runWell("{\"do\":\"setvar\",\"name\":\"CLAYER\",\"value\":\"WALL\"}\n"
            "{\"do\":\"command\",\"name\":\"PROPERTIESBAR\",\"arguments\":\"on\"}\n");
    EXPECT_EQ(shown("LAYER"), "WALL");
    const auto wrong = run("{\"do\":\"command\",\"name\":\"PROPERTIESBAR\",\"arguments\":\"left\"}\n");
    EXPECT_EQ(wrong[0]["ended"]["result"], RTERROR);

    VORD_MSGFunction::AddFileBase(std::filesystem::path(KX_SOURCE_DIR) / "messages" / "kxgui");
    runWell("{\"do\":\"language\",\"name\":\"en\"}\n" + select("\"A1\",\"A2\""));
    EXPECT_EQ(shown("LAYER"), "*varies*");
    EXPECT_EQ(session.propertiesBar()->box(kx::controls::Property::layer).combo().toolTip(), L"Layer");
    VORD_MSGFunction::Reset();
}
