#include "batch/reportCsv.h"
#include "batch/reportTexts.h"

using namespace Qt::StringLiterals;

namespace batch {

namespace {

constexpr qsizetype longestCell = 30000; // characters; spreadsheets keep some 32,000

// Quotes the cell if needed. A spreadsheet would execute a text that begins with one of these characters.
QString cell(QString text) {
    if (!text.isEmpty() && u"=+-@\t\r"_s.contains(text[0]))
        text.prepend(u'\'');
    if (text.contains(u'"') || text.contains(u',') || text.contains(u'\n') || text.contains(u'\r'))
        return u'"' + text.replace(u'"', u"\"\""_s) + u'"';
    return text;
}

void addRow(QString &table, const QStringList &cells) {
    for (qsizetype i = 0; i < cells.size(); ++i)
        table += (i > 0 ? u","_s : QString()) + cell(cells[i]);
    table += u"\r\n";
}

// Splits the text after commas.
QStringList cellsOf(const QString &numbers) {
    QStringList cells;
    qsizetype from = 0;
    while (numbers.size() - from > longestCell) {
        const qsizetype comma = numbers.lastIndexOf(u',', from + longestCell);
        cells.append(numbers.sliced(from, comma - from));
        from = comma + 2;
    }
    cells.append(numbers.sliced(from));
    return cells;
}

void addFacts(QString &table, const BatchReport &report) {
    addRow(table, {u"校对报告"_s, fileNameOf(report)});
    addRow(table, {u"校对时间"_s, momentOf(report)});
    addRow(table, {u"依据"_s, basisOf(report)});
    addRow(table, {u"记录"_s, extentOf(report)});
    for (size_t level = 0; level < schema::levelCount; ++level)
        addRow(table, {captionOf(schema::Level(level)).toString(), QString::number(report.records[level])});
    addRow(table, {cleanCaption.toString(), QString::number(report.clean())});
    if (const QString silenced = silencedWords(report); !silenced.isEmpty())
        addRow(table, {u"没有列入"_s, silenced});
    for (const QString &text : report.notChecked)
        addRow(table, {u"未能检查"_s, text});
}

void addRules(QString &table, const BatchReport &report) {
    addRow(table, {u"级别"_s, u"规则"_s, u"字段"_s, u"处"_s, u"条"_s, u"记录号"_s, u"例"_s});
    for (const RuleEntry &entry : report.rules) {
        const QStringList numbers = cellsOf(recordNumbers(entry.records));
        const QString level = nameOf(entry.level).toString();
        addRow(table, {level, entry.label, tagsOf(entry), QString::number(entry.remarks),
                       QString::number(entry.records.size()), numbers[0], entry.example});
        for (const QString &more : numbers.sliced(1))
            addRow(table, {level, entry.label + u"（续）", {}, {}, {}, more, {}});
    }
}

} // namespace

QByteArray reportCsv(const BatchReport &report, const RecordDraw &draw) {
    QString table(1, QChar::ByteOrderMark);
    addFacts(table, report);
    addRow(table, {});
    addRules(table, report);
    addRow(table, {});
    addRow(table, {u"抽查，签号 %1"_s.arg(draw.seed)});
    addRow(table, {u"记录"_s, u"题名"_s, u"发现"_s});
    for (const DrawnRecord &drawn : draw.records)
        addRow(table, {QString::number(drawn.record + 1), drawn.title, drawn.remarks.join(u'\n')});
    return table.toUtf8();
}

} // namespace batch
