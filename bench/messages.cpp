// Loading and looking up ten thousand texts, each beside what it is measured against:
// loading / reading the file's bytes, and one lookup / one find in an unordered_map of the same keys.
#include "bench/Ratio.h"
#include "platform/text/MessageManager.h"
#include "platform/text/ReadFile.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <random>
#include <string>
#include <unistd.h>
#include <unordered_map>
#include <vector>

namespace {

constexpr int keyCount = 10000;

struct Fixture {
    std::filesystem::path file;
    std::vector<std::string> keys; // in the order they are asked for
    std::unordered_map<std::string, std::wstring> map;

    Fixture() {
        file = std::filesystem::temp_directory_path() / ("kxmessages" + std::to_string(::getpid()) + "_kr.ini");
        std::ofstream out(file, std::ios::binary);
        for (int i = 0; i < keyCount; ++i) {
            keys.push_back("IDS_CAD_GUI_SOME_DIALOG_TEXT_" + std::to_string(i));
            map[keys.back()] = L"도면층 이름에 유효하지 않은 문자가 있습니다.";
            out << keys.back() << " = 도면층 이름에 유효하지 않은 문자가 있습니다.\n";
        }
        out.close();
        std::shuffle(keys.begin(), keys.end(), std::mt19937(1));
        VORD_MSGFunction::AddFile(file);
        VORD_MSGFunction::LoadFile();
    }
    ~Fixture() { std::filesystem::remove(file); }
};

Fixture& fixture() {
    static Fixture instance;
    return instance;
}

void readBytes(benchmark::State& state) {
    for (auto _ : state) {
        std::string bytes;
        benchmark::DoNotOptimize(tv::readFile(fixture().file, bytes));
        benchmark::DoNotOptimize(bytes.data());
    }
}

void load(benchmark::State& state) {
    static_cast<void>(fixture());
    for (auto _ : state)
        benchmark::DoNotOptimize(VORD_MSGFunction::LoadFile());
}

void find(benchmark::State& state) {
    const Fixture& given = fixture();
    for (auto _ : state)
        for (const std::string& key : given.keys)
            benchmark::DoNotOptimize(given.map.find(key)->second.c_str());
    state.SetItemsProcessed(state.iterations() * keyCount);
}

void lookUp(benchmark::State& state) {
    const Fixture& given = fixture();
    // The first look at a text makes it wide, which belongs to neither side.
    for (const std::string& key : given.keys)
        benchmark::DoNotOptimize(VORD_ResourceString(key.c_str(), L"-").c_str());
    for (auto _ : state)
        for (const std::string& key : given.keys)
            benchmark::DoNotOptimize(VORD_ResourceString(key.c_str(), L"-").c_str());
    state.SetItemsProcessed(state.iterations() * keyCount);
}

} // namespace

int main(int argc, char** argv) {
    // Texts are loaded when a program starts: both sides get their memory from the system, not from a heap that
    // the repetition before has warmed up.
    mallopt(M_MMAP_THRESHOLD, 64 * 1024);
    return bench::run(argc, argv,
                      {{"readBytes", readBytes}, {"load", load}, {"find", find}, {"lookUp", lookUp}},
                      {{"load", "readBytes", 10}, {"lookUp", "find", 2}});
}
