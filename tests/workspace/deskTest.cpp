// Features of the workspace other than editing: find, undo, the filter and the status line.
#include "workspaceFixture.h"

using namespace workspace;

namespace {

struct DeskTest : Workspace {
    bool found(const QString &words) const {
        return QTest::qWaitFor([&] { return form->findLine->findCount->text() == words; });
    }
};

} // namespace

TEST_F(DeskTest, FindsRecordsAndTags) {
    auto &window = open(30);
    QTest::keyClick(window.Grid2, Qt::Key_F3);
    EXPECT_TRUE(window.findLine->findText->hasFocus());
    window.findLine->findText->setText(u"题2"_s); // 2 and 20 to 29
    EXPECT_TRUE(found(u"共 11 条"_s));
    QTest::keyClick(&window, Qt::Key_F3);
    EXPECT_TRUE(found(u"第 1 / 11 条"_s));
    EXPECT_EQ(window.Grid2->row(), 1);
    QTest::keyClick(&window, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(window.Grid2->row(), 28) << "continues from the end of the list";
    EXPECT_EQ(window.Text2->pacedText(), u"29"_s) << "current, as after a click";
    window.findLine->findText->clear();
    EXPECT_EQ(window.findLine->findCount->text(), QString());
    window.findLine->findText->setText(u"题2"_s);

    change(3, u"改了"_s); // leaving a hit asks the same question as leaving any other record
    host.willAnswer(platform::Answer::No);
    QTest::keyClick(window.findLine->findText, Qt::Key_Return);
    EXPECT_TRUE(host.lastBox().text.startsWith(u"本条记录已经改变"_s));
    EXPECT_EQ(window.Grid2->row(), 1);

    QTest::keyClick(&window, Qt::Key_G, Qt::ControlModifier);
    window.findLine->findText->setText(u"99"_s);
    QTest::keyClick(window.findLine->findText, Qt::Key_Return);
    EXPECT_EQ(window.findLine->findCount->text(), u"没有这条记录"_s);
    QTest::keyClick(window.findLine->findText, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible() && window.Grid2->hasFocus() && !window.findLine->isVisible());
    QTest::keyClicks(window.Grid2, u"Z"_s);
    EXPECT_EQ(window.findLine->findText->text(), u"Z"_s);
    EXPECT_TRUE(found(u"没有找到"_s));
    QInputMethodEvent composed;
    composed.setCommitString(u"红"_s);
    QApplication::sendEvent(window.Grid2, &composed);
    EXPECT_EQ(window.findLine->findText->text(), u"红"_s);

    QTest::keyClicks(window.Grid1, u"200"_s);
    EXPECT_EQ(window.record().row(window.parts().editors.editRow).identifier, u"200"_s);
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(window.Grid2->row(), 2);
    EXPECT_EQ(window.record().row(window.Grid1->row()).identifier, u"200"_s) << "the next record opens there";
}

TEST_F(DeskTest, TabFollowsTheReadingOrder) {
    pane.empty = false;
    auto &window = open(1);
    window.room->cmdWholeText->click();
    pane.widget->setObjectName(u"pane"_s);
    pane.widget->show();
    window.Grid2->setFocus();
    QStringList names;
    do {
        names.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (!window.Grid2->hasFocus() && names.size() < 30);
    EXPECT_EQ(names, (QStringList{u"Grid2"_s, u"Grid1"_s, u"wholeText"_s, u"pane"_s, u"cmdWholeText"_s,
                                  u"cmdProofAll"_s, u"cmdBatch"_s, u"cmdTiMing0"_s, u"cmdTiMing1"_s, u"cmdclick0"_s,
                                  u"cmdclick1"_s, u"cmdclick2"_s, u"cmdclick3"_s, u"cmdclick4"_s, u"cmdclick5"_s,
                                  u"cmdclick6"_s, u"filterBox"_s}));
    const auto panes = [&](Qt::KeyboardModifiers keys) {
        QStringList visited;
        for (int step = 0; step < 5; ++step) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, keys);
            visited.append(QApplication::focusWidget()->objectName());
        }
        return visited;
    };
    EXPECT_EQ(panes(Qt::ControlModifier), (QStringList{u"Grid1"_s, u"wholeText"_s, u"pane"_s, u"Grid2"_s, u"Grid1"_s}));
    pane.widget->hide();
    EXPECT_EQ(panes(Qt::ControlModifier | Qt::ShiftModifier),
              (QStringList{u"Grid2"_s, u"wholeText"_s, u"Grid1"_s, u"Grid2"_s, u"wholeText"_s}));
}

TEST_F(DeskTest, KeysDoNothingWithoutARecord) {
    auto &window = open(1);
    window.Grid1->setFocus();
    window.resetFieldGrid();
    for (const auto modifier : {Qt::NoModifier, Qt::ControlModifier})
        for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_F2})
            QTest::keyClick(window.Grid1, key, modifier);
    EXPECT_EQ(window.record().rowCount(), 1);
    EXPECT_TRUE(window.zdList->isHidden() && window.Zzdlist->isHidden() && window.Text1->isHidden());
    EXPECT_EQ(host.texts(), QStringList());
}

