#include "widgets/appearance.h"
#include "widgets/deskStyle.h"
#include <QApplication>
#include <QToolTip>

namespace widgets {

namespace {

// Some desktops set palettes for these classes, which would override the palette of the program.
constexpr auto classesWithPalettes = std::to_array<const char *>(
    {"QAbstractButton", "QToolButton", "QHeaderView", "QAbstractItemView", "QMenu", "QMenuBar", "QMessageBoxLabel",
     "QTabBar", "QLabel", "QGroupBox", "QLineEdit", "QTextEdit", "QCheckBox", "QRadioButton", "QComboBox"});

// As it is stored: 0 none, 1 light, 2 dark.
std::optional<Scheme> schemeOfKept(int kept) {
    return kept == 1 ? std::optional(Scheme::Light) : kept == 2 ? std::optional(Scheme::Dark) : std::nullopt;
}
int keptOf(std::optional<Scheme> scheme) {
    return !scheme ? 0 : *scheme == Scheme::Light ? 1 : 2;
}

} // namespace

Appearance::Appearance(const platform::DeskState &state)
    : m_state(state)
    , m_style(new DeskStyle)
    , m_choice(Choice(std::clamp(state.value(platform::kept::lookChoice), int(Choice::AsDesktop), int(Choice::Dark))))
    , m_desktop(schemeOfKept(state.value(platform::kept::lookOfDesktop))) {
    QApplication::setStyle(m_style); // which owns it
    apply();
}

void Appearance::choose(Choice choice) {
    m_choice = choice;
    m_state.keep(platform::kept::lookChoice, int(choice));
    apply();
}

void Appearance::takeDesktop(std::optional<bool> dark) {
    const auto scheme = dark ? std::optional(*dark ? Scheme::Dark : Scheme::Light) : std::nullopt;
    if (scheme == m_desktop)
        return;
    m_desktop = scheme;
    m_state.keep(platform::kept::lookOfDesktop, keptOf(scheme));
    apply();
}

void Appearance::apply() {
    m_style->choose(m_choice == Choice::AsDesktop
                        ? m_desktop
                        : std::optional(m_choice == Choice::Dark ? Scheme::Dark : Scheme::Light));
    QApplication::setPalette(QPalette()); // requests the palette from the style again
    const QPalette palette = schemePalette(schemeOf(QApplication::palette()));
    QToolTip::setPalette(palette);
    for (const char *name : classesWithPalettes)
        if (QApplication::palette(name) != QApplication::palette())
            QApplication::setPalette(palette, name);
}

} // namespace widgets
