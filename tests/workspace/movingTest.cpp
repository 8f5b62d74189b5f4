#include "platform/paths.h"
#include "workspaceFixture.h"

using MovingTest = Workspace;
using platform::Answer;

namespace {

const QString question = u"本条记录已经改变,是否确定暂时改变该记录?\r\n"
                         u"(注:你可以修改预读出的记录,然后可以点击保存按扭,保存到新文件中)"_s;

} // namespace

TEST_F(MovingTest, GridShowsTheCurrentRecord) {
    auto &window = load(3);
    EXPECT_EQ(window.Grid1->text(0, 3), u"子字段说明"_s);
    const QStringList expected = {u"头标区|000|"_s, u"|001|"_s, u"题名与责任者|200|指示符"_s, u"|$a|正题名"_s,
                                  u"|$f|第一责任者"_s};
    ASSERT_EQ(window.Grid1->rows(), 6);
    for (int row = 1; row < 6; ++row)
        EXPECT_EQ(cell(row, 1) + u'|' + cell(row, 2) + u'|' + cell(row, 3), expected[row - 1]);
    EXPECT_EQ(cell(2, 4), u"0#1"_s);
    EXPECT_EQ(cell(3, 4), u"1#"_s);
    EXPECT_EQ(window.Grid1->row(), 1);
    EXPECT_EQ(window.Grid1->cellBackground(5, 3), quint32(0xC0C0C0));
    EXPECT_EQ(window.Grid1->cellBackground(5, 4), std::nullopt);

    QFile::remove(platform::pathWithSlash(host.folder) + u"marcBJshuoming.Qvs"_s);
    window.cmdTiMing[1]->click();
    EXPECT_EQ(host.texts(),
              QStringList{u"配置文件【"_s + platform::pathWithSlash(host.folder) + u"marcBJshuoming.Qvs】丢失。"});
    EXPECT_EQ(cell(4, 4), u"题2"_s);
}

TEST_F(MovingTest, StepsColourRowsAndStopAtTheEnds) {
    auto &window = open(19);
    window.cmdTiMing[0]->click();
    QTest::keyClick(window.Grid2, Qt::Key_Down);
    EXPECT_EQ(window.Grid2->cellBackground(0, 1), workspace::RecordList::visitedColour);
    EXPECT_EQ(window.Grid2->cellBackground(1, 1), workspace::RecordList::currentColour);
    EXPECT_EQ(window.Text2->text() + cell(4, 4), u"2题2"_s);
    window.Grid2->setRowSel(4);
    const QRect third = window.Grid2->visualRect(window.Grid2->model()->index(2, 1));
    QTest::mouseClick(window.Grid2->viewport(), Qt::LeftButton, {}, third.center());
    EXPECT_TRUE(window.Grid2->row() == 2 && window.Grid2->rowSel() == 2 && window.Text2->text() == u"3"_s);
    for (int i = 0; i < 30; ++i)
        window.cmdTiMing[1]->click();
    EXPECT_EQ(window.Grid2->row(), 19);
    EXPECT_EQ(window.Text2->text() + cell(4, 4), u"题19"_s) << "the last row is empty; the grid keeps the record";
}

TEST_F(MovingTest, AStepReportsThatTheFieldIsMissing) {
    auto &window = open(3);
    window.Grid1->setFocus();
    window.record().edit({.row = 2, .column = 2, .text = u"009"_s, .marks = false});
    window.Grid1->setRow(2);
    QTest::keyClick(window.Grid1, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_TRUE(says(u"没有字段 009"_s) && window.Grid2->row() == 1);
}

TEST_F(MovingTest, LeavingAnEditedRecordAsks) {
    auto &window = open(3);
    for (const bool byList : {true, false}) {
        window.record().edit({.row = 4, .text = u"弃"_s});
        host.willAnswer(Answer::No);
        byList ? QTest::keyClick(window.Grid2, Qt::Key_Down) : window.cmdTiMing[0]->click();
        EXPECT_EQ(host.lastBox().text, question);
        EXPECT_TRUE(host.lastBox().title.isEmpty() && host.lastBox().leaving == platform::Leaving::ByButtonsOnly);
    }
}

TEST_F(MovingTest, TasksAndOtherCataloguesChangeTheRecordInHand) {
    batch = [&](const workspace::BatchNeeds &needs) {
        EXPECT_TRUE(needs.busyRow() == -1 && needs.records->title(0) == u"题1");
        for (const int row : {0, 1})
            needs.put(row, titled(u"批"_s + QString::number(row)), u"批"_s);
    };
    fetch = [&](const workspace::FetchNeeds &needs) {
        EXPECT_EQ(needs.isbn + needs.title, u"批0"_s);
        marc::FieldRows rows = needs.rows().mid(0, 4);
        rows[2].fieldLabel = u"我的"_s;
        rows[3].subfieldLabel.clear();
        needs.put(rows);
    };
    auto &window = open(3);
    window.record().edit({.row = 4, .text = u"手"_s});
    host.willAnswer(Answer::Yes);
    window.cmdBatch->click();
    EXPECT_TRUE(titles(0, 2) == (QStringList{u"1 批"_s, u"2 批"_s}) && cell(4, 4) == u"批0");
    EXPECT_EQ(window.records().record(1), titled(u"批1"_s));
    window.Grid1->setFocus();
    QTest::keyClick(window.Grid1, Qt::Key_T, Qt::ControlModifier);
    EXPECT_TRUE(window.Grid1->rows() == 5 && window.recordChanged());
    EXPECT_EQ(cell(3, 1) + cell(4, 3), u"我的正题名"_s);
}

TEST_F(MovingTest, AnEditedRecordIsImportedAfterAQuestion) {
    auto &window = load(2);
    window.record().edit({.row = 4, .text = u"新名"_s});
    const QString made = window.madeMyMarc();
    window.cmdclick[4]->click();
    EXPECT_EQ(host.lastBox().text, u"暂无此功能"_s);
    window.cmdclick[2]->click();
    EXPECT_TRUE(host.lastBox().text.startsWith(u"配置文件【"_s)) << host.lastBox().text.toStdString();

    host.willAnswer(Answer::Yes);
    window.cmdclick[5]->click();
    EXPECT_EQ(opened.last(), u"2 "_s + made);
    EXPECT_EQ(host.lastBox().leaving, platform::Leaving::ByButtonsOnly);
    EXPECT_TRUE(window.recordChanged());
    host.willAnswer(Answer::No);
    EXPECT_FALSE(window.close());
    EXPECT_EQ(host.lastBox().preselected, Answer::No);

    window.cmdclick[1]->click();
    host.willAnswer(Answer::No);
    EXPECT_TRUE(stepInCard(1)->contains(u"题2"_s)) << "the arrow keys of the card page through the records";
    EXPECT_EQ(stepInCard(1), std::nullopt) << "an empty row";
    EXPECT_EQ(window.Grid2->row(), 1);
    EXPECT_TRUE(stepInCard(-1));
    EXPECT_EQ(stepInCard(-1), std::nullopt) << "before the first";
    EXPECT_EQ(window.Grid2->row(), 0);
}
