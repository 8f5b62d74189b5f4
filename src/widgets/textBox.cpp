#include "widgets/textBox.h"
#include "platform/desktop/faces.h"
#include "widgets/spacedLines.h"
#include "widgets/styleTokens.h"
#include <QMimeData>
#include <QScrollBar>
#include <QSyntaxHighlighter>
#include <string_view>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

constexpr char16_t blockBreak = 0x2029; // separates the paragraphs of a document
// A long line is laid out in pieces. Each piece but the first starts with this mark, which has no width and is not in
// code page 936. The mark is at the start and not at the end, so that Enter next to it still breaks the line.
constexpr char16_t pieceMark = 0x2060;
constexpr qsizetype pieceLength = 4096;

// The sign for each control character from 00 to 1F; 0 for the tab, which is shown as it is. All Chinese fonts have
// these signs and code page 936 has none of them, so no record contains a sign itself.
constexpr std::u16string_view signs(u"∅ⒶⒷⒸⒹⒺⒻⒼⒽ\0ⒿⓀⓁⓂⓃⓄⓅⓆⓇⓈⓉⓊⓋⓌⓍⓎⓏ†⁂▣¶‡", 0x20);
static_assert(signs[0x09] == 0 && signs[0x1F] == u'‡');

QChar exchanged(QChar c) {
    const char16_t code = c.unicode();
    if (code < 0x20)
        return signs[code] ? QChar(signs[code]) : c;
    if (code < 0x80 || code >= 0x2E80) // the most frequent case in Chinese texts
        return c;
    const size_t at = signs.find(code);
    return at == signs.npos ? c : QChar(char16_t(at));
}

// Returns the text as stored in the document, with "\n" as line break.
QString shown(const QString &text) {
    QString result;
    qsizetype length = 0; // of the current piece
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
            result += u'\n';
            length = 0;
            ++i;
            continue;
        }
        if (length >= pieceLength && !text[i].isLowSurrogate()) {
            result += u'\n';
            result += QChar(pieceMark);
            length = 0;
        }
        result += exchanged(text[i]);
        ++length;
    }
    return result;
}

// Converts the raw text of the document back.
QString restored(const QString &raw, QStringView lineBreak) {
    QString result;
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (raw[i] == blockBreak) {
            if (i + 1 == raw.size() || raw[i + 1] != pieceMark)
                result += lineBreak;
        } else if (raw[i] != pieceMark) {
            result += exchanged(raw[i]);
        }
    }
    return result;
}

class SignColours final : public QSyntaxHighlighter {
public:
    explicit SignColours(TextBox *box)
        : QSyntaxHighlighter(box->document())
        , m_box(box) {}

protected:
    void highlightBlock(const QString &text) override {
        const QColor colour = m_box->palette().color(QPalette::Link);
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text[i].unicode() >= 0x80 && exchanged(text[i]) != text[i])
                setFormat(int(i), 1, colour);
        }
    }

private:
    TextBox *m_box;
};

} // namespace

TextBox::TextBox(const QString &objectName, QWidget *parent)
    : QPlainTextEdit(parent) {
    setObjectName(objectName);
    QFont face = font();
    face.setFamilies(platform::songFaces());
    face.setPointSize(face.pointSize() + 2); // the strokes of Song fonts are thin
    setFont(face);
    setTabChangesFocus(true);
    new SignColours(this);
}

QChar TextBox::signOf(QChar control) {
    return exchanged(control);
}

void TextBox::setText(const QString &text) {
    setPlainText(shown(text));
}

QString TextBox::text() const {
    return restored(document()->toRawText(), u"\r\n");
}

void TextBox::lock() {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void TextBox::setLineHeight(double factor) {
    document()->setDocumentLayout(new SpacedLines(document(), factor));
}

void TextBox::setRoom(int columns, int lines) {
    const QFontMetrics metrics(font());
    const int border = 2 * (frameWidth() + int(document()->documentMargin()));
    m_room = QSize(columns * metrics.horizontalAdvance(u'字') + border + verticalScrollBar()->sizeHint().width(),
                   lines * metrics.lineSpacing() + border);
    updateGeometry();
}

QMimeData *TextBox::createMimeDataFromSelection() const {
    auto *data = new QMimeData;
    data->setText(restored(textCursor().selectedText(), u"\n"));
    return data;
}

void TextBox::insertFromMimeData(const QMimeData *source) {
    if (isReadOnly() || !source->hasText())
        return;
    QString text = source->text();
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u"\n"_s, u"\r\n"_s);
    textCursor().insertText(shown(text));
    ensureCursorVisible();
}

} // namespace widgets