// The states themselves are compared with a model by RandomActs.
TEST_F(DeskTest, UndoAndTagsAreReported) {
    auto &window = open(2);
    QTest::keyClick(window.Grid1, Qt::Key_Return); // the leader
    EXPECT_TRUE(says(u"第 1 位/24　Ctrl+E 辅助录入"_s)) << "before the cursor is moved";
    QTest::keyClick(window.richText, 'n', Qt::AltModifier); // a button that is disabled meanwhile
    EXPECT_EQ(window.richText->text(), value(1));
    QTest::keyClick(window.richText, Qt::Key_Escape);
    const int title = 4; // 200 $a
    change(title, u"甲"_s);
    change(title, u"乙"_s);
    host.willAnswer(platform::Answer::Yes); // a field and its subfields are removed in one step
    window.Grid1->setFocus();
    window.Grid1->setRow(3);
    QTest::keyClick(window.Grid1, Qt::Key_Delete, Qt::ControlModifier);
    const std::tuple<Qt::Key, QString, QString> steps[] = {
        {Qt::Key_Z, u"已撤销：删除 200"_s, u"乙"_s},    {Qt::Key_Z, u"已撤销：修改 200$a"_s, u"甲"_s},
        {Qt::Key_Z, u"已撤销：修改 200$a"_s, u"题1"_s}, {Qt::Key_Z, u"没有可撤销的修改"_s, u"题1"_s},
        {Qt::Key_Y, u"已重做：修改 200$a"_s, u"甲"_s},  {Qt::Key_Y, u"已重做：修改 200$a"_s, u"乙"_s},
        {Qt::Key_Y, u"已重做：删除 200"_s, QString()},  {Qt::Key_Y, u"没有可重做的修改"_s, QString()},
        {Qt::Key_Z, u"已撤销：删除 200"_s, u"乙"_s},
    };
    for (int number = 0; const auto &[key, words, text] : steps) {
        QTest::keyClick(window.Grid1, key, Qt::ControlModifier);
        EXPECT_TRUE(said(words)) << number;
        EXPECT_EQ(value(title), text) << number++;
    }
    QTest::keyClicks(window.Grid1, u"999"_s);
    EXPECT_TRUE(said(u"没有字段 999"_s) && !says(u"已撤销"_s));
    QTest::keyClicks(window.Grid1, u"200"_s);
    EXPECT_FALSE(says(u"没有字段"_s));
    QTest::keyClick(window.Grid1, Qt::Key_Z, Qt::ControlModifier);
    host.willAnswer(platform::Answer::No);
    window.cmdTiMing[1]->click(); // another record starts a new history
    EXPECT_FALSE(says(u"已撤销"_s));
    QGuiApplication::clipboard()->setText(u"300 ##$a附注"_s);
    window.Grid1->setRow(2);
    QTest::keyClick(window.Grid1, Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(says(u"已粘贴，Ctrl+Z 撤销"_s) && window.parts().editors.editRow == window.Grid1->row());
    EXPECT_EQ(window.record().row(window.Grid1->row()).identifier, u"300"_s);
    QTest::keyClick(window.Grid1, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(window.Grid1, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(value(title), u"题2"_s);
}

// The current record stays in the list.
TEST_F(DeskTest, TheFilterShowsItsRowsOrWhyThereAreNone) {
    auto &window = open(30);
    window.Grid2->setRow(20);
    const std::tuple<int, bool, std::vector<int>, int, QString, QString> steps[] = {
        {1, false, {}, 1, u"只看有问题的：0"_s, u"还没有校对结果，请先按“校对全部”"_s},
        {1, true, {}, 1, u"只看有问题的：0"_s, u"没有发现问题的记录"_s},
        {1, true, {3, 20, 25}, 3, u"只看有问题的：3"_s, {}},
        {2, true, {3}, 1, u"只看改过的：0"_s, u"没有改过而未导入的记录"_s},
        {0, true, {3}, 30, u"全部"_s, {}},
    };
    for (const auto &[kind, proved, remarked, shown, caption, words] : steps) {
        pane.empty = !proved;
        pane.remarked = remarked;
        window.filterBox->setCurrentIndex(kind);
        Q_EMIT window.filterBox->activated(kind);
        EXPECT_EQ(window.Grid2->model()->rowCount(), shown) << caption.toStdString();
        EXPECT_EQ(window.filterBox->currentText(), caption);
        EXPECT_EQ(window.labStatus->text(), words);
    }
    window.filterBox->setCurrentIndex(2);
    Q_EMIT window.filterBox->activated(2);
    change(4, u"改"_s); // lists the record soon
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.filterBox->currentText() == u"只看改过的：1"; }));
    outcome.taken = 30;
    host.willAnswer(platform::Answer::Yes);
    window.cmdclick[5]->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.filterBox->currentText() == u"只看改过的：0"; })) << "imported";
    EXPECT_EQ(window.Grid2->columnTwips(1), workspace::RecordList::allTwips);
}

