#include "batch/windows/remarksPane.h"
#include "batch/windows/frmBatchReport.h"
#include "support/databaseServers.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"
#include <QSignalSpy>

using namespace batch;

namespace {

struct RemarksPaneTest : testing::Test {
    ScriptedHost host;
    TestDatabase database;
    std::shared_ptr<marc::PreReadStore> records = std::make_shared<marc::PreReadStore>();
    qint64 inFile = 0;
    std::unique_ptr<RemarksPane> pane;
    QList<marc::FieldPlace> jumps;

    RemarksPaneTest() {
        database.run(u"insert into zsk (zskid,isbn,bookname) values (9,'9787020012596','呐喊')"_s);
        for (int row = 0; row < 3; ++row)
            put(row);
        make();
    }
    void put(int row) {
        records->setRecord(row, recordOf(u"010=  $a7-02-001259-0|011=  $a1000-0004"_s));
        records->setTitle(row, u"题"_s + QString::number(row + 1));
    }
    void make() {
        pane = std::make_unique<RemarksPane>(
            host, RemarksPane::Source{.records = records,
                                      .recordsInFile = [this] { return inFile; },
                                      .proof = [](const marc::FieldRows &) { return proof::RecordFaults{}; },
                                      .state = database.state});
        QObject::connect(pane.get(), &RemarksPane::jump,
                         [this](const marc::FieldPlace &place) { jumps.append(place); });
        pane->show();
    }
    RemarkTable &proof() { return *pane->proofTable; }
    QString text() { return proof().remarkText->toPlainText().section(u'\n', 0, 0); }
    QString words() { return proof().words->text(); }
    QStringList kinds() {
        QStringList texts;
        for (int i = 0; i < proof().filterBar->ruleBox->count(); ++i)
            texts.append(proof().filterBar->ruleBox->itemText(i));
        return texts;
    }
    void choose(int kind) {
        QComboBox *box = proof().filterBar->ruleBox;
        box->setFocus();
        QTest::keyClick(box, kind > box->currentIndex() ? Qt::Key_Down : Qt::Key_Up);
        ASSERT_EQ(box->currentIndex(), kind);
    }
    QString lastJump() const {
        return u"%1 %2 %3"_s.arg(jumps.last().record).arg(jumps.last().fieldRow).arg(jumps.last().moment);
    }
    // Returns the text of the report about the last run.
    QString reported() {
        QString facts;
        QTimer::singleShot(0, pane.get(), [&facts] {
            auto *report = qobject_cast<frmBatchReport *>(QApplication::activeModalWidget());
            ASSERT_TRUE(report && QTest::qWaitFor([report] { return report->report().has_value(); }));
            facts = report->facts->text();
            report->close();
        });
        pane->reportButtons->reportButton->click();
        return facts;
    }
    // Calls `act` once, at this yield of the run.
    void at(int turn, const std::function<void()> &act) {
        host.onYield = [act, turn, turns = 0]() mutable {
            if (++turns == turn)
                act();
        };
    }
};

} // namespace

