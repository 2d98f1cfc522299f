#include "tavocad/scene/TextLayout.h"

#include "tavocad/scene/Letters.h"

#include <algorithm>

namespace tv::scene {
namespace {

using namespace tv::dwg;

constexpr double lineStep = 5.0 / 3; // the usual distance of lines, in heights of capital letters

struct Line {
    std::vector<TextPiece> pieces; // placed from its start and baseline
    double width = 0, height = 0;
};

class Layout {
  public:
    explicit Layout(const MTextGeometry& text) : m_text(text) {}

    void add(const MTextRun& run) {
        const MTextFormat& format = *run.format;
        const double height = format.height.value_or(m_text.height) * format.heightFactor;
        switch (run.kind) {
        case MTextRun::kNewParagraph:
        case MTextRun::kNewColumn:
            newLine();
            break;
        case MTextRun::kTab:
            word(L"    ", format, height);
            break;
        case MTextRun::kStack:
            stack(run, format, height);
            break;
        case MTextRun::kText:
            words(run.text.view(), format, height);
        }
    }

    std::vector<TextPiece> take() {
        newLine();
        m_lines.pop_back();
        double total = 0;
        for (Line& line : m_lines) {
            if (line.height == 0) line.height = m_text.height;
            total += &line == &m_lines.front() ? line.height : line.height * lineStep;
        }
        const int cell = std::clamp(m_text.attachment, 1, 9) - 1;
        double y = cell < 3 ? 0 : cell < 6 ? total / 2 : total;
        const double room = m_text.width > 0 ? m_text.width : widest();
        const double left = cell % 3 == 0 ? 0 : cell % 3 == 1 ? -room / 2 : -room;
        std::vector<TextPiece> out;
        for (Line& line : m_lines) {
            y -= &line == &m_lines.front() ? line.height : line.height * lineStep;
            const double x = left + (room - line.width) * shareBefore(line, cell % 3);
            for (TextPiece& piece : line.pieces) {
                piece.x += x;
                piece.y += y;
                piece.line = static_cast<std::size_t>(&line - m_lines.data());
                out.push_back(std::move(piece));
            }
        }
        return out;
    }

  private:
    // How much of the free room stands before the line.
    static double shareBefore(const Line& line, int column) {
        if (!line.pieces.empty()) {
            switch (line.pieces.front().format->paragraph.alignment) {
            case MTextParagraph::kLeft:
            case MTextParagraph::kJustified:
            case MTextParagraph::kDistributed:
                return 0;
            case MTextParagraph::kCentered:
                return 0.5;
            case MTextParagraph::kRight:
                return 1;
            case MTextParagraph::kDefault:
                break;
            }
        }
        return column * 0.5;
    }

    double widest() const {
        double width = 0;
        for (const Line& line : m_lines)
            width = std::max(width, line.width);
        return width;
    }

    static bool standsAlone(wchar_t letter) { return letter >= 0x2E80 && letter <= 0xD7FF; }

    void words(std::wstring_view text, const MTextFormat& format, double height) {
        for (std::size_t first = 0; first < text.size();) {
            std::size_t past = first;
            while (past < text.size() && text[past] != L' ' && !standsAlone(text[past]))
                ++past;
            if (past < text.size()) ++past; // with the blank behind it
            word(text.substr(first, past - first), format, height);
            first = past;
        }
    }

    void word(std::wstring_view letters, const MTextFormat& format, double height) {
        const double scale = height * format.widthFactor.value_or(1);
        const bool blank = letters.ends_with(L' ');
        const double seen = widthOf(blank ? letters.substr(0, letters.size() - 1) : letters) * scale;
        const double width = widthOf(letters) * scale;
        Line* line = &lineWithRoomFor(seen);
        if (line->pieces.empty() || line->pieces.back().format != &format ||
            line->pieces.back().height != height || line->pieces.back().stacked)
            line->pieces.push_back({.format = &format, .x = line->width, .height = height});
        line->pieces.back().letters += letters;
        line->pieces.back().width += width;
        line->width += width;
        line->height = std::max(line->height, height);
    }

    // Its halves are smaller than the text around them, and so is the gap that a bar has between them.
    void stack(const MTextRun& run, const MTextFormat& format, double height) {
        if (run.stack == 0) return word(run.text.view(), format, height);
        const double half = height * 0.7, gap = height * 0.2, whole = 2 * half + gap;
        const double scale = half * format.widthFactor.value_or(1);
        const double upper = widthOf(run.text.view()) * scale, lower = widthOf(run.lower.view()) * scale;
        const bool slanting = run.stack == L'#', centered = run.stack == L'/';
        const double width = slanting ? upper + half / 2 + lower : std::max(upper, lower);
        Line& line = lineWithRoomFor(width);
        const double bottom = (height - whole) * std::clamp(format.alignment, 0, 2) / 2;
        const auto put = [&](const OdString& letters, double own, double x, double y) {
            if (!letters.isEmpty())
                line.pieces.push_back(
                    {letters.wstr(), &format, line.width + x, bottom + y, half, own, 0, true, {}});
        };
        put(run.text, upper, centered ? (width - upper) / 2 : 0, half + gap);
        put(run.lower, lower, slanting ? width - lower : centered ? (width - lower) / 2 : 0, 0);
        TextPiece bar{.format = &format, .x = line.width, .y = bottom + half + gap / 2, .stacked = true};
        if (slanting) {
            bar.x += upper;
            bar.y = bottom;
            bar.bar = {half / 2, whole};
        } else {
            bar.bar = {width, 0};
        }
        if (slanting || centered) line.pieces.push_back(std::move(bar));
        line.width += width;
        line.height = std::max(line.height, bottom + whole);
    }

    Line& lineWithRoomFor(double width) {
        const Line& line = m_lines.back();
        if (m_text.width > 0 && line.width + width > m_text.width && !line.pieces.empty()) newLine();
        return m_lines.back();
    }

    void newLine() {
        Line& line = m_lines.back();
        if (!line.pieces.empty() && !line.pieces.back().stacked && line.pieces.back().letters.ends_with(L' ')) {
            TextPiece& last = line.pieces.back();
            const double blank = widthOf(L" ") * last.height * last.format->widthFactor.value_or(1);
            last.letters.pop_back();
            last.width -= blank;
            line.width -= blank;
        }
        m_lines.emplace_back();
    }

    const MTextGeometry& m_text;
    std::vector<Line> m_lines{1};
};

} // namespace

std::vector<TextPiece> layOut(const MTextGeometry& text, const std::vector<MTextRun>& runs) {
    Layout layout(text);
    for (const MTextRun& run : runs)
        layout.add(run);
    return layout.take();
}

} // namespace tv::scene
