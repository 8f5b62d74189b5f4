// Reads the shipped samples in the workspace and imports them into a server. With IMPORTS=20, MariaDB repeats it 20
// times: build/dev/bin/app_servers_tests, with the servers of scripts/test-servers running.
#include "import/windows/frmDaoRuJindu.h"
#include "support/databaseServers.h"
#include "support/scriptedHost.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"
#include "workspace/windows/frmDaoru.h"

TEST(ImportThroughWindows, ImportsTheSamplesRepeatedly) {
    const int imports = qEnvironmentVariableIsSet("IMPORTS") ? qEnvironmentVariableIntValue("IMPORTS") : 2;
    const TestDatabase database(TestServer::MariaDb);
    ScriptedHost host;
    host.folder = QStringLiteral(PROGRAM_FOLDER);
    host.onYield = [] { QCoreApplication::processEvents(); };
    QString said;
    const auto runImport = [&](std::shared_ptr<const marc::PreReadStore> records, const QString &count, const auto &,
                               QWidget *) {
        importing::frmDaoRuJindu window(host, database.state, std::move(records));
        window.Text2->setText(count);
        window.show();
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.barJinduTishi->isHidden(); }, 50000));
        said = window.labTishi->text();
        return workspace::ImportOutcome{};
    };
    workspace::frmDaoru workspace(host, {.runImport = runImport});
    workspace.publicMarcFile = host.folder + u"/samples/sample.iso";
    workspace.load();
    workspace.show();
    workspace.cmdclick[3]->click(); // reads all records
    const int count = workspace.records().rowCount();
    ASSERT_GT(count, 100);
    for (int import = 1; import <= imports; ++import) {
        workspace.cmdclick[5]->click();
        const QString stored = database.selected(u"select count(*) from taoluTable"_s);
        std::printf("import %d: %s rows stored: %s\n", import, said.toUtf8().constData(), stored.toUtf8().constData());
        ASSERT_EQ(said, u"本次成功处理的记录数：%1"_s.arg(count));
        ASSERT_EQ(stored, QString::number(import * count));
    }
    EXPECT_EQ(host.texts(), QStringList());
}