TEST_F(RemarksPaneTest, ChecksLooksUpAndJumpsToTheRecord) {
    EXPECT_TRUE(proof().remarkText->isReadOnly() && !pane->stopButton->isVisible());
    EXPECT_TRUE(pane->toRefusedButton->isHidden() && pane->toProofButton->isHidden());
    EXPECT_TRUE(pane->reportButtons->schemaButton->isHidden() && !pane->skipBox->isEnabled());
    pane->setFocus();
    EXPECT_EQ(pane->window()->focusWidget(), proof().grid);
    EXPECT_FALSE(pane->violatedRules());
    EXPECT_EQ(proof().grid->accessibleName() + pane->refusedTable->grid->accessibleName(), u"校对结果未成功记录"_s);
    QStringList said;
    host.onYield = [&] {
        said.append(proof().words->pacedText());
        EXPECT_TRUE(QTest::qWaitFor([this] { return proof().grid->model()->rowCount() > 0; })); // listed during the run
        EXPECT_TRUE(pane->stopButton->isVisible());
        EXPECT_GT(pane->stopButton->y(), proof().filterBar->geometry().bottom());
        if (said.size() == 2)
            put(0); // already checked: later remarks about it refer to the previous version
    };
    pane->proofAll();
    EXPECT_TRUE(said.value(1).startsWith(u"正在校对：2/3，发现 3 处　"_s)) << said.join(u'\n').toStdString();
    EXPECT_TRUE(said.value(said.size() - 2).startsWith(u"正在查重：书库")) << said.join(u'\n').toStdString();
    EXPECT_EQ(words(), u"校对 3 条，发现 8 处"_s);
    EXPECT_FALSE(pane->stopButton->isVisible() || pane->toRefusedButton->isVisible());
    EXPECT_EQ(kinds(), (QStringList{u"全部规则 (8)"_s, u"ISSN (3)"_s, u"批内重复 (2)"_s, u"查重 (3)"_s}));
    EXPECT_EQ(pane->violatedRules().value_or(QHash<int, QSet<QString>>()).value(1),
              (QSet<QString>{u"ISSN"_s, u"批内重复"_s, u"查重"_s}));
    EXPECT_EQ(proof().grid->row(), 1);
    QTest::keyClick(proof().grid, Qt::Key_Down);
    QTest::keyClick(proof().grid, Qt::Key_Return);
    EXPECT_EQ(text(), u"书库已有相同ISBN：控制号 9《呐喊》"_s);
    EXPECT_EQ(lastJump(), u"0 3 0"_s);
    choose(1);
    EXPECT_EQ(proof().grid->rows(), 4);
    QTest::keyClick(proof().grid, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(proof().grid, Qt::Key_Enter);
    EXPECT_EQ(lastJump(), u"2 5 1"_s);

    proof().copyButton->click();
    EXPECT_EQ(QApplication::clipboard()->text().count(u'\n'), 4);
    const TestFolder folder;
    host.willChoose(folder.path(u"表"_s)); // the suffix is added
    proof().saveButton->click();
    host.willChoose(folder.path(u"表.tsv"_s));
    host.willAnswer(platform::Answer::No);
    choose(0);
    proof().saveButton->click();
    EXPECT_EQ(folder.read(u"表.tsv"_s).count('\n'), 4);
    EXPECT_EQ(host.texts(), QStringList{u"文件【"_s + folder.path(u"表.tsv"_s) + u"】已经存在，是否替换？"});
    host.willChoose(folder.path(u"没有/表.tsv"_s));
    proof().saveButton->click();
    EXPECT_TRUE(host.lastBox().text.startsWith(u"保存失败：【"));
}

TEST_F(RemarksPaneTest, SilencesARuleUntilItIsTakenBack) {
    pane->proofAll();
    choose(1);
    QSignalSpy changed(pane.get(), &RemarksPane::remindersChanged);
    proof().silenceButton->click();
    auto *menu = pane->findChild<QMenu *>(u"silenceMenu"_s);
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions()[1]->text(), u"只是 011 的“ISSN”不再提示(&2)"_s);
    menu->actions()[0]->trigger();
    menu->close();
    const QString silencedWords = u"校对 3 条，发现 5 处，另有 3 处不再提示"_s;
    EXPECT_EQ(words(), silencedWords);
    EXPECT_EQ(proof().silenceButton->text(), u"&Y 不再提示 (3)"_s);
    EXPECT_EQ(proof().grid->rows(), 6) << "a filter that shows nothing is given up";
    EXPECT_EQ(kinds(), (QStringList{u"全部规则 (5)"_s, u"批内重复 (2)"_s, u"查重 (3)"_s}));
    EXPECT_EQ(changed.size(), 1);
    pane.reset();
    make();
    pane->proofAll();
    EXPECT_EQ(words(), silencedWords);
    const marc::FieldRows rows = marc::showRecord(records->record(0)).rows;
    EXPECT_TRUE(pane->remarksOn(rows).empty());

    pane->reminders->takeBack({.key = proof().remarks().rules().keyOf(int(Kind::Issn)), .tag = {}});
    EXPECT_EQ(words(), u"校对 3 条，发现 8 处"_s);
    ASSERT_EQ(pane->remarksOn(rows).size(), 1U);
    EXPECT_EQ(pane->remarksOn(rows)[0].words, u"错误：ISSN校验位错误，应为3"_s);
    pane->reminders->markRows(false);
    EXPECT_TRUE(pane->remarksOn(rows).empty());
    for (const Kind kind : {Kind::Issn, Kind::InBatch, Kind::InStore})
        pane->reminders->silence({.key = proof().remarks().rules().keyOf(int(kind)), .tag = {}});
    EXPECT_EQ(text(), u"发现的 8 处都不再提示。按“Y 不再提示”，可以恢复。"_s);
    EXPECT_EQ(proof().grid->rows(), 1) << "the heading alone";
    const int height = proof().remarkText->minimumHeight();
    QFont larger = proof().font();
    larger.setPointSizeF(2 * larger.pointSizeF());
    proof().setFont(larger);
    EXPECT_GT(proof().remarkText->minimumHeight(), height);
}

