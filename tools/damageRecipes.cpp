#include "tools/damageRecipes.h"
#include "platform/codepage936.h"
#include "tools/recordAssembler.h"
#include <array>

using namespace Qt::StringLiterals;

namespace tools {

namespace {

using marc::baseAddressAt, marc::directoryEntryLength, marc::fieldStartAt, marc::leaderLength, marc::tagLength;
using Records = QList<QByteArray>;

constexpr char lineEnd[] = "\r\n";

QByteArray lines(const Records &records) {
    QByteArray bytes;
    for (const QByteArray &record : records)
        bytes += record + lineEnd;
    return bytes;
}

qsizetype directoryEnd(const QByteArray &record) {
    return record.indexOf(fieldTerminator);
}

// Returns the byte position of the directory entry for `tag`.
qsizetype entryOf(const QByteArray &record, QByteArrayView tag) {
    qsizetype at = leaderLength;
    while (at + directoryEntryLength <= directoryEnd(record) && QByteArrayView(record).sliced(at, tagLength) != tag)
        at += directoryEntryLength;
    return at;
}

QByteArray withEntryPart(QByteArray record, QByteArrayView tag, int part, const QByteArray &text) {
    return record.replace(entryOf(record, tag) + part, text.size(), text);
}

QByteArray five(const Records &records) {
    return lines(records.first(5));
}

QByteArray damagedDirectory(const Records &records) {
    QByteArray shortened = records[1];
    shortened.remove(directoryEnd(shortened) - 1, 1);
    return lines({records[0], shortened, records[2]});
}

QByteArray offsetsOutside(const Records &records) {
    const QByteArray farStart = withEntryPart(records[0], "200", fieldStartAt, "90000");
    const QByteArray longField = withEntryPart(records[1], "210", tagLength, "9999");
    return lines({farStart, longField, records[2]});
}

QByteArray notNumbers(const Records &records) {
    const QByteArray length = withEntryPart(records[0], "210", tagLength, "00x7");
    const QByteArray start = withEntryPart(records[1], "200", fieldStartAt, "?????");
    QByteArray base = records[2];
    base.replace(baseAddressAt, 5, "base?");
    return lines({length, start, base, records[3]});
}

QByteArray noFieldTerminator(const Records &records) {
    QByteArray bare = records[1];
    bare.replace(fieldTerminator, ' ');
    return lines({records[0], bare, records[2]});
}

QByteArray unfinished(const Records &records) {
    return lines({records[0], records[1]}) + records[2].chopped(1);
}

// Breaks a record into lines of about 80 bytes, never within a character.
QByteArray wrap(const QByteArray &record) {
    QByteArray bytes;
    qsizetype width = 0;
    for (qsizetype i = 0; i < record.size();) {
        const qsizetype length = uchar(record[i]) > 0x80 ? 2 : 1;
        bytes += record.sliced(i, length);
        i += length;
        width += length;
        if (width >= 80 && i < record.size()) {
            bytes += lineEnd;
            width = 0;
        }
    }
    return bytes;
}

QByteArray wrapped(const Records &records) {
    return lines({wrap(records[0]), records[1], wrap(records[2])});
}

QByteArray emptyLines(const Records &records) {
    return "\r\n\r\n" + records[0] + "\r\n\r\n\r\n" + records[1] + "\r\n\r\n" + records[2] + "\r\n\r\n";
}

QByteArray oneLine(const Records &records) {
    return records.first(5).join();
}

QByteArray severalOnALine(const Records &records) {
    return lines({records[0] + records[1], records[2], records[3] + records[4]});
}

QByteArray lineFeedsOnly(const Records &records) {
    return records.first(5).join('\n') + '\n';
}

// A line break between the two bytes of a character, and a lone lead byte after a complete record.
QByteArray loneLeadByte(const Records &records) {
    QByteArray split = records[0];
    qsizetype at = directoryEnd(split);
    while (uchar(split[at]) <= 0x80)
        ++at;
    split.insert(at + 1, lineEnd);
    return lines({split, records[1] + '\xB0', records[2]});
}

QByteArray nulBytes(const Records &records) {
    QByteArray inTitle = records[0];
    const qsizetype title = inTitle.indexOf("1 \x1F") + 4;
    inTitle.replace(title, 2, QByteArray(2, '\0'));
    return lines({inTitle, QByteArray(16, '\0') + records[1], records[2]});
}

QByteArray utf8Text(const Records &records) {
    return platform::decode(lines(records.first(3))).toUtf8();
}

QByteArray utf16Text(const Records &records) {
    const QString text = QChar(QChar::ByteOrderMark) + platform::decode(lines(records.first(3)));
    QByteArray bytes;
    for (const QChar unit : text)
        bytes.append(char(unit.cell())).append(char(unit.row()));
    return bytes;
}

// A title, then notes of `noteLength` bytes each. Numbers that do not fit their width are written as nines.
QByteArray recordWithNotes(int notes, int noteLength) {
    const QByteArray sentence = platform::encode(u"此附注很长，逐卷记下各册的篇目。"_s);
    RecordAssembler assembler;
    assembler.begin("nam0    ");
    assembler.add("001", "longrecord");
    const QByteArray title = "1 \x1F\x61" + platform::encode(u"附注很长的书"_s);
    assembler.add("200", title);
    const QByteArray note = QByteArray("  \x1F\x61") + sentence.repeated(noteLength / int(sentence.size()));
    for (int i = 0; i < notes; ++i)
        assembler.add("327", note);
    return assembler.finish();
}

// First the length cut off at 9999, as most systems write it; then all five digits, which shifts the directory.
QByteArray longField(const Records &records) {
    const QByteArray cut = recordWithNotes(1, 12000);
    QByteArray wide = cut;
    const qsizetype data = wide.lastIndexOf(fieldTerminator, -3) + 1;
    const QByteArray length = QByteArray::number(wide.size() - 1 - data);
    wide.replace(entryOf(wide, "327") + tagLength, 4, length);
    return lines({records[0], cut, wide, records[1]});
}

QByteArray longRecord(const Records &records) {
    return lines({records[0], recordWithNotes(11, 9500), records[1]});
}

QByteArray nothing(const Records &) {
    return {};
}

constexpr auto recipes = std::to_array<DamageRecipe>({
    {u"five.iso", five, u"five whole records, nothing wrong"},
    {u"damaged/empty.iso", nothing, u"no byte at all"},
    {u"damaged/directory.iso", damagedDirectory, u"the second directory lacks a byte: not divisible by 12"},
    {u"damaged/offsets.iso", offsetsOutside, u"a start and a length that lead out of the record"},
    {u"damaged/numbers.iso", notNumbers, u"a length, a start and a base address that are no numbers"},
    {u"damaged/noterminator.iso", noFieldTerminator, u"the second record has no field terminator"},
    {u"damaged/unfinished.iso", unfinished, u"the last record has no record terminator and no line end"},
    {u"damaged/wrapped.iso", wrapped, u"records wrapped over several lines"},
    {u"damaged/emptylines.iso", emptyLines, u"empty lines before, between and after the records"},
    {u"damaged/oneline.iso", oneLine, u"five records and no line end at all"},
    {u"damaged/severalonaline.iso", severalOnALine, u"lines with two records"},
    {u"damaged/linefeeds.iso", lineFeedsOnly, u"lines ended by LF alone"},
    {u"damaged/leadbyte.iso", loneLeadByte, u"a line end inside a character, and a lone lead byte before a line end"},
    {u"damaged/nulbytes.iso", nulBytes, u"NUL bytes in a title and before a record"},
    {u"damaged/utf8.iso", utf8Text, u"records in UTF-8 with the lengths of their GBK form"},
    {u"damaged/utf16.iso", utf16Text, u"records in UTF-16 with a byte order mark"},
    {u"damaged/longfield.iso", longField, u"fields of more than 9,999 bytes"},
    {u"damaged/longrecord.iso", longRecord, u"a record of more than 99,999 bytes"},
});

} // namespace

std::span<const DamageRecipe> damageRecipes() {
    return recipes;
}

} // namespace tools
