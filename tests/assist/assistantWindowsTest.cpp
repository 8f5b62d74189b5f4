#include "assist/windows/frmHelpLR.h"
#include "support/scriptedHost.h"
#include "support/windowState.h"
#include "widgets/button.h"
#include "widgets/choiceList.h"
#include "widgets/keyLine.h"

using assist::CodeBox;
using platform::Answer;

namespace {

void doubleClick(const widgets::ChoiceList *list, const QString &entry) {
    const auto found = list->findItems(entry, Qt::MatchStartsWith);
    ASSERT_EQ(found.size(), 1) << entry.toStdString();
    const QPoint place = list->visualItemRect(found.first()).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
}

template <class Window, QString Window::*text>
struct Assistant : testing::Test {
    ScriptedHost host;
    Window window{host};
    void open(const QString &incoming) {
        window.*text = incoming;
        showActive(window);
    }
};
struct FrmHelpLR000Test : Assistant<assist::frmHelpLR000, &assist::frmHelpLR000::publicTouBiao> {
    FrmHelpLR000Test() { open(u"00960NAM0 2200277   450 "_s); }
};
using FrmHelpLR100Test = Assistant<assist::frmHelpLR100, &assist::frmHelpLR100::public100ZD>;

} // namespace

TEST_F(FrmHelpLR000Test, FillsTheLeaderByKeyboardAlone) {
    EXPECT_EQ(window.textMarc->text(), u"?????nAM0#22?????###450#");
    EXPECT_TRUE(window.richTextTS->toPlainText().startsWith(u"新记录（包括"));

    QTest::keyClick(window.Text1[1], Qt::Key_Return);
    QTest::keyClick(window.Text1[2], Qt::Key_Down);
    EXPECT_EQ(window.listMenu->currentItem()->text(), u"a=文字资料印刷品录");
    QTest::keyClick(window.listMenu, Qt::Key_Down);
    QTest::keyClick(window.listMenu, Qt::Key_Return);
    EXPECT_EQ(window.richTextTS->toPlainText(), u"文字资料手稿");
    QTest::keyClick(window.Text1[2], Qt::Key_Down);
    QTest::keyClick(window.listMenu, Qt::Key_Escape);
    EXPECT_TRUE(window.listMenu->isHidden());
    EXPECT_EQ(window.focusWidget(), window.Text1[2]);
    for (const int next : {3, 4, 9}) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Enter);
        EXPECT_EQ(window.focusWidget(), window.Text1[size_t(next)]);
    }
    QTest::keyClick(window.Text1[9], '3');
    QTest::keyClick(&window, Qt::Key_S, Qt::AltModifier);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.confirmed, u"?????nbm0#22?????3##450#");
}

