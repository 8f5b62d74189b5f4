#include "batch/windows/remarkTable.h"
#include "batch/reminders.h"
#include "batch/windows/frmSilenced.h"
#include "support/scriptedHost.h"
#include "support/windowState.h"
#include "widgets/styleTokens.h"

using namespace batch;

namespace {

struct RemarkTableTest : testing::Test {
    ScriptedHost host;
    Reminders reminders{host.remembered()};
    RemarkTable table{u"table"_s, host, &reminders, nullptr};

    RemarkTableTest() {
        table.take({Remark(0, Kind::Isbn, u"010", 1, u"甲"_s), Remark(1, Kind::Issn, u"011", 1, u"乙"_s),
                    Remark(2, Kind::Isbn, u"073", 1, u"丙"_s)});
        table.settle();
        showActive(table);
    }
};

} // namespace

TEST_F(RemarkTableTest, HasSpaceForItsTexts) {
    QStringList headings;
    for (int column = 0; column < table.grid->columns(); ++column)
        headings.append(table.grid->text(0, column));
    EXPECT_EQ(headings.join(u'|'), RemarkList::headings);
    EXPECT_EQ(table.silenceButton->text(), u"&Y 不再提示");
    const QFontMetrics metrics = table.fontMetrics();
    EXPECT_GE(table.remarkText->height(), 2 * metrics.lineSpacing());
    EXPECT_LT(table.remarkText->height(), 4 * metrics.lineSpacing());
    EXPECT_GE(table.grid->minimumHeight(), 3 * metrics.height());
    EXPECT_GE(table.grid->columnWidth(RemarkList::RuleColumn), metrics.horizontalAdvance(u"未定义的子字段"_s));
    const QImage picture = table.grid->grab().toImage();
    const QRgb ink = widgets::colour(widgets::Colour::ErrorInk, table.palette()).rgb();
    for (const int column : {RemarkList::LevelColumn, RemarkList::RuleColumn}) {
        const QRect cell = table.grid->cellRect(2, column).translated(-table.grid->pos());
        int pixels = 0;
        for (int x = cell.left(); x <= cell.right(); ++x)
            for (int y = cell.top(); y <= cell.bottom(); ++y)
                pixels += picture.pixel(x, y) == ink;
        EXPECT_EQ(pixels > 5, column == RemarkList::LevelColumn) << "the mark of its level: " << pixels;
    }
    table.resize(1000, 300);
    QApplication::processEvents();
    EXPECT_EQ(table.grid->cellRect(1, RemarkList::WordsColumn).right(),
              table.grid->viewport()->geometry().right() + table.grid->x());
    EXPECT_EQ(table.filterBar->levelBox->mapTo(&table, QPoint()).x(), table.grid->x());
    EXPECT_GE(table.filterBar->ruleBox->minimumSizeHint().width(), metrics.horizontalAdvance(u"校验规则"_s));
    table.saveButton->setFocus();
    table.setFocus();
    EXPECT_TRUE(table.grid->hasFocus());
}

TEST_F(RemarkTableTest, ShowsTheTextOfTheRowThatAStepReaches) {
    for (const QString &text : {u"甲"_s, u"乙"_s, u"丙"_s, u"甲"_s}) {
        EXPECT_EQ(table.step(1).remark->text, text);
        EXPECT_EQ(table.remarkText->toPlainText().section(u'\n', 0, 0), text);
    }
    table.settle();
    table.grid->setRow(1);
    QTest::keyClick(table.grid, Qt::Key_Return);
    EXPECT_EQ(table.step(1).number, 2) << "the row that was activated is visited";
}

TEST_F(RemarkTableTest, ShowsTheFirstRemarkDuringARun) {
    table.begin(RemarkList());
    table.take({Remark(4, Kind::Issn, u"011", 1, u"丁"_s), Remark(6, Kind::Issn, u"011", 1, u"己"_s)});
    table.words->setText(u"正在校对"_s);
    EXPECT_TRUE(table.remarkText->toPlainText().startsWith(u"丁"));
    EXPECT_EQ(table.filterBar->ruleBox->count(), 2);
    table.grid->clickRow(2);
    table.take({Remark(1, Kind::Issn, u"011", 1, u"戊"_s)});
    table.settle();
    EXPECT_EQ(table.grid->row(), 3) << "the row that the user chose";
    EXPECT_TRUE(table.remarkText->toPlainText().startsWith(u"己"));
    table.begin(RemarkList());
    table.take({Remark(4, Kind::Issn), Remark(1, Kind::Issn)});
    table.settle();
    EXPECT_EQ(table.grid->row(), 1) << "chosen in the previous run";
}

