#include "handbook/windows/pageLook.h"
#include "handbook/handbook.h"
#include "widgets/styleTokens.h"
#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextList>
#include <QTextTable>
#include <algorithm>

namespace handbook {

namespace {

// In per cent, for Chinese text.
constexpr double lineHeight = 150;
constexpr double closeLineHeight = 125; // in tables and headings

bool holdsPicture(const QTextBlock &block) {
    return block.text().contains(QChar::ObjectReplacementCharacter);
}

bool isInTable(const QTextBlock &block) {
    return QTextCursor(block).currentTable() != nullptr;
}

class Dressing {
public:
    Dressing(QTextDocument &document, const QPalette &palette)
        : m_document(document)
        , m_palette(palette)
        , m_line(QFontMetricsF(document.defaultFont()).height()) {}

    void dressBlocks() {
        for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
            dressBlock(block);
            inkLinks(block);
        }
    }

    void dressTables() {
        const QList<QTextFrame *> frames = m_document.rootFrame()->childFrames();
        for (QTextFrame *frame : frames)
            if (auto *table = qobject_cast<QTextTable *>(frame))
                dressTable(*table);
    }

private:
    void dressBlock(const QTextBlock &block) {
        QTextBlockFormat format = block.blockFormat();
        const bool close = isInTable(block) || format.headingLevel() > 0;
        if (!holdsPicture(block)) // a picture is part of a line and would scale its height
            format.setLineHeight(close ? closeLineHeight : lineHeight, QTextBlockFormat::ProportionalHeight);
        if (const int level = format.headingLevel(); level > 0) {
            format.setTopMargin(level == 1 ? 0 : m_line);
            format.setBottomMargin(m_line / 2);
            nameHeading(block);
        } else if (format.hasProperty(QTextFormat::BlockCodeFence)) {
            format.setBackground(m_palette.alternateBase());
        } else {
            format.setTopMargin(0);
            format.setBottomMargin(isInTable(block) ? 0 : block.textList() ? m_line / 4 : m_line / 2);
        }
        QTextCursor(block).setBlockFormat(format);
    }

    void nameHeading(const QTextBlock &block) {
        QTextCharFormat named;
        named.setAnchor(true);
        named.setAnchorNames({anchorOf(block.text())});
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(named);
    }

    void inkLinks(const QTextBlock &block) {
        std::vector<std::pair<int, int>> links; // position and length
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment part = at.fragment();
            if (!part.charFormat().anchorHref().isEmpty())
                links.push_back({part.position(), part.length()});
        }
        QTextCharFormat ink;
        ink.setForeground(m_palette.link());
        ink.setFontUnderline(true);
        for (const auto &[position, length] : links) { // after the loop, since changes invalidate the fragments
            QTextCursor cursor(&m_document);
            cursor.setPosition(position);
            cursor.setPosition(position + length, QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(ink);
        }
    }

    void dressTable(QTextTable &table) {
        QTextTableFormat format = table.format();
        format.setBorder(1);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(m_palette.mid());
        format.setBorderCollapse(true);
        format.setCellSpacing(0);
        format.setCellPadding(m_line / 4);
        format.setTopMargin(m_line / 4);
        format.setBottomMargin(m_line);
        format.setHeaderRowCount(1);
        table.setFormat(format);
        for (int column = 0; column < table.columns(); ++column) {
            QTextTableCell head = table.cellAt(0, column);
            QTextCharFormat shade = head.format();
            shade.setBackground(m_palette.alternateBase());
            head.setFormat(shade);
        }
    }

    QTextDocument &m_document;
    const QPalette &m_palette;
    double m_line;
};

} // namespace

void dress(QTextDocument &document, const QPalette &palette) {
    const bool undo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    document.setDocumentMargin(QFontMetricsF(document.defaultFont()).height());
    Dressing dressing(document, palette);
    dressing.dressBlocks();
    dressing.dressTables();
    document.setUndoRedoEnabled(undo);
}

QStringList picturesIn(const QTextDocument &document) {
    QStringList names;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto at = block.begin(); !at.atEnd(); ++at)
            if (const QTextCharFormat format = at.fragment().charFormat(); format.isImageFormat())
                names.append(format.toImageFormat().name());
    names.removeDuplicates();
    return names;
}

QImage fitted(const QImage &picture, int width, double ratio) {
    if (picture.isNull() || width < 1)
        return picture;
    const int shown = std::min(width, picture.width());
    const int pixels = std::min(qRound(shown * ratio), picture.width());
    QImage result = pixels < picture.width() ? picture.scaledToWidth(pixels, Qt::SmoothTransformation) : picture;
    result.setDevicePixelRatio(double(pixels) / shown);
    return result;
}

} // namespace handbook
