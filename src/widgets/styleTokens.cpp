#include "widgets/styleTokens.h"
#include <QFontMetrics>
#include <algorithm>
#include <cmath>

namespace widgets {

namespace {

// Relative luminance as defined by WCAG: 0 is black, 1 is white.
double relativeLuminance(const QColor &colour) {
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

struct RoleColour {
    QPalette::ColorRole role;
    Colour colour;
    Colour disabled;
};
constexpr auto roleColours = std::to_array<RoleColour>({
    {QPalette::Window, Colour::Window, Colour::Window},
    {QPalette::WindowText, Colour::Ink, Colour::FaintInk},
    {QPalette::Base, Colour::Base, Colour::Window},
    {QPalette::AlternateBase, Colour::Window, Colour::Window},
    {QPalette::Text, Colour::Ink, Colour::FaintInk},
    {QPalette::PlaceholderText, Colour::FaintInk, Colour::FaintInk},
    {QPalette::Button, Colour::Window, Colour::Window},
    {QPalette::ButtonText, Colour::Ink, Colour::FaintInk},
    {QPalette::BrightText, Colour::OnAccent, Colour::OnAccent},
    {QPalette::ToolTipBase, Colour::Base, Colour::Base},
    {QPalette::ToolTipText, Colour::Ink, Colour::Ink},
    {QPalette::Highlight, Colour::Selection, Colour::QuietTint},
    {QPalette::HighlightedText, Colour::Ink, Colour::FaintInk},
    {QPalette::Link, Colour::Accent, Colour::FaintInk},
    {QPalette::LinkVisited, Colour::Accent, Colour::FaintInk},
    {QPalette::Light, Colour::Base, Colour::Base},
    {QPalette::Midlight, Colour::QuietTint, Colour::QuietTint},
    {QPalette::Mid, Colour::Hairline, Colour::Hairline},
    {QPalette::Dark, Colour::Edge, Colour::Edge},
    {QPalette::Shadow, Colour::Edge, Colour::Edge},
});

} // namespace

Scheme schemeOf(const QPalette &palette) {
    constexpr int middle = 128;
    return palette.color(QPalette::Window).lightness() < middle ? Scheme::Dark : Scheme::Light;
}

QColor colour(Colour name, const QPalette &palette) {
    return QColor(colourOf(name, schemeOf(palette)));
}

QPalette schemePalette(Scheme scheme) {
    QPalette palette;
    for (const RoleColour &row : roleColours) {
        palette.setColor(QPalette::Active, row.role, colourOf(row.colour, scheme));
        palette.setColor(QPalette::Inactive, row.role, colourOf(row.colour, scheme));
        palette.setColor(QPalette::Disabled, row.role, colourOf(row.disabled, scheme));
    }
    return palette;
}

double contrast(const QColor &one, const QColor &other) {
    const double first = relativeLuminance(one), second = relativeLuminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

int space(Space name, const QFontMetrics &metrics) {
    constexpr double designHeight = 16;
    return std::max(qRound(int(name) * metrics.height() / designHeight), int(name) / 2);
}

} // namespace widgets
