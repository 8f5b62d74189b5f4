// The usual boxes of the host, and the file that a user chooses to write.
#include "support/scriptedHost.h"

using namespace platform;

TEST(Host, AsksInItsUsualBoxes) {
    ScriptedHost host;
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        host.willAnswer(answer);
        EXPECT_EQ(host.ask(u"一"_s, u"题"_s, Answer::No, Icon::Critical), answer == Answer::Yes);
        host.willAnswer(answer);
        EXPECT_EQ(host.insist(u"二"_s, u"题"_s, Answer::No), answer == Answer::Yes);
    }
    host.tell(u"三"_s);
    ASSERT_EQ(host.boxes.size(), 5);
    EXPECT_TRUE(host.boxes[0].leaving == Leaving::Freely && host.boxes[1].leaving == Leaving::ByButtonsOnly);
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(host.boxes[i].buttons == Buttons::YesNo && host.boxes[i].preselected == Answer::No);
    EXPECT_TRUE(host.boxes[0].icon == Icon::Critical && host.boxes[1].icon == Icon::Information);
    EXPECT_TRUE(host.lastBox().buttons == Buttons::Ok && host.lastBox().title == hintTitle);
}

TEST(Host, AFileToWriteHasASuffixAndIsReplacedOnlyIfTheUserAgrees) {
    ScriptedHost host;
    const TestFolder folder;
    folder.file(u"有.iso"_s, "x");
    const auto yes = Answer::Yes, no = Answer::No;
    const std::tuple<QString, std::optional<Answer>, QString> rows[] = {
        {u""_s, {}, u""_s},
        {folder.path(u"新"_s), {}, folder.path(u"新.iso"_s)},
        {folder.path(u"新.txt"_s), {}, folder.path(u"新.txt"_s)},
        {folder.path(u"a.b/新"_s), {}, folder.path(u"a.b/新.iso"_s)}, // the point is in the folder's name
        {folder.path(u"有"_s), yes, folder.path(u"有.iso"_s)},
        {folder.path(u"有.iso"_s), no, u""_s},
    };
    for (const auto &[chosen, answer, path] : rows) {
        host.willChoose(chosen);
        if (answer)
            host.willAnswer(*answer);
        EXPECT_EQ(host.chooseFileToWrite({.title = u"存"_s}, u".iso"), path) << chosen.toStdString();
        EXPECT_EQ(host.dialogs.last().kind, FileDialogKind::Save);
    }
    ASSERT_EQ(host.boxes.size(), 2);
    EXPECT_EQ(host.boxes[0].text, u"文件【"_s + folder.path(u"有.iso"_s) + u"】已经存在，是否替换？");
    EXPECT_EQ(host.boxes[0].preselected, Answer::No);
}

TEST(RunBoxes, SuppressesATickedText) {
    ScriptedHost host;
    RunBoxes boxes(host);
    boxes.tell(u"一"_s);
    host.checksTick = true;
    boxes.tell(u"一"_s, u"题"_s);
    EXPECT_EQ(host.lastBox().title, u"题"_s);
    host.checksTick = false;
    boxes.tell(u"一"_s);
    boxes.tell(u"二"_s);
    EXPECT_EQ(host.texts(), (QStringList{u"一"_s, u"一"_s, u"二"_s}));
}
