// The query dialogs, operated by keys and clicks.
#include "catalogue/windows/queryFrm.h"
#include "support/scriptedHost.h"
#include "support/windowState.h"
#include "widgets/button.h"
#include "widgets/clickLabel.h"
#include "widgets/maskedEdit.h"

using namespace catalogue;

namespace {

struct Target final : QueryTarget {
    void loadData(Condition &condition, QString &order) override {
        received.append({condition.sql, condition.words, order});
        dialogWasOpen = dialog && dialog->isVisible();
        waited = QGuiApplication::overrideCursor() != nullptr;
    }
    const QWidget *dialog = nullptr;
    QList<QStringList> received;
    bool dialogWasOpen = false;
    bool waited = false;
};

class QueryFrmTest : public testing::Test {
protected:
    QueryFrmTest() {
        target.dialog = &dialog;
        dialog.resultForm = &target;
        dialog.LoadCombo(u"bookname,author,catatime"_s, u"书名,著者,入库日期"_s, u"字符,字符,日期"_s);
        showActive(dialog);
    }
    void choose(const QString &label) {
        const QListWidgetItem *item = dialog.LFields->findItems(label, Qt::MatchExactly).constFirst();
        QTest::mouseClick(dialog.LFields->viewport(), Qt::LeftButton, {},
                          dialog.LFields->visualItemRect(item).center());
    }
    void type(const QString &text) {
        dialog.lSql->setFocus();
        QTest::keyClicks(dialog.lSql, text);
    }

