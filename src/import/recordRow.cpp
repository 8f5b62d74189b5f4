#include "import/recordRow.h"
#include "marc/directory.h"
#include "marc/subfields.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace importing {

namespace {

using TextColumn = QString RecordRow::*;

// A text column takes the first non-empty value over all fields of the tag.
struct TextRule {
    QStringView tag;
    char16_t code;
    TextColumn column;
    qsizetype length;       // the number of characters kept
    bool endsField = false; // the rest of a field after its first such subfield is ignored
};

constexpr auto textRules = std::to_array<TextRule>({
    {u"010", u'a', &RecordRow::isbn, 13},
    {u"101", u'a', &RecordRow::lagclass, 10, true},
    {u"200", u'a', &RecordRow::bookname, 50},
    {u"200", u'f', &RecordRow::author, 30},
    {u"205", u'a', &RecordRow::edition, 20},
    {u"210", u'a', &RecordRow::pubplace, 10},
    {u"210", u'c', &RecordRow::publisher, 30},
    {u"210", u'd', &RecordRow::pubdate, 10},
    {u"215", u'd', &RecordRow::measure, 10},
    {u"215", u'e', &RecordRow::appendix, 50},
    {u"225", u'a', &RecordRow::books, 50},
    {u"225", u'f', &RecordRow::booksauthor, 30},
    {u"606", u'a', &RecordRow::ztc, 50, true},
    {u"690", u'a', &RecordRow::classcode, 10, true},
});

// A number column takes every value that has digits, so that the last one remains.
struct NumberRule {
    QStringView tag;
    char16_t code;
    void (*store)(RecordRow &row, QStringView digits);
};

void storePages(RecordRow &row, QStringView digits) {
    if (const auto pages = platform::toInt16(digits))
        row.pages = *pages;
}

void storePrice(RecordRow &row, QStringView digits) {
    constexpr qint64 largestCurrency = 922'337'203'685'477; // a 64-bit number of ten-thousandths
    bool fits = false;
    const qint64 price = digits.toLongLong(&fits);
    if (fits && price <= largestCurrency)
        row.price = price;
}

constexpr auto numberRules = std::to_array<NumberRule>({
    {u"010", u'd', storePrice},
    {u"215", u'a', storePages},
});

struct DocumentClass {
    char16_t code;
    QStringView text;
};

constexpr auto documentClasses = std::to_array<DocumentClass>({
    {u'a', u"文字资料印刷品"},
    {u'b', u"文字资料手稿"},
    {u'c', u"乐谱印刷品"},
    {u'd', u"乐谱手稿"},
    {u'e', u"测绘资料印刷品"},
    {u'f', u"测绘资料手稿"},
    {u'g', u"放映和视频资料"},
    {u'i', u"非音乐性录音资料"},
    {u'j', u"音乐性录音资料"},
    {u'k', u"二维图形"},
    {u'l', u"计算机存储介质"},
    {u'm', u"多媒体"},
    {u'r', u"三维制品和教具"},
    {u'u', u"拓片"},
    {u'v', u"善本书"},
});

constexpr qsizetype documentClassAt = 6; // offset in the leader, counted from 0

QString documentClass(QStringView leader) {
    const QStringView code = leader.mid(documentClassAt, 1); // empty if the leader is too short
    const auto *found = std::ranges::find_if(
        documentClasses, [code](const DocumentClass &row) { return code == QStringView(&row.code, 1); });
    return found == documentClasses.end() ? QString() : found->text.toString();
}

QString doubledApostrophes(QString text) {
    return text.replace(u'\'', u"''"_s);
}

// Returns the first run of consecutive digits.
QStringView firstDigits(QStringView value) {
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    const auto *from = std::ranges::find_if(value, isDigit);
    const auto *to = std::ranges::find_if_not(from, value.end(), isDigit);
    return QStringView(from, to);
}

// Returns false if the rest of the field must be ignored.
bool takeSubfield(RecordRow &row, QStringView tag, char16_t code, QStringView value) {
    for (const NumberRule &rule : numberRules) {
        if (rule.code == code && rule.tag == tag) {
            if (const QStringView digits = firstDigits(value); !digits.isEmpty())
                rule.store(row, digits);
        }
    }
    for (const TextRule &rule : textRules) {
        if (rule.code != code || rule.tag != tag)
            continue;
        if (QString &text = row.*rule.column; text.isEmpty())
            text = doubledApostrophes(value.left(rule.length).toString());
        return !rule.endsField;
    }
    return true;
}

void takeField(RecordRow &row, QStringView tag, QStringView field) {
    field.chop(field.isEmpty() ? 0 : 1); // the terminator, without a check
    for (marc::SubfieldWalk walk(field); walk.next();) {
        const char16_t code = walk.code().isEmpty() ? u'\0' : walk.code()[0].unicode();
        if (!takeSubfield(row, tag, code, walk.value()))
            return;
    }
}

bool hasRule(QStringView tag) {
    return std::ranges::find(textRules, tag, &TextRule::tag) != textRules.end() ||
           std::ranges::find(numberRules, tag, &NumberRule::tag) != numberRules.end();
}

// Returns the number at the start of the entry's text.
qint64 entryNumber(QStringView text) {
    if (const auto number = platform::toInt32(text))
        return *number;
    return qint64(std::nearbyint(platform::leadingNumber(text)));
}

} // namespace

std::optional<RecordRow> recordRow(const marc::RawRecord &record) {
    const marc::DirectoryView directory = marc::viewDirectory(record);
    if (directory.damaged)
        return std::nullopt;
    RecordRow row;
    const marc::FieldCutter cutter(record);
    // If the base address is not a number, 0 is used.
    const auto base = qint64(std::nearbyint(platform::toDouble(directory.baseAddress).value_or(0)));
    marc::FieldAllowance allowance(cutter);
    QByteArrayView field; // a failed cut keeps the bytes of the previous entry
    for (qsizetype i = 0; i < directory.count(); ++i) {
        const auto cut = cutter.cutBytes(base, entryNumber(directory.start(i)), entryNumber(directory.length(i)));
        field = cut.value_or(field);
        if (!allowance.admits(field.size()))
            break;
        if (hasRule(directory.tag(i)))
            takeField(row, directory.tag(i), platform::decode(field));
    }
    row.docclass = documentClass(directory.leader);
    row.marc = doubledApostrophes(record);
    return row;
}

QString insertStatement(const RecordRow &row) {
    return u"insert  taolutable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,"
           u"booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('"_s +
           row.bookname + u"','" + row.author + u"','" + row.edition + u"','" + row.isbn + u"','" + row.pubplace +
           u"','" + row.publisher + u"','" + row.pubdate + u"'," + QString::number(row.pages) + u",'" + row.classcode +
           u"','" + row.books + u"','" + row.booksauthor + u"','" + row.measure + u"','" + row.docclass + u"','" +
           row.ztc + u"','" + row.appendix + u"','" + row.lagclass + u"'," + QString::number(row.price) + u",'" +
           row.marc + u"')";
}

} // namespace importing
