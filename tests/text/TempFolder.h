#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <string>
#include <string_view>

// A folder of its own for one test.
struct TempFolder {
    std::filesystem::path path;

    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "kxtextXXXXXX").native();
        if (!::mkdtemp(name.data())) ADD_FAILURE() << "no temporary folder";
        path = name;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    std::filesystem::path write(const std::string& name, std::string_view bytes) const {
        std::ofstream(path / name, std::ios::binary) << bytes;
        return path / name;
    }
    std::string read(const std::string& name) const {
        std::ifstream in(path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::size_t fileCount() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path), {}));
    }
};
