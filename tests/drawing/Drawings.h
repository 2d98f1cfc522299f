#pragma once

#include "platform/drawing/OdDbDatabase.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

// What the tests of drawings share.
namespace drawings {

inline OdDbDatabasePtr openText(std::string bytes) {
    return OdDbDatabase::openBytes(std::move(bytes), "test.dxf").database;
}

// "0|SECTION|2|HEADER" to lines with that end.
inline std::string lines(std::string_view bars, std::string_view lineEnd = "\n") {
    std::string out;
    for (const char c : bars) {
        if (c == '|')
            out += lineEnd;
        else
            out += c;
    }
    return out + std::string(lineEnd);
}

inline std::vector<std::string> split(const std::string& bytes) {
    std::vector<std::string> out;
    std::istringstream in(bytes);
    for (std::string line; std::getline(in, line);)
        out.push_back(line);
    return out;
}

inline std::string slurp(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Drawings from real life, where the machine has some; empty elsewhere.
inline std::vector<std::filesystem::path> realDrawings() {
    const char* named = std::getenv("KX_DRAWINGS");
    const std::filesystem::path folder =
        named ? std::filesystem::path(named)
              : std::filesystem::path(KX_SOURCE_DIR).parent_path() / "shared" / "data";
    std::vector<std::filesystem::path> out;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored))
        if (entry.path().extension() == ".dxf") out.push_back(entry.path());
    return out;
}

} // namespace drawings
