#include "marc/configurationFiles.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "platform/textFile.h"
#include <QHash>
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr int headerLength = 5;    // "[", tag, "]"
constexpr int subfieldLabelAt = 3; // after the "$", the code and one more character
constexpr int firstDescribedTag = 2;

bool isSectionHeader(const QString &line) {
    return platform::trimBlanks(line).startsWith(u'[');
}

bool isBlank(const QString &line) {
    return platform::trimBlanks(line).isEmpty();
}

// The box of the list commands for an unexpected failure.
PickList failed(const QString &description) {
    return {{}, u"操作失败" + description};
}

QString missing(const QString &folder, QStringView file) {
    return platform::fileExists(folder + file) ? QString() : configurationComplaint(folder, file, u"】丢失。");
}

// Describes the subfield rows after row `field` whose code is that of the line.
void describeSubfields(FieldRows &rows, qsizetype field, const QString &line) {
    const QString code = line.mid(1, 1);
    for (qsizetype i = field + 1; i < rows.size() && !isFieldRow(rows[i]); ++i) {
        if (rows[i].identifier.mid(1, 1) == code)
            rows[i].subfieldLabel = platform::trimBlanks(line.mid(subfieldLabelAt));
    }
}

// Describes one field and its subfields from the section whose header is line `header`. Returns false if the header is
// the last line, so that no line follows it.
bool describeField(FieldRows &rows, qsizetype field, const QStringList &lines, qsizetype header) {
    rows[field].fieldLabel = platform::trimBlanks(lines[header].mid(headerLength));
    const qsizetype last = lines.size() - 1;
    if (header == last)
        return false;
    // The last line of the file gives no description: the end of the file is checked before the current line is used.
    for (qsizetype i = header + 1; i < last && !isSectionHeader(lines[i]); ++i) {
        if (!isBlank(lines[i]))
            describeSubfields(rows, field, lines[i]);
    }
    return true;
}

// Returns the first line of each header.
QHash<QString, qsizetype> headersOf(const QStringList &lines) {
    QHash<QString, qsizetype> headers;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString text = platform::trimBlanks(lines[i]);
        if (const QString header = text.left(headerLength); text.startsWith(u'[') && !headers.contains(header))
            headers.insert(header, i);
    }
    return headers;
}

} // namespace

QString configurationComplaint(const QString &folder, QStringView file, QStringView ending) {
    return u"配置文件【" + folder + file + ending;
}

PickList readFieldList(const QString &folder) {
    if (const QString complaint = missing(folder, fieldListFile); !complaint.isEmpty())
        return {{}, complaint};
    const auto lines = platform::readTextLines(folder + fieldListFile);
    if (!lines)
        return failed(lines.failure().description);
    PickList list;
    for (const QString &line : lines.value()) {
        if (isBlank(line))
            continue;
        const QString tag = line.left(3);
        if (tag != u"???" && !platform::isNumericText(tag)) {
            list.complaint = configurationComplaint(folder, fieldListFile, u"】损坏。");
            break; // the lines before it are in the list already
        }
        list.lines.append(line);
    }
    return list;
}

PickList readSubfieldList(const QString &folder, const QString &tag) {
    if (const QString complaint = missing(folder, subfieldListFile); !complaint.isEmpty())
        return {{}, complaint};
    const auto read = platform::readTextLines(folder + subfieldListFile);
    if (!read)
        return failed(read.failure().description);
    const QStringList &lines = read.value();
    const qsizetype last = lines.size() - 1;
    const QString wanted = u'[' + tag + u']';
    const auto isWanted = [&](const QString &line) { return platform::trimBlanks(line) == wanted; };
    const auto header = std::ranges::find_if(lines, isWanted) - lines.begin();
    if (header == last)
        return failed(u"读取超出了文件末尾。"_s);
    if (header < last && isSectionHeader(lines[header + 1]))
        return {{}, configurationComplaint(folder, subfieldListFile, u"】中还没有子字段。")};
    PickList list;
    // The last line of the file is not used.
    for (qsizetype i = header + 1; i < last && !isSectionHeader(lines[i]); ++i) {
        if (!isBlank(lines[i]))
            list.lines.append(lines[i]);
    }
    if (list.lines.isEmpty())
        list.complaint = configurationComplaint(folder, subfieldListFile, u"】损坏或者还没有本字段名。");
    return list;
}

QString fillDescriptions(FieldRows &rows, const QString &folder) {
    if (const QString complaint = missing(folder, descriptionFile); !complaint.isEmpty())
        return complaint;
    const auto lines = platform::readTextLines(folder + descriptionFile);
    if (!lines)
        return {}; // a failed step is skipped: the rows keep no descriptions
    const QHash<QString, qsizetype> headers = headersOf(lines.value());
    for (qsizetype i = 1; i < rows.size(); ++i) {
        const std::optional<double> tag = platform::toDouble(rows[i].identifier);
        if (!tag || *tag < firstDescribedTag)
            continue;
        const auto header = headers.constFind(u'[' + rows[i].identifier + u']');
        if (header != headers.cend() && !describeField(rows, i, lines.value(), *header))
            break;
    }
    return {};
}

} // namespace marc
