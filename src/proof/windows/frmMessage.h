// The report list: a long text that can be read, edited and saved. Whoever has a text to show sets it and opens the
// window modally; closing it saves nothing.
#pragma once

#include "platform/host.h"
#include "widgets/textBox.h"
#include "widgets/window.h"
#include <array>

namespace proof {

class frmMessage : public widgets::Window {
    Q_OBJECT
public:
    explicit frmMessage(platform::Host &host, QWidget *parent = nullptr);

    // Line breaks in the text are CR LF.
    void setText(const QString &text);

    widgets::TextBox *const messageText;
    const std::array<widgets::Button *, 2> cmdClick;

private:
    void save();

    platform::Host &m_host;
};

} // namespace proof
