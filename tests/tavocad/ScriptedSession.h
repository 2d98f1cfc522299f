#pragma once

#include "kxgui/frame/ModuleEntry.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/ReadFile.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "tavocad/TavoSession.h"
#include "tavocad/automation/AutomationServer.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

// A pipe whose two ends are in this process.
class MemoryChannel : public Channel {
  public:
    explicit MemoryChannel(std::string input) {
        m_lines.feed(input);
        m_lines.close();
    }
    State next(std::string& line) override { return m_lines.take(line); }
    bool send(std::string_view line) override {
        replies.push_back(nlohmann::ordered_json::parse(line));
        return true;
    }
    std::vector<nlohmann::ordered_json> replies;

  private:
    LineSplitter m_lines;
};

// The program without a window, driven by a script, with a folder of its own for files.
class ScriptedSession : public testing::Test {
  protected:
    ScriptedSession() {
        _Init_ZEL_CAD_CTRLdll();
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::temp_directory_path() /
                 ("tavocad-" + std::to_string(::getpid()) + "-" + test->test_suite_name() + "-" + test->name());
        std::filesystem::create_directories(folder);
    }
    ~ScriptedSession() override { std::filesystem::remove_all(folder); }

    // Runs the requests, one a line, to the end of the input and answers the replies.
    std::vector<nlohmann::ordered_json> run(std::string script) {
        MemoryChannel channel(std::move(script));
        FaceAbilities abilities;
        abilities.advance = [this](std::chrono::milliseconds by) { toolkit.advance(by); };
        exitCode = AutomationServer(session, toolkit, channel, abilities).run();
        return channel.replies;
    }
    // The same, every request but those at `refused` must be answered with ok.
    std::vector<nlohmann::ordered_json> runWell(std::string script) {
        auto replies = run(std::move(script));
        for (const auto& reply : replies)
            EXPECT_TRUE(reply["ok"].get<bool>()) << reply.dump();
        return replies;
    }

    static std::string bytesOf(const std::filesystem::path& file) {
        std::string bytes;
        EXPECT_FALSE(tv::readFile(file, bytes));
        return bytes;
    }
    // A new drawing of ours, saved in the folder.
    std::filesystem::path makeDrawing(const char* name, OdDb::DxfVersion version = OdDb::DxfVersion::kR2000) {
        const std::filesystem::path file = folder / name;
        EXPECT_FALSE(OdDbDatabase::create(version)->saveAs(file));
        return file;
    }
    static std::string quoted(const std::filesystem::path& path) {
        return nlohmann::json(path.string()).dump();
    }

    std::filesystem::path folder;
    tv::ui::HeadlessToolkit toolkit;
    TavoSession session;
    int exitCode = -1;
};
