#include "widgets/appearance.h"
#include "widgets/deskStyle.h"
#include <QApplication>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

constexpr QLatin1StringView choiceKey("look/choice");
constexpr QLatin1StringView desktopKey("look/desktop");

// Some desktops set palettes for these classes, which would win over the palette of the program.
constexpr auto classesWithPalettes = std::to_array<const char *>(
    {"QAbstractButton", "QToolButton", "QHeaderView", "QAbstractItemView", "QMenu", "QMenuBar", "QMessageBoxLabel",
     "QTabBar", "QLabel", "QGroupBox", "QLineEdit", "QTextEdit", "QCheckBox", "QRadioButton", "QComboBox"});

std::optional<Scheme> schemeOfKept(const QVariant &value) {
    return value.isValid() ? std::optional(value.toBool() ? Scheme::Dark : Scheme::Light) : std::nullopt;
}

} // namespace

Appearance::Appearance(const platform::DeskState &state)
    : m_state(state)
    , m_style(new DeskStyle)
    , m_choice(Choice(std::clamp(state.read(choiceKey).toInt(), int(Choice::AsDesktop), int(Choice::Dark))))
    , m_desktop(schemeOfKept(state.read(desktopKey))) {
    QApplication::setStyle(m_style); // which owns it
    apply();
}

void Appearance::choose(Choice choice) {
    m_choice = choice;
    m_state.keep(choiceKey, int(choice));
    apply();
}

void Appearance::takeDesktop(std::optional<bool> dark) {
    const auto scheme = dark ? std::optional(*dark ? Scheme::Dark : Scheme::Light) : std::nullopt;
    if (scheme == m_desktop)
        return;
    m_desktop = scheme;
    m_state.keep(desktopKey, dark ? QVariant(*dark) : QVariant());
    apply();
}

void Appearance::apply() {
    m_style->choose(m_choice == Choice::AsDesktop
                        ? m_desktop
                        : std::optional(m_choice == Choice::Dark ? Scheme::Dark : Scheme::Light));
    QApplication::setPalette(QPalette()); // asks the style again
    const QPalette palette = schemePalette(schemeOf(QApplication::palette()));
    QToolTip::setPalette(palette);
    for (const char *name : classesWithPalettes)
        if (QApplication::palette(name) != QApplication::palette())
            QApplication::setPalette(palette, name);
}

} // namespace widgets
