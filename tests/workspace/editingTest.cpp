#include "platform/paths.h"
#include "widgets/accentFrame.h"
#include "workspaceFixture.h"

using platform::Answer;

namespace {

constexpr int titleRow = 4; // $a of field 200

struct EditingTest : Workspace {
    void SetUp() override {
        Workspace::SetUp();
        write("cnmarc_default.Qvs", u"300 附注\r\n???自定\r\n"_s);
        write("cnmarc_zzdtshi.Qvs", u"[200]\r\n$e 副题名\r\n$f 责任者\r\n[999]\r\n"_s);
    }
    void goTo(int row) {
        form->Grid1->setFocus();
        form->Grid1->setRow(row);
    }
    void editRow(int row) {
        goTo(row);
        QTest::keyClick(form->Grid1, Qt::Key_Return);
    }
    void paste(const QString &text) {
        QGuiApplication::clipboard()->setText(text);
        form->richText->selectAll();
        form->richText->paste();
    }
    // Enters a text into the open editor and presses a key.
    void leave(const QString &text, Qt::Key key = Qt::Key_Return) {
        const bool content = form->richText->isVisible();
        content ? paste(text) : form->Text1->setText(text);
        QTest::keyClick(content ? static_cast<QWidget *>(form->richText) : form->Text1, key);
    }
    // Opens the popup menu of the current row, with the Menu key or with `open`, and chooses an item by its index.
    void choose(int item, const std::function<void()> &open = {}) {
        QTimer::singleShot(0, [item] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            menu->setActiveAction(menu->actions().at(item - 1));
            QTest::keyClick(menu, Qt::Key_Return);
        });
        open ? open() : QTest::keyClick(form->Grid1, Qt::Key_Menu);
        form->activateWindow(); // the popup was the active window
        QApplication::processEvents();
    }
    bool editing() const { return form->richText->isVisible() || form->Text1->isVisible(); }
};

} // namespace

TEST_F(EditingTest, ContentIsCommittedOrDiscarded) {
    auto &window = open(3);
    editRow(titleRow);
    EXPECT_EQ(window.richText->geometry(), window.Grid1->cellRect(titleRow, 4));
    const auto framed = [&] {
        return std::ranges::any_of(window.Picture1->findChildren<widgets::AccentFrame *>(), [&](QWidget *frame) {
            return frame->isVisible() && frame->geometry().contains(window.richText->geometry());
        });
    };
    EXPECT_TRUE(framed());
    leave(u"甲\r\n乙\n丙\r丁\x1F"_s);
    EXPECT_FALSE(framed());
    EXPECT_EQ(cell(titleRow, 4), u"甲乙丙丁\x1F"_s);
    EXPECT_TRUE(window.recordChanged());
    EXPECT_TRUE(window.Grid1->hasFocus() && window.labStatus->text().contains(u"1D-1F"_s));

    window.record().leave(workspace::EditedRecord::Mark::Goes);
    editRow(titleRow);
    paste(u"弃𠮷"_s);
    EXPECT_TRUE(window.labStatus->text().contains(u"𠮷"_s)); // reported while the text is typed
    QTest::keyClick(window.richText, Qt::Key_Escape);
    EXPECT_TRUE(!window.labStatus->text().contains(u"𠮷"_s) && window.isVisible());
    EXPECT_EQ(cell(titleRow, 4), u"甲乙丙丁\x1F"_s);

    window.record().edit({.row = titleRow, .text = u"书名"_s, .marks = false});
    editRow(titleRow);
    leave(u"  书名 "_s); // leading and trailing blanks are written, but do not count as a change
    EXPECT_EQ(cell(titleRow, 4), u"  书名 "_s);
    EXPECT_FALSE(window.recordChanged());

    window.Grid1->setRowSel(2); // several selected rows: the key only reduces the selection to one
    QTest::keyClick(window.Grid1, Qt::Key_Return);
    EXPECT_FALSE(editing());
    EXPECT_EQ(window.Grid1->rowSel(), titleRow);
}

