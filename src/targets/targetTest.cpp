#include "targets/targetTest.h"
#include "targets/recordSummary.h"

using namespace Qt::StringLiterals;

namespace targets {

TargetTest::TargetTest(const Target &target, const QString &isbn, Limits limits)
    : m_search({target}, limits, {.records = 1})
    , m_isbn(isbn) {
    connect(&m_search, &Search::found, this, [this](int, const Fetched &record) {
        m_first = summaryOf(record.decoded.record).title;
        m_damaged += record.decoded.damaged;
    });
    connect(&m_search, &Search::finished, this, [this] { end(); });
}

void TargetTest::start() {
    m_stopped = false;
    m_first.clear();
    m_damaged = 0;
    m_search.start({.isbn = m_isbn});
}

void TargetTest::stop() {
    m_stopped = true;
    m_search.stop();
}

void TargetTest::end() {
    const Progress &progress = m_search.progress(0);
    if (m_stopped)
        return;
    if (progress.stage == Progress::Stage::Failed) {
        Q_EMIT finished(false, progress.fault);
        return;
    }
    QStringList words;
    if (const QString &name = m_search.serverName(0); !name.isEmpty())
        words.append(u"服务器：%1"_s.arg(name));
    words.append(u"检索 ISBN %1：%2 条"_s.arg(m_isbn).arg(progress.hits));
    if (progress.unreadable > 0)
        words.append(u"第一条读不懂，请换一种记录格式"_s);
    else if (progress.hits > 0)
        words.append(u"第一条是“%1”"_s.arg(m_first));
    if (m_damaged > 0)
        words.append(u"有 %1 处读不成字，请改记录的编码"_s.arg(m_damaged));
    Q_EMIT finished(true, words.join(u"；"_s));
}

} // namespace targets
