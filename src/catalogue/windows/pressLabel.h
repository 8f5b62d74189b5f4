// A label that acts on a click: raised, sunken while pressed, and within reach of the keyboard.
#pragma once

#include <QAbstractButton>

namespace catalogue {

class PressLabel final : public QAbstractButton {
    Q_OBJECT
public:
    PressLabel(const QString &objectName, const QString &caption, QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override; // Enter clicks, as the space bar does
};

} // namespace catalogue