    ScriptedHost host;
    Target target;
    QueryFrm dialog{host};
};

TEST_F(QueryFrmTest, TheTabKeyGoesDownTheDialog) {
    QStringList way;
    dialog.Command3->setFocus();
    for (int step = 0; step < 5; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        way.append(QApplication::focusWidget()->objectName());
    }
    EXPECT_EQ(way.join(u' '), u"signSql Command10 Command2 totalSql cOrderby"_s);
}

TEST_F(QueryFrmTest, PassesOnItsConditionsWhenItsKeyIsPressed) {
    EXPECT_EQ(dialog.cSql->currentText() + dialog.cFuhao->currentText(),
              u"书名等于"_s); // the first field counts as clicked
    EXPECT_EQ(dialog.LFields->currentRow(), 0);
    type(u"O'Neill"_s);
    QTest::keyClick(dialog.lSql, Qt::Key_Tab);
    EXPECT_EQ(dialog.lSql->text(), QString());
    QTest::mouseClick(dialog.Command3, Qt::LeftButton); // the box is empty at this time
    EXPECT_EQ(dialog.signSql->toPlainText(), u"书名'等于'O'Neill"_s);
    QTest::mouseClick(dialog.Command1[0], Qt::LeftButton);
    EXPECT_EQ(dialog.totalSql->item(0)->text(), u"书名'等于'O'Neill"_s);
    choose(u"入库日期"_s);
    EXPECT_EQ(dialog.lSql->text(), u"____-__-__"_s);
    type(u"2005"_s);
    QTest::keyClick(&dialog, Qt::Key_O, Qt::AltModifier); // the value has not been added yet
    EXPECT_EQ(target.received,
              (QList<QStringList>{
                  {u"(bookname='O'Neill') OR (Convert(varchar(10),catatime,111) Like '2005/__/__')"_s,
                   u"(书名'等于'O'Neill) 或者 (入库日期'等于'2005-__-__)（⚠ 值里有单引号，查的可能不是这个意思）"_s,
                   QString()}}));
    EXPECT_TRUE(target.waited && !target.dialogWasOpen);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(QueryFrmTest, ClearsBackToTheEmptyMaskAndAllSortFields) {
    choose(u"入库日期"_s);
    type(u"2005"_s);
    dialog.cOrderby->setCurrentIndex(1);
    QTest::mouseClick(dialog.Label3[1], Qt::LeftButton);
    EXPECT_EQ(dialog.lOrderby->toPlainText(), u"'著者'降"_s);
    EXPECT_EQ(dialog.cOrderby->findText(u"著者"_s), -1);
    EXPECT_EQ(dialog.cOrderby->currentText(), QString());
    QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(dialog.signSql->toPlainText() + dialog.lOrderby->toPlainText(), QString());
    EXPECT_EQ(dialog.lSql->text(), u"____-__-__"_s);
    EXPECT_EQ(dialog.cOrderby->count(), 3);
    QTest::mouseClick(dialog.Command1[1], Qt::LeftButton);
    EXPECT_EQ(target.received, QList<QStringList>({{QString(), QString(), QString()}}));
}

// A value that cannot be compared remains in its box until the type of the field changes or all is cleared.
TEST_F(QueryFrmTest, AValueThatIsNotANumberIsNotAdded) {
    EnteredQuery last;
    last.orderWords = u"'著者'降"_s;
    QueryFrmdel store(host);
    store.LoadCombo(u"author,price"_s, u"著者,价格"_s, u"字符,数字"_s);
    store.offerLast(last);
    showActive(store);
    EXPECT_EQ(store.cSql->accessibleName() + store.cFuhao->accessibleName() + store.lSql->accessibleName(),
              u"查找项目查找关系查找条件");
    store.lSql->setText(u"x"_s);
    store.cSql->setCurrentIndex(1);
    EXPECT_EQ(store.lSql->text(), u"");
    EXPECT_EQ(store.cFuhao->count(), operatorsOf(FieldType::Number).size());
    for (QWidget *button : std::initializer_list<QWidget *>{store.Command3, store.Command2, store.lastQueryButton}) {
        store.lSql->setText(u"x"_s);
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(store.lSql->text(), button == store.Command3 ? u"x" : u"");
        EXPECT_EQ(store.signSql->toPlainText(), u"");
    }
}

TEST_F(QueryFrmTest, OffersTheLastQueryAgain) {
    EXPECT_FALSE(dialog.lastQueryButton->isVisible());
    EXPECT_TRUE(dialog.Command1[1]->property("primary").toBool());
    EnteredQuery last;
    dialog.offerLast(last);
    EXPECT_FALSE(dialog.lastQueryButton->isVisible());
    type(u"a"_s);
    QTest::mouseClick(dialog.Command1[0], Qt::LeftButton);
    type(u"b"_s);
    dialog.cOrderby->setCurrentIndex(1);
    QTest::mouseClick(dialog.Label3[1], Qt::LeftButton);
    QTest::keyClick(&dialog, Qt::Key_O, Qt::AltModifier);
    QueryFrm next(host);
    next.resultForm = &target;
    next.LoadCombo(u"bookname,author,catatime"_s, u"书名,著者,入库日期"_s, u"字符,字符,日期"_s);
    next.offerLast(last);
    EXPECT_EQ(next.LFields->currentRow(), 0);
    showActive(next);
    QTest::keyClick(&next, Qt::Key_L, Qt::AltModifier);
    ASSERT_EQ(next.totalSql->count(), 1);
    EXPECT_EQ(next.signSql->toPlainText() + next.totalSql->item(0)->text() + next.lOrderby->toPlainText(),
              u"书名'等于'b书名'等于'a'著者'降"_s);
    EXPECT_EQ(next.cOrderby->count(), 2);
    next.Command1[1]->click();
    ASSERT_EQ(target.received.size(), 2);
    EXPECT_EQ(target.received[1], target.received[0]);
    QueryFrm empty(host); // a query for everything does not replace it
    empty.offerLast(last);
    empty.findData();
    EXPECT_FALSE(last.isEmpty());
}

TEST_F(QueryFrmTest, RefusesToSortByNothingAndPassesNothingOnWhenClosed) {
    QTest::keyClick(dialog.Label3[0], Qt::Key_Space);
    EXPECT_EQ(host.texts(), QStringList{u"请选择排序项目，取消该操作。"_s});
    EXPECT_EQ(host.lastBox().icon, platform::Icon::Critical);
    EXPECT_TRUE(dialog.cOrderby->hasFocus());
    type(u"a"_s);
    QTest::keyClick(&dialog, Qt::Key_X, Qt::AltModifier);
    EXPECT_TRUE(!dialog.isVisible() && target.received.isEmpty());
    QueryFrmdel store(host);
    const QString fields = QStringList(47, u"f"_s).join(u',');
    store.LoadCombo(fields, fields, fields);
    EXPECT_EQ(host.boxes.size(), 2) << "more fields than the dialog supports";
    EXPECT_EQ(store.LFields->count(), 0);
}

// Each act with what it changes in the dialog.
TEST_F(QueryFrmTest, EachActChangesOnlyWhatBelongsToIt) {
    WindowState state(dialog);
    const auto key = [this](QWidget *where, Qt::Key key) { QTest::keyClick(where, key); };
    const std::pair<std::function<void()>, QString> steps[] = {
        {[&] { choose(u"著者"_s); }, u"cSql=著者"_s},
        {[&] { choose(u"入库日期"_s); }, u"lSql=____-__-__; cSql=入库日期"_s},
        {[&] {
             dialog.cSql->setFocus();
             key(dialog.cSql, Qt::Key_Return);
         },
         u"cFuhao focus"_s},
        {[&] { key(dialog.cFuhao, Qt::Key_Return); }, u"lSql focus"_s},
        {[&] { QTest::keyClicks(dialog.lSql, u"2005"_s); }, u"lSql=2005-__-__"_s},
        {[&] { key(dialog.lSql, Qt::Key_Tab); },
         u"lSql=____-__-__; signSql=入库日期'等于'2005-__-__; Command3 focus"_s},
        {[&] { key(dialog.Command3, Qt::Key_Tab); }, u"signSql focus"_s},
        {[&] { dialog.Command1[0]->click(); }, u"signSql="_s},
        {[&] { dialog.cSql->setCurrentIndex(0); }, u"lSql=; cSql=书名"_s},
        {[&] { dialog.cOrderby->setCurrentIndex(0); }, u"cOrderby=书名"_s},
        {[&] { dialog.Label3[0]->clicked(); }, u"cOrderby=; lOrderby='书名'升"_s},
        {[&] { dialog.Command2->click(); }, u"lOrderby="_s},
        {[&] {
             choose(u"书名"_s);
             QTest::mouseDClick(dialog.LFields->viewport(), Qt::LeftButton, {},
                                dialog.LFields->visualItemRect(dialog.LFields->item(0)).center());
         },
         u"cFuhao focus"_s},
    };
    for (int number = 0; const auto &[act, changes] : steps) {
        act();
        EXPECT_EQ(state.changes(), changes) << number++;
    }
    EXPECT_EQ(dialog.totalSql->count(), 0);
    EXPECT_TRUE(dialog.signSql->isReadOnly() && dialog.lOrderby->isReadOnly());
    EXPECT_EQ(state.grown({300, 0}), u"LFields w; lOrderby w; lSql w; queriedTable w; signSql w; totalSql w"_s);
    EXPECT_EQ(state.grown({0, 200}), u"LFields h; totalSql h"_s);
    EXPECT_GE(dialog.LFields->minimumWidth(), dialog.fontMetrics().horizontalAdvance(u"入库日期入库日期"_s));
    EXPECT_GE(dialog.lSql->minimumWidth(), dialog.fontMetrics().horizontalAdvance(u"____-__-______"_s));
}

TEST_F(QueryFrmTest, SwallowsKeysInTheReadableForms) {
    dialog.signSql->setFocus();
    QTest::keyClicks(dialog.signSql, u"a\t"_s);
    EXPECT_TRUE(dialog.signSql->toPlainText().isEmpty() && !dialog.signSql->hasFocus());
    for (QTextEdit *box : {dialog.signSql, dialog.lOrderby}) {
        box->setPlainText(u"书名"_s);
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        EXPECT_FALSE(box->textCursor().hasSelection());
    }
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

} // namespace
