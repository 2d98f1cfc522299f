#include "tavocad/Options.h"
#include "platform/drawing/entities/EntityProperties.h"
#include "platform/text/MessageManager.h"
#include "tavocad/NearNames.h"
#include "tavocad/PropertyWords.h"

#include <gmock/gmock.h>

#include <vector>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

// What is said to these words, in English; empty when they are taken.
std::string refusal(std::vector<const char*> words, Options* understood = nullptr) {
    words.insert(words.begin(), {"tavocad", "--messages", KX_SOURCE_DIR "/messages", "--language", "en"});
    Options options;
    testing::internal::CaptureStderr();
    const auto code = parseOptions(static_cast<int>(words.size()), words.data(), true, options);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(code.has_value(), !said.empty());
    VORD_MSGFunction::SetCurrentLanguageId(1042); // the other tests' language
    VORD_MSGFunction::LoadFile();
    if (understood) *understood = options;
    return said;
}

} // namespace

// Each wrong word is one sentence of ours, in the language asked for, with what would be right.
TEST(Options, RefusalsAreSentencesInTheLanguageAskedFor) {
    EXPECT_THAT(refusal({"--fase", "qt"}), HasSubstr("Similar options: --face"));
    EXPECT_THAT(refusal({"--xyzzyx"}), HasSubstr("--help"));
    EXPECT_THAT(refusal({"--face", "blue"}), HasSubstr("Possible values: headless, qt"));
    EXPECT_THAT(refusal({"--theme", "pink"}), HasSubstr("light, dark, system"));
    EXPECT_THAT(refusal({"--theme"}), HasSubstr("--theme needs"));
    EXPECT_THAT(refusal({"a.dxf", "b.dxf"}), HasSubstr("\"b.dxf\" is one too many"));
    EXPECT_THAT(refusal({"--screenshots", "no/such"}), HasSubstr("does not exist"));
    EXPECT_THAT(refusal({"--references", "/", "--references", "no/such"}), HasSubstr("\"no/such\""));
    EXPECT_THAT(refusal({"--face", "headless"}), HasSubstr("--automation"));
    Options options;
    EXPECT_THAT(refusal({"--face", "headless", "--automation", "--references", "/", "--references", "/tmp",
                         "a.dxf", "--theme", "dark"},
                        &options),
                IsEmpty());
    EXPECT_EQ(options.drawing, "a.dxf");
    EXPECT_EQ(options.theme, ThemeChoice::dark);
    EXPECT_TRUE(options.automation);
    EXPECT_THAT(options.references, ElementsAre("/", "/tmp"));
}

TEST(NearNames, OnlyWhatIsNear) {
    const std::vector<std::wstring> names{L"UNITS", L"UNDO", L"SELECT", L"SELECTSIMILARMODE", L"U", L"ZOOM"};
    EXPECT_THAT(nearNames(L"UNIST", names), ElementsAre(L"UNITS")) << "two letters swapped are one mistake";
    EXPECT_THAT(nearNames(L"selekt", names), ElementsAre(L"SELECT"));
    EXPECT_THAT(nearNames(L"xyz", names), IsEmpty());
    EXPECT_THAT(nearNames(std::wstring(100000, L'x'), names), IsEmpty());
}

// Every property and choice has words of its own in the language of the program.
TEST(PropertyWords, KnowAllNames) {
    for (const tv::dwg::EntityKind& kind : tv::dwg::entityKinds())
        for (const auto& part : {kind.properties, kind.more})
            for (const tv::dwg::EntityProperty& property : part) {
                if (property.variable) continue;
                EXPECT_NE(propertyWord(property.name), OdString(property.name));
                for (const tv::dwg::PropertyChoice& choice : property.choices)
                    EXPECT_NE(propertyWord(choice.name), OdString(choice.name));
            }
    EXPECT_EQ(propertyWord(L"StartX"), OdString(L"시작점 X"));
    EXPECT_EQ(propertyWord(L"Other things"), OdString(L"Other things"));
}
