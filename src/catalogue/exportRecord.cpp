#include "catalogue/exportRecord.h"
#include "marc/isoLayout.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace catalogue {

namespace {

using Value = QString CatalogueRow::*;

struct Column {
    QStringView name;
    Value value;
};

// In the order of reading. "edtion" is not a column: reading it fails silently, and no record has an edition.
constexpr auto columns = std::to_array<Column>({
    {u"zskid", &CatalogueRow::zskid},
    {u"isbn", &CatalogueRow::isbn},
    {u"lagclass", &CatalogueRow::lagclass},
    {u"bookname", &CatalogueRow::bookname},
    {u"author", &CatalogueRow::author},
    {u"pubplace", &CatalogueRow::pubplace},
    {u"publisher", &CatalogueRow::publisher},
    {u"pubdate", &CatalogueRow::pubdate},
    {u"pages", &CatalogueRow::pages},
    {u"appendix", &CatalogueRow::appendix},
    {u"classcode", &CatalogueRow::classcode},
    {u"books", &CatalogueRow::books},
    {u"booksauthor", &CatalogueRow::booksauthor},
    {u"measure", &CatalogueRow::measure},
    {u"edtion", &CatalogueRow::edition},
    {u"ztc", &CatalogueRow::ztc},
});

struct Subfield {
    char code;
    Value value;
};

// A field is written if one of its `needs` is not empty, with those of its subfields that are not empty.
struct Field {
    const char *tag;
    const char *indicators;
    std::array<Value, 2> needs;
    std::array<Subfield, 3> subfields;
};

constexpr Subfield noSubfield{0, nullptr};

constexpr auto fields = std::to_array<Field>({
    {"010", "  ", {&CatalogueRow::isbn}, {{{'a', &CatalogueRow::isbn}, noSubfield, noSubfield}}},
    {"101", "  ", {&CatalogueRow::lagclass}, {{{'a', &CatalogueRow::lagclass}, noSubfield, noSubfield}}},
    {"200",
     "1 ",
     {&CatalogueRow::bookname},
     {{{'a', &CatalogueRow::bookname}, {'f', &CatalogueRow::author}, noSubfield}}},
    {"210",
     "  ",
     {&CatalogueRow::pubdate},
     {{{'c', &CatalogueRow::publisher}, {'d', &CatalogueRow::pubdate}, noSubfield}}},
    {"215",
     "  ",
     {&CatalogueRow::pages, &CatalogueRow::appendix},
     {{{'a', &CatalogueRow::pages}, {'e', &CatalogueRow::appendix}, {'d', &CatalogueRow::measure}}}},
    {"690", "  ", {&CatalogueRow::classcode}, {{{'a', &CatalogueRow::classcode}, noSubfield, noSubfield}}},
});

constexpr char recordTerminator = marc::recordTerminator;
constexpr char fieldTerminator = marc::fieldTerminator;
constexpr char subfieldDelimiter = marc::subfieldDelimiter;
constexpr int controlNumberLength = 11; // used even if the actual length differs

bool isWritten(const Field &field, const CatalogueRow &row) {
    return std::ranges::any_of(field.needs, [&](Value value) { return value && !(row.*value).isEmpty(); });
}

void addField(QByteArray &bytes, const Field &field, const CatalogueRow &row) {
    bytes += field.indicators;
    for (const Subfield &subfield : field.subfields) {
        if (!subfield.value || (row.*subfield.value).isEmpty())
            continue;
        bytes += subfieldDelimiter;
        bytes += subfield.code;
        bytes += platform::encode(row.*subfield.value);
    }
    bytes += fieldTerminator;
}

} // namespace

CatalogueRow readCatalogueRow(const database::ResultTable &result) {
    CatalogueRow row;
    if (result.rowCount() == 0)
        return row;
    for (const Column &column : columns) {
        if (const std::optional<int> found = result.column(column.name))
            row.*column.value = result.text(0, *found);
    }
    return row;
}

QByteArray Geshi1(qint64 number) {
    return QByteArray::number(number).rightJustified(marc::fieldLengthWidth, '0');
}

QByteArray Geshi2(qint64 number) {
    return QByteArray::number(number).rightJustified(marc::fieldStartWidth, '0');
}

QByteArray exportRecord(const CatalogueRow &row) {
    constexpr qsizetype usualSize = 512; // of directory and data together; longer ones reallocate
    QByteArray data;
    data.reserve(usualSize);
    const std::optional<qint32> key = platform::toInt32(row.zskid); // accepts "7.0" too
    data += Geshi2(key ? *key : row.zskid.toLongLong()) + "hteva" + fieldTerminator;
    QByteArray directory;
    directory.reserve(usualSize);
    directory += "001001100000";
    qint64 position = controlNumberLength;
    for (const Field &field : fields) {
        if (!isWritten(field, row))
            continue;
        const qsizetype before = data.size();
        addField(data, field, row);
        const qsizetype size = data.size() - before;
        directory += field.tag + Geshi1(size) + Geshi2(position);
        position += size;
    }
    const QByteArray length = Geshi2(position + marc::leaderLength + directory.size() + 2);
    const QByteArray base = Geshi2(marc::leaderLength + directory.size() + 1);
    return length + "nam  22" + base + "   450 " + directory + fieldTerminator + data + recordTerminator;
}

} // namespace catalogue
