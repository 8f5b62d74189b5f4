#include "tools/taggedText.h"
#include "platform/codepage936.h"
#include "tools/recordAssembler.h"
#include "tools/sourceText.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tools {

namespace {

constexpr QChar delimiter(char16_t{subfieldDelimiter});

bool isTag(QStringView text) {
    return text.size() == 3 && std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

bool isControl(QStringView tag) {
    return tag < u"010";
}

bool isCoded(QStringView tag) {
    return tag == u"100" || (tag >= u"105" && tag <= u"199");
}

bool hasEmbeddedFields(QStringView tag) {
    return tag.startsWith(u'4') || tag == u"604";
}

QString withBlanks(QString text) {
    return text.replace(u'#', u' ');
}

// Turns the text after $1, "200 1#$a...", into tag and indicators without separators; returns false if it is malformed.
bool unfoldEmbedded(QString &value) {
    if (value.size() < 5 || value[3] != u' ' || !isTag(QStringView(value).first(3)))
        return false;
    value.remove(3, 1);
    if (isControl(value))
        return true;
    value.replace(3, 2, withBlanks(value.mid(3, 2)));
    return value.size() == 5;
}

// Appends the subfields of a field after its indicators; returns false if the text is malformed.
bool appendSubfields(TaggedField &field, QStringView text) {
    const auto pieces = text.split(u'$');
    if (pieces.size() < 2 || !pieces.front().isEmpty())
        return false;
    for (const QStringView piece : pieces.sliced(1)) {
        if (piece.size() < 2 || piece.front().unicode() <= u' ' || piece.front().unicode() > u'z')
            return false;
        QString value = piece.sliced(1).toString();
        if (isCoded(field.tag))
            value = withBlanks(value);
        if (hasEmbeddedFields(field.tag) && piece.front() == u'1' && !unfoldEmbedded(value))
            return false;
        field.content += delimiter + piece.first(1).toString() + value;
    }
    return true;
}

// Adds the field of a line such as "200 1#$a..." to the record; returns false if the line is malformed.
bool parseField(const QString &line, TaggedRecord &record) {
    TaggedField field{line.first(qMin(qsizetype(3), line.size())), {}};
    if (line.size() < 5 || !isTag(field.tag) || line[3] != u' ')
        return false;
    if (isControl(field.tag)) {
        field.content = line.sliced(4);
        record.fields.append(field);
        return true;
    }
    if (line.size() < 9 || line[6] != u' ')
        return false;
    field.content = withBlanks(line.mid(4, 2));
    if (!appendSubfields(field, QStringView(line).sliced(7)))
        return false;
    record.fields.append(field);
    return true;
}

} // namespace

platform::Result<QList<TaggedRecord>> parseTaggedText(const QStringList &lines) {
    QList<TaggedRecord> records;
    bool inRecord = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString &line = lines[i];
        if (line.startsWith(u';'))
            continue;
        bool good = true;
        if (line.isEmpty()) {
            inRecord = false;
        } else if (!inRecord) {
            inRecord = true;
            QString leader = withBlanks(line.mid(4));
            good = line.startsWith(u"LDR ") && leader.size() == 9 && leader[5] == u' ';
            records.append({leader.remove(5, 1), {}});
        } else {
            good = parseField(line, records.back());
        }
        if (!good)
            return platform::Failure{atLine(i, line)};
    }
    return records;
}

QByteArray assemble(const TaggedRecord &record) {
    RecordAssembler assembler;
    assembler.begin(record.leader.toLatin1());
    for (const TaggedField &field : record.fields)
        assembler.add(field.tag.toLatin1(), platform::encode(field.content));
    return assembler.finish();
}

} // namespace tools