TEST_F(EditingTest, LimitsAndTheLargeForm) {
    auto &window = open(3);
    editRow(3); // the indicators of 200
    QInputMethodEvent commit;
    commit.setCommitString(u"长"_s);
    QApplication::sendEvent(window.richText, &commit);
    EXPECT_EQ(window.richText->text(), u"1#"_s); // the maximum length
    paste(u"12345"_s);
    EXPECT_EQ(window.richText->text(), u"12"_s);
    QTest::keyClick(window.richText, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window.richText->text(), u"1#"_s);
    QTest::mouseClick(window.richText->viewport(), Qt::RightButton);
    EXPECT_TRUE(window.richText->toolTip().startsWith(u"双击"_s));
    window.Grid1->setRow(5);
    QTest::mouseDClick(window.richText->viewport(), Qt::LeftButton);
    EXPECT_TRUE(window.richText->geometry() == window.Grid1->cellRect(3, 4) && window.Grid1->row() == 3 &&
                window.richText->frameShape() == QFrame::NoFrame);
    window.cmdJieShu->setEnabled(true);
    window.cmdJieShu->setFocus();
    QApplication::processEvents();
    EXPECT_TRUE(window.richText->hasFocus()); // the editor takes the focus back, and the limit no longer applies
    leave(u"12345"_s, Qt::Key_Enter);
    EXPECT_EQ(cell(3, 4), u"12345"_s);
}

// These key events arrive when the input method has disappeared during a composition.
TEST_F(EditingTest, AKeyEndsTheCompositionAndNotTheEdit) {
    auto &window = open(3);
    const auto compose = [](QWidget *editor) {
        QInputMethodEvent composing(u"zhong"_s, {});
        QApplication::sendEvent(editor, &composing);
    };
    editRow(titleRow);
    paste(u"甲"_s);
    compose(window.richText);
    QTest::keyClick(window.richText, Qt::Key_Shift);
    EXPECT_EQ(window.richText->text(), u"甲"_s); // the composition continues
    QTest::keyClick(window.richText, Qt::Key_Escape);
    EXPECT_EQ(window.richText->text(), u"甲"_s);
    compose(window.richText);
    QTest::keyClick(window.richText, Qt::Key_Return);
    EXPECT_TRUE(editing());
    QTest::keyClick(window.richText, Qt::Key_Return);
    EXPECT_EQ(cell(titleRow, 4), u"甲zhong"_s);
}

TEST_F(EditingTest, IdentifiersAreCheckedAndTheListStaysUsable) {
    auto &window = open(3);
    window.cmdclick[3]->click(); // everything is read, so the button must stay disabled
    goTo(titleRow);
    choose(7);
    ASSERT_TRUE(window.Text1->isVisible());
    EXPECT_TRUE(window.Grid2->isEnabled() && !window.Grid1->isEnabled() && !window.cmdclick[2]->isEnabled());
    EXPECT_EQ(window.Text1->maxLength(), 2);
    EXPECT_EQ(window.Grid1->column(), 2); // the edited cell is current
    leave(u"$1"_s);                       // refused
    EXPECT_TRUE(editing() && host.boxes.size() == 1);
    leave(u"$B"_s);
    EXPECT_EQ(cell(titleRow, 2), u"$B"_s);
    EXPECT_TRUE(window.recordChanged() && !window.cmdclick[3]->isEnabled());

    choose(6); // the description of a field, on a subfield row: no effect
    EXPECT_TRUE(!editing() && host.boxes.size() == 1);
    choose(8);
    host.willAnswer(Answer::No);
    QTest::keyClick(window.Grid2, Qt::Key_Down); // shows another record under the open editor
    leave(u" 题 "_s);
    EXPECT_EQ(cell(titleRow, 3), u"题"_s);
    EXPECT_EQ(cell(titleRow, 4), u"题2"_s);
}

