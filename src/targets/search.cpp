#include "targets/search.h"
#include <algorithm>

using namespace Qt::StringLiterals;
using Stage = targets::Progress::Stage;

namespace targets {

namespace {

bool isEnded(Stage stage) {
    return stage == Stage::Done || stage == Stage::Failed || stage == Stage::Stopped;
}

} // namespace

QString Progress::words() const {
    const QString counted = hits < 0 ? QString() : u"已取 %1 条，共 %2 条"_s.arg(delivered).arg(hits);
    const QString damaged = unreadable > 0 ? u"，其中 %1 条读不懂"_s.arg(unreadable) : QString();
    switch (stage) {
    case Stage::Waiting:
        return u"还没有检索"_s;
    case Stage::Connecting:
        return u"正在连接…"_s;
    case Stage::Fetching:
        return hits < 0 ? u"正在检索…"_s : counted + damaged;
    case Stage::Done:
        return hits == 0 ? u"没有找到"_s : counted + damaged;
    case Stage::Failed:
        return counted.isEmpty() ? fault : counted + damaged + u"；" + fault;
    case Stage::Stopped:
        return counted.isEmpty() ? u"已停止"_s : counted + damaged + u"，已停止";
    }
    return {};
}

Search::Search(const TargetList &targets, Limits limits, Bounds bounds)
    : m_bounds(bounds) {
    m_parts.reserve(targets.size());
    for (const Target &target : targets) {
        m_parts.push_back({.link = std::unique_ptr<TargetLink, Later>(new TargetLink(target, limits)),
                           .decoder = RecordDecoder(target.recordCharset)});
        connectPart(int(m_parts.size()) - 1);
    }
}

void Search::connectPart(int index) {
    Part &part = m_parts[size_t(index)];
    TargetLink *const link = part.link.get();
    connect(link, &TargetLink::connected, this, [this, index] {
        m_parts[size_t(index)].progress.stage = Stage::Fetching;
        Q_EMIT progressed(index);
    });
    connect(link, &TargetLink::arrived, this, [this, index](const Answer &record) { deliver(index, record); });
    connect(link, &TargetLink::missing, this,
            [this, index](qint64 at, const QString &why) { passOver(index, at, why); });
    connect(link, &TargetLink::answered, this, [this, index] {
        Part &part = m_parts[size_t(index)];
        part.progress.hits = part.link->hits();
        Q_EMIT progressed(index);
        fetchNext(index);
    });
    connect(link, &TargetLink::failed, this,
            [this, index](const LinkFault &fault) { end(index, Stage::Failed, fault.words); });
}

void Search::start(const Query &query) {
    stop();
    m_active = count();
    for (int index = 0; index < count(); ++index) {
        Part &part = m_parts[size_t(index)];
        part.progress = {.stage = Stage::Connecting};
        part.most = m_bounds.records;
        const auto composed = composeQuery(query, part.link->target());
        if (!composed) {
            part.link->refuse({LinkFault::Kind::BadQuery, composed.failure().description});
            continue;
        }
        part.link->search(composed.value(), int(std::min<qint64>(Wire::portion, part.most)));
    }
    if (m_active == 0)
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT finished(); }, Qt::QueuedConnection);
}

void Search::deliver(int index, const Answer &record) {
    Part &part = m_parts[size_t(index)];
    auto decoded = part.decoder.decode(record.bytes);
    if (!decoded)
        return passOver(index, record.at, decoded.failure().description);
    part.progress.hits = part.link->hits();
    ++part.progress.delivered;
    part.progress.bytes += record.bytes.size();
    Q_EMIT found(index, {record.at, record.bytes.size(), std::move(decoded).value()});
}

void Search::passOver(int index, qint64 at, const QString &why) {
    Progress &progress = m_parts[size_t(index)].progress;
    ++progress.delivered;
    ++progress.unreadable;
    Q_EMIT unreadable(index, at, why);
}

void Search::fetchNext(int index) {
    Part &part = m_parts[size_t(index)];
    Progress &progress = part.progress;
    if (isEnded(progress.stage)) // stopped by a receiver of the signal
        return;
    const qint64 until = std::min(part.most, progress.hits);
    if (progress.bytes > m_bounds.bytes)
        return end(index, Stage::Failed, u"记录一共超过 %1 MB，不再取"_s.arg(m_bounds.bytes >> 20));
    if (progress.delivered >= until) {
        progress.mayGoOn = progress.delivered < progress.hits;
        return end(index, Stage::Done);
    }
    part.link->fetch(progress.delivered, int(std::min<qint64>(Wire::portion, until - progress.delivered)));
}

void Search::fetchMore(int target) {
    Part &part = m_parts[size_t(target)];
    if (!part.progress.mayGoOn)
        return;
    part.progress.mayGoOn = false;
    part.progress.stage = Stage::Fetching;
    part.most += m_bounds.records;
    ++m_active;
    fetchNext(target);
}

void Search::end(int index, Stage stage, const QString &fault) {
    Progress &progress = m_parts[size_t(index)].progress;
    if (isEnded(progress.stage))
        return;
    progress.stage = stage;
    progress.fault = fault;
    const bool isLast = --m_active == 0;
    Q_EMIT progressed(index);
    if (isLast && m_active == 0)
        Q_EMIT finished();
}

void Search::stop() {
    for (Part &part : m_parts) {
        part.link->stop();
        if (part.progress.stage == Stage::Connecting || part.progress.stage == Stage::Fetching)
            part.progress.stage = Stage::Stopped;
    }
    if (std::exchange(m_active, 0) == 0)
        return;
    for (int index = 0; index < count(); ++index)
        Q_EMIT progressed(index);
    Q_EMIT finished();
}

} // namespace targets
