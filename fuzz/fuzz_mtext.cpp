// Any text as the contents of a multiline text: the runs lie one behind the other inside of it, plain text goes
// there and back, and replacing a stretch of it changes nothing else that can be read.

#include "fuzz/Require.h"
#include "platform/drawing/entities/MTextRuns.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const std::wstring contents =
        tv::text::fromUtf8(std::string_view(reinterpret_cast<const char*>(data) + 2, size - 2));
    const auto runs = tv::dwg::mtextRuns(contents);
    std::size_t done = 0;
    bool stacks = false;
    for (const tv::dwg::MTextRun& run : runs) {
        require(run.format != nullptr, "a run without a format");
        require(run.begin >= done && run.end >= run.begin && run.end <= contents.size(), "runs overlap");
        done = run.end;
        stacks |= run.kind == tv::dwg::MTextRun::kStack;
    }
    const std::wstring plain(tv::dwg::plainText(runs).view());
    require(tv::dwg::plainText(tv::dwg::contentsOf(plain).view()).view() == plain,
            "plain text doesn't come back");

    const std::size_t begin = std::min<std::size_t>(data[0], plain.size());
    const std::size_t end = std::min<std::size_t>(begin + data[1], plain.size());
    const std::wstring_view text = L"a\\b {c}\n100%% %%c \\U+0041";
    const std::wstring changed(tv::dwg::replaceInContents(contents, begin, end, text).view());
    std::wstring expected = plain;
    expected.replace(begin, end - begin, text);
    if (!stacks)
        require(tv::dwg::plainText(changed).view() == expected, "a replacement changed something else");
    return 0;
}