TEST_F(EditingTest, TheEditorStaysOverItsCellWhenTheRecordChanges) {
    const auto notes = [](int count) -> QString {
        return recordOf(QList<TestField>(count, {u"300"_s, u"  $a附注"_s})) + u"\r\n";
    };
    write("records.iso", notes(40) + notes(45) + notes(1));
    load();
    auto &window = show();
    const int row = 70;
    goTo(row);
    choose(8);
    const auto turnTo = [&](int height) {
        QTest::keyClick(window.Grid2, Qt::Key_Down);
        EXPECT_TRUE(window.Grid1->geometry().contains(window.Text1->geometry())) << height;
        window.resize(window.width(), height);
        QApplication::processEvents();
        EXPECT_TRUE(window.Grid1->geometry().contains(window.Text1->geometry())) << height;
    };
    turnTo(window.height() - 80);
    EXPECT_EQ(window.Text1->geometry(), window.Grid1->cellRect(row, 3));
    EXPECT_EQ(window.Grid1->row(), 1);
    QTest::keyClick(window.Text1, Qt::Key_Escape);
    EXPECT_EQ(window.Grid1->row(), row); // back at the cell
    choose(8);
    turnTo(window.height() - 80); // this record has no such row
    leave(u"无处可写"_s);
    EXPECT_FALSE(editing() || window.recordChanged());
    EXPECT_EQ(window.Grid1->rows(), 4);
}

TEST_F(EditingTest, ListsAddAndTheMenuDeletes) {
    auto &window = open(3);
    goTo(titleRow);
    choose(3);
    ASSERT_TRUE(window.zdList->isVisible());
    EXPECT_EQ(window.parts().editors.editRow, titleRow); // the Menu key sets the row
    EXPECT_EQ(window.zdList->geometry(), window.Grid1->rightHalf());
    EXPECT_NEAR(window.zdList->width(), window.Grid1->width() / 2, 1);
    window.resize(window.width() - 60, window.height() + 40);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.zdList->geometry() == window.Grid1->rightHalf(); }));
    QTest::keyClick(window.zdList, Qt::Key_Down);
    QTest::keyClick(window.zdList, Qt::Key_Return);
    EXPECT_EQ(cell(6, 2) + cell(6, 1) + cell(6, 3), u"???自定指示符"_s);
    EXPECT_EQ(window.Grid1->cellBackground(6, 2), std::nullopt);
    choose(4);
    QTest::keyClick(window.Zzdlist, Qt::Key_Return);
    EXPECT_EQ(cell(5, 2) + cell(5, 3), u"$e副题名"_s);
    EXPECT_FALSE(window.recordChanged());
    choose(4);
    window.cmdclick[6]->setFocus();
    EXPECT_FALSE(window.Zzdlist->isVisible());
    EXPECT_EQ(window.Zzdlist->count(), 0);
    window.Grid1->setRow(5);
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        host.willAnswer(answer);
        choose(11);
        EXPECT_EQ(host.lastBox().text, u"确实要删除选择的子字段【$e副题名 】吗？"_s);
        EXPECT_EQ(cell(5, 2), answer == Answer::No ? u"$e"_s : u"$f"_s);
    }
    host.willAnswer(Answer::Yes);
    choose(10); // from a subfield row, deletes the whole field
    EXPECT_EQ(host.lastBox().text, u"确实要删除选择的字段【200题名与责任者 】吗？"_s);
    EXPECT_EQ(host.lastBox().preselected, Answer::No);
    EXPECT_EQ(window.Grid1->rows(), 3); // and the user-defined field after it, which the count does not recognize
    choose(11);
    EXPECT_EQ(host.lastBox().text, u"请选择字段的子字段，然后执行本操作"_s);
    window.Grid1->setRow(1);
    choose(10);
    EXPECT_EQ(host.lastBox().text, u"不能删除！"_s);
    choose(4);
    EXPECT_EQ(host.lastBox().text,
              u"配置文件【"_s + platform::pathWithSlash(host.folder) + u"cnmarc_zzdtshi.Qvs】损坏或者还没有本字段名。");

    write("cnmarc_default.Qvs", u"300 附注\r\nabc\r\n305 版本\r\n"_s);
    choose(3);
    EXPECT_EQ(host.lastBox().text,
              u"配置文件【"_s + platform::pathWithSlash(host.folder) + u"cnmarc_default.Qvs】损坏。");
    EXPECT_TRUE(!window.zdList->isVisible() && window.zdList->count() == 1); // the lines before the damaged one
}

