#pragma once

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/entities/MTextRuns.h"

#include <string>
#include <vector>

namespace tv::scene {

// A stretch of one line of multiline text, formatted alike. Lengths are drawing units.
struct TextPiece {
    std::wstring letters{};
    const tv::dwg::MTextFormat* format = nullptr; // lives as long as the runs it was laid out from
    double x = 0, y = 0;                          // of its baseline's start, from the text's point
    double height = 0;                            // of capital letters
    double width = 0;
    std::size_t line = 0; // which one it is on
    bool stacked = false; // a part of a stack
    OdGeVector2d bar{};   // of a piece without letters: the line it is, from its place on
};

// Stacks stand where their halves and the bar between them do, as the text is aligned to its line.
// Breaks the text into lines no wider than it says, as far as blanks and letters that stand for words allow,
// and sets them by its attachment and the paragraphs' alignment.
std::vector<TextPiece> layOut(const tv::dwg::MTextGeometry& text, const std::vector<tv::dwg::MTextRun>& runs);

} // namespace tv::scene
