// The effects of single keys and buttons on the window of the workspace.
#include "support/windowState.h"
#include "workspaceFixture.h"

namespace {

struct WindowActs : Workspace {
    void SetUp() override {
        Workspace::SetUp();
        write("cnmarc_default.Qvs", u"300 附注\r\n305 版本\r\n"_s);
        write("cnmarc_zzdtshi.Qvs", u"[200]\r\n$e 副题名\r\n[999]\r\n"_s);
    }
};

} // namespace

TEST_F(WindowActs, ChangeOnlyWhatBelongsToThem) {
    auto &window = open(230);
    window.Grid1->setFocus();
    window.Grid1->setRow(4); // 200 $a
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.Text3->property("text") == u"200"_s; }));
    WindowState state(window);
    const auto at = [&]() -> QString {
        const bool isLarge = window.richText->isVisible() && window.richText->geometry() == window.Grid1->rightHalf();
        return u" @%1,%2"_s.arg(window.Grid1->row()).arg(window.Grid1->column()) + (isLarge ? u" large" : u"");
    };
    const auto key = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        return [key, modifiers] { QTest::keyClick(QApplication::focusWidget(), key, modifiers); };
    };
    const QString commands =
        u"cmdBatch cmdProofAll cmdTiMing0 cmdTiMing1 cmdWholeText cmdclick0 cmdclick1 cmdclick2 cmdclick3 "
        "cmdclick4 cmdclick5 cmdclick6 filterBox"_s;
    const QString read = u"只读出 200/230 条，导入只含已读出的"_s;
    const QString field = u"Text1 focus; Grid1 "_s + commands + u" off; Text1 on";
    const QString fieldEnds = u"Grid1 focus; Text1 gone; Grid1 "_s + commands + u" on";
    const QString find = u"findText focus; findCount findLine findPlace findText on @4,3"_s;
    const QString findEnds = u"Grid1 focus; findCount findLine findPlace findText gone @4,3"_s;
    const QString changed = u"　已改 1 条，未导入"_s;
    const auto content = [&](const QString &shown) -> QString {
        return shown + u"; richText focus; Grid1 Grid2 " + commands + u" off; richText on @4,4";
    };
    const QString again = content(u"richText=x题1; labStatus=第 1 位　"_s + read + changed);
    const QString contentEnds =
        u"labStatus="_s + read + changed + u"; Grid1 focus; richText gone; Grid1 Grid2 " + commands + u" on @4,4";
    const std::pair<std::function<void()>, QString> steps[] = {
        {key(Qt::Key_Return), content(u"labStatus=第 1 位　"_s + read + u"; richText=题1")},
        {key(Qt::Key_F6), u" @4,4 large"_s},
        {key(Qt::Key_F6), u" @4,4"_s},
        {key(Qt::Key_X), u"richText=x题1; labStatus=第 2 位　"_s + read + u" @4,4"},
        {key(Qt::Key_Return), contentEnds},
        {key(Qt::Key_F6), again + u" large"},
        {key(Qt::Key_Escape), contentEnds},
        {key(Qt::Key_Return), again},
        {key(Qt::Key_Escape), contentEnds},
        {key(Qt::Key_F2), u"Text1=$a; "_s + field + u" @4,2"},
        {key(Qt::Key_F6), u" @4,2"_s},
        {key(Qt::Key_Escape), fieldEnds + u" @4,2"},
        {key(Qt::Key_F2, Qt::ControlModifier), u"Text1=正题名; "_s + field + u" @4,3"},
        {key(Qt::Key_Return), fieldEnds + u" @4,3"},
        {key(Qt::Key_Insert), u"Zzdlist focus; Zzdlist on @4,3"_s},
        {key(Qt::Key_Escape), u"Grid1 focus; Zzdlist gone @4,3"_s},
        {key(Qt::Key_Insert, Qt::ControlModifier), u"zdList focus; zdList on @4,3"_s},
        {key(Qt::Key_Escape), u"Grid1 focus; zdList gone @4,3"_s},
        {key(Qt::Key_F3), u"findCount findText=; findPlace=全部; "_s + find},
        {key(Qt::Key_Escape), findEnds},
        {key(Qt::Key_G, Qt::ControlModifier), u"findCount findText=; findPlace=记录号; "_s + find},
        {key(Qt::Key_Escape), findEnds},
        {key(Qt::Key_W, Qt::AltModifier), u"wholeText=x题1; wholeText on; cmdWholeText ticked @4,3"_s},
        {key(Qt::Key_Up), u"wholeText=1# @3,3"_s},
        {key(Qt::Key_W, Qt::AltModifier), u"wholeText gone; cmdWholeText not ticked @3,3"_s},
    };
    for (int number = 0; const auto &[act, changes] : steps) {
        act();
        EXPECT_EQ(QString(state.changes() + at()), changes) << number++;
    }
    EXPECT_EQ(state.grown({300, 200}),
              u"Grid1 wh; Grid2 h; Picture1 wh; Zzdlist wh; across wh; down wh; labStatus w; listSide h; picTiMing h; "
              "under wh; wholeText w; zdList wh"_s);
}

