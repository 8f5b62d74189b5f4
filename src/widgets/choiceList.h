// A list of lines to choose from by a double click or Enter.
#pragma once

#include "widgets/keyLine.h"
#include <QListWidget>

namespace widgets {

class ChoiceList final : public QListWidget {
    Q_OBJECT
public:
    ChoiceList(const QString &objectName, const QString &accessibleName, QWidget *parent);

    void tellKeys(const QString &words);                   // at the lower edge
    void fill(const QStringList &lines, int current = -1); // replaces all lines; -1: no line is current
    void offer();                                          // shows the list on top and gives it the focus
    void dismiss();                                        // hides the list and removes its lines
    QSize fullSize() const;                                // size at which all lines are visible without scrolling

Q_SIGNALS:
    void chosen(const QString &line); // the list stays open until dismiss()
    void cancelled();                 // by Esc or by pressing the right mouse button
    void left();                      // the list lost the focus

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    KeyLine *m_keys = nullptr;
};

} // namespace widgets