TEST_F(DeskTest, FindingSelectsTheFieldAndReturnsToItsStart) {
    auto &window = open(30);
    const int list = window.Grid2->height();
    window.Grid1->setFocus();
    QTest::keyClick(window.Grid1, Qt::Key_F3);
    EXPECT_EQ(window.Grid2->height(), list) << "showing the find line moves nothing";
    window.findLine->findText->setText(u"题12"_s);
    EXPECT_TRUE(found(u"共 1 条"_s));
    QTest::keyClick(window.findLine->findText, Qt::Key_Return);
    EXPECT_EQ(window.Grid2->row(), 11);
    EXPECT_EQ(window.Grid1->row(), 4) << "the row that contains the text";
    QTest::keyClick(window.findLine->findText, Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(window.findLine->findText->text(), QString()) << "a text is not offered as a record number";
    QTest::keyClick(window.findLine->findText, Qt::Key_Escape);
    EXPECT_TRUE(window.Grid1->hasFocus());
    QTest::keyClick(window.Grid1, Qt::Key_F3);
    EXPECT_EQ(window.findLine->findText->text(), u"题12"_s);

    change(4, u"另一题"_s); // written into the list, so no longer a hit
    host.willAnswer(platform::Answer::Yes);
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_FALSE(window.findLine->findCount->text().contains(u'1'));
    QTest::keyClick(&window, Qt::Key_F3);
    EXPECT_TRUE(found(u"没有找到"_s));
    EXPECT_EQ(window.Grid2->row(), 12);
}

TEST_F(DeskTest, AStepIsOneShowAndUndoKeepsItsPlace) {
    auto &window = open(3);
    int shown = 0, edited = 0;
    QObject::connect(&window.record(), &EditedRecord::shown, &window, [&] { ++shown; });
    QObject::connect(&window.record(), &EditedRecord::edited, &window, [&] { ++edited; });
    window.cmdTiMing[1]->click();
    EXPECT_TRUE(shown == 1 && edited == 0);
    change(5, u"责任者"_s);
    window.Grid1->setRow(2);
    QTest::keyClick(window.Grid1, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window.Grid1->row(), 5) << "the row of the undone change is current";
    window.resize(window.width(), window.height() * 2 / 3);
    for (int i = 0; i < 60; ++i)
        window.record().insert({6, {u"7"_s, {}, u"$a"_s, {}, u"后"_s}});
    QApplication::processEvents();
    const QRect sight = window.Grid1->viewport()->rect();
    int last = 5; // the last row that fits
    while (sight.contains(window.Grid1->visualRect(window.Grid1->model()->index(last, 1))))
        ++last;
    window.Grid1->setRow(last);
    window.room->cmdWholeText->click();
    QApplication::processEvents();
    EXPECT_EQ(window.room->wholeText->toPlainText(), value(last));
    EXPECT_LT(window.Grid1->viewport()->height(), sight.height());
    EXPECT_TRUE(
        window.Grid1->viewport()->rect().contains(window.Grid1->visualRect(window.Grid1->model()->index(last - 1, 1))))
        << "the row whose whole text is shown stays visible";
    const auto dots = [&] {
        return window.room->wholeText->document()->defaultTextOption().flags() & QTextOption::ShowTabsAndSpaces;
    };
    EXPECT_FALSE(dots());
    window.Grid1->clickRow(1); // the leader
    EXPECT_TRUE(dots() && window.room->wholeText->font() == workspace::codedFont(window.font()));
}

TEST(StatusLine, ShowsTheMostUrgentFirst) {
    StatusFacts facts;
    EXPECT_EQ(statusLine(facts), QString());
    facts.file = {.lines = 5000, .terminators = 5000, .looksLikeUtf8 = true};
    facts.read = 200;
    facts.changed = 3;
    EXPECT_EQ(statusLine(facts), u"文件像是 UTF-8 编码；只读出 200/5000 条，导入只含已读出的　已改 3 条，未导入"_s);
    facts = {.fieldsCameOrWent = true, .file = {.lines = 3, .terminators = 5}, .read = 3, .readToTheEnd = true};
    EXPECT_EQ(statusLine(facts),
              u"⚠ 本条增删了字段，离开时不会询问：请改动一处内容　文件有 5 个记录结束符，读出 3 条"_s);
    facts = {.file = {.lines = 200, .terminators = 200}, .read = 200};
    EXPECT_EQ(statusLine(facts), QString()) << "all lines are read";
    facts = {.file = {.lines = 200}};
    EXPECT_EQ(statusLine(facts), QString()) << "nothing is read yet";
    facts = {.databaseTrouble = u"没有"_s};
    EXPECT_EQ(statusLine(facts), u"⚠ 没有，不能导入"_s);
    facts = {.warning = u"W"_s, .column = 12, .columns = 36, .assistant = true};
    EXPECT_EQ(statusLine(facts), u"⚠ W　第 12 位/36　Ctrl+E 辅助录入"_s);
}
