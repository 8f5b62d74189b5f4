// The tokens of the program's look: colours, spaces, radius and sizes of type. All windows take them from here, and no
// other file names a colour, except the tables fixedColours.h and those of pictures.
//
// A palette decides between light and dark: colour() chooses by the lightness of its window colour, so that a widget
// with a palette of its own is painted to match.
#pragma once

#include <QColor>
#include <QPalette>
#include <array>
#include <utility>

namespace widgets {

enum class Scheme { Light, Dark };

enum class Colour {
    Frame,       // the background of the main window
    Window,      // the background of all other windows
    Base,        // the background of fields, lists and text
    Hover,       // a button or an entry below the pointer
    Pressed,     // a pressed or checked button
    Hairline,    // separates; carries no meaning
    Edge,        // the outline of a control
    Ink,         // text
    SecondInk,   // headings of columns, hints, counters
    FaintInk,    // disabled text, key hints
    Accent,      // focus, primary action, links
    AccentHover, // the primary action below the pointer
    AccentDown,  // the primary action while pressed
    OnAccent,    // text on the three
    Tint,        // the selected row of the list that has the focus
    QuietTint,   // the selected row of other lists, pills and keycaps
    Selection,   // selected text
    WarningInk,
    WarningTint,
    DoneInk,
    DoneTint,
    ErrorInk,
    ErrorTint,
};

struct ColourToken {
    Colour name;
    QRgb light;
    QRgb dark;
};
constexpr auto colourTokens = std::to_array<ColourToken>({
    {Colour::Frame, 0xFFEEF1F5, 0xFF16191D},       {Colour::Window, 0xFFF6F7F9, 0xFF1E2227},
    {Colour::Base, 0xFFFFFFFF, 0xFF171A1F},        {Colour::Hover, 0xFFEDF1F6, 0xFF2A3037},
    {Colour::Pressed, 0xFFE1E7EF, 0xFF323942},     {Colour::Hairline, 0xFFD5DAE1, 0xFF3A4048},
    {Colour::Edge, 0xFF78838F, 0xFF808A97},        {Colour::Ink, 0xFF1F2933, 0xFFE4E8ED},
    {Colour::SecondInk, 0xFF52606D, 0xFFAAB4C0},   {Colour::FaintInk, 0xFF5F6B78, 0xFF98A2AE},
    {Colour::Accent, 0xFF2F5FA8, 0xFF82B1F2},      {Colour::AccentHover, 0xFF274F8D, 0xFF9BC1F6},
    {Colour::AccentDown, 0xFF1F4277, 0xFFB5D1F9},  {Colour::OnAccent, 0xFFFFFFFF, 0xFF0F1621},
    {Colour::Tint, 0xFFE3ECF8, 0xFF24344B},        {Colour::QuietTint, 0xFFE9ECF0, 0xFF2A2F36},
    {Colour::Selection, 0xFFC4D9F5, 0xFF31527F},   {Colour::WarningInk, 0xFF9A3412, 0xFFFFB688},
    {Colour::WarningTint, 0xFFFFF4E5, 0xFF3A2717}, {Colour::DoneInk, 0xFF1B6E3C, 0xFF7FD0A0},
    {Colour::DoneTint, 0xFFE6F4EA, 0xFF193325},    {Colour::ErrorInk, 0xFFB3261E, 0xFFFF9E94},
    {Colour::ErrorTint, 0xFFFDECEA, 0xFF3F2020},
});

constexpr QRgb colourOf(Colour name, Scheme scheme) {
    const ColourToken &token = colourTokens[std::size_t(name)];
    return scheme == Scheme::Light ? token.light : token.dark;
}
constexpr bool inOrder() {
    for (std::size_t at = 0; at < colourTokens.size(); ++at)
        if (std::size_t(colourTokens[at].name) != at)
            return false;
    return true;
}
static_assert(inOrder() && colourTokens.size() == std::size_t(Colour::ErrorTint) + 1);

Scheme schemeOf(const QPalette &palette);
QColor colour(Colour name, const QPalette &palette);
// The palette of a scheme, for the whole program or for a widget that keeps its scheme.
QPalette schemePalette(Scheme scheme);

// A painted surface: its background, the text on it, its outline, and its surroundings.
enum class Surface {
    Page,
    FramePage,
    Field,
    LockedField,
    Button,
    HoveredButton,
    PressedButton,
    DisabledButton,
    Primary,
    HoveredPrimary,
    PressedPrimary,
    Row,
    SelectedRow,
    QuietRow,
    SelectedText,
    Heading,
    Entry,
    Tip,
    Fact,
    Warning,
    Done,
    Error,
};

struct SurfaceLook {
    Surface surface;
    Colour fill;
    Colour ink;
    Colour edge; // Hairline or the fill if the outline need not be visible
    Colour around;
};
// The style paints from this table, and a test computes the contrasts of all its rows.
constexpr auto surfaceLooks = std::to_array<SurfaceLook>({
    {Surface::Page, Colour::Window, Colour::Ink, Colour::Window, Colour::Window},
    {Surface::FramePage, Colour::Frame, Colour::Ink, Colour::Frame, Colour::Frame},
    {Surface::Field, Colour::Base, Colour::Ink, Colour::Edge, Colour::Window},
    {Surface::LockedField, Colour::Window, Colour::Ink, Colour::Hairline, Colour::Window},
    {Surface::Button, Colour::Base, Colour::Ink, Colour::Edge, Colour::Window},
    {Surface::HoveredButton, Colour::Hover, Colour::Ink, Colour::Edge, Colour::Window},
    {Surface::PressedButton, Colour::Pressed, Colour::Ink, Colour::Edge, Colour::Window},
    {Surface::DisabledButton, Colour::Window, Colour::FaintInk, Colour::Hairline, Colour::Window},
    {Surface::Primary, Colour::Accent, Colour::OnAccent, Colour::Accent, Colour::Window},
    {Surface::HoveredPrimary, Colour::AccentHover, Colour::OnAccent, Colour::AccentHover, Colour::Window},
    {Surface::PressedPrimary, Colour::AccentDown, Colour::OnAccent, Colour::AccentDown, Colour::Window},
    {Surface::Row, Colour::Base, Colour::Ink, Colour::Hairline, Colour::Base},
    {Surface::SelectedRow, Colour::Tint, Colour::Ink, Colour::Tint, Colour::Base},
    {Surface::QuietRow, Colour::QuietTint, Colour::Ink, Colour::QuietTint, Colour::Base},
    {Surface::SelectedText, Colour::Selection, Colour::Ink, Colour::Selection, Colour::Base},
    {Surface::Heading, Colour::Window, Colour::SecondInk, Colour::Hairline, Colour::Base},
    {Surface::Entry, Colour::Hover, Colour::Ink, Colour::Hover, Colour::Base},
    {Surface::Tip, Colour::Base, Colour::Ink, Colour::Edge, Colour::Window},
    {Surface::Fact, Colour::QuietTint, Colour::SecondInk, Colour::QuietTint, Colour::Window},
    {Surface::Warning, Colour::WarningTint, Colour::WarningInk, Colour::WarningTint, Colour::Window},
    {Surface::Done, Colour::DoneTint, Colour::DoneInk, Colour::DoneTint, Colour::Window},
    {Surface::Error, Colour::ErrorTint, Colour::ErrorInk, Colour::ErrorTint, Colour::Window},
});

// A text or a sign on a background that is not one of the surfaces.
struct InkPair {
    Colour ink;
    Colour fill;
    double least; // contrast
};
constexpr double textContrast = 4.5, edgeContrast = 3;
constexpr auto inkPairs = std::to_array<InkPair>({
    {Colour::SecondInk, Colour::Window, textContrast}, {Colour::SecondInk, Colour::Base, textContrast},
    {Colour::SecondInk, Colour::Frame, textContrast},  {Colour::SecondInk, Colour::Hover, textContrast},
    {Colour::FaintInk, Colour::Window, textContrast},  {Colour::FaintInk, Colour::Base, textContrast},
    {Colour::FaintInk, Colour::Tint, textContrast},    {Colour::FaintInk, Colour::QuietTint, textContrast},
    {Colour::Accent, Colour::Window, textContrast},    {Colour::Accent, Colour::Base, textContrast}, // links
    {Colour::Accent, Colour::Tint, textContrast},      {Colour::WarningInk, Colour::Window, textContrast},
    {Colour::WarningInk, Colour::Base, textContrast},  {Colour::DoneInk, Colour::Window, textContrast},
    {Colour::ErrorInk, Colour::Window, textContrast},  {Colour::Ink, Colour::Pressed, textContrast},
    {Colour::Edge, Colour::Window, edgeContrast},      {Colour::Edge, Colour::Frame, edgeContrast},
    {Colour::Accent, Colour::Frame, edgeContrast},     {Colour::Accent, Colour::Hover, edgeContrast}, // the focus ring
    {Colour::Accent, Colour::Pressed, edgeContrast},   {Colour::Accent, Colour::QuietTint, edgeContrast},
});

constexpr const SurfaceLook &look(Surface surface) {
    return surfaceLooks[std::size_t(surface)];
}

// Contrast of two colours as WCAG defines it: 1 for equal colours, 21 for black and white.
double contrast(const QColor &one, const QColor &other);

// Spaces, in pixels for a font of the design height; space() scales them to the height of a font.
enum class Space { Tight = 4, Small = 8, Medium = 12, Large = 16, Wide = 24 };
int space(Space name, const QFontMetrics &metrics);

constexpr int cornerRadius = 6;
constexpr int focusWidth = 2;
constexpr int accentBarWidth = 3;
constexpr double rowFactor = 1.7, lowRowFactor = 1.5; // of the height of a line; on low screens

// Sizes of type, relative to the desktop's font.
constexpr double sectionSize = 1.25, titleSize = 1.6;

} // namespace widgets
