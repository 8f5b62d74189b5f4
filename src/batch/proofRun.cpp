#include "batch/proofRun.h"
#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace batch {

ProofRun::ProofRun(std::shared_ptr<const marc::PreReadStore> records, ProofOne proof,
                   const database::SessionState &state, schema::SchemaInForce *schema)
    : m_records(std::move(records))
    , m_state(state)
    , m_proof(m_records, std::move(proof), schema) {}

bool ProofRun::hasNext() const {
    return m_search ? m_search->hasNext() : true;
}

std::vector<Remark> ProofRun::step() {
    if (m_search)
        return m_search->step();
    if (!m_proof.hasNext()) {
        m_search.emplace(m_state, m_proof.takeBooks());
        return {};
    }
    if (const int moment = m_records->replacements(); m_moments.empty() || m_moments.rbegin()->second != moment)
        m_moments[m_proof.next()] = moment;
    return m_proof.step();
}

void ProofRun::end() {
    m_stopped = hasNext();
    if (m_search)
        m_search->end();
}

bool ProofRun::dropSome() {
    if (m_search && m_search->dropSome())
        return true;
    m_search.reset();
    m_proof.takeBooks();
    return false;
}

QString ProofRun::progressText(int found) const {
    if (m_search)
        return m_search->hasNext() ? u"正在查重："_s + m_search->progressText() : u"正在查重"_s;
    return u"正在校对：%1/%2，发现 %3 处"_s.arg(m_proof.proved()).arg(m_proof.total()).arg(found);
}

QString ProofRun::closingText(const RemarkList &found, qint64 inFile) const {
    const qint64 proved = m_proof.proved();
    const qint64 all = std::max<qint64>(inFile, m_proof.total());
    const QString count = proved < all ? u"%1/%2"_s.arg(proved).arg(all) : QString::number(proved);
    return (m_stopped ? u"已停止，"_s : QString()) + u"校对 %1 条，发现 %2 处"_s.arg(count).arg(found.found()) +
           (found.silencedCount() > 0 ? u"，另有 %1 处不再提示"_s.arg(found.silencedCount()) : QString()) +
           (found.count(Kind::Unchecked) > 0 ? u"，有的未能检查"_s : QString());
}

ProofFacts ProofRun::facts(ProofFacts known) const {
    known.rows = m_proof.next();
    known.proved = m_proof.proved();
    known.inFile = std::max<qint64>(known.inFile, m_proof.total());
    known.stopped = hasNext();
    if (const auto &schema = m_proof.schema()) {
        known.schema = schema->title.isEmpty() ? u"（没有题名的模式）"_s : schema->title;
        for (size_t i = 0; i < schema::checkCount; ++i)
            if (!m_proof.checks()[i])
                known.checksOff.append(labelOf(schema::Check(i)).toString());
    }
    return known;
}

int ProofRun::momentOf(int record) const {
    const auto after = m_moments.upper_bound(record);
    return after == m_moments.begin() ? 0 : std::prev(after)->second;
}

} // namespace batch
