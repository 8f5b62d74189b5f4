#include "handbook/handbook.h"
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace handbook {

namespace {

struct WindowRow {
    QStringView name;
    QStringView within; // the window next around or behind it; empty: wherever it is
    QStringView page;
};

// The first row that fits is taken.
constexpr auto windowRows = std::to_array<WindowRow>({
    {u"richText", u"frmDaoru", u"editing.md"},
    {u"Text1", u"frmDaoru", u"editing.md"},
    {u"zdList", u"frmDaoru", u"editing.md"},
    {u"Zzdlist", u"frmDaoru", u"editing.md"},
    {u"frmMessage", u"frmCutFile", u"split.md"},
    {u"frmMessage", u"frmUnionFile", u"merge.md"},
    {u"frmMessage", u"", u"proof.md"},
    {u"refusedTable", u"frmDaoru", u"import.md"},
    {u"remarksPane", u"frmDaoru", u"proof.md"},
    {u"frmMarcKaPian", u"", u"card.md"},
    {u"frmDaoRuJindu", u"", u"import.md"},
    {u"frmHelpLR000", u"", u"assistants.md"},
    {u"frmHelpLR100", u"", u"assistants.md"},
    {u"frmDaoru", u"", u"workspace.md"},
    {u"frmSelectMFile", u"", u"workspace.md"},
    {u"QueryFrm", u"", u"query.md"},
    {u"QueryFrmdel", u"", u"query.md"},
    {u"OrderbyFrm", u"", u"query.md"},
    {u"ZSKListFrm", u"", u"export.md"},
    {u"SCKListFrm", u"", u"export.md"},
    {u"TLKListFrm", u"", u"store.md"},
    {u"WorkingFrm", u"", u"store.md"},
    {u"DataReportJs", u"", u"printing.md"},
    {u"frmCutFile", u"", u"split.md"},
    {u"frmUnionFile", u"", u"merge.md"},
    {u"frmTidy", u"", u"tidy.md"},
    {u"frmODBC", u"", u"servers.md"},
    {u"frmLook", u"", u"start.md"},
    {u"frmHelp", u"", u"start.md"},
    {u"AboutFrm", u"", u"start.md"},
    {u"marcMain", u"", u"start.md"},
});

bool isWindow(const QString &name) {
    return std::ranges::any_of(windowRows,
                               [&](const WindowRow &row) { return row.name == name && row.within.isEmpty(); });
}

QString textOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString titleOf(const QString &text, const QString &fallback) {
    const QRegularExpression heading(u"^#\\s+(.+?)\\s*$"_s, QRegularExpression::MultilineOption);
    const auto found = heading.match(text);
    return found.hasMatch() ? found.captured(1) : fallback;
}

QStringList pagesLinkedIn(const QString &text) {
    const QRegularExpression link(u"\\]\\(([^)#:/]+\\.md)"_s);
    QStringList files;
    for (auto found = link.globalMatch(text); found.hasNext();)
        files.append(found.next().captured(1));
    return files;
}

} // namespace

std::vector<Page> pagesIn(const QString &folder) {
    const QStringList there = QDir(folder).entryList({u"*.md"_s}, QDir::Files, QDir::Name);
    QStringList order{firstPage.toString()};
    order += pagesLinkedIn(textOf(folder + u'/' + firstPage));
    order += there;
    order.removeDuplicates();
    std::vector<Page> pages;
    for (const QString &file : order)
        if (there.contains(file))
            pages.push_back({file, titleOf(textOf(folder + u'/' + file), file)});
    return pages;
}

std::optional<QString> pageOf(const QStringList &names) {
    for (qsizetype at = 0; at < names.size(); ++at) {
        const auto next = std::find_if(names.begin() + at + 1, names.end(), isWindow);
        const auto row = std::ranges::find_if(windowRows, [&](const WindowRow &row) {
            return row.name == names[at] && (row.within.isEmpty() || (next != names.end() && row.within == *next));
        });
        if (row != windowRows.end())
            return row->page.toString();
    }
    return std::nullopt;
}

QString anchorOf(const QString &heading) {
    QString anchor;
    for (const QChar c : heading.trimmed().toLower()) {
        if (c.isLetterOrNumber() || c == u'-' || c == u'_')
            anchor += c;
        else if (c == u' ')
            anchor += u'-';
    }
    return anchor;
}

Hits hitsIn(const QString &pageText, const QString &words) {
    constexpr qsizetype before = 10, behind = 30; // characters
    Hits hits;
    if (words.isEmpty())
        return hits;
    for (qsizetype at = 0; (at = pageText.indexOf(words, at, Qt::CaseInsensitive)) >= 0; at += words.size()) {
        if (++hits.count > 1)
            continue;
        const qsizetype from = std::max<qsizetype>(0, at - before);
        hits.excerpt = pageText.mid(from, at - from + words.size() + behind).simplified();
    }
    return hits;
}

} // namespace handbook
