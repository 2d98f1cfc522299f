#include "platform/host/sysvars/SysvarDescriptions.h"

#include "platform/text/MessageManager.h"
#include "platform/text/Unicode.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>

using namespace tv::host;

namespace {

class SysvarDescriptions : public testing::Test {
  protected:
    SysvarDescriptions() {
        VORD_MSGFunction::Reset();
        VORD_MSGFunction::AddFileBase(std::filesystem::path(KX_SOURCE_DIR) / "messages" / "kxgui");
    }
    ~SysvarDescriptions() override { VORD_MSGFunction::Reset(); }

    void speak(std::uint16_t language) {
        VORD_MSGFunction::SetCurrentLanguageId(language);
        ASSERT_TRUE(VORD_MSGFunction::LoadFile());
    }
};

// Each variable has one that fits a line of a list, is translated and can't be mistaken for another variable's.
TEST_F(SysvarDescriptions, EveryVariableHasOneInEveryLanguage) {
    std::map<std::wstring, std::set<std::wstring>> languages;
    for (const std::uint16_t language : {1042, 1033, 1041, 1049, 2052}) {
        speak(language);
        std::set<std::wstring> texts;
        for (const SysvarInfo* info : sysvarTable()) {
            const std::wstring text = sysvarDescription(info->name).wstr();
            const std::string where = std::to_string(language) + " " + tv::text::toUtf8(info->name);
            EXPECT_FALSE(text.empty()) << where << " has none in platform/host/sysvars/*Descriptions.cpp";
            EXPECT_LE(text.size(), 90U) << where;
            EXPECT_TRUE(texts.insert(text).second) << where << " reads like another variable";
            languages[info->name].insert(text);
        }
    }
    for (const auto& [name, texts] : languages)
        EXPECT_EQ(texts.size(), 5U) << tv::text::toUtf8(name);
    EXPECT_EQ(sysvarDescriptions().size(), sysvarTable().size()) << "one is for no variable, or there twice";
    EXPECT_EQ(sysvarDescription(L"clayer"), sysvarDescription(L"CLAYER"));
    EXPECT_TRUE(sysvarDescription(L"NOSUCH").view().empty());
    EXPECT_TRUE(sysvarDescription(L"HOME_HEADER").view().empty());
}

TEST_F(SysvarDescriptions, SaysWhereAValueLivesAndWhatItMayBe) {
    speak(1033);
    const auto range = [](const wchar_t* name) { return sysvarRangeText(*findSysvar(name)).wstr(); };
    EXPECT_EQ(range(L"LUPREC"), L"0 \u2013 8");
    EXPECT_EQ(range(L"TIMEZONE"), L"-12000 \u2013 13000");
    EXPECT_EQ(range(L"LATITUDE"), L"-90 \u2013 90");
    EXPECT_EQ(range(L"SURFTYPE"), L"5, 6, 8");
    EXPECT_EQ(range(L"LTSCALE"), L"> 0");
    EXPECT_EQ(range(L"FILLETRAD"), L"\u2265 0");
    EXPECT_EQ(range(L"PROJECTNAME"), L"a text");
    EXPECT_EQ(range(L"CLAYER"), L"the name of a layer");
    EXPECT_NE(range(L"CECOLOR"), range(L"BKGCOLOR")) << "a header takes no true colour, a profile does";
    // What is read here can be typed: both ends lie inside 5 to 90 degrees.
    EXPECT_EQ(range(L"DIMJOGANG"), L"0.0873 \u2013 1.5707");

    std::set<std::wstring> homes;
    for (const SysvarInfo* info : sysvarTable()) {
        const OdString home = sysvarHomeText(info->home);
        EXPECT_FALSE(home.view().empty()) << tv::text::toUtf8(info->name);
        homes.insert(home.wstr());
    }
    EXPECT_EQ(homes.size(), 8U) << "different homes read alike";
}

} // namespace
