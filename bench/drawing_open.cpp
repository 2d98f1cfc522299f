// Opening a big drawing against reading and splitting its lines, against splitting them into group codes and
// values, and against a reader built on dxflib that keeps the entities; how it grows with entities and layers;
// its peak memory against the file's size; saving it after one edit against copying the file. Prints the ratios
// and fails when one is above its limit. Usage: bench_drawing_open [entities [layers]]

#include "bench/BigDrawing.h"
#include "bench/KeepingReader.h"
#include "bench/Report.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/text/AtomicFile.h"
#include "platform/text/ReadFile.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Something the optimiser can't see through takes every result.
volatile std::uint64_t g_result;

void readLines(const std::filesystem::path& file) {
    std::string bytes;
    if (tv::readFile(file, bytes)) std::abort();
    std::uint64_t lines = 0;
    for (const char* p = bytes.data(); p; ++lines) {
        p = static_cast<const char*>(
            std::memchr(p, '\n', static_cast<std::size_t>(bytes.data() + bytes.size() - p)));
        if (p) ++p;
    }
    g_result = lines;
}

void splitTags(const std::filesystem::path& file) {
    std::string bytes;
    if (tv::readFile(file, bytes)) std::abort();
    std::uint64_t sum = 0;
    const char* p = bytes.data();
    const char* const end = p + bytes.size();
    const auto line = [&] {
        const char* stop = static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
        if (!stop) stop = end;
        const char* const start = p;
        p = stop == end ? end : stop + 1;
        if (stop != start && stop[-1] == '\r') --stop;
        return std::string_view(start, static_cast<std::size_t>(stop - start));
    };
    while (p != end) {
        std::string_view code = line();
        while (!code.empty() && code.front() == ' ')
            code.remove_prefix(1);
        int number = 0;
        std::from_chars(code.data(), code.data() + code.size(), number);
        sum += static_cast<std::uint64_t>(number) + line().size();
    }
    g_result = sum;
}

void open(const std::filesystem::path& file) {
    const auto opened = OdDbDatabase::open(file);
    if (!opened.database || opened.database->damaged()) std::abort();
    g_result = opened.database->getOdDbObjectId(0x100).record(); // any record can be asked for
}

struct Cost {
    double seconds; // of the processor, so that what else the machine does counts little
    double memory;  // peak, resident, in bytes
};

// What a child process takes that does only this: each starts with the same untouched heap.
template <class Work>
Cost costInChild(Work&& work) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (status != 0) std::abort();
    const auto time = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
    };
    return {time(usage.ru_utime) + time(usage.ru_stime), static_cast<double>(usage.ru_maxrss) * 1024};
}

void plainCopy(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::string bytes;
    if (tv::readFile(from, bytes)) std::abort();
    const int fd = ::open(to.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n <= 0) std::abort();
        done += static_cast<std::size_t>(n);
    }
    ::fsync(fd);
    ::close(fd);
}

} // namespace

int main(int argc, char** argv) {
    bench::Report report;
    const std::size_t entities = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 1000000;
    const std::size_t layers = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 10000;
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("drawing_open." + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    const std::filesystem::path file = folder / "big.dxf";
    const std::filesystem::path tenth = folder / "tenth.dxf";
    const std::filesystem::path fewLayers = folder / "few_layers.dxf";
    // Made in a child, so that its memory counts for nobody.
    costInChild([&] {
        if (tv::writeFileAtomically(file, bench::bigDrawing(entities, layers))) std::abort();
        if (tv::writeFileAtomically(tenth, bench::bigDrawing(entities / 10, layers))) std::abort();
        if (tv::writeFileAtomically(fewLayers, bench::bigDrawing(entities, layers / 10 + 1))) std::abort();
    });
    const auto size = static_cast<double>(std::filesystem::file_size(file));
    std::printf("%zu entities, %zu layers, %.1f MB\n", entities, layers, size / 1e6);

    const Cost idle = costInChild([] {});
    double memory = 0;
    double reading = 1e9;
    double splitting = 1e9;
    double opening = 1e9;
    double openingTenth = 1e9;
    double openingFewLayers = 1e9;
    double keeping = 1e9;
    const auto cost = [&](auto&& work, double& best) {
        const Cost taken = costInChild(work);
        best = std::min(best, taken.seconds - idle.seconds);
        return taken.memory - idle.memory;
    };
    for (int i = 0; i < 5; ++i) { // in turns, the best of each
        cost([&] { readLines(file); }, reading);
        cost([&] { splitTags(file); }, splitting);
        memory = std::max(memory, cost([&] { open(file); }, opening));
        cost([&] { open(tenth); }, openingTenth);
        cost([&] { open(fewLayers); }, openingFewLayers);
    }
    for (int i = 0; i < 2; ++i)
        cost(
            [&] {
                const auto kept = bench::readAndKeepWithDxflib(file);
                if (kept && *kept < entities) std::abort();
                g_result = kept.value_or(0);
            },
            keeping);
    const bool compared = keeping > opening / 10; // a program built without dxflib does nothing there
    report.ratio("peak memory of opening / size of the file", memory / size, 2);
    std::printf("reading and counting lines %.3f s, splitting tags %.3f s, opening %.3f s\n", reading,
                splitting, opening);
    report.ratio("opening / reading and counting the lines", opening / reading, 4);
    report.ratio("opening / splitting into group codes and values", opening / splitting, 3);
    report.ratio("opening / opening a tenth of the entities", opening / openingTenth, 12);
    report.ratio("opening / opening with a tenth of the layers", opening / openingFewLayers, 12);
    if (compared)
        report.ratio("opening / a reader on dxflib that keeps the entities", opening / keeping, 1.0 / 8);
    else
        std::puts("built without dxflib: not compared with it");

    const auto database = OdDbDatabase::open(file).database;
    const auto layer = database->layers()->first().open<OdDbLayerTableRecord>(OdDb::kForWrite);
    layer->setIsLocked(true);
    double copying = 1e9;
    double saving = 1e9;
    for (int i = 0; i < 3; ++i) {
        copying = std::min(copying, bench::seconds([&] { plainCopy(file, folder / "copy.dxf"); }));
        saving = std::min(saving, bench::seconds([&] {
                              if (database->saveAs(folder / "saved.dxf")) std::abort();
                          }));
    }
    report.ratio("saving after one edit / copying with sync", saving / copying, 3);

    const auto edit = [&] {
        const OdDbUndoScope step(*database, L"LAYER");
        database->layers()->forEach([](OdDbObjectId id) {
            const auto record = id.open<OdDbLayerTableRecord>(OdDb::kForWrite);
            record->setIsFrozen(!record->isFrozen());
        });
    };
    double editing = 1e9;
    double undoing = 1e9;
    for (int i = 0; i < 3; ++i) {
        editing = std::min(editing, bench::seconds(edit));
        undoing = std::min(undoing, bench::seconds([&] { database->undo(); }));
    }
    report.ratio("undo of an edit of all layers / that edit", undoing / editing, 1);

    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return report.exitCode();
}