TEST_F(RemarksPaneTest, StepsThroughTheListedRemarks) {
    const auto step = [this](int by) -> QString {
        const RemarksPane::Step step = pane->step(by);
        return (step.place ? u"%1 %2 "_s.arg(step.place->record).arg(step.place->fieldRow) : QString()) + step.words;
    };
    EXPECT_EQ(step(1), u"还没有校对结果，请先按“校对全部”"_s);
    pane->proofAll();
    pane->hide();
    choose(1);
    const QString wrong = u"错误：ISSN校验位错误，应为3"_s;
    EXPECT_EQ(step(1), u"0 5 1/3 "_s + wrong);
    EXPECT_EQ(step(1), u"1 5 2/3 "_s + wrong);
    EXPECT_EQ(step(-1), u"0 5 1/3 "_s + wrong);
    EXPECT_EQ(step(-1), u"2 5 已过第一处，从末尾开始：3/3 "_s + wrong);
    EXPECT_EQ(step(1), u"0 5 已过最后一处，从头开始：1/3 "_s + wrong);
    database.state.connectionString = u"Driver=SQLite3;Database=/nowhere/none.db;NoCreat=1;"_s;
    records->reset();
    pane->proofAll(); // a remark about the whole batch at most
    EXPECT_EQ(step(1), u"没有列出的结果"_s);
}

// The remark that sorts first is found last: the search cannot reach its server.
TEST_F(RemarksPaneTest, BeginsWithTheFirstRowUnlessTheUserChoseAnother) {
    database.state.connectionString = u"Driver=SQLite3;Database=/nowhere/none.db;NoCreat=1;"_s;
    pane->proofAll();
    EXPECT_EQ(proof().grid->text(proof().grid->row(), RemarkList::RuleColumn), u"未能检查"_s);
    EXPECT_EQ(words(), u"校对 3 条，发现 5 处，有的未能检查"_s);
    QTest::keyClick(proof().grid, Qt::Key_Return); // a remark about no record
    EXPECT_TRUE(jumps.isEmpty());
    at(3, [this] {
        proof().grid->clickRow(2);
        EXPECT_EQ(text(), u"ISSN校验位错误，应为3"_s);
    });
    pane->proofAll();
    EXPECT_EQ(proof().grid->row(), 3);
}

TEST_F(RemarksPaneTest, StopsAtOnceAndBeginsAgain) {
    inFile = 376;
    host.onYield = [&, yields = 0]() mutable {
        if (++yields == 2)
            QTest::keyClick(pane->stopButton, Qt::Key_Return);
        if (yields == 3) // from within the previous run
            pane->proofAll();
    };
    pane->proofAll();
    EXPECT_EQ(words(), u"已停止，校对 2/376 条，发现 3 处"_s);
    EXPECT_FALSE(pane->stopButton->isVisible());
    EXPECT_TRUE(reported().contains(u"中途停止，只校对了 2 条，文件里共 376 条\n依据：没有按"));
    pane->proofAll();
    EXPECT_EQ(words(), u"校对 3/376 条，发现 8 处"_s);
    EXPECT_TRUE(reported().contains(u"校对了读出的 3 条，文件里共 376 条"));
    records->reset();
    inFile = 0;
    pane->proofAll();
    EXPECT_EQ(words(), u"校对 0 条，发现 0 处"_s);
    EXPECT_EQ(kinds(), QStringList{u"全部规则 (0)"_s});
    EXPECT_FALSE(pane->skipBox->isEnabled());
    QTest::keyClick(proof().grid, Qt::Key_Return); // no remark to jump from
    EXPECT_TRUE(jumps.isEmpty());
}

