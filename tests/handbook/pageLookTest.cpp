#include "handbook/windows/pageLook.h"
#include "support/qtPrinters.h"

using namespace handbook;

// Lines in per cent of their height, space above and below in quarters of a line.
TEST(PageLook, BlocksLinksAndTables) {
    QTextDocument document;
    document.setMarkdown(u"# 一\n\n段 [链](a.md) 尾\n\n## 二\n\n- 项\n- 末\n\n```\n码\n```\n\n| 键 | 用 |\n|---|---|\n"
                         "| 甲 | 乙 |\n\n![图](p.png) ![图](p.png)\n"_s);
    QPalette palette;
    palette.setColor(QPalette::AlternateBase, Qt::yellow);
    palette.setColor(QPalette::Mid, Qt::red);
    palette.setColor(QPalette::Link, Qt::magenta);
    dress(document, palette);
    const double quarter = QFontMetricsF(document.defaultFont()).height() / 4;
    QStringList look, links;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextBlockFormat format = block.blockFormat();
        const auto *table = QTextCursor(block).currentTable();
        const QBrush cell = table ? table->cellAt(block.position()).format().background() : QBrush();
        look.append(u"%1 %2 %3 %4"_s.arg(block.text().left(3))
                        .arg(format.lineHeight())
                        .arg(qRound(format.topMargin() / quarter))
                        .arg(qRound(format.bottomMargin() / quarter)) +
                    (format.background() == palette.alternateBase() || cell == palette.alternateBase() ? u" shaded"_s
                                                                                                       : QString()));
        for (auto at = block.begin(); !at.atEnd(); ++at)
            if (const QTextCharFormat text = at.fragment().charFormat();
                text.fontUnderline() && text.foreground().color() == palette.color(QPalette::Link))
                links.append(at.fragment().text());
    }
    EXPECT_EQ(look.join(u'|'),
              u"一 125 0 2|段 链 150 0 2|二 125 4 2|项 150 0 1|末 150 0 1|码 150 0 0 shaded| 125 0 0 shaded|"
              "键 125 0 0 shaded|用 125 0 0 shaded|甲 125 0 0|乙 125 0 0| 150 0 2|\uFFFC \uFFFC 0 0 2"_s);
    EXPECT_EQ(links, QStringList{u"链"_s});
    EXPECT_EQ(picturesIn(document), QStringList{u"p.png"_s});
    EXPECT_TRUE(document.isUndoRedoEnabled());
    EXPECT_EQ(document.documentMargin(), 4 * quarter);
    const auto *table = qobject_cast<QTextTable *>(document.rootFrame()->childFrames().value(0));
    ASSERT_TRUE(table);
    const QTextTableFormat format = table->format();
    EXPECT_TRUE(format.border() == 1 && format.borderStyle() == QTextFrameFormat::BorderStyle_Solid &&
                format.borderBrush() == palette.mid() && format.borderCollapse());
    EXPECT_TRUE(format.cellSpacing() == 0 && format.cellPadding() == quarter && format.topMargin() == quarter &&
                format.bottomMargin() == 4 * quarter && format.headerRowCount() == 1);
}

TEST(PageLook, PicturesFitThePageAndAreNeverEnlarged) {
    const std::tuple<int, int, double, QSize, double> rows[] = {
        // picture, page, ratio; pixels, their ratio
        {1600, 400, 1, {400, 100}, 1}, {1600, 400, 2, {800, 200}, 2}, {1600, 400, 8, {1600, 400}, 4},
        {200, 400, 1, {200, 50}, 1},   {200, 400, 2, {200, 50}, 1},   {400, 400, 1, {400, 100}, 1},
        {200, 0, 2, {200, 50}, 1},     {200, 4, 1, {4, 1}, 1},
    };
    for (const auto &[size, width, ratio, pixels, own] : rows) {
        QImage image(size, size / 4, QImage::Format_RGB32);
        const QImage shown = fitted(image, width, ratio);
        EXPECT_EQ(shown.size(), pixels) << size << ' ' << width << ' ' << ratio;
        EXPECT_EQ(shown.devicePixelRatio(), own);
    }
    EXPECT_TRUE(fitted({}, 5, 1).isNull());
}
