#include "workspace/fieldEditing.h"
#include "marc/isoLayout.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr int tagLength = 3;
constexpr int subfieldIdentifierLength = 2; // "$" and a letter
constexpr int labelAt = 3;                  // position of the label in a line of a pick list
constexpr int firstDataTag = 10;
constexpr int embeddedHead = 5; // tag and indicators of an embedded field

int lastRow(const marc::FieldRows &rows) {
    return int(rows.size());
}

// Returns an empty row if the row does not exist.
marc::FieldRow rowAt(const marc::FieldRows &rows, int row) {
    return rows.value(row - 1);
}

bool isDataTag(const QString &identifier) {
    const auto value = platform::toDouble(identifier);
    return value && *value >= firstDataTag;
}

bool isAsciiLetter(QChar c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

// Returns the character with its code point, since fonts often lack the characters that the code page lacks.
QString named(const QString &character) {
    return character + u"(U+" + QString::number(character.toUcs4().value(0), 16).toUpper().rightJustified(4, u'0') +
           u')';
}

bool holdsSeparator(const QString &text) {
    return std::ranges::any_of(
        text, [](QChar c) { return c >= QChar(marc::recordTerminator) && c <= QChar(marc::subfieldDelimiter); });
}

// Returns whether the element of the list is an embedded field.
bool isEmbedded(const marc::FieldRows &rows, qsizetype at) {
    if (rows[at].identifier != u"$1")
        return false;
    while (at > 0 && !marc::isFieldRow(rows[at]))
        --at;
    return rows[at].identifier.startsWith(u'4');
}

QString checkIdentifier(const marc::FieldRow &row, const QString &typed) {
    if (typed.isEmpty())
        return u"字段标识符不允许为空"_s;
    if (beginsField(row)) {
        if (!platform::isNumericText(typed))
            return u"只允许输入数值"_s;
        return typed.size() == tagLength ? QString() : u"只允许输入3位数值"_s;
    }
    if (typed.size() != subfieldIdentifierLength)
        return u"只允许输入2位字符"_s;
    // Only letters are accepted, although records have subfield codes that are digits.
    return typed[0] == u'$' && isAsciiLetter(typed[1]) ? QString() : u"格式错误，请重新输入或按【Esc】取消操作"_s;
}

} // namespace

bool beginsField(const marc::FieldRow &row) {
    return row.identifier == ownField || marc::isFieldRow(row);
}

std::optional<int> fieldOf(const marc::FieldRows &rows, int row) {
    for (int i = std::min(row, lastRow(rows)); i >= 1; --i) {
        if (beginsField(rowAt(rows, i)))
            return i;
    }
    return std::nullopt;
}

QString tagOf(const marc::FieldRows &rows, int row) {
    const auto field = fieldOf(rows, row);
    return field ? rowAt(rows, *field).identifier : QString();
}

std::optional<int> contentLimit(const marc::FieldRows &rows, int row) {
    constexpr int indicators = 2;
    constexpr int field100Length = 36;
    const QString identifier = rowAt(rows, row).identifier;
    if (identifier == u"000")
        return 24;
    if (identifier.size() == tagLength)
        return isDataTag(identifier) ? std::optional(indicators) : std::nullopt;
    // The length of the identifier above is compared, not its value, so field 100 has no limit in practice.
    if (rowAt(rows, row - 1).identifier.size() == 100)
        return field100Length;
    return std::nullopt;
}

std::optional<int> identityLimit(const marc::FieldRow &row, IdentityColumn column) {
    if (column != IdentityColumn::Identifier)
        return std::nullopt;
    return beginsField(row) ? tagLength : subfieldIdentifierLength;
}

QString checkIdentity(const marc::FieldRow &row, IdentityColumn column, const QString &typed) {
    switch (column) {
    case IdentityColumn::FieldLabel:
        return marc::isFieldRow(row) && typed.isEmpty() ? u"字段说明不允许为空"_s : QString();
    case IdentityColumn::Identifier:
        return checkIdentifier(row, typed);
    case IdentityColumn::SubfieldLabel:
        break;
    }
    return typed.isEmpty() ? u"子字段说明不允许为空"_s : QString();
}

