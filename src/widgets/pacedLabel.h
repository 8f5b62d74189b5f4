// A label for texts that change during long work. It stores a new text at once and paints it at most once per frame,
// since painting costs a hundred times as much as processing a record. A text too long for the label is elided in the
// middle and shown completely in the tool tip; it never widens the window.
#pragma once

#include <QBasicTimer>
#include <QLabel>

namespace widgets {

class PacedLabel : public QLabel {
    Q_OBJECT
public:
    explicit PacedLabel(const QString &objectName, const QString &text = {}, QWidget *parent = nullptr);

    // Stores the text. It is painted within a sixtieth of a second once events are processed.
    void setPacedText(const QString &text);
    // Stores a number that is shown at %1 of `form`. The text is composed only when it is needed.
    void setPacedNumber(QStringView form, qint64 number);
    QString pacedText() const;
    // Shows the stored text when events are next processed. Call it at the end of the work and before a message box.
    void flush();

    // Sets the subject of the text. A screen reader reads it together with the text, and reads each new text even if
    // the label does not have the focus.
    void setMeaning(const QString &meaning);

    // As in any label, for code that does not need the pacing.
    void setText(const QString &text);
    QString text() const { return pacedText(); }

    QSize minimumSizeHint() const override;

Q_SIGNALS:
    // Emitted before the stored text is shown: the last moment to update or replace it.
    void aboutToShow();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    QString shown() const; // the text elided to the width of the label

    void tellReader();
    void startPace();

    QString m_text;
    QStringView m_form; // if not null, a number is stored instead of the text
    qint64 m_number = 0;
    QString m_meaning;
    QBasicTimer m_pace; // active while the stored text waits for its frame
};

} // namespace widgets