// Also before it has the focus, as in a window that is not active.
TEST_F(WindowActs, AnOpenEditorHoldsTheControls) {
    auto &window = load(1);
    window.Grid1->setRow(4); // 200 $a
    for (const bool content : {true, false}) {
        auto &editors = window.parts().editors;
        content ? editors.openContent() : editors.openIdentity(workspace::IdentityColumn::Identifier);
        EXPECT_FALSE(window.Grid1->isEnabled() || window.cmdclick[2]->isEnabled());
        EXPECT_EQ(window.Grid2->isEnabled(), !content);
        QTest::keyClick(content ? static_cast<QWidget *>(window.richText) : window.Text1, Qt::Key_Escape);
        EXPECT_TRUE(window.Grid1->isEnabled() && window.Grid2->isEnabled());
    }
}

// Controls whose captions and places alone do not tell what they do.
TEST_F(WindowActs, TheControlsHaveTheirHintsAndSizes) {
    auto &window = load(1);
    window.parts().editors.openIdentity(workspace::IdentityColumn::Identifier);
    for (const auto &[object, property, value] :
         std::initializer_list<std::tuple<const char *, const char *, QVariant>>{
             {"cmdWholeText", "toolTip", u"在表格下面显示当前行的全文"_s},
             {"Text1", "toolTip", u"回车结束输入返回，按【Esc】取消"_s},
             {"zdList", "toolTip", u"双击可返回,右击或按【Esc】取消"_s},
             {"Zzdlist", "uniformItemSizes", true},
             {"findText", "placeholderText", u"查找：F3 下一条，Shift+F3 上一条"_s},
             {"cmdclick5", "primary", true},
             {"cmdclick4", "primary", {}},
             {"Text1", "frame", false},
             {"filterBox", "sizePolicy", QSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed)},
             {"Text1", "font", window.Grid1->font()},
             {"richText", "font", window.Grid1->font()},
             {"Grid1", "accessibleName", u"字段"_s},
             {"filterBox", "toolTip", u"只影响列出哪些；导入和“校对全部”仍是读出的全部记录"_s},
         })
        EXPECT_EQ(window.findChild<QWidget *>(QString::fromLatin1(object))->property(property), value)
            << object << ' ' << property;
    const int space = widgets::space(widgets::Space::Tight, window.fontMetrics());
    EXPECT_EQ(window.draftBar->layout()->contentsMargins(), QMargins(2 * space, space, space, space));
    EXPECT_EQ(window.draftBar->frameStyle(), int(QFrame::StyledPanel) | int(QFrame::Raised));
    EXPECT_EQ(window.Text2->textInteractionFlags(), Qt::TextSelectableByMouse);
    EXPECT_EQ(window.Text1->textMargins(), QMargins(2, 0, 2, 0));
    EXPECT_EQ(window.Text4->width(), window.Text4->fontMetrics().horizontalAdvance(u"99999999"_s));
    for (const auto *plain : {"findLine", "listSide"})
        EXPECT_EQ(window.findChild<QWidget *>(QString::fromLatin1(plain))->layout()->contentsMargins(), QMargins());
    EXPECT_GT(window.room->widget(0)->minimumWidth(), 10 * space);
    EXPECT_GE(window.findLine->findText->minimumWidth(), 10 * window.fontMetrics().averageCharWidth());
}

// A window that is not active gets no focus events.
TEST_F(WindowActs, AListClosesWithoutTheFocus) {
    auto &window = load(1);
    for (widgets::ChoiceList *list : {window.zdList, window.Zzdlist}) {
        list->show();
        Q_EMIT list->cancelled();
        EXPECT_TRUE(list->isHidden());
    }
}
