// A faint line at the lower edge inside a list or an edit that describes its keys. The owner leaves space for it below
// its viewport.
#pragma once

#include <QAbstractScrollArea>
#include <QLabel>

namespace widgets {

class KeyLine final : public QLabel {
    Q_OBJECT
public:
    KeyLine(const QString &words, QAbstractScrollArea *owner);

    int room() const { return sizeHint().height(); } // that the owner leaves while the line is shown

protected:
    bool eventFilter(QObject *watched, QEvent *event) override; // stays below the viewport

private:
    QAbstractScrollArea *m_owner;
};

} // namespace widgets
