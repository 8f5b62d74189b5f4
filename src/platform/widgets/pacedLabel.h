// A label for the text of a long run: it holds each text at once and is painted at the pace of the screen, always once
// more behind the last text. Its size is that of the widest text, so that no text moves the window's layout.
#pragma once

#include <QBasicTimer>
#include <QLabel>

namespace platform {

class PacedLabel : public QLabel {
    Q_OBJECT
public:
    PacedLabel(const QString &objectName, const QString &widestText, QWidget *parent = nullptr);

    // The same as setText(), for texts that follow each other faster than anybody can read.
    void setRunningText(const QString &text);

protected:
    void changeEvent(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void fitSize();

    QString m_widestText;
    QBasicTimer m_pace;
};

} // namespace platform
