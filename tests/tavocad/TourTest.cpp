#include "platform/text/ReadFile.h"
#include "tests/tavocad/HeaderDifference.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

class Tour : public testing::Test {
  protected:
    Tour() : folder(fs::temp_directory_path() / ("tavocad-tour-" + std::to_string(::getpid()))) {
        fs::create_directories(folder);
        fs::copy_file(fs::path(KX_SOURCE_DIR) / "samples" / "workshop.dxf", folder / "workshop.dxf",
                      fs::copy_options::overwrite_existing);
    }
    ~Tour() override { fs::remove_all(folder); }

    // Runs the real program on a scripted tour and answers what it wrote.
    std::string transcript(const std::string& face, const std::string& tour = "tour") {
        const std::string command =
            "cd '" + folder.string() +
            "' && QT_QPA_PLATFORM=offscreen '" TAVOCAD_PROGRAM "' --automation --language kr --face " + face +
            " < '" KX_SOURCE_DIR "/samples/" + tour + ".jsonl' > transcript." + face + " 2> errors." + face;
        EXPECT_EQ(std::system(command.c_str()), 0) << bytes("errors." + face);
        return bytes("transcript." + face);
    }
    std::string bytes(const std::string& name) {
        std::string bytes;
        const tv::Problem problem = tv::readFile(folder / name, bytes);
        EXPECT_FALSE(problem) << name;
        return bytes;
    }
    fs::path folder;
};

} // namespace

// The saved file differs from the opened one in the changed header lines only, and after undo not at all.
TEST_F(Tour, ChangesOnlyWhatItSays) {
    transcript("headless");
    EXPECT_THAT(changedVariables(bytes("workshop.dxf"), bytes("tour-changed.dxf")),
                ElementsAre(testing::Pair("$ANGBASE", "90.0"), testing::Pair("$ANGDIR", testing::_),
                            testing::Pair("$AUNITS", testing::_), testing::Pair("$AUPREC", testing::_),
                            testing::Pair("$INSUNITS", testing::_), testing::Pair("$LUNITS", testing::_),
                            testing::Pair("$LUPREC", testing::_)));
    EXPECT_EQ(bytes("workshop.dxf"), bytes("tour-undone.dxf"));
}

// Every sentence the program was made to say, and every write, goes without a request refused.
TEST_F(Tour, LayersAreWorkedThroughAndUndone) {
    const std::string said = transcript("headless", "layers");
    EXPECT_THAT(said, Not(HasSubstr("\"ok\":false")));
    EXPECT_EQ(bytes("workshop.dxf"), bytes("layers-undone.dxf"));
    const std::string changed = bytes("layers-changed.dxf");
    for (const char* there : {"ROOF", "Open ones", "Inside", "AcLyLayerGroup"})
        EXPECT_THAT(changed, HasSubstr(there));
}

#ifdef TAVOCAD_WINDOW
TEST_F(Tour, BothFacesGiveTheSameTranscript) {
    const std::string headless = transcript("headless");
    EXPECT_GT(headless.size(), 10000U);
    EXPECT_EQ(transcript("qt"), headless);
    const std::string layers = transcript("headless", "layers");
    EXPECT_GT(layers.size(), 10000U);
    EXPECT_EQ(transcript("qt", "layers"), layers);
}
#endif
