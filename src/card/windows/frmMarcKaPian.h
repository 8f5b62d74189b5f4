// Shows one record in standard form or as a catalogue card. Set marcRecord and showMode and open the window modally; it
// shows the view when it opens.
#pragma once

#include "card/windows/cardFace.h"
#include "marc/rawRecord.h"
#include "platform/host.h"
#include "widgets/button.h"
#include "widgets/textBox.h"
#include "widgets/window.h"
#include <QLabel>
#include <array>

namespace card {

class frmMarcKaPian : public widgets::Window {
    Q_OBJECT
public:
    explicit frmMarcKaPian(platform::Host &host, QWidget *parent = nullptr);

    marc::RawRecord marcRecord;
    QString showMode;      // "标准" opens the standard view, any other text the card
    marc::RecordStep step; // if set, the left and right arrow keys page through the records

    QLabel *const Label2;
    widgets::TextBox *const Text1;
    const std::array<widgets::Button *, 3> cmdclick;

protected:
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void clicked(const widgets::Button *button);
    void page(int by);
    void showStandard();
    void showCard();

    platform::Host &m_host;
    CardFace *m_face;
    QString lastButton; // the view button last pressed
    bool m_standard = false;
};

} // namespace card