TEST_F(RemarkTableTest, TheRightButtonOpensTheMenuOfTheRowBelowIt) {
    const QRect row = table.grid->visualRect(table.grid->model()->index(1, RemarkList::RuleColumn));
    QCursor::setPos(table.grid->viewport()->mapToGlobal(row.center()));
    Q_EMIT table.grid->rightPressed();
    EXPECT_EQ(table.grid->row(), 2);
    auto *menu = table.findChild<QMenu *>(u"silenceMenu"_s);
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions()[1]->text(), u"只是 011 的“ISSN”不再提示(&2)");
    EXPECT_TRUE(menu->actions()[2]->isSeparator());
    QAction *marks = menu->actions().constLast();
    EXPECT_TRUE(marks->isCheckable() && marks->isChecked());
    marks->trigger();
    EXPECT_FALSE(reminders.marksRows());
    menu->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(table.findChild<QMenu *>(u"silenceMenu"_s));
    table.begin(RemarkList());
    EXPECT_EQ(table.remarkText->toPlainText(), QString());
    table.silenceButton->click();
    EXPECT_EQ(table.findChild<QMenu *>(u"silenceMenu"_s)->actions().size(), 2) << "nothing to silence";
}

TEST_F(RemarkTableTest, TheChoicesFollowTheRemarksAndTheChosenOneStays) {
    QComboBox *rules = table.filterBar->ruleBox;
    reminders.silence({u"isbn"_s, u"073"_s});
    EXPECT_EQ(table.filterBar->levelBox->itemText(0) + rules->itemText(0), u"全部级别 (2)全部规则 (2)");
    rules->setCurrentIndex(2);
    Q_EMIT rules->activated(2);
    EXPECT_TRUE(table.grid->rows() == 2 && table.grid->model()->rowCount() == 1);
    reminders.silence({u"isbn"_s, {}});
    EXPECT_EQ(rules->count(), 2);
    EXPECT_EQ(rules->currentText(), u"ISSN (1)");
    rules->showPopup();
    EXPECT_GE(rules->view()->minimumWidth(), rules->view()->sizeHintForColumn(0)) << "entries are seen as a whole";
    reminders.takeBack({u"isbn"_s, {}});
    EXPECT_EQ(rules->count(), 2) << "an open list stays as it is";
    rules->hidePopup();
    const RemarkTable plain(u"plain"_s, host, nullptr, nullptr);
    EXPECT_TRUE(plain.silenceButton->isHidden());
}

TEST_F(RemarkTableTest, SilencedRulesAreTakenBackOneAfterTheOther) {
    reminders.silence({u"isbn"_s, {}});
    reminders.silence({u"issn"_s, u"011"_s});
    frmSilenced window(reminders, table.remarks().rules());
    showActive(window);
    EXPECT_EQ(WindowState(window).grown({100, 100}), u"grid wh"_s);
    EXPECT_TRUE(window.takeBackButton->isEnabled() && !window.emptyWords->isVisible());
    EXPECT_EQ(window.grid->accessibleName(), window.windowTitle());
    EXPECT_EQ(window.grid->text(0, 0) + window.grid->text(0, 1), u"规则字段");
    EXPECT_GE(window.grid->minimumWidth(), window.fontMetrics().horizontalAdvance(u"书"_s.repeated(22)));
    EXPECT_GE(window.grid->minimumHeight(), 8 * window.fontMetrics().height());
    EXPECT_TRUE(window.grid->horizontalHeader()->stretchLastSection());
    EXPECT_GE(window.grid->columnWidth(0), window.fontMetrics().horizontalAdvance(u"书"_s.repeated(16)));
    window.grid->setRow(2);
    window.takeBackButton->click();
    EXPECT_TRUE(window.grid->row() == 1 && window.grid->rows() == 2);
    EXPECT_EQ(window.grid->text(1, 0) + window.grid->text(1, 1), u"ISBN全部字段");
    QTest::keyClick(window.grid, Qt::Key_Return);
    EXPECT_TRUE(window.emptyWords->isVisible() && !window.grid->isVisible() && !window.takeBackButton->isEnabled());
    EXPECT_TRUE(window.quitButton->hasFocus());
    Q_EMIT window.grid->gridActivated();
    EXPECT_TRUE(reminders.silenced().all().empty());
}
