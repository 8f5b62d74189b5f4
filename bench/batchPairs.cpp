#include "batch/windows/frmRemarks.h"
#include "database/linkPool.h"
#include "pairs.h"
#include "platform/paths.h"
#include "proof/isbn.h"
#include "proof/structuralProof.h"
#include "proof/templateProof.h"
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

std::optional<double> proofAllInWindow(const BenchStage &stage, std::shared_ptr<const marc::PreReadStore> records) {
    BenchHost host;
    database::LinkPool links;
    const database::SessionState state{links, connectionTo(stage.listDatabase())};
    const QString folder = platform::pathWithSlash(QCoreApplication::applicationDirPath());
    batch::frmRemarks window(host);
    putUp(window);
    const auto taken = timed([&] {
        window.proofAll(
            std::move(records), [&folder](const marc::FieldRows &rows) { return proofsOf(rows, folder); }, state);
        settle();
        return window.labJindu->text().startsWith(u"校对 "_s + QString::number(importCount) + u" 条") &&
               !window.labJindu->text().contains(u"未能");
    });
    return taken;
}

} // namespace

void batchPairs(Table &table, const BenchStage &stage) {
    const auto records = readStore(stage.importRecords());
    const QString shell = u"sqlite3 " + quoted(stage.listDatabase()) +
                          u" 'select zskid,isbn,bookname,author from taoluTable union all "
                          u"select zskid,isbn,bookname,author from zsk' >/dev/null";
    const auto proving = takeTurns("batch", 3, {[&] { return proofAllInWindow(stage, records); }, command(shell)});
    table.speed("prove 20,000 records and look them up in 1,000,000, in the window | sqlite3 lists these", proving[0],
                proving[1], 0);
}

} // namespace bench
