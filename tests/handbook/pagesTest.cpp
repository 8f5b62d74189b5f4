// The handbook as it is built into the program: no broken links, and every window has a page.
#include "handbook/handbook.h"
#include "handbook/windows/pageLook.h"
#include "support/testFolder.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"

using namespace handbook;

namespace {

const QString folder = u":/handbook"_s;

// A page as a Markdown reader parses it.
struct ReadPage {
    QTextDocument document;
    explicit ReadPage(const QString &file) {
        QFile page(folder + u'/' + file);
        EXPECT_TRUE(page.open(QIODevice::ReadOnly)) << file.toStdString();
        document.setMarkdown(QString::fromUtf8(page.readAll()));
    }
    QStringList links() const {
        QStringList targets;
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            for (auto at = block.begin(); !at.atEnd(); ++at)
                if (const QString target = at.fragment().charFormat().anchorHref(); !target.isEmpty())
                    targets.append(target);
        return targets;
    }
    QStringList headings() const {
        QStringList anchors;
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            if (block.blockFormat().headingLevel() > 0)
                anchors.append(anchorOf(block.text()));
        return anchors;
    }
};

QStringList files() {
    QStringList names;
    for (const Page &page : pagesIn(folder))
        names.append(page.file);
    return names;
}

// Returns the base class of every class in the headers, by class name.
QMap<QString, QString> windowClasses() {
    QMap<QString, QString> bases;
    const QRegularExpression heir(u"class (\\w+)(?: final)? : public (?:\\w+::)?(\\w+)"_s);
    for (QDirIterator at(QStringLiteral(SOURCE_FOLDER), {u"*.h"_s}, QDir::Files, QDirIterator::Subdirectories);
         at.hasNext();) {
        QFile header(at.next());
        EXPECT_TRUE(header.open(QIODevice::ReadOnly));
        for (auto found = heir.globalMatch(QString::fromUtf8(header.readAll())); found.hasNext();) {
            const auto match = found.next();
            bases.insert(match.captured(1), match.captured(2));
        }
    }
    return bases;
}

} // namespace

TEST(Pages, EveryLinkAndEveryPictureExists) {
    QStringList reached{firstPage.toString()};
    QSet<QString> shown;
    for (qsizetype at = 0; at < reached.size(); ++at) {
        const ReadPage page(reached[at]);
        for (const QString &link : page.links()) {
            if (link.startsWith(u"http"))
                continue;
            const QString file = link.startsWith(u'#') ? reached[at] : link.section(u'#', 0, 0);
            const QString anchor = QUrl::fromPercentEncoding(link.section(u'#', 1).toUtf8());
            ASSERT_TRUE(files().contains(file)) << link.toStdString() << " in " << reached[at].toStdString();
            EXPECT_TRUE(anchor.isEmpty() || ReadPage(file).headings().contains(anchor))
                << link.toStdString() << " in " << reached[at].toStdString();
            if (!reached.contains(file))
                reached.append(file);
        }
        for (const QString &picture : picturesIn(page.document)) {
            EXPECT_FALSE(QImage(folder + u'/' + picture).isNull())
                << picture.toStdString() << " in " << reached[at].toStdString();
            shown.insert(picture);
        }
    }
    for (const QString &file : files())
        EXPECT_TRUE(reached.contains(file)) << file.toStdString() << " is not linked from any page";
    for (const QString &picture : QDir(folder + u"/pictures").entryList())
        EXPECT_TRUE(shown.contains(u"pictures/" + picture)) << picture.toStdString() << " is not shown on any page";
}

TEST(Pages, EveryWindowHasAPage) {
    const QMap<QString, QString> bases = windowClasses();
    QStringList windows;
    for (auto heir = bases.begin(); heir != bases.end(); ++heir) {
        QString root = heir.value();
        while (bases.contains(root) && root != u"Window")
            root = bases[root];
        const bool isWindow = root == u"Window" || root == u"QDialog" || root == u"QMainWindow";
        if (isWindow && !bases.values().contains(heir.key()))
            windows.append(heir.key());
    }
    EXPECT_GE(windows.size(), 22);
    windows.removeOne(u"frmHandbook"_s);
    windows.removeOne(u"LongPreview"_s); // shown under the object name of the report, DataReportJs
    ASSERT_TRUE(placeOf({u"DataReportJs"_s}));
    for (const QString &window : windows)
        EXPECT_TRUE(placeOf({window})) << window.toStdString() << " has no page";
    for (const auto &[file, heading] : allPlaces()) {
        ASSERT_TRUE(files().contains(file)) << file.toStdString();
        EXPECT_TRUE(heading.isEmpty() || ReadPage(file).headings().contains(anchorOf(heading)))
            << heading.toStdString() << " in " << file.toStdString();
    }
}

TEST(Hits, CountEachAndQuoteTheFirst) {
    const std::tuple<QString, QString, int, QString> rows[] = {
        {u"F3 查找，f3"_s, u"f3"_s, 2, u"F3 查找，f3"_s},
        {u"一二三四五六七八九十 甲\n"_s + u"乙"_s.repeated(40), u"甲"_s, 1,
         u"二三四五六七八九十 甲 "_s + u"乙"_s.repeated(29)},
        {u"aaaa"_s, u"aa"_s, 2, u"aaaa"_s},
        {u"甲"_s, u"乙"_s, 0, {}},
        {u"甲"_s, {}, 0, {}},
    };
    for (const auto &[text, words, count, excerpt] : rows) {
        EXPECT_EQ(hitsIn(text, words).count, count);
        EXPECT_EQ(hitsIn(text, words).excerpt, excerpt);
    }
}

TEST(Pages, ThePageIsThatOfTheInnermostWidgetWithAPage) {
    const std::pair<QStringList, QString> rows[] = {
        {{u"Text1"_s, u"Picture1"_s, u"frmDaoru"_s, u"marcMain"_s}, u"editing.md"_s},
        {{u"Text1"_s, u"frmMarcKaPian"_s, u"frmDaoru"_s, u"marcMain"_s}, u"card.md"_s},
        {{u"qt_msgbox"_s, u"frmDaoRuJindu"_s, u"frmDaoru"_s}, u"import.md"_s},
        {{u"messageText"_s, u"frmMessage"_s, u"frmUnionFile"_s, u"marcMain"_s}, u"merge.md"_s},
        {{u"frmMessage"_s, u"frmDaoru"_s}, u"proof.md"_s},
        {{u"Grid1"_s, u"TLKListFrm"_s, u"mdiArea"_s, u"marcMain"_s}, u"store.md"_s},
    };
    for (const auto &[names, page] : rows)
        EXPECT_EQ(placeOf(names).value_or(Place()).file, page) << names.join(u' ').toStdString();
    EXPECT_FALSE(placeOf({u"nothing"_s}));
}
