#include "card/showKapian.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "marc/directory.h"
#include "marc/fieldLookup.h"
#include "marc/isoLayout.h"
#include "marc/preReadStore.h"
#include "marc/recordCutter.h"
#include "marc/recordWriter.h"
#include "platform/codepage936.h"
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using namespace marc;

namespace fuzz {

namespace {

// Up to this size in bytes, all numbers of a rebuilt record fit their width.
constexpr qsizetype plainSize = 9999;

const QDateTime clockTime(QDate(2026, 3, 9), QTime(8, 5, 7));
constexpr QStringView mark = u"Norvas20260309080507MarcData";

bool isDigits(QStringView text, qsizetype length) {
    return text.size() == length && std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

bool isPlain(QStringView text) {
    return platform::isEncodable(text) && std::ranges::none_of(text, [](QChar c) {
               return c == recordTerminator || c == fieldTerminator || c == subfieldDelimiter;
           });
}

bool isAscii(QStringView text) {
    return std::ranges::all_of(text, [](QChar c) { return c < QChar(0x80); });
}

// A field as the writer must preserve it: tag, indicators (for a control field, the value), subfields.
struct Field {
    QString tag;
    QString head;
    QList<std::pair<QString, QString>> subfields;
    friend bool operator==(const Field &, const Field &) = default;
};

// Returns the fields of rows as a cataloguer enters them, or std::nullopt if a row is irregular. Embedded fields count
// as irregular because the writer converts their signs.
std::optional<QList<Field>> soundFields(const FieldRows &rows) {
    QList<Field> fields;
    for (const FieldRow &row : rows.sliced(1)) {
        if (!isPlain(row.value) || !isPlain(row.identifier))
            return std::nullopt;
        if (isDigits(row.identifier, 3)) {
            // The reader takes the terminator of a one-character control field for its second character.
            const bool control = row.identifier.startsWith(u"00");
            const bool head = control ? row.value.size() >= 2 : row.value.size() == 2 && isAscii(row.value);
            if (!head || row.identifier == u"000" || row.identifier.startsWith(u'4'))
                return std::nullopt;
            fields.append({row.identifier, row.value, {}});
        } else {
            if (row.identifier.size() != 2 || row.identifier.endsWith(u'$') || fields.isEmpty() ||
                fields.last().tag.startsWith(u"00"))
                return std::nullopt;
            fields.last().subfields.append({row.identifier, row.value});
        }
    }
    return fields;
}

// Returns the fields that the rebuilt record contains, in its order.
QList<Field> kept(const QList<Field> &fields) {
    constexpr auto droppedTags = std::to_array<QStringView>({u"105", u"106", u"110", u"115"});
    QList<Field> control{{u"001"_s, mark.toString(), {}}};
    QList<Field> data;
    QStringList ended; // a field without subfields ends the fields of its tag
    for (Field field : fields) {
        if (field.tag.startsWith(u"00")) {
            if (field.tag != u"001")
                control.append(field);
            continue;
        }
        if (field.subfields.isEmpty())
            ended.append(field.tag);
        field.subfields.removeIf([](const auto &subfield) { return subfield.second.isEmpty(); });
        for (auto &[code, value] : field.subfields) {
            if (field.tag == u"100" && code == u"$a")
                value.replace(u'#', u' ');
        }
        if (!field.subfields.isEmpty() && !ended.contains(field.tag) && !std::ranges::count(droppedTags, field.tag))
            data.append(field);
    }
    std::ranges::stable_sort(data, {}, &Field::tag);
    return control + data;
}

std::optional<QString> firstTitle(const QList<Field> &fields) {
    for (const Field &field : fields) {
        for (const auto &[code, value] : field.subfields) {
            if (field.tag == u"200" && code == u"$a")
                return value;
        }
    }
    return QString();
}

// Checks that the lengths and positions stored in a rebuilt record match its bytes.
void checkNumbers(const RawRecord &rebuilt, QByteArrayView gbk) {
    const DirectoryView directory = viewDirectory(rebuilt);
    require(directory.hasFieldTerminator && !directory.damaged, "a rebuilt record has a directory");
    require(gbk.first(5).toInt() == gbk.size(), "the leader holds the record's length in bytes");
    const qsizetype base = directory.baseAddress.toInt();
    require(base == leaderLength + directory.text.size() + 1, "the leader holds the base address of the fields");
    qsizetype next = base;
    for (qsizetype i = 0; i < directory.count(); ++i) {
        require(base + directory.start(i).toInt() == next, "fields are adjacent");
        next += directory.length(i).toInt();
        require(next < gbk.size() && gbk[next - 1] == char(fieldTerminator), "a field ends with a terminator");
    }
    require(next == gbk.size() - 1, "only the record terminator follows the fields");
}

void checkRebuilt(const ShownRecord &shown) {
    const RawRecord rebuilt = madeMyMarc(shown.rows, shown.leader, clockTime);
    const QByteArray gbk = platform::encode(rebuilt);
    require(gbk.size() == platform::gbkLength(rebuilt), "the counted length equals the encoded length");
    card::showKapian(rebuilt);
    const ShownRecord again = showRecord(rebuilt);
    if (shown.leader.size() != leaderLength || gbk.size() > plainSize)
        return;
    require(!again.damaged, "a rebuilt record's directory is whole");

    if (shown.damaged || !isPlain(shown.leader) || !isAscii(shown.leader))
        return;
    const auto fields = soundFields(shown.rows);
    if (!fields)
        return;
    checkNumbers(rebuilt, gbk);
    const QList<Field> expected = kept(*fields);
    require(soundFields(again.rows) == expected, "a rebuilt record reads back with the rows that were kept");
    require(readZd(rebuilt, u"200a", {}) == firstTitle(expected), "the title is the first 200 $a");
    require(madeMyMarc(again.rows, again.leader, clockTime) == rebuilt, "rebuilding a rebuilt record changes nothing");
}

// Returns the upper limit for the size of the rows or the card made from a record of so many bytes, for any directory.
qsizetype largest(qsizetype recordBytes) {
    return 40 * recordBytes + 2000;
}

void checkBounds(const ShownRecord &shown, qsizetype recordBytes) {
    require(!shown.rows.isEmpty() && shown.rows.size() <= recordBytes, "at least one row, and no more rows than bytes");
    qsizetype size = 0;
    for (const FieldRow &row : shown.rows)
        size += row.value.size();
    require(size <= largest(recordBytes), "the size of the rows is limited by the size of the record");
}

void checkRecord(const RawRecord &record, QByteArrayView bytes) {
    require(record.indexOf(QChar(recordTerminator)) == record.size() - 1,
            "a record contains one terminator, at its end");
    for (const QStringView wanted : {u"200a", u"010d", u"001 "})
        require(readZd(record, wanted, {}) == readZd(record, bytes, wanted, {}), "bytes and text give the same title");
    PreReadStore store;
    store.setRecord(0, record, bytes);
    require(store.record(0) == record, "the list returns a record unchanged");

    const ShownRecord shown = showRecord(record);
    if (const QByteArrayView encoded = store.encodedBytes(0); !encoded.isEmpty()) {
        ShownRecord again;
        showRecord(encoded, again);
        require(again.rows == shown.rows && again.leader == shown.leader && again.cutOff == shown.cutOff,
                "bytes and text give the same rows");
    }
    checkBounds(shown, platform::gbkLength(record));
    const card::Card card = card::showKapian(record);
    require(card.text || !card.boxes.isEmpty() || !card.fault.isEmpty(), "a card has a text, boxes or a fault");
    require(card.text.value_or(QString()).size() <= largest(bytes.size()),
            "the size of a card is limited by the size of the record");
    checkRebuilt(shown);
}

} // namespace

void record(QByteArrayView bytes) {
    auto cutter = marc::RecordCutter::open(scratchFile(u"records", bytes));
    require(cutter.ok(), "a regular file can be read");
    while (cutter.value().next())
        checkRecord(cutter.value().record(), cutter.value().bytes());
}

} // namespace fuzz
