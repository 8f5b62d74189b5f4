// A label that leads out of the program: underlined while the mouse is over it or the keyboard on it, clicked by mouse,
// Enter or the space bar.
#pragma once

#include "platform/host.h"
#include <QLabel>

namespace app {

class LinkLabel final : public QLabel {
    Q_OBJECT
public:
    LinkLabel(const QString &objectName, const QString &text, const QString &accessibleName);

Q_SIGNALS:
    void clicked();

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void underline(bool on);
};

// The two links of a notice, made and wired: the maker's web address, with a box when it cannot be opened, and the
// maker's mail address. The wait cursor is on the window meanwhile.
LinkLabel *webLink(const QString &objectName, platform::Host &host, QWidget *window);
LinkLabel *mailLink(const QString &objectName, platform::Host &host, QWidget *window);

} // namespace app
