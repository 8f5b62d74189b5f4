// A list of lines to choose from, by a double click or Enter.
#pragma once

#include <QListWidget>

namespace widgets {

class ChoiceList final : public QListWidget {
    Q_OBJECT
public:
    ChoiceList(const QString &objectName, const QString &accessibleName, QWidget *parent);

    void fill(const QStringList &lines, int current = -1); // in place of what it held; -1: none is current
    void offer();                                          // shows it in front, with the keyboard
    void dismiss();                                        // hides and empties it
    QSize fullSize() const;                                // at which every line can be read without scrolling

Q_SIGNALS:
    void chosen(const QString &line); // the list stands until dismissed
    void cancelled();                 // by Esc or a press of the right button
    void left();                      // the focus goes elsewhere

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};

} // namespace widgets
