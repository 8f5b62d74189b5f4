#include "marc/directory.h"
#include "platform/codepage936.h"
#include <algorithm>
#include <utility>

namespace marc {

DirectoryView viewDirectory(QStringView record) {
    DirectoryView view;
    view.leader = record.first(std::min<qsizetype>(leaderLength, record.size()));
    view.baseAddress = view.leader.mid(baseAddressAt, baseAddressLength);
    // A terminator inside the leader gives a directory of negative length, as none at all does.
    const qsizetype length = record.indexOf(QChar(fieldTerminator)) - leaderLength;
    view.hasFieldTerminator = length >= 0;
    view.damaged = view.hasFieldTerminator && length % directoryEntryLength != 0;
    if (view.hasFieldTerminator && !view.damaged)
        view.text = record.sliced(leaderLength, length);
    return view;
}

Directory decodeDirectory(const RawRecord &record) {
    const DirectoryView view = viewDirectory(record);
    Directory directory{view.leader.toString(), view.baseAddress.toString(), view.hasFieldTerminator, view.damaged, {}};
    directory.entries.reserve(view.count());
    for (qsizetype i = 0; i < view.count(); ++i)
        directory.entries.append({view.tag(i).toString(), view.length(i).toString(), view.start(i).toString()});
    return directory;
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
    const qint64 at = base + start; // from 0
    if (at < 0 || length < 0)
        return std::nullopt;
    if (at >= m_bytes.size())
        return QByteArrayView();
    return QByteArrayView(m_bytes).sliced(at, std::min<qint64>(length, m_bytes.size() - at));
}

} // namespace marc
