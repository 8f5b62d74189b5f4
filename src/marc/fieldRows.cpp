#include "marc/fieldRows.h"
#include "marc/directory.h"
#include "marc/isoLayout.h"
#include "marc/subfields.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr int indicatorCount = 2;
constexpr int embeddedHead = 5; // tag and indicators of an embedded field
constexpr int firstDataTag = 10;
constexpr qsizetype rowsPerField = 3; // room for most records
constexpr char16_t embeddedDelimiter[] = {subfieldDelimiter, u'1', 0};

// Returns the texts "$" and a character, for all ASCII characters. Rows share them.
const std::array<QString, 128> &shownCodes() {
    static const auto codes = [] {
        std::array<QString, 128> made;
        for (size_t i = 0; i < made.size(); ++i)
            made[i] = u'$' + QString(QChar(char16_t(i)));
        return made;
    }();
    return codes;
}

QString shownCode(QStringView code) {
    const bool isAscii = code.size() == 1 && code[0].unicode() < shownCodes().size();
    return isAscii ? shownCodes()[code[0].unicode()] : QString(u'$' + code);
}

QString blanksShown(QStringView text) {
    return text.toString().replace(u' ', u'#');
}

// A field whose tag is not a number is a data field.
bool isControlTag(const QString &tag) {
    const std::optional<double> number = platform::toDouble(tag);
    return number && *number < firstDataTag;
}

// Converts directory entries to rows, one after the other. A step that fails leaves the value of the previous entry or
// subfield in place; therefore these variables outlive an entry.
class RowMaker {
public:
    RowMaker(FieldCutter cutter, QStringView baseAddress, FieldRows &rows)
        : m_cutter(std::move(cutter))
        , m_allowance(m_cutter)
        , m_base(platform::toInt32(baseAddress).value_or(0))
        , m_rows(rows) {}

    // Returns false if this entry is the last one with rows; its own rows may be incomplete.
    bool take(const QString &tag, QStringView length, QStringView start) {
        m_length = platform::toInt32(length).value_or(m_length);
        m_start = platform::toInt32(start).value_or(m_start);
        if (std::optional<QString> cut = m_cutter.cut(m_base, m_start, m_length))
            setField(*std::move(cut));
        if (!m_allowance.admits(m_field.size()))
            return false;
        const QString indicators = blanksShown(m_field.left(indicatorCount));
        m_field = m_field.sliced(std::min<qsizetype>(indicatorCount, m_field.size()));
        if (isControlTag(tag)) {
            append(tag, {}, indicators + m_field.chopped(m_field.isEmpty() ? 0 : 1));
            return !m_full;
        }
        append(tag, u"指示符"_s, indicators);
        const bool embedded = tag.startsWith(u'4') && m_field.contains(QStringView(embeddedDelimiter));
        m_field.chop(m_field.isEmpty() ? 0 : 1);
        embedded ? takeEmbedded() : takeSubfields();
        return !m_full;
    }

private:
    void setField(QString text) {
        m_text = std::move(text);
        m_field = m_text;
    }

    void append(QString identifier, QString subfieldLabel, QString value) {
        m_full = m_full || m_rows.size() >= m_cutter.recordBytes();
        if (!m_full)
            m_rows.append({{}, {}, std::move(identifier), std::move(subfieldLabel), std::move(value)});
    }

    void takeSubfields() {
        SubfieldWalk walk(m_field);
        while (!m_full && walk.next()) {
            if (!walk.negativeLength())
                m_value = walk.value().toString();
            else // repeats the previous value, which counts since callers join the rows
                m_full = !m_allowance.admits(m_value.size());
            append(shownCode(walk.code()), {}, m_value);
        }
        m_field = walk.rest();
    }

    // Only "1" subfields get a row; text before the first one is dropped, and other subfields remain part of the value.
    void takeEmbedded() {
        constexpr int delimiterLength = 2;
        const QStringView delimiter(embeddedDelimiter);
        QStringView rest = m_field;
        for (qsizetype at = rest.indexOf(delimiter); at >= 0 && !m_full; at = rest.indexOf(delimiter)) {
            rest = rest.sliced(at + 1);
            const qsizetype next = rest.indexOf(delimiter);
            m_value =
                rest.sliced(delimiterLength - 1, (next < 0 ? rest.size() : next) - (delimiterLength - 1)).toString();
            append(u"$1"_s, {},
                   blanksShown(QStringView(m_value).left(embeddedHead)) +
                       m_value.mid(embeddedHead).replace(QChar(subfieldDelimiter), u'$'));
        }
        m_field = rest;
    }

    FieldCutter m_cutter;
    FieldAllowance m_allowance;
    qint32 m_base = 0;
    qint32 m_length = 0;
    qint32 m_start = 0;
    QString m_text;
    QStringView m_field; // part of m_text
    QString m_value;
    FieldRows &m_rows;
    bool m_full = false; // a row was dropped because of the limit
};

// `head` is the record as text, of which only the leader and the directory are read.
void show(QStringView head, FieldCutter cutter, ShownRecord &shown) {
    const DirectoryView directory = viewDirectory(head);
    shown.leader = directory.leader.toString();
    shown.damaged = directory.damaged;
    shown.cutOff = false;
    shown.rows.clear();
    if (shown.damaged) {
        shown.rows.append(FieldRow{});
        return;
    }
    shown.rows.reserve(rowsPerField * directory.count() + 1);
    shown.rows.append({{}, u"头标区"_s, u"000"_s, {}, shown.leader});
    RowMaker maker(std::move(cutter), directory.baseAddress, shown.rows);
    for (qsizetype i = 0; i < directory.count() && !shown.cutOff; ++i)
        shown.cutOff = !maker.take(directory.tag(i).toString(), directory.length(i), directory.start(i));
}

} // namespace

bool isFieldRow(const FieldRow &row) {
    return platform::isNumericText(row.identifier);
}

void showRecord(const RawRecord &record, ShownRecord &shown) {
    show(record, FieldCutter(record), shown);
}

// Decodes up to the end of the directory, but enough bytes for a leader of two-byte characters.
void showRecord(QByteArrayView gbk, ShownRecord &shown) {
    const qsizetype end = gbk.indexOf(char(fieldTerminator));
    const qsizetype head = end < 0 ? gbk.size() : std::max(end + 1, std::min<qsizetype>(2 * leaderLength, gbk.size()));
    show(platform::decode(gbk.first(head)), FieldCutter::over(gbk), shown);
}

ShownRecord showRecord(const RawRecord &record) {
    ShownRecord shown;
    showRecord(record, shown);
    return shown;
}

} // namespace marc
