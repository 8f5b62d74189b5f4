// Moving between the records of the list: what is done when a row of it stops being current and another one becomes so,
// by the user's hand in the list or by the two buttons.
#pragma once

#include "platform/host.h"

namespace workspace {

class frmDaoru;

class RecordMoving {
public:
    RecordMoving(frmDaoru &form, platform::Host &host);

    void clickStep();
    void keyStep(int key);
    void enterStep();
    void leaveStep();
    void step(int by); // -1 and 1: the buttons

private:
    // Asks whether to keep the edits and builds the record; nothing where they are not to be kept. Tells a failure.
    QString rebuiltIfWanted();
    void markCurrent();

    frmDaoru &m_form;
    platform::Host &m_host;
};

} // namespace workspace
