// The help about the format: a fixed text.
#pragma once

#include "widgets/window.h"
#include <QTextEdit>

namespace app {

class frmHelp final : public widgets::Window {
    Q_OBJECT
public:
    explicit frmHelp(QWidget *parent = nullptr);

    QTextEdit *RichTextBox1;
};

} // namespace app
