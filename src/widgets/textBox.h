// A box for long texts that gives back exactly what was put in. Line breaks are CR LF. Control characters are shown as
// coloured signs (‡ for 1F, ¶ for 1E, ▣ for 1D, Ⓐ for 01 …) and are themselves again in text(), in what is copied and
// in what is dragged out. Lines of any length stay fast. The face is a Song-style one where the machine has one.
#pragma once

#include <QPlainTextEdit>

namespace widgets {

class TextBox : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit TextBox(const QString &objectName, QWidget *parent = nullptr);

    // The sign that stands for a control character in the box.
    static QChar signOf(QChar control);

    // Shows the text from its start. What a text of code page 936 can hold comes back from text() unchanged.
    void setText(const QString &text);
    // The text as it stands now, the user's changes included.
    QString text() const;

    // Makes the text read-only; it can be selected and copied with mouse and keyboard.
    void lock();
    // The room that the box asks for at first, in average Chinese characters and lines.
    void setRoom(int columns, int lines);
    QSize sizeHint() const override { return m_room.isValid() ? m_room : QPlainTextEdit::sizeHint(); }

protected:
    QMimeData *createMimeDataFromSelection() const override; // line breaks as LF, as clipboards have them
    void insertFromMimeData(const QMimeData *source) override;

private:
    QSize m_room;
};

} // namespace widgets
