#include "batchRuns.h"
#include "app/startUp.h"
#include "platform/paths.h"
#include "sideBySide.h"
#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace bench {

ProofPane::ProofPane(const QString &database, std::shared_ptr<const marc::PreReadStore> records)
    : m_records(std::move(records))
    , m_links(app::tableNames())
    , m_state{m_links, connectionTo(database)}
    , m_folder(platform::pathWithSlash(QCoreApplication::applicationDirPath()))
    , m_proofs(m_folder)
    , pane(host, {.records = m_records,
                  .recordsInFile = [this] { return qint64(m_records->rowCount()); },
                  .proof = [this](const marc::FieldRows &rows) { return m_proofs.faultsOf(rows); },
                  .state = m_state,
                  .schema = std::make_shared<schema::SchemaInForce>(host.settings(), m_folder)}) {
    putUp(pane);
}

bool ProofPane::proofAll() {
    pane.proofAll();
    settle();
    const QString words = pane.proofTable->words->text();
    return words.startsWith(u"校对 %1 条"_s.arg(m_records->rowCount())) && !words.contains(u"未能");
}

std::optional<double> proofAllInWindow(const QString &database, std::shared_ptr<const marc::PreReadStore> records) {
    ProofPane run(database, std::move(records));
    return timed([&run] { return run.proofAll(); });
}

QString identitiesCommand(const QString &database) {
    return u"sqlite3 " + quoted(database) +
           u" 'select zskid,isbn,bookname,author from taoluTable union all "
           u"select zskid,isbn,bookname,author from zsk' >/dev/null";
}

} // namespace bench
