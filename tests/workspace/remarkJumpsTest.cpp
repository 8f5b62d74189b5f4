// The pane of remarks in the workspace: F8, jumps, and the refused records of an import.
#include "workspaceFixture.h"

using namespace workspace;

namespace {

const QString wayBack = u"F8 回到结果表"_s;
constexpr int titleRow = 4; // 200 $a

struct RemarksTest : Workspace {
    QString status() const { return form->labStatus->text(); }
    bool paneHasFocus() const { return pane.widget->isVisible() && pane.widget->hasFocus(); }
    QString at() const {
        return u"%1 %2"_s.arg(form->Grid2->row()).arg(form->record().row(form->Grid1->row()).identifier);
    }
    void pressKey(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, with);
    }
    void pressF8() { pressKey(Qt::Key_F8); }
};

} // namespace

TEST_F(RemarksTest, AreShownAndHiddenByOneKey) {
    auto &window = open(230);
    pressF8();
    EXPECT_EQ(status().section(u'　', 0, 0), u"还没有校对结果，也没有未成功记录"_s);
    EXPECT_FALSE(pane.widget->isVisible());
    window.cmdProofAll->click();
    EXPECT_EQ(pane.asked, QStringList{u"proof of 230"_s}) << "all records of the file, of which 200 are read";
    EXPECT_TRUE(paneHasFocus());
    pressF8();
    EXPECT_TRUE(!pane.widget->isVisible() && window.Grid1->hasFocus());
    pressF8();
    EXPECT_TRUE(paneHasFocus());
    pane.needs.leave(); // as Esc does
    EXPECT_TRUE(pane.widget->isVisible() && window.Grid1->hasFocus());
    pressF8();
    EXPECT_TRUE(paneHasFocus());

    auto *under = window.findChild<QSplitter *>(u"under"_s);
    under->setSizes({300, 200});
    const int height = under->sizes()[1];
    host.willAnswer(platform::Answer::Yes);
    window.close();
    EXPECT_EQ(pane.asked.last(), u"end"_s);
    form.reset();
    EXPECT_FALSE(pane.widget) << "the pane is destroyed with its window";
    open(1).cmdProofAll->click();
    under = form->findChild<QSplitter *>(u"under"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return under->sizes()[1] == height; }));
}

TEST_F(RemarksTest, JumpToTheFieldWhereItIsNow) {
    auto &window = open(3);
    pane.needs.jump({.record = 2, .fieldRow = titleRow, .moment = 0});
    EXPECT_EQ(at() + status(), u"2 $a"_s + wayBack);
    EXPECT_TRUE(window.Grid1->hasFocus());

    window.record().insert({.place = 3, .content = {.identifier = u"101"_s}}); // before 200
    window.record().insert({.place = 4, .content = {.identifier = u"$a"_s, .value = u"chi"_s}});
    pane.needs.jump({.record = 2, .fieldRow = titleRow, .moment = 0});
    EXPECT_EQ(window.Grid1->row(), titleRow + 2);
    window.record().edit({.row = 4, .text = u"eng"_s});
    host.willAnswer(platform::Answer::Yes); // the record is written into the list as edited
    pane.needs.jump({.record = 0});
    EXPECT_EQ(at(), u"0 000"_s);
    pane.needs.jump({.record = 2, .fieldRow = titleRow, .moment = 0});
    EXPECT_EQ(window.Grid1->row(), titleRow + 2);
    EXPECT_EQ(window.record().row(window.Grid1->row()).value, u"题3"_s);
    window.record().remove(titleRow + 2);
    pane.needs.jump({.record = 2, .fieldRow = titleRow, .moment = 0});
    EXPECT_EQ(at() + status().section(u'；', 0, 0), u"2 200这个子字段已经找不到了，可能已删除，这是它的字段"_s);
    window.record().remove(titleRow + 2);
    window.record().remove(titleRow + 1);
    pane.needs.jump({.record = 2, .fieldRow = titleRow, .moment = 0});
    EXPECT_TRUE(status().contains(u"这个字段已经找不到了，可能已删除；"_s + wayBack)) << status().toStdString();
    pane.needs.jump({.record = 3});
    EXPECT_TRUE(status().contains(u"列表里没有第 4 条记录"_s));
}

TEST_F(RemarksTest, JumpMakesTheFieldVisible) {
    auto &window = open(2);
    window.cmdProofAll->click(); // shows the pane
    for (int i = 0; i < 60; ++i)
        window.record().insert({6, {u"7"_s, {}, u"$a"_s, {}, u"后"_s}});
    window.resize(window.width(), window.minimumSizeHint().height());
    window.Grid1->setRow(60);
    QApplication::processEvents();
    pane.needs.jump({.record = 0, .fieldRow = titleRow, .moment = 0});
    EXPECT_TRUE(pane.widget->isVisible() && window.Grid1->row() == titleRow);
    const QRect row = window.Grid1->visualRect(window.Grid1->model()->index(titleRow - 1, IdentifierColumn));
    EXPECT_TRUE(window.Grid1->viewport()->rect().contains(row));
}

