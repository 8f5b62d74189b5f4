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
    auto &window = load(230);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.Grid1->setFocus();
    window.Grid1->setRow(4); // 200 $a
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.Text3->property("text") == u"200"_s; }));
    WindowState state(window);
    const auto at = [&]() -> QString { return u" @%1,%2"_s.arg(window.Grid1->row()).arg(window.Grid1->column()); };
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
    const std::pair<std::function<void()>, QString> steps[] = {
        {key(Qt::Key_Return), u"labStatus=第 1 位　"_s + read + u"; richText=题1; richText focus; Grid1 Grid2 " +
                                  commands + u" off; richText on @4,4"},
        {key(Qt::Key_F6), u" @4,4"_s}, // enlarges
        {key(Qt::Key_F6), u" @4,4"_s},
        {key(Qt::Key_X), u"richText=x题1; labStatus=第 2 位　"_s + read + u" @4,4"},
        {key(Qt::Key_Return), u"labStatus="_s + read +
                                  u"　已改 1 条，未导入; Grid1 focus; richText gone; Grid1 Grid2 " + commands +
                                  u" on @4,4"},
        {key(Qt::Key_F2), u"Text1=$a; "_s + field + u" @4,2"},
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
