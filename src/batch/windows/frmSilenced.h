// Lists the silenced rules; each can be taken from the list, and its remarks are then shown again.
#pragma once

#include "batch/reminders.h"
#include "widgets/button.h"
#include "widgets/flexGrid.h"
#include "widgets/window.h"
#include <QLabel>

namespace batch {

class frmSilenced final : public widgets::Window {
    Q_OBJECT
public:
    // Shows the rules with the labels of the book. `reminders` must outlive the window.
    frmSilenced(Reminders &reminders, RuleBook book, QWidget *parent = nullptr);

    QLabel *emptyWords; // shown if no rule is silenced
    widgets::FlexGrid *grid;
    widgets::Button *takeBackButton;
    widgets::Button *quitButton;

private:
    void list();
    void takeBack();

    Reminders &m_reminders;
    RuleBook m_book;
};

} // namespace batch
