#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

class TavoCommandLine;

namespace tv::dwg {
class ExternalReferences;
}

// The drawings a drawing refers to, in words.

// The folders of a search path, parted by semicolons. "." alone stands for none, as nothing can't be typed.
std::vector<std::filesystem::path> foldersOf(std::wstring_view path);
// Reads all of them, those below too, and prints a line for each fault that was not told before, as far as
// there are not too many.
void tellReferenceFaults(tv::dwg::ExternalReferences& references, TavoCommandLine& line);
// All of them, each followed by those below it: name, how it is attached, path, and whether it is there. False
// when there are none.
bool listReferences(tv::dwg::ExternalReferences& references, TavoCommandLine& line);
