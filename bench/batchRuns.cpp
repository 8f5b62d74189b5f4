#include "batchRuns.h"
#include "app/startUp.h"
#include "batch/windows/remarksPane.h"
#include "database/linkPool.h"
#include "platform/paths.h"
#include "proof/proofChain.h"
#include "sideBySide.h"
#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace bench {

std::optional<double> proofAllInWindow(const QString &database, std::shared_ptr<const marc::PreReadStore> records) {
    const QString counted = u"校对 "_s + QString::number(records->rowCount()) + u" 条";
    BenchHost host;
    database::LinkPool links(app::tableNames());
    const database::SessionState state{links, connectionTo(database)};
    const QString folder = platform::pathWithSlash(QCoreApplication::applicationDirPath());
    proof::RecordProofs proofs(folder);
    batch::RemarksPane pane(host, {.records = records,
                                   .recordsInFile = [&] { return qint64(records->rowCount()); },
                                   .proof = [&](const marc::FieldRows &rows) { return proofs.faultsOf(rows); },
                                   .state = state,
                                   .schema = std::make_shared<schema::SchemaInForce>(host.settings(), folder)});
    putUp(pane);
    const auto taken = timed([&] {
        pane.proofAll();
        settle();
        const QString words = pane.proofTable->words->text();
        return words.startsWith(counted) && !words.contains(u"未能");
    });
    return taken;
}

QString identitiesCommand(const QString &database) {
    return u"sqlite3 " + quoted(database) +
           u" 'select zskid,isbn,bookname,author from taoluTable union all "
           u"select zskid,isbn,bookname,author from zsk' >/dev/null";
}

} // namespace bench