NewRow newField(const marc::FieldRows &rows, int current, const QString &line) {
    const int last = lastRow(rows);
    int place = current + 1;
    while (place <= last && !beginsField(rowAt(rows, place)))
        ++place;
    const bool walkedToTheEnd = place > last && current != last;
    const QString tag = line.left(tagLength);
    const bool indicators = !walkedToTheEnd || tag == ownField || isDataTag(tag);
    return {place,
            {.number = QString::number(last + 2), // the heading counts as a row
             .fieldLabel = line.mid(labelAt),
             .identifier = tag,
             .subfieldLabel = indicators ? u"指示符"_s : QString(),
             .value = {}}};
}

NewRow newSubfield(const marc::FieldRows &rows, int current, const QString &line) {
    return {current + 1,
            {.number = QString::number(lastRow(rows) + 2),
             .fieldLabel = {},
             .identifier = line.left(subfieldIdentifierLength),
             .subfieldLabel = line.mid(labelAt),
             .value = {}}};
}

int rowsOfField(const marc::FieldRows &rows, int field) {
    // The limit shrinks while rows are removed: of an even number of rows below the field, at most half are removed.
    // Subfields therefore remain when a field with two of them ends the record. This behaviour is kept.
    const int below = lastRow(rows) - field;
    int removed = 0;
    while (removed < below && !marc::isFieldRow(rowAt(rows, field + 1 + removed))) {
        ++removed;
        if (2 * removed == below)
            break;
    }
    return 1 + removed;
}

int field100Assistants(const marc::FieldRows &rows, int row) {
    if (!rowAt(rows, row).identifier.endsWith(u'a'))
        return 0;
    return int(std::ranges::count_if(rows.begin(), rows.begin() + std::clamp(row - 1, 0, lastRow(rows)),
                                     [](const marc::FieldRow &above) { return above.identifier == u"100"; }));
}

Losses lossesOf(const QString &content) {
    Losses found;
    const QString head = content.left(embeddedHead).remove(QChar(marc::subfieldDelimiter));
    found.separators = holdsSeparator(content);
    found.foreignSeparators = holdsSeparator(head) || holdsSeparator(content.mid(embeddedHead));
    if (platform::isEncodable(content))
        return found;
    for (qsizetype i = 0; i < content.size(); ++i) {
        const bool pair = content[i].isHighSurrogate() && i + 1 < content.size() && content[i + 1].isLowSurrogate();
        const QString character = content.sliced(i, pair ? 2 : 1);
        if (!platform::isEncodable(character) && !found.characters.contains(character))
            found.characters.append(character);
        i += pair ? 1 : 0;
    }
    return found;
}

QString warningOf(const marc::FieldRows &rows, const QList<Losses> &losses) {
    constexpr int shownCharacters = 8;
    QStringList lost;
    bool separators = false;
    for (qsizetype i = 0; i < losses.size(); ++i) {
        for (const QString &character : losses[i].characters) {
            if (!lost.contains(character))
                lost.append(character);
        }
        // A delimiter in the head of an embedded field belongs to the record: it is shown as read and stored unchanged.
        separators = separators || losses[i].foreignSeparators || (losses[i].separators && !isEmbedded(rows, i));
    }
    QStringList warnings;
    if (!lost.isEmpty()) {
        QStringList shown;
        for (const QString &character : lost.mid(0, shownCharacters))
            shown.append(named(character));
        if (lost.size() > shownCharacters)
            shown.append(u"…"_s);
        warnings.append(u"注意：GBK 没有字符“"_s + shown.join(u' ') + u"”，保存后将变成“?”。");
    }
    if (separators)
        warnings.append(u"注意：字段内容含有分隔符(1D-1F)，保存后字段会被拆开。"_s);
    return warnings.join(u' ');
}

} // namespace workspace