// Each key with what it changes in the window.
TEST_F(FrmHelpLR000Test, EachKeyChangesOnlyWhatBelongsToIt) {
    WindowState state(window);
    static const QRegularExpression longText(u"以一册[^;]*"_s);
    const std::pair<Qt::Key, QString> steps[] = {
        {Qt::Key_C, u"Text11=c"_s},
        {Qt::Key_Tab, u"textMarc=?????caM0#22?????###450#; Text12=a; richTextTS=文字资料印刷品; Text12 focus"_s},
        {Qt::Key_Tab, u"textMarc=?????cam0#22?????###450#; Text13=m; richTextTS=以一册; Text13 focus"_s},
        {Qt::Key_Backtab, u"richTextTS=文字资料印刷品; Text12 focus"_s},
        {Qt::Key_Down, u"listMenu focus; listMenu on"_s},
        {Qt::Key_End, u"richTextTS=善本书"_s},
        {Qt::Key_Return, u"textMarc=?????cvm0#22?????###450#; Text12=v; Text12 focus; listMenu gone"_s},
        {Qt::Key_Down, u"listMenu focus; listMenu on"_s},
        {Qt::Key_Escape, u"Text12 focus; listMenu gone"_s},
        {Qt::Key_Return, u"richTextTS=以一册; Text13 focus"_s},
    };
    for (int number = 0; const auto &[key, changes] : steps) {
        QTest::keyClick(QApplication::focusWidget(), key);
        EXPECT_EQ(state.changes().replace(longText, u"以一册"_s), changes) << number++;
        if (window.listMenu->isVisible()) {
            EXPECT_EQ(window.listMenu->pos(), window.Text1[2]->mapTo(&window, QPoint(0, window.Text1[2]->height())));
            EXPECT_TRUE(window.rect().contains(window.listMenu->geometry()));
        }
        auto *box = qobject_cast<CodeBox *>(QApplication::focusWidget());
        EXPECT_FALSE(box && box->hasSelectedText());
    }
    EXPECT_TRUE(window.richTextTS->isReadOnly() && window.textMarc->isReadOnly());
    window.richTextTS->setFocus();
    QTest::keyClick(window.richTextTS, Qt::Key_Tab);
    EXPECT_FALSE(window.richTextTS->hasFocus());
    EXPECT_EQ(state.grown({200, 100}), u"boxArea w; listLx wh; richTextTS wh; textMarc w"_s);
    EXPECT_EQ(window.boxArea->widget()->width(), window.boxArea->viewport()->width());
    for (const CodeBox *box : window.Text1) {
        EXPECT_TRUE(box->alignment() == Qt::AlignCenter && (box->inputMethodHints() & Qt::ImhPreferLatin));
        const QColor ground =
            box->palette().color(box->isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Base);
        EXPECT_EQ(ground, box->isEnabled() ? QColor(0xC0, 0xFF, 0xFF)
                                           : box->palette().color(QPalette::Active, QPalette::Button));
        EXPECT_GE(box->width(), box->fontMetrics().horizontalAdvance(QString(box->maxLength(), u'0')));
        EXPECT_FALSE(box->accessibleName().isEmpty());
        const QColor fixedInk = box->palette().color(QPalette::Disabled, QPalette::Text);
        EXPECT_TRUE(box->isEnabled() || fixedInk == box->palette().color(QPalette::Active, QPalette::ButtonText));
    }
}

TEST_F(FrmHelpLR000Test, AsksAboutCodesThatItDoesNotKnow) {
    CodeBox *type = window.Text1[2];
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        type->setFocus();
        host.willAnswer(answer);
        QTest::keyClick(type, 'X');
        EXPECT_EQ(type->text(), u"x");
        EXPECT_EQ(window.focusWidget(), window.Text1[answer == Answer::Yes ? 2 : 3]);
    }
    EXPECT_EQ(host.lastBox().text, u"输入字符不在规定范围内。是否重新输入？");
    EXPECT_TRUE(host.lastBox().title == u"操作提示" && host.lastBox().icon == platform::Icon::Information);
    EXPECT_EQ(host.lastBox().preselected, Answer::No);
    EXPECT_EQ(window.textMarc->text(), u"?????nxm0#22?????###450#");
    window.Text1[1]->selectAll();
    QTest::keyClick(window.Text1[1], 'N');
    EXPECT_EQ(window.Text1[1]->text(), u"n") << "the key does not reach the box a second time";
    window.Text1[1]->deselect();
    for (const Qt::KeyboardModifiers held : {Qt::AltModifier | Qt::NoModifier, Qt::MetaModifier | Qt::NoModifier}) {
        QTest::keyClick(window.Text1[1], 'd', held);
        EXPECT_EQ(window.Text1[1]->text(), u"n") << "a shortcut";
    }
    QTest::keyClick(window.Text1[1], 'd', Qt::AltModifier | Qt::ControlModifier);
    EXPECT_EQ(window.Text1[1]->text(), u"d") << "AltGr on some machines";
}

TEST_F(FrmHelpLR000Test, TheMouseChoosesAndDismisses) {
    QTest::mouseClick(window.LabShuoMing[3], Qt::LeftButton);
    EXPECT_EQ(window.focusWidget(), window.Text1[3]);
    const QRect other = window.listLx->visualItemRect(window.listLx->item(0));
    QTest::mouseClick(window.listLx->viewport(), Qt::LeftButton, {}, other.center());
    EXPECT_TRUE(window.richTextTS->toPlainText().startsWith(u"该书目所描述"));
    window.Text1[3]->setFocus();
    EXPECT_TRUE(window.richTextTS->toPlainText().startsWith(u"以一册")) << "the code of the box again";
    doubleClick(window.listLx, u"s="_s);
    EXPECT_EQ(window.focusWidget(), window.Text1[3]);

    // The button acts on its own box regardless of the focus.
    window.picClick[5]->click();
    EXPECT_EQ(window.listMenu->accessibleName(), window.Text1[10]->accessibleName());
    doubleClick(window.listMenu, u"n＝"_s);
    EXPECT_TRUE(window.listMenu->isHidden());
    EXPECT_EQ(window.textMarc->text(), u"?????nAs0#22?????#n#450#");

    window.picClick[0]->click();
    QTest::mouseClick(window.listMenu->viewport(), Qt::RightButton);
    EXPECT_TRUE(window.listMenu->isHidden());
    EXPECT_EQ(window.focusWidget(), window.Text1[1]);
    window.picClick[1]->click();
    window.Text1[9]->setFocus();
    EXPECT_TRUE(window.listMenu->isHidden());
    EXPECT_EQ(window.focusWidget(), window.Text1[9]);
    EXPECT_EQ(window.listLx->currentItem()->text(), u"#=完全级");
    window.Text1[9]->clear();
    window.listLx->setFocus();
    EXPECT_EQ(window.Text1[9]->text(), u"#") << "left empty";
}

