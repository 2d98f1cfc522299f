#pragma once

#include "tavocad/scene/Scene.h"
#include "tavocad/window/QtText.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>

namespace tv::scene {

inline constexpr int designSize = 64; // pixels of the font that is scaled to a text's height

// A font at its design size.
struct DesignFont {
    QFont font;
    QFontMetricsF metrics{QFont()};
};

// The style's typeface where this machine has it; font files made for pens stand for none.
inline DesignFont designFont(const Font* wanted, const QFont& usual) {
    QFont font = usual;
    if (wanted) {
        if (!wanted->typeface.empty() && QFontDatabase::hasFamily(toQt(wanted->typeface)))
            font.setFamily(toQt(wanted->typeface));
        font.setBold(wanted->bold);
        font.setItalic(wanted->italic);
    }
    font.setPixelSize(designSize);
    return {font, QFontMetricsF(font)};
}

} // namespace tv::scene