TEST_F(EditingTest, AssistantsExchangeTheLeaderAndAnySubfieldA) {
    const auto coded = std::pair(u"100"_s, u"  $a20260309"_s);
    write("records.iso", recordOf({coded, coded, {u"101"_s, u"0 $achi$beng"_s}}));
    load();
    auto &window = show();
    const QString leader = cell(1, 4);
    editRow(1);
    EXPECT_TRUE(window.richText->document()->defaultTextOption().flags() & QTextOption::ShowTabsAndSpaces);
    assistantGives = u"00000cam0#2200000###450#"_s;
    QTest::keyClick(window.richText, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(opened, QStringList{u"LR000 "_s + leader});
    EXPECT_EQ(cell(1, 4), *assistantGives);
    EXPECT_EQ(window.publicTouBiao(), *assistantGives);
    EXPECT_TRUE(!editing() && window.recordChanged());

    assistantGives.reset(); // no result from the assistant: the typed text counts
    editRow(3);
    EXPECT_TRUE(window.labStatus->text().contains(u"Ctrl+E"_s)); // 100 $a: the hint appears where coded data belongs
    QTest::keyClick(window.richText, Qt::Key_Escape);
    editRow(7); // 101 $a
    EXPECT_FALSE(window.labStatus->text().contains(u"Ctrl+E"_s));
    paste(u"chi "_s);
    QTest::keyClick(window.richText, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(opened.mid(1), (QStringList{u"LR100 chi "_s, u"LR100 "_s})) << "once for each field 100, on an empty box";
    EXPECT_EQ(cell(7, 4), QString());
    editRow(8); // 101 $b
    QTest::keyClick(window.richText, Qt::Key_E, Qt::ControlModifier);
    EXPECT_TRUE(editing() && opened.size() == 3);
}

TEST_F(EditingTest, RightButtonNeedsARowThatWasClicked) {
    auto &window = open(3);
    const QPoint at = window.Grid1->visualRect(window.Grid1->model()->index(2, 2)).center();
    QTest::mouseClick(window.Grid1->viewport(), Qt::RightButton, {}, at); // a popup menu would block here
    EXPECT_EQ(window.parts().editors.editRow, 0);
    EXPECT_FALSE(window.parts().fieldCommands.clickMark);
    QTest::mouseClick(window.Grid1->viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(window.parts().editors.editRow, 3);

    // Below the last row, clicks apply to the current row.
    const QPoint below = window.Grid1->viewport()->rect().bottomLeft() + QPoint(20, -3);
    choose(7, [&] { QTest::mouseClick(window.Grid1->viewport(), Qt::RightButton, {}, below); });
    EXPECT_TRUE(window.Text1->isVisible());
    EXPECT_EQ(window.parts().editors.editRow, 3);
    EXPECT_FALSE(window.parts().fieldCommands.clickMark);
    QTest::keyClick(window.Text1, Qt::Key_Escape);
    QTest::mouseDClick(window.Grid1->viewport(), Qt::LeftButton, {}, below);
    EXPECT_TRUE(window.richText->isVisible() && window.parts().editors.editRow == 3);
    QTest::keyClick(window.richText, Qt::Key_Escape);

    window.resetFieldGrid(); // no record: no popup menu
    QTest::mouseClick(window.Grid1->viewport(), Qt::RightButton, {}, at);
}