TEST_F(FrmHelpLR000Test, EnteredBoxesAreSeenAndListedInANarrowOrInactiveWindow) {
    EXPECT_EQ(window.boxArea->height(), window.boxArea->widget()->sizeHint().height());
    EXPECT_EQ(window.boxArea->widget()->childrenRect().topLeft(), QPoint()) << "in line with the lists below";
    window.boxArea->setMinimumWidth(0);
    QApplication::processEvents(); // the smaller minimum takes effect
    window.resize(10, 10);
    QApplication::processEvents();
    CodeBox *last = window.Text1[10];
    for (CodeBox *box : {last, window.Text1[1]}) {
        box->setFocus();
        const QRect seen(box->mapTo(window.boxArea->viewport(), QPoint()), box->size());
        EXPECT_TRUE(window.boxArea->viewport()->rect().contains(seen)) << box->objectName().toStdString();
    }
    EXPECT_FALSE(window.boxArea->verticalScrollBar()->isVisible());
    window.Text1[1]->setText(u"C"_s);
    QApplication::setActiveWindow(nullptr); // the focus then changes without a signal
    EXPECT_EQ(window.Text1[1]->text(), u"C"_s) << "not left";
    window.picClick[5]->click();
    EXPECT_EQ(window.Text1[1]->text(), u"c"_s);
    EXPECT_EQ(window.listMenu->accessibleName(), last->accessibleName());
    EXPECT_GT(window.listLx->count(), 1);
    last->setText(u"N"_s);
    last->onKey(u'\r');
    EXPECT_EQ(last->text(), u"n"_s);
    for (widgets::ChoiceList *list : {window.listMenu, window.listLx}) {
        last->setFocus();
        doubleClick(list, list == window.listMenu ? u"n＝"_s : u"i＝"_s);
        EXPECT_EQ(last->text(), list == window.listMenu ? u"n" : u"i");
        EXPECT_TRUE(window.listMenu->isHidden());
    }
}

TEST_F(FrmHelpLR000Test, OpensAgainAtItsFirstBox) {
    EXPECT_TRUE(window.richTextTS->isVisible() && !window.textMarc->toolTip().isEmpty());
    EXPECT_EQ(window.cmdclick[0]->toolTip() + window.cmdclick[1]->toolTip(), u"确认修改取消修改"_s);
    EXPECT_EQ(window.listMenu->findChild<widgets::KeyLine *>()->text(), u"回车选用　Esc 收起"_s);
    EXPECT_EQ(window.boxArea->widget()->width(), window.boxArea->viewport()->width());
    const int entries = window.listLx->count();
    EXPECT_GT(entries, 3);
    window.close();
    open(u"00960cam0 2200277   450 "_s);
    EXPECT_EQ(window.focusWidget(), window.Text1[1]);
    EXPECT_EQ(window.listLx->count(), entries);
    EXPECT_TRUE(window.richTextTS->toPlainText().startsWith(u"当由于改错"))
        << window.richTextTS->toPlainText().toStdString();
    window.cmdclick[0]->click();
    window.publicTouBiao = u"00960xam0 2200277   450 "_s;
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.show();
    EXPECT_EQ(window.textMarc->text(), u"?????xam0#22?????###450#") << "before the window is active";
    EXPECT_TRUE(window.listLx->count() == 0 && window.richTextTS->toPlainText().isEmpty());
    EXPECT_TRUE(window.cmdclick[0]->property("primary").toBool());
    window.cmdclick[1]->click();
    EXPECT_FALSE(window.confirmed);
}

