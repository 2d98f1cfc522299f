#include "qt/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

namespace tv::qt {
namespace {

// Fusion's empty check boxes and radio buttons all but vanish on a dark window: they get an outline in the
// colour of placeholder texts, which is chosen to be seen on every background.
class OutlinedFusion : public QProxyStyle {
  public:
    OutlinedFusion() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element != PE_IndicatorCheckBox && element != PE_IndicatorRadioButton) return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(option->palette.color(QPalette::PlaceholderText), 1));
        const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        if (element == PE_IndicatorCheckBox)
            painter->drawRect(outline);
        else
            painter->drawEllipse(outline);
        painter->restore();
    }
};

struct Colors {
    QRgb window, base, alternate, button, text, disabledText, placeholder, highlight, highlightedText, link,
        visited, tip, tipText, light, midlight, mid, dark, shadow;
};

constexpr Colors lightColors{.window = 0xfff3f3f3,
                             .base = 0xffffffff,
                             .alternate = 0xfff5f7fa,
                             .button = 0xfff6f6f6,
                             .text = 0xff1b1b1b,
                             .disabledText = 0xff7d7d7d,
                             .placeholder = 0xff6b6b6b,
                             .highlight = 0xff1f5fbf,
                             .highlightedText = 0xffffffff,
                             .link = 0xff0b57d0,
                             .visited = 0xff6b3fa0,
                             .tip = 0xffffffe1,
                             .tipText = 0xff1b1b1b,
                             .light = 0xffffffff,
                             .midlight = 0xffe6e6e6,
                             .mid = 0xffb8b8b8,
                             .dark = 0xff9a9a9a,
                             .shadow = 0xff6a6a6a};

constexpr Colors darkColors{.window = 0xff26282b,
                            .base = 0xff383b40,
                            .alternate = 0xff3d4046,
                            .button = 0xff45494e,
                            .text = 0xffe8e8e8,
                            .disabledText = 0xff9e9e9e,
                            .placeholder = 0xffb4b4b4,
                            .highlight = 0xff2f65b8,
                            .highlightedText = 0xffffffff,
                            .link = 0xff7fb4ff,
                            .visited = 0xffc3a2ff,
                            .tip = 0xff3a3d41,
                            .tipText = 0xfff0f0f0,
                            .light = 0xff5a5e64,
                            .midlight = 0xff50545a,
                            .mid = 0xff606469,
                            .dark = 0xff17181a,
                            .shadow = 0xff000000};

QPalette paletteOf(const Colors& c) {
    QPalette palette;
    const auto set = [&](QPalette::ColorRole role, QRgb color) {
        palette.setColor(role, QColor::fromRgb(color));
    };
    set(QPalette::Window, c.window);
    set(QPalette::Base, c.base);
    set(QPalette::AlternateBase, c.alternate);
    set(QPalette::Button, c.button);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        set(role, c.text);
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(c.disabledText));
    }
    set(QPalette::BrightText, c.highlightedText);
    set(QPalette::PlaceholderText, c.placeholder);
    set(QPalette::Highlight, c.highlight);
    set(QPalette::HighlightedText, c.highlightedText);
    set(QPalette::Link, c.link);
    set(QPalette::LinkVisited, c.visited);
    set(QPalette::ToolTipBase, c.tip);
    set(QPalette::ToolTipText, c.tipText);
    set(QPalette::Light, c.light);
    set(QPalette::Midlight, c.midlight);
    set(QPalette::Mid, c.mid);
    set(QPalette::Dark, c.dark);
    set(QPalette::Shadow, c.shadow);
    // A selection in a disabled list: the disabled text must stay readable on it.
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor::fromRgb(c.midlight));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor::fromRgb(c.text));
    return palette;
}

// Asked before the first theme is applied, when the palette still is the desktop's.
bool systemIsDark() {
    static const bool dark = QApplication::palette().color(QPalette::Window).lightness() <
                             QApplication::palette().color(QPalette::WindowText).lightness();
    return dark;
}

} // namespace

QPalette themePalette(Theme theme) {
    const bool desktopDark = systemIsDark();
    const bool dark = theme == Theme::dark || (theme == Theme::system && desktopDark);
    return paletteOf(dark ? darkColors : lightColors);
}

void applyTheme(Theme theme) {
    const QPalette palette = themePalette(theme);
    if (!dynamic_cast<OutlinedFusion*>(QApplication::style())) QApplication::setStyle(new OutlinedFusion);
    QApplication::setPalette(palette);
    // Qt tells the widgets of a new palette only while QApplication::exec runs; a host may run loops of its
    // own.
    for (QWidget* widget : QApplication::allWidgets()) {
        QEvent changed(QEvent::ApplicationPaletteChange);
        QApplication::sendEvent(widget, &changed);
    }
}

} // namespace tv::qt
