#include "marc/recordWriter.h"
#include "marc/isoLayout.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr int firstDataField = 2;
constexpr int lastDataField = 999;
constexpr int firstTagAboveControl = 10;
constexpr auto droppedTags = std::to_array<QStringView>({u"105", u"106", u"110", u"115"});

// Returns the number padded to `width`, or an empty string if it is too wide: the entry or leader is then shorter.
QString placed(int width, qsizetype number) {
    return platform::padZero(width, qint32(std::min<qsizetype>(number, std::numeric_limits<qint32>::max())));
}

QString blanksRestored(const QString &text) {
    return QString(text).replace(u'#', u' ');
}

struct RecordBuilder {
    QString directory;
    QString dataArea;
    qsizetype dataBytes = 0; // size of dataArea in GBK bytes

    // `length` is written to the directory and need not be that of the content.
    void add(const QString &tag, qsizetype length, const QString &content) {
        directory += tag + placed(fieldLengthWidth, length) + placed(fieldStartWidth, dataBytes);
        dataArea += content + QChar(fieldTerminator);
        dataBytes += platform::gbkLength(content) + 1;
    }

    RawRecord assembled(const QString &storedLeader) const {
        const qsizetype total = dataBytes + leaderLength + 1 + 1 + platform::gbkLength(directory);
        QString leader =
            placed(recordLengthWidth, total) + blanksRestored(storedLeader).right(leaderLength - recordLengthWidth);
        leader = leader.left(baseAddressAt) + placed(baseAddressLength, directory.size() + leaderLength + 1) +
                 leader.right(leaderLength - baseAddressAt - baseAddressLength);
        return leader + directory + QChar(fieldTerminator) + dataArea + QChar(recordTerminator);
    }
};

void addControlFields(RecordBuilder &record, const FieldRows &rows) {
    for (qsizetype i = 1; i < rows.size(); ++i) {
        const FieldRow &row = rows[i];
        const QString tag = platform::trimBlanks(row.identifier);
        const std::optional<double> number = tag.size() == 3 ? platform::toDouble(tag) : std::nullopt;
        if (number && row.identifier != u"001" && *number < firstTagAboveControl)
            record.add(row.identifier, platform::gbkLength(row.value) + 1, row.value);
    }
}

QString indicatorsOf(const QString &cell) {
    if (cell.isEmpty())
        return u"  "_s;
    // A cell with one character holds the first indicator, even after a blank. Its "#" stays a "#".
    const QString trimmed = platform::trimBlanks(cell);
    if (trimmed.size() == 1)
        return trimmed + u' ';
    return blanksRestored(cell);
}

QString contentOf(const QString &tag, const FieldRow &row) {
    const QString identifier = QString(row.identifier).replace(u'$', QChar(subfieldDelimiter));
    if (tag.startsWith(u'4'))
        return identifier + blanksRestored(row.value).replace(u'$', QChar(subfieldDelimiter));
    if (tag == u"100" && identifier.endsWith(u'a'))
        return identifier + blanksRestored(row.value);
    if (std::ranges::find(droppedTags, tag) != droppedTags.end())
        return {}; // these fields are dropped from every rebuilt record
    return identifier + row.value;
}

struct TaggedRow {
    int tag;
    qsizetype row;
    friend auto operator<=>(const TaggedRow &, const TaggedRow &) = default;
};

// Returns the rows whose identifier is exactly "002" to "999", by tag and then in grid order.
std::vector<TaggedRow> dataRows(const FieldRows &rows) {
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    std::vector<TaggedRow> found;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QString &text = rows[i].identifier;
        if (text.size() != 3 || !std::ranges::all_of(text, isDigit))
            continue;
        if (const int tag = text.toInt(); tag >= firstDataField && tag <= lastDataField)
            found.push_back({tag, i});
    }
    std::ranges::sort(found);
    return found;
}

void addDataFields(RecordBuilder &record, const FieldRows &rows) {
    std::vector<bool> beginsField;
    std::ranges::transform(rows, std::back_inserter(beginsField), isFieldRow);
    const auto endsField = [&](qsizetype row) { return row == rows.size() - 1 || beginsField[size_t(row) + 1]; };

    int endedTag = 0;
    for (const auto &[tag, field] : dataRows(rows)) {
        // A field row without subfield rows ends the search for its tag: later fields of that tag are not written.
        if (tag == endedTag)
            continue;
        if (endsField(field)) {
            endedTag = tag;
            continue;
        }
        QString fieldText;
        qsizetype row = field;
        do {
            ++row;
            if (!rows[row].value.isEmpty())
                fieldText += contentOf(rows[field].identifier, rows[row]);
        } while (!endsField(row));
        if (!fieldText.isEmpty()) // the length counts two indicators, even if the cell has more or fewer
            record.add(rows[field].identifier, platform::gbkLength(fieldText) + 3,
                       indicatorsOf(rows[field].value) + fieldText);
    }
}

} // namespace

RawRecord madeMyMarc(const FieldRows &rows, const QString &leader, const QDateTime &now) {
    const QString mark = u"Norvas"_s + now.toString(u"yyyyMMddHHmmss") + u"MarcData"_s;
    RecordBuilder record;
    record.add(u"001"_s, platform::gbkLength(mark) + 1, mark);
    addControlFields(record, rows);
    addDataFields(record, rows);
    return record.assembled(leader);
}

} // namespace marc