TEST_F(FrmHelpLR000Test, AnInputMethodTypesAtTheEndOfTheComposition) {
    QInputMethodEvent composing(u"x"_s, {});
    QCoreApplication::sendEvent(window.Text1[1], &composing);
    EXPECT_EQ(window.Text1[1]->text(), u"n");
    QInputMethodEvent done;
    done.setCommitString(u"D"_s);
    QCoreApplication::sendEvent(window.Text1[1], &done);
    EXPECT_EQ(window.Text1[1]->text(), u"d");
    done.setCommitString(u"c书"_s); // not a code
    QCoreApplication::sendEvent(window.Text1[1], &done);
    EXPECT_EQ(window.Text1[1]->text(), u"d");
}

TEST_F(FrmHelpLR100Test, TestsFullBoxesOnAFurtherKey) {
    open({});
    EXPECT_GE(window.boxArea->viewport()->height(), window.boxArea->widget()->sizeHint().height()) << "boxes are cut";
    CodeBox *language = window.Text1[9];
    language->setFocus();
    QTest::keyClick(language, 'x');
    EXPECT_EQ(window.focusWidget(), language);
    language->clear();
    QInputMethodEvent word;
    word.setCommitString(u"eng"_s);
    QCoreApplication::sendEvent(language, &word);
    EXPECT_EQ(language->text(), u"eng");
    language->selectAll();
    QTest::keyClicks(language, u"XX"_s);
    host.willAnswer(Answer::No);
    QTest::keyClicks(language, u"Xy"_s);
    EXPECT_EQ(host.lastBox().text, u"输入代码不在规定范围内。是否重新输入？");
    EXPECT_EQ(window.focusWidget(), window.Text1[10]);
    EXPECT_TRUE(window.richTextTS->isHidden());
    CodeBox *year = window.Text1[2];
    year->setFocus();
    year->selectAll();
    QTest::keyClicks(year, u"19a81"_s);
    EXPECT_EQ(host.lastBox().text, u"输入年份格式不正确。请重新输入");
    EXPECT_EQ(window.focusWidget(), year);
    EXPECT_EQ(year->text(), u"19a8");
    year->setText(u"####"_s);
    window.cmdclick[0]->click();
    EXPECT_EQ(window.confirmed, u"????????##############xxx###########");
}

TEST_F(FrmHelpLR100Test, SomeListsAreOnlyForReading) {
    open(u"19980512d1998    km y0chiy1001  50ea"_s);
    QTest::mouseClick(window.LabShuoMing[4], Qt::LeftButton);
    EXPECT_EQ(window.focusWidget(), window.Text1[1]);
    window.Text1[5]->setFocus();
    QTest::keyClick(window.Text1[5], Qt::Key_Down);
    EXPECT_TRUE(window.listMenu->isHidden());
    EXPECT_EQ(window.listLx->currentItem()->text(), u"m=成人（一般）");
    doubleClick(window.listLx, u"u=不详"_s);
    EXPECT_EQ(window.Text1[5]->text(), u"m");
    QTest::mouseClick(window.LabShuoMing[11], Qt::LeftButton);
    EXPECT_EQ(window.focusWidget(), window.Text1[15]);
    QTest::keyClick(window.Text1[15], Qt::Key_Down);
    doubleClick(window.listMenu, u"ka "_s);
    EXPECT_EQ(window.textMarc->text(), u"????????d1998####km#y0chiy1001##50ka");
}

TEST_F(FrmHelpLR100Test, EditReturnsTheConfirmedTextAndNothingAfterACancel) {
    for (const int button : {0, 1, -1}) {
        QTimer::singleShot(0, qApp, [button] {
            auto *window = qobject_cast<assist::frmHelpLR100 *>(QApplication::activeModalWidget());
            ASSERT_TRUE(window);
            if (button < 0)
                QTest::keyClick(window->Text1[1], Qt::Key_Escape);
            else
                window->cmdclick[size_t(button)]->click();
        });
        const auto text = assist::frmHelpLR100(host).edit(u"平凡的世界"_s);
        EXPECT_EQ(text.value_or(u"cancelled"_s),
                  button == 0 ? u"????????"_s + QString(14, u'#') + u"chi" + QString(11, u'#') : u"cancelled"_s);
    }
}
