// The report window: a long text that can be read, edited and saved. The caller sets the text and opens the window
// modally; closing it saves nothing.
#pragma once

#include "platform/host.h"
#include "widgets/button.h"
#include "widgets/textBox.h"
#include "widgets/window.h"
#include <array>

namespace proof {

class frmMessage : public widgets::Window {
    Q_OBJECT
public:
    explicit frmMessage(platform::Host &host, QWidget *parent = nullptr);

    // Line breaks in the text must be CR LF.
    void setText(const QString &text);

    widgets::TextBox *const messageText;
    const std::array<widgets::Button *, 2> cmdClick;

private:
    void save();

    platform::Host &m_host;
};

} // namespace proof
