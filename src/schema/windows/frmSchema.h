// Shows the schema in force and lets the user choose another file, return to the one in the program's folder, and
// switch single checks off. Every choice takes effect and is kept at once; a file that is refused changes nothing.
#pragma once

#include "platform/host.h"
#include "schema/schemaChoice.h"
#include "widgets/button.h"
#include "widgets/window.h"

class QLabel;
class QListWidget;

namespace widgets {
class SelectingEdit;
class TextBox;
} // namespace widgets

namespace schema {

class frmSchema final : public widgets::Window {
    Q_OBJECT
public:
    // `inForce` must outlive the window.
    frmSchema(platform::Host &host, SchemaInForce &inForce, QWidget *parent = nullptr);

    widgets::SelectingEdit *fileText; // path of the schema in force
    widgets::Button *chooseButton;
    widgets::Button *shippedButton; // disabled while the shipped file is chosen
    QLabel *facts;
    QLabel *complaint;   // why the chosen file is not in force; hidden if it is
    QListWidget *checks; // one item with a tick per check
    widgets::Button *allButton;
    QLabel *ignoredLabel;
    widgets::TextBox *ignoredText; // hidden if nothing is ignored
    widgets::Button *closeButton;

Q_SIGNALS:
    void changed(); // another schema is in force, or other checks are enabled

private:
    void layOut();
    void listChecks();
    void showSchema();
    void choose();
    void take(const QString &path);
    void tickAll();
    void takeTicks();

    platform::Host &m_host;
    SchemaInForce &m_inForce;
};

} // namespace schema
