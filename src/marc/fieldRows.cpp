#include "marc/fieldRows.h"
#include "platform/numbers.h"

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr int indicatorCount = 2;
constexpr int embeddedHead = 5; // tag and indicators of an embedded field
constexpr int firstDataTag = 10;
constexpr char16_t embeddedDelimiter[] = {subfieldDelimiter, u'1', 0};

QString blanksShown(QStringView text) {
    return text.toString().replace(u' ', u'#');
}

void dropFirst(QString &text, qsizetype count) {
    text = text.sliced(std::min(count, text.size()));
}

// A tag that is no number belongs to a data field.
bool isControlTag(const QString &tag) {
    const std::optional<double> number = platform::toDouble(tag);
    return number && *number < firstDataTag;
}

// Turns directory entries into rows, one after the other. What a step that fails would have set keeps the value of the
// entry, or of the subfield, before; that is why these variables outlive an entry.
class RowMaker {
public:
    RowMaker(const RawRecord &record, const QString &baseAddress, FieldRows &rows)
        : m_cutter(record)
        , m_base(platform::toInt32(baseAddress).value_or(0))
        , m_rows(rows) {}

    void take(const DirectoryEntry &entry) {
        m_length = platform::toInt32(entry.length).value_or(m_length);
        m_start = platform::toInt32(entry.start).value_or(m_start);
        if (std::optional<QString> cut = m_cutter.cut(m_base, m_start, m_length))
            m_field = *std::move(cut);
        const QString indicators = blanksShown(QStringView(m_field).left(indicatorCount));
        dropFirst(m_field, indicatorCount);
        if (isControlTag(entry.tag))
            return append(entry.tag, {}, indicators + m_field.chopped(m_field.isEmpty() ? 0 : 1));
        append(entry.tag, u"指示符"_s, indicators);
        const bool embedded = entry.tag.startsWith(u'4') && m_field.contains(QStringView(embeddedDelimiter));
        m_field.chop(1);
        embedded ? takeEmbedded() : takeSubfields();
    }

private:
    void append(const QString &identifier, const QString &subfieldLabel, const QString &value) {
        m_rows.append({{}, {}, identifier, subfieldLabel, value});
    }

    void takeSubfields() {
        SubfieldWalk walk(m_field);
        while (walk.next()) {
            if (!walk.negativeLength())
                m_value = walk.value().toString();
            append(u'$' + walk.code(), {}, m_value);
        }
        m_field = walk.rest().toString();
    }

    // Only "1" subfields get a row; what stands ahead of the first is lost, other subfields stay inside the value.
    void takeEmbedded() {
        constexpr int delimiterLength = 2;
        const QStringView delimiter(embeddedDelimiter);
        for (qsizetype at; (at = m_field.indexOf(delimiter)) >= 0; dropFirst(m_field, at + 1)) {
            const qsizetype next = m_field.indexOf(delimiter, at + 1);
            const qsizetype from = at + delimiterLength;
            m_value = m_field.mid(from, next < 0 ? -1 : next - from);
            append(u"$1"_s, {},
                   blanksShown(QStringView(m_value).left(embeddedHead)) +
                       m_value.mid(embeddedHead).replace(QChar(subfieldDelimiter), u'$'));
        }
    }

    FieldCutter m_cutter;
    qint32 m_base = 0;
    qint32 m_length = 0;
    qint32 m_start = 0;
    QString m_field;
    QString m_value;
    FieldRows &m_rows;
};

} // namespace

bool isFieldRow(const FieldRow &row) {
    return platform::isNumericText(row.identifier);
}

ShownRecord showRecord(const RawRecord &record) {
    const Directory directory = decodeDirectory(record);
    ShownRecord shown{directory.leader, directory.damaged, {}};
    if (shown.damaged) {
        shown.rows.append(FieldRow{});
        return shown;
    }
    shown.rows.append({{}, u"头标区"_s, u"000"_s, {}, directory.leader});
    RowMaker maker(record, directory.baseAddress, shown.rows);
    for (const DirectoryEntry &entry : directory.entries)
        maker.take(entry);
    return shown;
}

} // namespace marc