// Each during the proof and during the look-up.
TEST_F(RemarksPaneTest, ContinuesHiddenAndEndsWithItsWorkspace) {
    QSignalSpy ended(pane.get(), &RemarksPane::ended);
    at(2, [this] { pane->hide(); });
    pane->proofAll();
    EXPECT_EQ(words(), u"校对 3 条，发现 8 处"_s);
    EXPECT_EQ(ended.value(0), QVariantList{u"校对 3 条，发现 8 处"_s});
    for (const int turn : {2, 6}) {
        at(turn, [this] { pane->end(); });
        pane->proofAll();
        EXPECT_TRUE(words().startsWith(u"已停止")) << words().toStdString();
        at(turn, [this] { pane.reset(); });
        pane->proofAll();
        EXPECT_FALSE(pane);
        make();
    }
}

TEST_F(RemarksPaneTest, KeepsRefusedRecordsNextToTheRemarks) {
    EXPECT_TRUE(pane->isEmpty());
    pane->listRefused({.refused = {{2, u"重复的\n键"_s}, {1, u"太长"_s}}});
    RemarkTable &refused = *pane->refusedTable;
    EXPECT_TRUE(refused.isVisible() && !pane->toProofButton->isVisible() && !pane->isEmpty());
    EXPECT_EQ(refused.words->text() + refused.grid->text(1, RemarkList::TitleColumn) +
                  refused.grid->text(1, RemarkList::WordsColumn),
              u"未成功 2 条题2太长"_s);
    const TestFolder folder;
    host.willChoose(folder.path(u"拒"_s));
    pane->isoButton->click();
    EXPECT_EQ(folder.read(u"拒.iso"_s).count("\x1D\r\n"), 2);
    QTest::keyClick(refused.grid, Qt::Key_Return);
    EXPECT_EQ(lastJump(), u"1 0 0"_s);
    pane->proofAll();
    EXPECT_TRUE(proof().isVisible() && pane->toRefusedButton->isVisible());
    EXPECT_TRUE(pane->skipBox->x() > proof().words->x() && pane->toRefusedButton->x() > pane->skipBox->x() &&
                pane->reportButtons->y() > proof().grid->y());
    pane->toRefusedButton->click();
    EXPECT_TRUE(refused.isVisible() && pane->toProofButton->x() > refused.words->x());
    pane->toProofButton->click();
    EXPECT_EQ(words(), u"校对 3 条，发现 8 处"_s);
    EXPECT_TRUE(pane->skipBox->isEnabled() && pane->leftOut().empty());
    pane->skipBox->click();
    const RefusedRecords leftOut = pane->leftOut();
    ASSERT_EQ(leftOut.size(), 3U);
    EXPECT_EQ(leftOut[1].reason, u"没有导入：书库已有相同ISBN：控制号 9《呐喊》"_s);
    pane->listRefused({.refused = {{2, u"太长"_s}}, .leftOut = {leftOut[1]}});
    EXPECT_EQ(refused.words->text() + refused.grid->text(1, RemarkList::RuleColumn),
              u"未成功 1 条，跳过查重命中的 1 条已跳过"_s);
    EXPECT_EQ(pane->rowsWithRemarks(), (std::vector<int>{0, 1, 2}));
    EXPECT_TRUE(pane->leftOut().empty()) << "the tick is for one import";
    pane->skipBox->click();
    at(1, [this] {
        EXPECT_FALSE(pane->skipBox->isEnabled() || pane->skipBox->isChecked() ||
                     pane->reportButtons->reportButton->isEnabled());
    });
    pane->proofAll();
    EXPECT_TRUE(pane->leftOut().empty());
    pane->listRefused({}); // the next import refused no record
    EXPECT_TRUE(proof().isVisible() && !pane->toRefusedButton->isVisible());
    QSignalSpy left(pane.get(), &RemarksPane::left);
    QTest::keyClick(proof().grid, Qt::Key_Escape);
    EXPECT_EQ(left.size(), 1);
}
