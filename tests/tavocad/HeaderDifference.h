#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <vector>

inline std::vector<std::string> lines(const std::string& bytes) {
    std::istringstream in(bytes);
    std::vector<std::string> out;
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r')) line.pop_back();
        out.push_back(line);
    }
    return out;
}

// The header variables on whose value lines two files of the same number of lines differ.
inline std::map<std::string, std::string> changedVariables(const std::string& before,
                                                           const std::string& after) {
    const auto a = lines(before), b = lines(after);
    EXPECT_EQ(a.size(), b.size());
    std::map<std::string, std::string> changed;
    std::string variable;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        if (a[i].starts_with("$")) variable = a[i];
        if (a[i] != b[i]) changed[variable] = b[i];
    }
    return changed;
}
