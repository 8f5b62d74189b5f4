#include "batchRuns.h"
#include "app/startUp.h"
#include "batch/windows/frmRemarks.h"
#include "database/linkPool.h"
#include "platform/paths.h"
#include "proof/isbn.h"
#include "proof/structuralProof.h"
#include "proof/templateProof.h"
#include "sideBySide.h"
#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

batch::ProofReports proofsOf(const marc::FieldRows &rows, const QString &folder) {
    const auto byTemplate = proof::proofTemplate(rows, folder);
    return {.structural = proof::proofFields(rows),
            .byTemplate = byTemplate ? byTemplate.value().report : QString(),
            .isbn = proof::proofISBN(rows).value_or(QString()),
            .complaint = byTemplate ? byTemplate.value().complaint : byTemplate.failure().description};
}

} // namespace

std::optional<double> proofAllInWindow(const QString &database, std::shared_ptr<const marc::PreReadStore> records) {
    const QString counted = u"校对 "_s + QString::number(records->rowCount()) + u" 条";
    BenchHost host;
    database::LinkPool links(app::tableNames());
    const database::SessionState state{links, connectionTo(database)};
    const QString folder = platform::pathWithSlash(QCoreApplication::applicationDirPath());
    batch::frmRemarks window(host);
    putUp(window);
    const auto taken = timed([&] {
        window.proofAll(
            std::move(records), [&folder](const marc::FieldRows &rows) { return proofsOf(rows, folder); }, state);
        settle();
        return window.labJindu->text().startsWith(counted) && !window.labJindu->text().contains(u"未能");
    });
    return taken;
}

QString identitiesCommand(const QString &database) {
    return u"sqlite3 " + quoted(database) +
           u" 'select zskid,isbn,bookname,author from taoluTable union all "
           u"select zskid,isbn,bookname,author from zsk' >/dev/null";
}

} // namespace bench
