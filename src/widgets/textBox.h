// An edit for long texts that returns exactly the text that was set. Line breaks are CR LF. Control characters are
// shown as coloured signs (‡ for 1F, ¶ for 1E, ▣ for 1D, Ⓐ for 01 …); text(), copying and dragging convert them back.
// Long lines do not slow it down. The font is a Song-style one if installed.
#pragma once

#include <QPlainTextEdit>

namespace widgets {

class TextBox : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit TextBox(const QString &objectName, QWidget *parent = nullptr);

    // Returns the sign that represents a control character.
    static QChar signOf(QChar control);

    // Shows the text from its start. text() returns any text of code page 936 characters unchanged.
    void setText(const QString &text);
    // The current text, including the user's changes.
    QString text() const;

    // Makes the text read-only. It can still be selected and copied with mouse and keyboard.
    void lock();
    // Sets the distance of the lines, in heights of a line of the font.
    void setLineHeight(double factor);
    // Sets the preferred size, in average Chinese characters and lines.
    void setRoom(int columns, int lines);
    QSize sizeHint() const override { return m_room.isValid() ? m_room : QPlainTextEdit::sizeHint(); }

protected:
    QMimeData *createMimeDataFromSelection() const override; // uses LF as line break
    void insertFromMimeData(const QMimeData *source) override;

private:
    QSize m_room;
};

} // namespace widgets
