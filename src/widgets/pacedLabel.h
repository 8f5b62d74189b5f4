// A label for texts that run along with long work: it holds a new text at once and paints it at the pace of the
// screen, since painting costs a hundred times what a record does. A text too long for the label is shown with its
// middle left out, whole in the tool tip; it never widens its window.
#pragma once

#include <QBasicTimer>
#include <QLabel>

namespace widgets {

class PacedLabel : public QLabel {
    Q_OBJECT
public:
    explicit PacedLabel(const QString &objectName, const QString &text = {}, QWidget *parent = nullptr);

    // Takes the text; it is painted within a sixtieth of a second, once events are let in.
    void setPacedText(const QString &text);
    // The same of a running number in its text, `form` with %1 in its place; it is put together when somebody asks.
    void setPacedNumber(QStringView form, qint64 number);
    QString pacedText() const;
    // Brings the held text to the screen with the next events: at the end of the work and before a message box.
    void flush();

    // What the text is of: a screen reader says both. A new text is told to it, whether or not the label has the
    // keyboard.
    void setMeaning(const QString &meaning);

    // As of any label, for whoever does not care about the pace.
    void setText(const QString &text);
    QString text() const { return pacedText(); }

    QSize minimumSizeHint() const override;

Q_SIGNALS:
    // The held text goes to the screen next: the last moment to make it true, or to replace it.
    void aboutToShow();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    QString shown() const; // what has room

    void tellReader();
    void startPace();

    QString m_text;
    QStringView m_form; // of a number that is held instead of the text
    qint64 m_number = 0;
    QString m_meaning;
    QBasicTimer m_pace; // runs while the held text waits for its frame
};

} // namespace widgets
