#include "batch/windows/frmRemarks.h"
#include "support/databaseServers.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"
#include <QSignalSpy>

using namespace batch;

namespace {

struct RemarksWindow : testing::Test {
    ScriptedHost host;
    TestDatabase database;
    std::shared_ptr<marc::PreReadStore> records = std::make_shared<marc::PreReadStore>();
    std::unique_ptr<frmRemarks> window = std::make_unique<frmRemarks>(host);

    RemarksWindow() {
        database.run(u"insert into zsk (zskid,isbn,bookname) values (9,'9787020012596','呐喊')"_s);
        for (int row = 0; row < 3; ++row) {
            records->setRecord(row, recordOf(u"010=  $a7-02-001259-0|011=  $a1000-0004"_s));
            records->setTitle(row, u"题"_s + QString::number(row + 1));
        }
    }
    void run() {
        window->proofAll(
            records, [](const marc::FieldRows &) { return ProofReports{}; }, database.state);
    }
    QStringList kinds() const {
        QStringList texts;
        for (int i = 0; i < window->cmbLeibie->count(); ++i)
            texts.append(window->cmbLeibie->itemText(i));
        return texts;
    }
    void choose(int kind) {
        window->cmbLeibie->setFocus();
        QTest::keyClick(window->cmbLeibie, kind > window->cmbLeibie->currentIndex() ? Qt::Key_Down : Qt::Key_Up);
        ASSERT_EQ(window->cmbLeibie->currentIndex(), kind);
    }
};

} // namespace

TEST_F(RemarksWindow, ProvesLooksUpAndLeadsToTheRecord) {
    QStringList said;
    host.onYield = [&] {
        said.append(window->labJindu->pacedText());
        EXPECT_TRUE(QTest::qWaitFor([this] { return window->Grid1->model()->rowCount() > 0; })); // seen as they come
        EXPECT_TRUE(window->cmdStop->isVisible());
    };
    run();
    EXPECT_EQ(said.value(1), u"正在校对：2/3，发现 3 处"_s);
    EXPECT_TRUE(said.value(said.size() - 2).startsWith(u"正在查重：书库")) << said.join(u'\n').toStdString();
    EXPECT_EQ(window->labJindu->text(), u"校对 3 条，发现 8 处"_s);
    EXPECT_FALSE(window->cmdStop->isVisible() || window->cmdIso->isVisible());
    EXPECT_EQ(kinds(), (QStringList{u"全部 (8)"_s, u"ISSN (3)"_s, u"批内重复 (2)"_s, u"查重 (3)"_s}));

    QSignalSpy jumps(window.get(), &frmRemarks::jump);
    QTest::keyClick(window->Grid1, Qt::Key_Down);
    QTest::keyClick(window->Grid1, Qt::Key_Return);
    EXPECT_EQ(window->labShuoming->text(), u"书库已有相同ISBN：控制号 9《呐喊》"_s);
    choose(1);
    EXPECT_EQ(window->Grid1->rows(), 4);
    QTest::keyClick(window->Grid1, Qt::Key_Down);
    QTest::keyClick(window->Grid1, Qt::Key_Enter);
    EXPECT_EQ(jumps, (QList<QVariantList>{{0, 3}, {1, 5}}));

    window->cmdCopy->click();
    EXPECT_EQ(QApplication::clipboard()->text().count(u'\n'), 4);
    const TestFolder folder;
    host.willChoose(folder.path(u"表"_s)); // gets its suffix
    window->cmdSave->click();
    host.willChoose(folder.path(u"表.tsv"_s));
    host.willAnswer(platform::Answer::No);
    choose(0);
    window->cmdSave->click();
    EXPECT_EQ(folder.read(u"表.tsv"_s).count('\n'), 4);
    EXPECT_EQ(host.texts(), QStringList{u"文件【"_s + folder.path(u"表.tsv"_s) + u"】已经存在，是否替换？"});
    host.willChoose(folder.path(u"没有/表.tsv"_s));
    window->cmdSave->click();
    EXPECT_TRUE(host.lastBox().text.startsWith(u"保存失败：【"));
}

TEST_F(RemarksWindow, StopsAtOnceAndBeginsAnew) {
    host.onYield = [&, yields = 0]() mutable {
        if (++yields == 2)
            QTest::keyClick(window->cmdStop, Qt::Key_Return);
        if (yields == 3) { // another list, asked for from within the run over the first
            records = std::make_shared<marc::PreReadStore>();
            run();
        }
    };
    run();
    EXPECT_EQ(window->labJindu->text(), u"已停止，校对 2 条，发现 3 处"_s);
    EXPECT_FALSE(window->cmdStop->isVisible());
    run();
    EXPECT_EQ(window->labJindu->text(), u"校对 0 条，发现 0 处"_s);
    EXPECT_EQ(kinds(), QStringList{u"全部 (0)"_s});
    QTest::keyClick(window->Grid1, Qt::Key_Return); // leads nowhere
}

// In mid-run the window is closed, the one behind it goes, or the object itself; each time while proving and looking
// up.
TEST_F(RemarksWindow, LeavesWhenItsWindowGoes) {
    for (const int when : {2, 21}) {
        QWidget behind;
        behind.show();
        window = std::make_unique<frmRemarks>(host, &behind);
        int yields = 0;
        const auto at = [&](const std::function<void()> &act) {
            yields = 0;
            host.onYield = [&yields, when, act] {
                if (++yields == when)
                    act();
            };
            run();
            EXPECT_EQ(yields, when);
        };
        at([this] { window->close(); });
        EXPECT_TRUE(window->labJindu->text().startsWith(u"已停止")) << window->labJindu->text().toStdString();
        at([&behind] { behind.hide(); });
        behind.show();
        at([this] { window.reset(); });
    }
}

TEST_F(RemarksWindow, ListsRefusedRecordsAndTakesThemOut) {
    window->showRefused({{2, u"重复的\n键"_s}, {1, u"太长"_s}}, records);
    EXPECT_EQ(window->windowTitle() + window->labJindu->text(), u"未成功记录未成功 2 条"_s);
    EXPECT_EQ(window->Grid1->text(1, 1) + window->Grid1->text(1, 4), u"题2太长"_s);
    const TestFolder folder;
    host.willChoose(folder.path(u"拒"_s));
    window->cmdIso->click();
    EXPECT_EQ(folder.read(u"拒.iso"_s).count("\x1D\r\n"), 2);
    QSignalSpy jumps(window.get(), &frmRemarks::jump);
    QTest::keyClick(window->Grid1, Qt::Key_Return);
    EXPECT_EQ(jumps, (QList<QVariantList>{{1, 0}}));

    database.state.connectionString = u"Driver=SQLite3;Database=/nowhere/none.db;NoCreat=1;"_s;
    run();
    EXPECT_FALSE(window->cmdIso->isVisible());
    EXPECT_EQ(window->labJindu->text(), u"校对 3 条，发现 5 处，有的未能检查"_s);
    window->Grid1->setRow(1); // what concerns no record leads nowhere
    QTest::keyClick(window->Grid1, Qt::Key_Return);
    EXPECT_EQ(jumps.size(), 1);
}
