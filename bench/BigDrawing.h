#pragma once

#include <cstddef>
#include <string>

namespace bench {

// A text drawing of R2018 with that many lines, circles and polylines spread over that many layers; about 100
// bytes an entity, so that a million are about 100 MB.
inline std::string bigDrawing(std::size_t entities, std::size_t layers) {
    std::string out;
    out.reserve(entities * 112 + layers * 160 + 4096);
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::size_t handle = 0x100;
    const auto hex = [](std::size_t value) {
        std::string text;
        for (; value; value /= 16)
            text.insert(text.begin(), kDigits[value % 16]);
        return text;
    };
    const auto tag = [&](const char* code, const std::string& value) {
        out += code;
        out += "\r\n";
        out += value;
        out += "\r\n";
    };
    tag("  0", "SECTION");
    tag("  2", "HEADER");
    tag("  9", "$ACADVER");
    tag("  1", "AC1032");
    tag("  9", "$LUNITS");
    tag(" 70", "     2");
    tag("  9", "$HANDSEED");
    tag("  5", "FFFFFFF");
    tag("  0", "ENDSEC");
    tag("  0", "SECTION");
    tag("  2", "TABLES");
    tag("  0", "TABLE");
    tag("  2", "LAYER");
    tag("  5", "2");
    tag("100", "AcDbSymbolTable");
    tag(" 70", std::to_string(layers));
    for (std::size_t i = 0; i < layers; ++i) {
        tag("  0", "LAYER");
        tag("  5", hex(handle++));
        tag("330", "2");
        tag("100", "AcDbSymbolTableRecord");
        tag("100", "AcDbLayerTableRecord");
        tag("  2", i == 0 ? "0" : "Layer " + std::to_string(i));
        tag(" 70", "     0");
        tag(" 62", std::to_string(1 + i % 255));
        tag("  6", "Continuous");
    }
    tag("  0", "ENDTAB");
    tag("  0", "ENDSEC");
    tag("  0", "SECTION");
    tag("  2", "ENTITIES");
    for (std::size_t i = 0; i < entities; ++i) {
        const std::size_t layer = i % layers;
        const bool line = i % 3 != 0;
        tag("  0", line ? "LINE" : "CIRCLE");
        tag("  5", hex(handle++));
        tag("100", "AcDbEntity");
        tag("  8", layer == 0 ? "0" : "Layer " + std::to_string(layer));
        tag("100", line ? "AcDbLine" : "AcDbCircle");
        tag(" 10", std::to_string(i % 1000) + ".5");
        tag(" 20", std::to_string(i / 1000) + ".25");
        if (line) {
            tag(" 11", std::to_string(i % 997) + ".0");
            tag(" 21", "12.75");
        } else {
            tag(" 40", "2.5");
        }
    }
    tag("  0", "ENDSEC");
    tag("  0", "EOF");
    return out;
}

} // namespace bench
