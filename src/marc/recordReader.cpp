#include "marc/recordReader.h"
#include "platform/codepage936.h"

namespace marc {

RecordCutter::RecordCutter(platform::LineReader &reader)
    : m_reader(reader) {}

bool RecordCutter::next() {
    m_buffer.truncate(0);
    m_lineEnds.clear();
    while (!m_reader.atEnd()) {
        const qsizetype before = m_buffer.size();
        m_reader.gatherLineThrough(char(recordTerminator), m_buffer);
        if (m_buffer.size() == before)
            continue;
        // Lines are decoded one by one. That makes a difference only where one ends in half a character.
        if (before > 0 && uchar(m_buffer[before - 1]) > 0x80)
            m_lineEnds.append(before);
        if (m_buffer.back() == char(recordTerminator))
            return true;
        // What never comes to an end is dropped anyway, and must not fill the memory first.
        if (m_buffer.size() > platform::LineReader::heldOnTrust && !m_reader.reaches(char(recordTerminator)))
            break;
    }
    m_buffer.clear();
    return false;
}

RawRecord RecordCutter::record() const {
    if (m_lineEnds.isEmpty())
        return platform::decode(m_buffer);
    RawRecord text;
    qsizetype from = 0;
    for (const qsizetype end : m_lineEnds) {
        text += platform::decode(bytes().sliced(from, end - from));
        from = end;
    }
    return text + platform::decode(bytes().sliced(from));
}

void cutRecord(platform::LineReader &reader, const std::function<bool(const RawRecord &)> &consumer) {
    RecordCutter cutter(reader);
    while (cutter.next() && consumer(cutter.record())) {
    }
}

platform::Result<qint64> lineCount(const QString &path) {
    return platform::countLines(path);
}

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

bool SubfieldWalk::next() {
    const qsizetype at = m_rest.indexOf(QChar(subfieldDelimiter));
    if (at < 0)
        return false;
    const qsizetype following = m_rest.indexOf(QChar(subfieldDelimiter), at + 1);
    const bool last = at == m_rest.size() - 1;
    m_negativeLength = following == at + 1 || (last && m_first);
    m_rest = m_rest.sliced(at + 1);
    m_code = m_rest.first(last ? 0 : 1);
    m_value = last || m_negativeLength ? QStringView()
              : following < 0          ? m_rest.sliced(1)
                                       : m_rest.sliced(1, following - at - 2);
    m_first = false;
    return true;
}

QList<Subfield> splitSubfields(QStringView field) {
    QList<Subfield> found;
    for (SubfieldWalk walk(field); walk.next();)
        found.append({walk.code().toString(), walk.value().toString(), walk.negativeLength()});
    return found;
}

} // namespace marc
