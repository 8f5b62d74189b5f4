// Installs the style of the program and decides between light and dark: by the user's choice, else by the setting that
// the desktop reports, else by the palette of the desktop. All windows follow at once.
#pragma once

#include "platform/deskState.h"
#include "widgets/styleTokens.h"
#include <QObject>
#include <optional>

namespace widgets {

class DeskStyle;

class Appearance final : public QObject {
    Q_OBJECT
public:
    enum class Choice { AsDesktop, Light, Dark };

    // Requires the application object. Begins with the scheme of the last start, since the desktop answers later.
    // `state` must outlive the object.
    explicit Appearance(const platform::DeskState &state);

    Choice choice() const { return m_choice; }
    void choose(Choice choice); // remembered
    // Takes the setting that the desktop reports; std::nullopt: no preference.
    void takeDesktop(std::optional<bool> dark);

private:
    void apply();

    const platform::DeskState &m_state;
    DeskStyle *m_style;
    Choice m_choice;
    std::optional<Scheme> m_desktop;
};

} // namespace widgets