TEST_F(RemarksTest, AreSteppedThroughByOneKey) {
    auto &window = open(3);
    const auto press = [](QWidget *where, Qt::KeyboardModifiers with = {}) {
        where->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4, with);
    };
    pane.next = {{}, u"没有列出的结果"_s};
    press(window.Grid2);
    EXPECT_TRUE(says(u"没有列出的结果"_s));
    pane.next = {marc::FieldPlace{.record = 2, .fieldRow = titleRow}, u"1/2 错误：甲"_s};
    press(window.filterBox, Qt::ShiftModifier); // a box that would open by the key
    EXPECT_EQ(pane.asked, (QStringList{u"step 1"_s, u"step -1"_s}));
    EXPECT_EQ(at(), u"2 $a"_s);
    EXPECT_TRUE(says(u"1/2 错误：甲"_s) && window.Grid1->hasFocus() && !pane.widget->isVisible());
    window.zdList->show();
    press(window.zdList);
    EXPECT_EQ(pane.asked.size(), 2);
    window.zdList->hide();
    press(window.Grid1);
    QTest::keyClick(window.Grid1, Qt::Key_Return);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4);
    EXPECT_EQ(pane.asked.size(), 3);
    EXPECT_TRUE(says(u"请先结束编辑（回车写入，Esc 放弃）"_s));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
}

TEST_F(RemarksTest, MarkTheCurrentRecordAsItIsEdited) {
    auto &window = open(2);
    const auto marked = [&window] {
        QStringList rows;
        for (int row = 1; row < window.Grid1->rows(); ++row)
            for (const RowRemark &remark : window.Grid1->remarksOn(row))
                rows.append(QString::number(row) + remark.words.left(2));
        return rows;
    };
    EXPECT_EQ(marked(), QStringList());
    window.record().edit({.row = titleRow, .text = u"错"_s});
    EXPECT_EQ(marked(), (QStringList{u"1错误"_s, u"4提示"_s})); // about the whole record: beside its leader
    window.Grid1->clickRow(titleRow);
    EXPECT_TRUE(says(u"提示：有错字"_s));
    pane.next = {marc::FieldPlace{.record = 0, .fieldRow = titleRow}, u"1/2 提示：有错字"_s};
    pressKey(Qt::Key_F4);
    EXPECT_EQ(status().count(u"提示：有错字"_s), 1);
    window.record().insert({.place = 3, .content = {.identifier = u"101"_s, .value = u"错题"_s}});
    EXPECT_EQ(marked(), (QStringList{u"3提示"_s, u"5提示"_s}));
    pressKey(Qt::Key_Z, Qt::ControlModifier);
    pressKey(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(marked(), QStringList());
    EXPECT_FALSE(says(u"提示：有错字"_s));
    window.Grid1->setRow(titleRow);
    window.record().edit({.row = titleRow, .text = u"题错"_s});
    EXPECT_TRUE(says(u"提示：有错字"_s));
    host.willAnswer(platform::Answer::Yes);
    window.Grid2->clickRow(1);
    EXPECT_EQ(marked(), QStringList());
}

TEST_F(RemarksTest, AreDisabledWhileAnEditorIsOpen) {
    auto &window = open(3);
    window.cmdProofAll->click();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2}) { // opens the editor of the content, of the identifier
        window.Grid1->setFocus();
        window.Grid1->setRow(titleRow);
        QTest::keyClick(window.Grid1, key);
        EXPECT_FALSE(window.cmdProofAll->isEnabled() || pane.widget->isEnabled());
        for (const auto &act : {std::function<void()>([this] { pressF8(); }),
                                std::function<void()>([this] { pane.needs.jump({.record = 2}); })}) {
            pane.needs.tell({});
            act();
            EXPECT_TRUE(status().contains(u"请先结束编辑（回车写入，Esc 放弃）"_s)) << status().toStdString();
            EXPECT_EQ(window.Grid2->row(), 0);
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_TRUE(window.cmdProofAll->isEnabled() && pane.widget->isEnabled());
    }
}

TEST_F(RemarksTest, OfAnImportAreListedWithOneKey) {
    auto &window = open(230);
    outcome = {.taken = 200, .wentIn = 198, .refused = {{1, u"甲"_s}, {3, u"乙"_s}}, .leftOut = {{7, u"重复"_s}}};
    window.cmdclick[5]->setFocus();
    QTest::keyClick(window.cmdclick[5], Qt::Key_Return);
    EXPECT_TRUE(status().startsWith(u"本次已导入 198 条，跳过 1 条，未成功 2 条，F8 列出"_s)) << status().toStdString();
    EXPECT_TRUE(window.Grid2->hasFocus() && !pane.widget->isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); // does not start another import
    EXPECT_EQ(opened.size(), 1);
    QTest::keyClick(window.Grid2, Qt::Key_Down);
    EXPECT_TRUE(status().contains(u"本次已导入"_s)) << "shown until the list changes";
    pressF8();
    EXPECT_TRUE(paneHasFocus());
    EXPECT_EQ(pane.asked, QStringList{u"refused 2"_s});

    outcome = {.taken = 200, .wentIn = 200};
    window.cmdclick[5]->click();
    EXPECT_TRUE(status().startsWith(u"本次已导入 200 条　"_s)) << status().toStdString();
    window.Grid2->take(0, titled(u"新"_s));
    window.record().edit({.row = titleRow, .text = u"字"_s});
    EXPECT_FALSE(status().contains(u"本次已导入"_s));
    outcome = {.refused = {{0, u"丙"_s}}, .refusedWanted = true};
    host.willAnswer(platform::Answer::No);
    window.cmdclick[5]->click();
    EXPECT_TRUE(paneHasFocus());
    window.cmdclick[3]->click(); // reads more records
    EXPECT_FALSE(status().contains(u"本次已导入"_s));
}
