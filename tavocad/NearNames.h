#pragma once

#include <string>
#include <string_view>
#include <vector>

// The candidates that read most like `name` (at most a third of its letters apart, letter case ignored),
// nearest first, at most `most`. Empty when none is near.
std::vector<std::wstring> nearNames(std::wstring_view name, const std::vector<std::wstring>& candidates,
                                    std::size_t most = 3);
// "a, b, c".
std::wstring joined(const std::vector<std::wstring>& names);
