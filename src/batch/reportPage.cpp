#include "batch/reportPage.h"
#include "platform/host.h"

using namespace Qt::StringLiterals;

namespace batch {

namespace {

using Cells = std::initializer_list<QString>;

QString escaped(const QString &text) {
    return text.toHtmlEscaped();
}

QString element(QStringView name, const QString &content, QStringView attributes = {}) {
    return u'<' + name + (attributes.isEmpty() ? QString() : u' ' + attributes) + u'>' + content + u"</" + name + u'>';
}

QString rowOf(QStringView cell, Cells contents, std::initializer_list<QStringView> attributes = {}) {
    QString row;
    auto attribute = attributes.begin();
    for (const QString &content : contents)
        row += element(cell, content, attribute == attributes.end() ? QStringView() : *attribute++);
    return element(u"tr", row) + u'\n';
}

QString tableOf(const QString &heading, const QString &rows) {
    return u"<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\">\n"_s + element(u"thead", heading) +
           element(u"tbody", rows) + u"</table>\n";
}

QString style(const PageDress &dress) {
    return u"body { color: %1; %2}\n"
           u"h2 { margin-top: 24px; }\n"
           u"th { text-align: left; color: %3; background-color: %4; }\n"
           u"th, td { border-bottom: 1px solid %5; vertical-align: top; }\n"
           u".quiet { color: %3; }\n"_s.arg(
               dress.ink,
               dress.font.isEmpty() ? QString() : u"font-family: %1; max-width: 60em; margin: auto; "_s.arg(dress.font),
               dress.secondInk, dress.tint, dress.hairline);
}

QString levelCell(schema::Level level, const PageDress &dress) {
    return u"<b style=\"color: %1\">%2</b>"_s.arg(dress.levels[size_t(level)], nameOf(level));
}

// The file, the time and the four numbers.
QString heading(const BatchReport &report, const PageDress &dress) {
    QString page = element(u"h1", u"校对报告"_s);
    page +=
        element(u"p", u"文件：<b>%1</b><br>校对时间：%2<br>依据：%3<br>记录：%4"_s.arg(
                          escaped(fileNameOf(report)), momentOf(report), escaped(basisOf(report)), extentOf(report)));
    QString captions, numbers;
    const auto add = [&](const QString &caption, int records, const QString &ink) {
        captions += element(u"th", caption);
        numbers +=
            element(u"td", u"<b style=\"font-size: large; color: %1\">%2</b>"_s.arg(ink, shareOf(records, report)));
    };
    for (size_t level = 0; level < schema::levelCount; ++level)
        add(captionOf(schema::Level(level)).toString(), report.records[level], dress.levels[level]);
    add(cleanCaption.toString(), report.clean(), dress.ink);
    page += tableOf(element(u"tr", captions), element(u"tr", numbers));
    return page +
           element(u"p",
                   u"按记录里最重的一级计数。错误：不合格式，应当改正；警告：多半有误；提示：可能有误，请看一看。"_s,
                   u"class=\"quiet\"");
}

QString chart(const PageDress &dress) {
    if (dress.chart.isEmpty())
        return {};
    const QString width = dress.chartWidth > 0 ? u" width=\"%1\""_s.arg(dress.chartWidth) : QString();
    return element(u"h2", u"最多的 %1 项"_s.arg(mostFrequentShown)) +
           u"<p><img src=\"%1\" alt=\"最多的几项的条形图，数字见下表\"%2></p>\n"_s.arg(dress.chart, width);
}

QString rules(const BatchReport &report, const PageDress &dress) {
    QString rows;
    for (const RuleEntry &entry : report.rules)
        rows += rowOf(u"td",
                      {levelCell(entry.level, dress),
                       escaped(entry.label) + u"<br>" + element(u"small", escaped(entry.example), u"class=\"quiet\""),
                       escaped(tagsOf(entry)), QString::number(entry.remarks), QString::number(entry.records.size()),
                       recordNumbers(entry.records, dress.mostNumbers)});
    if (rows.isEmpty())
        return element(u"h2", u"按规则"_s) + element(u"p", u"没有发现问题。"_s);
    return element(u"h2", u"按规则"_s) +
           tableOf(rowOf(u"th", {u"级别"_s, u"规则和例子"_s, u"字段"_s, u"处"_s, u"条"_s, u"记录号"_s},
                         {u"width=\"7%\"", u"width=\"34%\"", u"width=\"12%\"", u"width=\"6%\"", u"width=\"6%\"",
                          u"width=\"35%\""}),
                   rows);
}

QString drawn(const RecordDraw &draw) {
    QString rows;
    for (const DrawnRecord &record : draw.records) {
        QStringList lines;
        for (const QString &line : record.remarks)
            lines.append(escaped(line));
        rows += rowOf(u"td", {QString::number(record.record + 1), escaped(record.title),
                              lines.isEmpty() ? cleanCaption.toString() : lines.join(u"<br>")});
    }
    if (rows.isEmpty())
        return {};
    return element(u"h2", u"抽查 %1 条"_s.arg(draw.records.size())) +
           element(u"p", u"由签号 %1 抽出，同一文件、同一签号抽出的总是这几条。"_s.arg(draw.seed), u"class=\"quiet\"") +
           tableOf(
               rowOf(u"th", {u"记录"_s, u"题名"_s, u"发现"_s}, {u"width=\"9%\"", u"width=\"31%\"", u"width=\"60%\""}),
               rows);
}

QString notes(const BatchReport &report) {
    QString page;
    if (const QString silenced = silencedWords(report); !silenced.isEmpty())
        page += element(u"h2", u"没有列入"_s) + element(u"p", u"校对的人设为不再提示的：%1。"_s.arg(escaped(silenced)));
    if (report.notChecked.isEmpty())
        return page;
    QString items;
    for (const QString &text : report.notChecked)
        items += element(u"li", escaped(text));
    return page + element(u"h2", u"未能检查"_s) + element(u"ul", items);
}

} // namespace

QString reportPage(const BatchReport &report, const RecordDraw &draw, const PageDress &dress) {
    const QString title = u"校对报告："_s + escaped(fileNameOf(report));
    return u"<!DOCTYPE html>\n<html lang=\"zh-CN\"><head><meta charset=\"utf-8\">\n"_s + element(u"title", title) +
           element(u"style", style(dress), u"type=\"text/css\"") + u"</head><body>\n" + heading(report, dress) +
           chart(dress) + rules(report, dress) + drawn(draw) + notes(report) +
           element(u"p", platform::programTitle.toString(), u"class=\"quiet\"") + u"</body></html>\n";
}

} // namespace batch
