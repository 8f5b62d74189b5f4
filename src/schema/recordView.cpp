#include "schema/recordView.h"

using namespace Qt::StringLiterals;

namespace schema {

namespace {

constexpr qsizetype shownIndicators = 2; // characters of a flat field that the grid shows like indicators
constexpr qsizetype embeddedHead = 5;    // tag and indicators of an embedded field

char16_t unshown(QChar c) {
    return c == u'#' ? u' ' : c.unicode();
}

bool isLinkingField(const Field &field) {
    return field.tag / 100 == 4;
}

} // namespace

int tagNumber(QStringView tag) {
    if (tag == u"LDR")
        return leaderTag;
    if (tag.size() != 3)
        return unknownTag;
    int number = 0;
    for (const QChar c : tag) {
        if (c < u'0' || c > u'9')
            return unknownTag;
        number = number * 10 + (c.unicode() - u'0');
    }
    return number;
}

QString tagName(int tag) {
    return tag == leaderTag ? u"LDR"_s : QString::number(tag).rightJustified(3, u'0');
}

void RecordView::clear() {
    m_fields.clear();
    m_subfields.clear();
    m_owned.clear();
}

void RecordView::read(const marc::FieldedRecord &record) {
    clear();
    m_fields.push_back({.tag = leaderTag, .tagText = u"LDR", .value = record.leader});
    int element = 0;
    for (const marc::Field &read : record.fields) {
        Field field{.tag = tagNumber(read.tag), .tagText = read.tag, .element = ++element};
        field.firstSubfield = int(m_subfields.size());
        if (field.tag != unknownTag && field.tag < firstDataTag) {
            field.value = read.content;
        } else {
            const QStringView indicators = read.beforeSubfields();
            for (qsizetype i = 0; i < qMin(indicators.size(), shownIndicators); ++i)
                field.indicators[size_t(i)] = indicators[i].unicode();
            for (const marc::Subfield part : read.subfields())
                m_subfields.push_back({part.code.size() == 1 ? part.code[0].unicode() : noCode, part.text, element});
            field.subfieldCount = int(m_subfields.size()) - field.firstSubfield;
        }
        m_fields.push_back(field);
    }
}

void RecordView::read(const marc::FieldRows &rows) {
    clear();
    for (int i = 0; i < int(rows.size()); ++i) {
        const marc::FieldRow &row = rows[i];
        if (row.identifier.startsWith(u'$'))
            addSubfield(row, i);
        else if (i == 0 && row.identifier == u"000")
            m_fields.push_back({.tag = leaderTag, .tagText = row.identifier, .value = row.value, .element = 0});
        else
            addField(row, i);
    }
}

void RecordView::addField(const marc::FieldRow &row, int element) {
    Field field{.tag = tagNumber(row.identifier), .tagText = row.identifier, .element = element};
    field.firstSubfield = int(m_subfields.size());
    if (field.tag != unknownTag && field.tag < firstDataTag) {
        field.value = withBlanks(row.value, shownIndicators);
    } else {
        for (qsizetype i = 0; i < qMin(row.value.size(), shownIndicators); ++i)
            field.indicators[size_t(i)] = unshown(row.value[i]);
    }
    m_fields.push_back(field);
}

void RecordView::addSubfield(const marc::FieldRow &row, int element) {
    if (m_fields.empty() || (m_fields.back().tag != unknownTag && m_fields.back().tag < firstDataTag))
        return;
    const char16_t code = row.identifier.size() > 1 ? row.identifier[1].unicode() : noCode;
    if (isLinkingField(m_fields.back()) && code == u'1')
        return addEmbedded(withBlanks(row.value, embeddedHead), element);
    m_subfields.push_back({code, row.value, element});
    ++m_fields.back().subfieldCount;
}

// The grid shows an embedded field as one subfield, with "$" for the delimiters.
void RecordView::addEmbedded(QStringView value, int element) {
    qsizetype end = value.indexOf(u'$');
    m_subfields.push_back({u'1', value.left(end), element});
    ++m_fields.back().subfieldCount;
    while (end >= 0) {
        const qsizetype next = value.indexOf(u'$', end + 1);
        const QStringView piece = value.sliced(end + 1, (next < 0 ? value.size() : next) - end - 1);
        m_subfields.push_back(
            {piece.isEmpty() ? noCode : piece[0].unicode(), piece.sliced(qMin(1, piece.size())), element});
        ++m_fields.back().subfieldCount;
        end = next;
    }
}

// Returns the value with blanks for the "#" that the grid shows in its first characters.
QStringView RecordView::withBlanks(const QString &value, qsizetype count) {
    if (!QStringView(value).left(count).contains(u'#'))
        return value;
    QString &changed = m_owned.emplace_back(value);
    for (qsizetype i = 0; i < qMin(count, changed.size()); ++i)
        changed[i] = QChar(unshown(changed[i]));
    return changed;
}

} // namespace schema
