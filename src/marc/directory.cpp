#include "marc/directory.h"
#include "platform/byteFile.h"
#include "platform/codepage936.h"
#include <algorithm>
#include <utility>

namespace marc {

namespace {

// Returns the value of the digits, ignoring surrounding blanks; a negative number if they are not digits.
qint64 number(QByteArrayView digits) {
    const qint64 value = numberOf(digits);
    return value < 0 ? numberOf(digits.trimmed()) : value;
}

} // namespace

DirectoryView viewDirectory(QStringView record) {
    DirectoryView view;
    view.leader = record.first(std::min<qsizetype>(leaderLength, record.size()));
    view.baseAddress = view.leader.mid(baseAddressAt, baseAddressLength);
    // A terminator inside the leader makes the length negative, like a missing one.
    const qsizetype length = record.indexOf(QChar(fieldTerminator)) - leaderLength;
    view.hasFieldTerminator = length >= 0;
    view.damaged = view.hasFieldTerminator && length % directoryEntryLength != 0;
    if (view.hasFieldTerminator && !view.damaged)
        view.text = record.sliced(leaderLength, length);
    return view;
}

bool directoryFits(QByteArrayView record) {
    constexpr char end = char(fieldTerminator);
    const qsizetype dataAt = record.indexOf(end) + 1;
    const qsizetype entries = dataAt - 1 - leaderLength;
    if (dataAt == 0 || entries < 0 || entries % directoryEntryLength != 0)
        return false;
    const qint64 base = number(record.sliced(baseAddressAt, baseAddressLength));
    if (base < 0 || platform::countByte(record.sliced(dataAt), end) != entries / directoryEntryLength)
        return false;
    for (qsizetype entry = leaderLength; entry < dataAt - 1; entry += directoryEntryLength) {
        const qint64 length = number(record.sliced(entry + tagLength, fieldLengthWidth));
        const qint64 start = number(record.sliced(entry + fieldStartAt, fieldStartWidth));
        const qint64 at = base + start;
        if (length < 1 || start < 0 || at < dataAt || at + length > record.size() || record[at - 1] != end ||
            record.sliced(at, length).indexOf(end) != length - 1)
            return false;
    }
    return true;
}

FieldCutter::FieldCutter(const RawRecord &record)
    : FieldCutter(platform::encode(record)) {}

FieldCutter::FieldCutter(QByteArray bytes)
    : m_bytes(std::move(bytes)) {}

FieldCutter FieldCutter::over(QByteArrayView gbk) {
    return FieldCutter(QByteArray::fromRawData(gbk.data(), gbk.size()));
}

std::optional<QString> FieldCutter::cut(qint64 base, qint64 start, qint64 length) const {
    const std::optional<QByteArrayView> bytes = cutBytes(base, start, length);
    if (!bytes)
        return std::nullopt;
    return platform::decode(*bytes);
}

std::optional<QByteArrayView> FieldCutter::cutBytes(qint64 base, qint64 start, qint64 length) const {
    const qint64 at = base + start; // counted from 0
    if (at < 0 || length < 0)
        return std::nullopt;
    if (at >= m_bytes.size())
        return QByteArrayView();
    return QByteArrayView(m_bytes).sliced(at, std::min<qint64>(length, m_bytes.size() - at));
}

} // namespace marc
