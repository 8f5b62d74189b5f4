#include "marc/recordWriter.h"
#include "marc/isoLayout.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include <QStringBuilder>
#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr int firstDataField = 2;
constexpr int firstTagAboveControl = 10;
constexpr int keptOfLeader = leaderLength - recordLengthWidth;
constexpr int afterBaseAddress = leaderLength - baseAddressAt - baseAddressLength;
constexpr int usualRowLength = 24; // characters
constexpr auto droppedTags = std::to_array<QStringView>({u"105", u"106", u"110", u"115"});

// Appends the number padded to `width`. Appends nothing if it is too wide: the entry or leader is then shorter.
void appendPadded(QString &text, int width, qsizetype number) {
    text += platform::padZero(width, qint32(std::min<qsizetype>(number, std::numeric_limits<qint32>::max())));
}

void appendReplaced(QString &target, QStringView text, QChar before, QChar after) {
    const qsizetype start = target.size();
    target += text;
    std::ranges::replace(target.begin() + start, target.end(), before, after);
}

// Appends to one text each for the directory and for the contents, so that a record takes few allocations.
class RecordBuilder {
public:
    explicit RecordBuilder(qsizetype rows) {
        m_directory.reserve(rows * directoryEntryLength);
        m_dataArea.reserve(rows * usualRowLength);
    }

    void addControlField(QStringView tag, QStringView content) {
        m_dataArea += content;
        const qsizetype bytes = platform::gbkLength(content);
        addEntry(tag, bytes + 1);
        endField(bytes);
    }

    // `indicators` is the cell of the field row, `rows` are its subfield rows. Adds nothing if they have no content.
    void addDataField(const QString &tag, const QString &indicators, std::span<const FieldRow> rows) {
        if (std::ranges::find(droppedTags, tag) != droppedTags.end())
            return; // these fields are dropped from every rebuilt record
        const qsizetype start = m_dataArea.size();
        appendIndicators(indicators);
        const qsizetype textStart = m_dataArea.size();
        for (const FieldRow &row : rows) {
            if (!row.value.isEmpty())
                appendSubfield(tag, row);
        }
        const QStringView text = QStringView(m_dataArea).sliced(textStart);
        if (text.isEmpty()) {
            m_dataArea.truncate(start);
            return;
        }
        const qsizetype bytes = platform::gbkLength(text);
        addEntry(tag, bytes + 3); // counts two indicators, even if the cell has more or fewer
        endField(platform::gbkLength(QStringView(m_dataArea).sliced(start, textStart - start)) + bytes);
    }

    RawRecord assembled(const QString &storedLeader) const {
        const qsizetype total = m_dataBytes + leaderLength + 1 + 1 + platform::gbkLength(m_directory);
        QString leader;
        appendPadded(leader, recordLengthWidth, total);
        appendReplaced(leader, QStringView(storedLeader).last(std::min<qsizetype>(storedLeader.size(), keptOfLeader)),
                       u'#', u' ');
        QString record;
        record.reserve(leaderLength + m_directory.size() + 1 + m_dataArea.size() + 1);
        record += QStringView(leader).first(std::min<qsizetype>(leader.size(), baseAddressAt));
        appendPadded(record, baseAddressLength, m_directory.size() + leaderLength + 1);
        record += QStringView(leader).last(std::min<qsizetype>(leader.size(), afterBaseAddress));
        record += m_directory % QChar(fieldTerminator) % m_dataArea % QChar(recordTerminator);
        return record;
    }

private:
    // `length` need not be that of the content.
    void addEntry(QStringView tag, qsizetype length) {
        m_directory += tag;
        appendPadded(m_directory, fieldLengthWidth, length);
        appendPadded(m_directory, fieldStartWidth, m_dataBytes);
    }

    void endField(qsizetype bytes) {
        m_dataArea += QChar(fieldTerminator);
        m_dataBytes += bytes + 1;
    }

    void appendIndicators(const QString &cell) {
        // A cell with one character holds the first indicator, even after a blank. Its "#" stays a "#".
        if (const QString trimmed = platform::trimBlanks(cell); trimmed.size() == 1)
            m_dataArea += trimmed % u' ';
        else
            appendReplaced(m_dataArea, cell.isEmpty() ? QStringView(u"  ") : cell, u'#', u' ');
    }

    void appendSubfield(const QString &tag, const FieldRow &row) {
        appendReplaced(m_dataArea, row.identifier, u'$', QChar(subfieldDelimiter));
        const bool isEmbedding = tag.startsWith(u'4');
        const bool hasPositions = tag == u"100" && row.identifier.endsWith(u'a');
        const qsizetype start = m_dataArea.size();
        m_dataArea += row.value;
        if (isEmbedding || hasPositions)
            std::ranges::replace(m_dataArea.begin() + start, m_dataArea.end(), QChar(u'#'), QChar(u' '));
        if (isEmbedding)
            std::ranges::replace(m_dataArea.begin() + start, m_dataArea.end(), QChar(u'$'), QChar(subfieldDelimiter));
    }

    QString m_directory;
    QString m_dataArea;
    qsizetype m_dataBytes = 0; // size of m_dataArea in GBK bytes
};

void addControlFields(RecordBuilder &record, const FieldRows &rows) {
    for (const FieldRow &row :
         std::span(rows.constData(), size_t(rows.size())).subspan(std::min<size_t>(1, size_t(rows.size())))) {
        const std::optional<double> number = platform::toDouble(row.identifier);
        if (number && *number < firstTagAboveControl && platform::trimBlanks(row.identifier).size() == tagLength &&
            row.identifier != u"001")
            record.addControlField(row.identifier, row.value);
    }
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
        if (const int tag = text.toInt(); tag >= firstDataField)
            found.push_back({tag, i});
    }
    std::ranges::sort(found);
    return found;
}

void addDataFields(RecordBuilder &record, const FieldRows &rows) {
    std::vector<bool> beginsField;
    beginsField.reserve(size_t(rows.size()));
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
        qsizetype last = field + 1;
        while (!endsField(last))
            ++last;
        record.addDataField(
            rows[field].identifier, rows[field].value,
            std::span(rows.constData(), size_t(rows.size())).subspan(size_t(field + 1), size_t(last - field)));
    }
}

} // namespace

RawRecord madeMyMarc(const FieldRows &rows, const QString &leader, const QDateTime &now) {
    const QString mark = u"Norvas"_s + now.toString(u"yyyyMMddHHmmss") + u"MarcData"_s;
    RecordBuilder record(rows.size());
    record.addControlField(u"001", mark);
    addControlFields(record, rows);
    addDataFields(record, rows);
    return record.assembled(leader);
}

} // namespace marc
