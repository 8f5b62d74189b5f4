#include "marc/fieldedRecord.h"
#include "marc/directory.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include <algorithm>
#include <utility>

namespace marc {

namespace {

// Returns whether the text is the number, with leading zeros.
bool isNumber(QStringView digits, qsizetype number) {
    for (qsizetype i = digits.size(); i-- > 0; number /= 10) {
        if (digits[i].unicode() != u'0' + number % 10)
            return false;
    }
    return number == 0;
}

// Takes the fields of a record whose directory has them in the order in which they are stored, as nearly all do,
// without encoding the record. Returns false if the directory differs from the fields in any respect.
bool takeInOrder(QStringView record, const DirectoryView &directory, std::vector<Field> &fields) {
    const qsizetype base = baseAddress(directory.count());
    if (!isNumber(directory.baseAddress, base) || platform::gbkLength(record.first(base)) != base)
        return false;
    qsizetype start = 0; // in bytes
    qsizetype at = base; // in characters
    for (qsizetype i = 0; i < directory.count(); ++i) {
        const qsizetype end = record.indexOf(QChar(fieldTerminator), at);
        if (end < 0)
            return false;
        const QStringView content = record.sliced(at, end - at);
        const qsizetype length = platform::gbkLength(content) + 1;
        if (!isNumber(directory.length(i), length) || !isNumber(directory.start(i), start))
            return false;
        fields[size_t(i)].tag.setUnicode(directory.tag(i).data(), tagLength);
        fields[size_t(i)].content.setUnicode(content.data(), content.size());
        start += length;
        at = end + 1;
    }
    return record.size() - at == 1 && record[at] == QChar(recordTerminator);
}

using Place = std::pair<qint64, qint64>; // start and length of a field

// Returns whether fields at these places are all of a record's data, and the record terminator follows them.
bool areAllData(std::vector<Place> places, QByteArrayView record, qint64 base) {
    std::ranges::sort(places);
    qint64 expected = 0;
    for (const auto &[start, length] : places) {
        if (start != expected || length < 1)
            return false;
        expected += length;
    }
    return base + expected == record.size() - 1 && record.back() == char(recordTerminator);
}

// Takes each field from the bytes to which its entry refers. An entry that refers to no bytes gives no field.
Cut takeByEntries(const RawRecord &record, const DirectoryView &directory, std::vector<Field> &fields) {
    const QByteArray gbk = platform::encode(record);
    const FieldCutter cutter = FieldCutter::over(gbk);
    FieldAllowance allowance(cutter);
    const qint64 base = platform::toInt32(directory.baseAddress).value_or(0);
    bool exact = base == gbk.indexOf(char(fieldTerminator)) + 1;
    std::vector<Place> places;
    fields.clear();
    for (qsizetype i = 0; i < directory.count(); ++i) {
        const std::optional<qint32> start = platform::toInt32(directory.start(i));
        const std::optional<qint32> length = platform::toInt32(directory.length(i));
        const auto bytes = start && length ? cutter.cutBytes(base, *start, *length) : std::nullopt;
        exact = exact && bytes && bytes->indexOf(char(fieldTerminator)) == bytes->size() - 1;
        if (!bytes || bytes->isEmpty())
            continue;
        if (!allowance.admits(bytes->size()))
            break;
        places.emplace_back(*start, *length);
        const bool ended = bytes->back() == char(fieldTerminator);
        fields.push_back({directory.tag(i).toString(), platform::decode(bytes->chopped(ended ? 1 : 0))});
    }
    exact = exact && qsizetype(places.size()) == directory.count() && areAllData(std::move(places), gbk, base);
    return exact ? Cut::Exact : Cut::Inexact;
}

} // namespace

bool isTag(QByteArrayView tag) {
    const auto isLetterOrDigit = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    return tag.size() == tagLength && std::ranges::all_of(tag, isLetterOrDigit);
}

QString fitLeader(QByteArrayView leader) {
    QString text(leaderLength, u' ');
    const QByteArrayView kept = leader.first(std::min<qsizetype>(leaderLength, leader.size()));
    std::transform(kept.begin(), kept.end(), text.begin(),
                   [](char c) { return c < ' ' || c > '~' ? QChar(u' ') : QChar(char16_t(c)); });
    return text;
}

Subfields::Subfields(QStringView content) {
    if (const qsizetype first = content.indexOf(QChar(subfieldDelimiter)); first >= 0)
        m_fromFirst = content.sliced(first);
}

void Subfields::Iterator::findEnd() {
    const qsizetype next = m_rest.indexOf(QChar(subfieldDelimiter), 1);
    m_size = next < 0 ? m_rest.size() : next;
}

Subfield Subfields::Iterator::operator*() const {
    const QStringView whole = m_rest.sliced(1, m_size - 1);
    const qsizetype code = whole.isEmpty() ? 0 : whole.size() > 1 && whole.front().isHighSurrogate() ? 2 : 1;
    return {whole.first(code), whole.sliced(code)};
}

QStringView Field::beforeSubfields() const {
    const qsizetype first = content.indexOf(QChar(subfieldDelimiter));
    return QStringView(content).first(first < 0 ? content.size() : first);
}

std::optional<QStringView> Field::subfield(QChar code) const {
    for (const Subfield part : subfields()) {
        if (part.code == code)
            return part.text;
    }
    return std::nullopt;
}

void Field::setBeforeSubfields(QStringView text) {
    content.replace(qsizetype(0), beforeSubfields().size(), text.data(), text.size());
}

void Field::insertSubfield(int index, QStringView code, QStringView text) {
    const auto at = placeOf(index);
    const QString added = QChar(subfieldDelimiter) + code + text;
    content.insert(at.first, added);
}

void Field::setSubfield(int index, QStringView text) {
    const auto [at, size] = placeOf(index);
    if (size == 0)
        return;
    const qsizetype head = 1 + (*Subfields::Iterator(QStringView(content).sliced(at))).code.size();
    content.replace(at + head, size - head, text.data(), text.size());
}

void Field::removeSubfield(int index) {
    const auto [at, size] = placeOf(index);
    content.remove(at, size);
}

// Returns the offset and the size of a subfield with its delimiter; the end of the content and 0 if there is none.
std::pair<qsizetype, qsizetype> Field::placeOf(int index) const {
    qsizetype at = beforeSubfields().size();
    const Subfields all = subfields();
    for (auto part = all.begin(); part != all.end(); ++part, --index) {
        if (index == 0)
            return {at, part.size()};
        at += part.size();
    }
    return {content.size(), 0};
}

Cut FieldedRecord::take(QStringView record) {
    const DirectoryView directory = viewDirectory(record);
    leader.setUnicode(directory.leader.data(), directory.leader.size());
    fields.resize(size_t(directory.count()));
    if (!directory.hasFieldTerminator || directory.damaged)
        return Cut::None;
    if (takeInOrder(record, directory, fields))
        return Cut::Exact;
    return takeByEntries(record.toString(), directory, fields);
}

bool FieldedRecord::take(QByteArrayView leaderText, QByteArrayView tags, QStringView data) {
    leader = fitLeader(leaderText);
    fields.resize(size_t(tags.size() / tagLength));
    qsizetype at = 0;
    for (size_t i = 0; i < fields.size(); ++i) {
        const qsizetype end = data.indexOf(QChar(fieldTerminator), at);
        const qsizetype size = end < 0 ? 0 : end - at;
        if (fields[i].tag.size() != tagLength)
            fields[i].tag.resize(tagLength);
        std::transform(tags.begin() + qsizetype(i) * tagLength, tags.begin() + qsizetype(i + 1) * tagLength,
                       fields[i].tag.begin(), [](char c) { return QChar(char16_t(uchar(c))); });
        fields[i].content.setUnicode(data.data() + at, size);
        if (end < 0)
            return false;
        at = end + 1;
    }
    return at == data.size();
}

size_t FieldedRecord::placeFor(QStringView tag) const {
    const auto last =
        std::ranges::find_if(fields.rbegin(), fields.rend(), [&](const Field &field) { return field.tag <= tag; });
    return size_t(last.base() - fields.begin());
}

} // namespace marc
