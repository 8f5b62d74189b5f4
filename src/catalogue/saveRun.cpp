#include "catalogue/saveRun.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace catalogue {

SaveRun::SaveRun(QList<qint64> keys, platform::Host &host, const database::SessionState &state)
    : m_keys(std::move(keys))
    , m_host(host)
    , m_state(state) {}

QString SaveRun::save(const QString &path, const std::function<void(int done)> &progress) {
    const platform::Status written = write(path, progress);
    if (m_stopped)
        return u"已停止，没有保存。"_s;
    return written ? savedText(path) : u"没有保存："_s + written.failure().description;
}

// Reads in portions, since the records of a whole store would not fit into memory.
platform::Status SaveRun::write(const QString &path, const std::function<void(int done)> &progress) {
    constexpr int rowsAtOnce = 500;
    auto file = platform::SavedFile::create(path);
    if (!file)
        return file.failure();
    m_file = std::move(file).value();
    for (qsizetype from = 0; from < m_keys.size(); from += rowsAtOnce) {
        const QList<qint64> keys = m_keys.mid(from, rowsAtOnce);
        const auto records = recordsOf(keys, m_state);
        if (!records)
            return records.failure();
        for (const qint64 key : keys) {
            if (const QString record = records.value().value(key); record.isEmpty()) {
                ++m_missing;
            } else {
                m_lost.look(record, key);
                if (const platform::Status taken = m_file->write(recordBytes(record).append("\r\n")); !taken)
                    return taken;
                ++m_written;
            }
            progress(m_written + m_missing);
            m_host.yield();
            if (m_stopped)
                return platform::success();
        }
    }
    return m_file->commit();
}

void SaveRun::stop() {
    m_stopped = true;
    m_file.reset();
}

QString SaveRun::savedText(const QString &path) const {
    QString text = u"已保存 %1 条记录到 %2"_s.arg(QString::number(m_written), path);
    if (m_missing > 0)
        text += u"\n有 %1 条已经删除，或没有机读记录，没有保存。"_s.arg(m_missing);
    if (const QString lost = m_lost.words(); !lost.isEmpty())
        text += u'\n' + lost;
    return text;
}

} // namespace catalogue
