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
    QStringView within; // the next window around or below it; empty: any
    QStringView page;
    QStringView heading; // of the section; empty: the whole page
};

// The first matching row is used.
constexpr auto windowRows = std::to_array<WindowRow>({
    {u"richText", u"frmDaoru", u"editing.md", u"改内容"},
    {u"Text1", u"frmDaoru", u"editing.md", u"改标识符和说明"},
    {u"zdList", u"frmDaoru", u"editing.md", u"添加字段和子字段"},
    {u"Zzdlist", u"frmDaoru", u"editing.md", u"添加字段和子字段"},
    {u"frmMessage", u"frmCutFile", u"split.md", u"会说的话"},
    {u"frmMessage", u"frmUnionFile", u"merge.md", u""},
    {u"frmMessage", u"", u"proof.md", u"校对当前记录：“J 校对”"},
    {u"refusedTable", u"frmDaoru", u"import.md", u"未成功记录"},
    {u"frmSilenced", u"", u"proof.md", u"校对全部：“D 校对全部”"},
    {u"remarksPane", u"frmDaoru", u"proof.md", u"校对全部：“D 校对全部”"},
    {u"frmBatchReport", u"", u"report.md", u"校对报告：“G 报告…”"},
    {u"batchReportPrint", u"", u"report.md", u"打印和另存"},
    {u"frmSchema", u"", u"report.md", u"选择校验规则：“U 校验规则…”"},
    {u"frmMarcKaPian", u"", u"card.md", u""},
    {u"frmDaoRuJindu", u"", u"import.md", u"导入"},
    {u"frmHelpLR000", u"", u"assistants.md", u"头标区：“头标区辅助录入”"},
    {u"frmHelpLR100", u"", u"assistants.md", u"100 字段：“100字段辅助录入”"},
    {u"findLine", u"frmDaoru", u"workspace.md", u"查找"},
    {u"draftBar", u"frmDaoru", u"workspace.md", u"上次没有导入的修改"},
    {u"frmDaoru", u"", u"workspace.md", u"工作窗口：“套录库数据导入”"},
    {u"frmSelectMFile", u"", u"workspace.md", u"选文件：“请选择机读目录文件”"},
    {u"QueryFrm", u"", u"query.md", u""},
    {u"QueryFrmdel", u"", u"query.md", u""},
    {u"OrderbyFrm", u"", u"query.md", u"排序方式：“排序方式”窗口"},
    {u"ZSKListFrm", u"", u"export.md", u""},
    {u"SCKListFrm", u"", u"export.md", u"明细"},
    {u"TLKListFrm", u"", u"store.md", u""},
    {u"WorkingFrm", u"", u"store.md", u""},
    {u"DataReportJs", u"", u"printing.md", u""},
    {u"frmCutFile", u"", u"split.md", u""},
    {u"frmUnionFile", u"", u"merge.md", u""},
    {u"frmTidy", u"", u"tidy.md", u""},
    {u"stepsPage", u"frmTasks", u"batch.md", u"编写任务"},
    {u"previewPage", u"frmTasks", u"batch.md", u"预览"},
    {u"frmTasks", u"", u"batch.md", u""},
    {u"frmSearch", u"", u"targets.md", u"检索"},
    {u"frmIsbnBatch", u"", u"targets.md", u"按 ISBN 批量查"},
    {u"frmCompare", u"", u"targets.md", u"取来的记录"},
    {u"frmTargets", u"", u"targets.md", u"添加目标"},
    {u"frmODBC", u"", u"servers.md", u"“请设置要连接的数据库信息”"},
    {u"frmLook", u"", u"start.md", u"启动时的画面"},
    {u"frmHelp", u"", u"start.md", u""},
    {u"AboutFrm", u"", u"start.md", u""},
    {u"marcMain", u"", u"start.md", u"主窗口"},
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

std::optional<Place> placeOf(const QStringList &names) {
    for (qsizetype at = 0; at < names.size(); ++at) {
        const auto next = std::ranges::find_if(names.begin() + at + 1, names.end(), isWindow);
        const auto row = std::ranges::find_if(windowRows, [&](const WindowRow &row) {
            return row.name == names[at] && (row.within.isEmpty() || (next != names.end() && row.within == *next));
        });
        if (row != windowRows.end())
            return Place{row->page.toString(), row->heading.toString()};
    }
    return std::nullopt;
}

std::vector<Place> allPlaces() {
    std::vector<Place> places;
    for (const WindowRow &row : windowRows)
        places.push_back({row.page.toString(), row.heading.toString()});
    return places;
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
    constexpr qsizetype before = 10, after = 30; // in characters
    Hits hits;
    if (words.isEmpty())
        return hits;
    for (qsizetype at = 0; (at = pageText.indexOf(words, at, Qt::CaseInsensitive)) >= 0; at += words.size()) {
        if (++hits.count > 1)
            continue;
        const qsizetype from = std::max<qsizetype>(0, at - before);
        hits.excerpt = pageText.mid(from, at - from + words.size() + after).simplified();
    }
    return hits;
}

} // namespace handbook
