#include "workspace/windows/frmSelectMFile.h"
#include "workspaceFixture.h"

using ReadingTest = Workspace;

TEST_F(ReadingTest, FirstBatchAndRemainder) {
    for (const int records : {0, 5, 200, 201, 203}) {
        auto &window = load(records);
        EXPECT_EQ(window.records().rowCount(), std::clamp(records, 20, 200));
        EXPECT_EQ(window.Grid2->rows(), std::clamp(records, 20, 200));
        EXPECT_EQ(window.Text2->text(), records ? u"1"_s : QString());
        EXPECT_EQ(window.Text3->pacedText(), QString::number(std::min(records, 200)));
        EXPECT_EQ(window.Text4->text(), QString::number(records));
        EXPECT_EQ(window.Grid2->cellBackground(0, 1), workspace::RecordList::currentColour);
        EXPECT_EQ(window.labJinDu->text(), u"预读结束"_s);
        EXPECT_FALSE(window.cmdJieShu->isEnabled());

        window.cmdclick[3]->click();
        EXPECT_EQ(window.Text4->text(), QString::number(records));
        EXPECT_FALSE(window.cmdclick[3]->isEnabled());
        EXPECT_EQ(window.labJinDu->text(), u"预读结束"_s);
        EXPECT_EQ(window.Grid2->text(records - 1, 0), records ? QString::number(records) : QString());
    }
    EXPECT_TRUE(host.boxes.isEmpty());
}

TEST_F(ReadingTest, StopAndContinueLeavesNoGap) {
    auto &window = load(500);
    QString stateInTheMidst;
    host.onYield = [&] {
        if (window.records().rowCount() == 349) {
            stateInTheMidst = window.labJinDu->text();
            window.cmdclick[5]->click(); // refused while reading
            EXPECT_FALSE(window.close());
            window.cmdJieShu->click();
        }
    };
    window.cmdclick[3]->click();
    EXPECT_EQ(stateInTheMidst, u"正在继续预读......."_s);
    EXPECT_EQ(host.texts(), (QStringList{u"正在预读或者正在导入！请先结束预读或者结束导入！"_s,
                                         u"预读还没有结束，请先结束预读！"_s}));
    EXPECT_EQ(window.records().rowCount(), 350);
    EXPECT_EQ(window.Text4->text(), u"500"_s);
    EXPECT_TRUE(window.cmdclick[3]->isEnabled() && !window.cmdJieShu->isEnabled());
    host.onYield = {};
    window.cmdclick[3]->click();
    EXPECT_EQ(titles(348, 352), (QStringList{u"349 题349"_s, u"350 题350"_s, u"351 题351"_s, u"352 题352"_s}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.Grid2->model()->rowCount() == 500; }, 20'000)); // also in the view
}

// Any button may be pressed between the press of the stop button and its effect.
TEST_F(ReadingTest, PressesBetweenStopAndItsEffect) {
    auto &window = load(300);
    bool pressed = false;
    host.onYield = [&] {
        if (pressed || window.records().rowCount() < 250)
            return;
        pressed = true;
        window.cmdJieShu->click();
        window.cmdclick[3]->click(); // reads to the end, within the yield
        EXPECT_EQ(window.records().rowCount(), 300);
        window.records().setTitle(299, u"改"_s);
    };
    window.cmdclick[3]->click();
    EXPECT_EQ(window.records().title(299), u"改"_s); // the first loop has ended and overwrites nothing
    EXPECT_EQ(window.Text3->pacedText(), u"300"_s);
    EXPECT_FALSE(window.cmdclick[3]->isEnabled());

    auto &second = load(300);
    host.onYield = [&] {
        second.cmdJieShu->click();
        host.willAnswer(platform::Answer::Yes);
        EXPECT_TRUE(second.close());
    };
    second.show();
    second.cmdclick[3]->click();
    EXPECT_EQ(second.records().rowCount(), 200);
}

TEST_F(ReadingTest, FilesThatAreMissing) {
    const QString opening = u"打开文件失败，无法导入，请重新选择"_s;
    auto &missing = load();
    EXPECT_EQ(host.texts(), QStringList{opening});
    EXPECT_EQ(missing.labJinDu->text(), u"预读结束"_s);
    EXPECT_EQ(missing.Text4->text(), QString());
    missing.cmdTiMing[1]->click(); // moves to an empty row
    missing.cmdclick[0]->click();

    auto &window = load(201);
    QFile::remove(path());
    window.cmdclick[3]->click();
    EXPECT_EQ(host.texts(), (QStringList{opening, opening}));
    EXPECT_EQ(window.labJinDu->text(), u"正在预读......"_s);
    EXPECT_TRUE(window.cmdJieShu->isEnabled());
    window.cmdJieShu->click();
    EXPECT_TRUE(window.cmdclick[3]->isEnabled());
}

TEST_F(ReadingTest, RecordsThatCannotBeRead) {
    const QString damaged = titled(u"坏"_s).insert(24, u'0');
    QString noNumbers = titled(u"误"_s);
    noNumbers.replace(12, 5, u"xxxxx"_s);
    write("records.iso", damaged + u"\r\n"_s + titled(u"好"_s) + u"\r\n"_s + noNumbers + u"\r\n"_s + damaged);
    for (const auto answer : {platform::Answer::Yes, platform::Answer::No, platform::Answer::No})
        host.willAnswer(answer); // record 1 for the title and for the grid, record 4 for the title
    auto &window = load();
    EXPECT_EQ(host.boxes.size(), 3);
    EXPECT_EQ(host.boxes[0].text,
              u"地址目次区数据存在错误，本条数据无法处理！\r\n是否查看该条机读数据？（不查看选择‘否’继续）"_s);
    EXPECT_EQ(opened, QStringList{damaged});
    EXPECT_EQ(titles(0, 4), (QStringList{u"1 "_s, u"2 好"_s, u"3 好"_s, u"4 "_s}));
    EXPECT_EQ(window.Grid1->rows(), 2);
    EXPECT_EQ(cell(1, 2), QString());
    EXPECT_EQ(window.records().record(3), damaged);
    window.cmdTiMing[1]->click();
    EXPECT_EQ(cell(1, 2), u"000"_s);

    // Many directory entries that point to one field of delimiters: at most as many rows as bytes, and a warning.
    QString hostile = recordOf({{u"300"_s, u"  "_s + u"$"_s.repeated(9000)}});
    hostile.insert(36, hostile.mid(24, 12).repeated(99)).replace(12, 5, u"01225"_s);
    write("records.iso", hostile + u"\r\n"_s + titled(u"好"_s));
    load();
    EXPECT_EQ(form->Grid1->rows(), 1 + hostile.size());
    EXPECT_EQ(form->labStatus->text(), u"⚠ 本条记录目次区重叠，只显示前 %1 行"_s.arg(hostile.size()));
    form->cmdTiMing[1]->click();
    EXPECT_EQ(form->labStatus->text(), QString());
}

TEST(SelectMarcFile, RefusesAndOpens) {
    ScriptedHost host;
    QStringList shown;
    workspace::frmSelectMFile *dialog = nullptr;
    workspace::frmSelectMFile window(host, {[&](const QString &file) {
                                                shown.append(file + u' ' + dialog->Frame1->title());
                                                EXPECT_FALSE(dialog->cmdClick[0]->isEnabled() || dialog->close());
                                            },
                                            {}});
    dialog = &window;
    window.show();
    EXPECT_TRUE(window.acceptDrops() && window.cmdTidy->isHidden());
    EXPECT_EQ(window.Text1->completer()->maxVisibleItems(), 10);
    window.cmdClick[0]->click();
    window.Text1->setText(u" "_s + host.folder);
    window.cmdClick[0]->setFocus();
    window.cmdClick[0]->click(); // a folder is not a file
    EXPECT_EQ(window.focusWidget(), window.Text1);
    EXPECT_EQ(host.texts(), (QStringList{u"没有选择机读目录数据文件！"_s, u"该机读目录数据文件不存在！"_s}));

    const QString path = host.folder + u"/书目 1.iso";
    ASSERT_TRUE(platform::writeTextFile(path, {}));
    host.willChoose(path);
    window.cmdLL->click();
    EXPECT_EQ(host.dialogs.last().title, u"打开marc文件对话框"_s);
    EXPECT_EQ(window.focusWidget(), window.cmdClick[0]);
    window.Text1->setText(u"  "_s + window.Text1->text() + u' ');
    window.cmdClick[0]->click();
    EXPECT_EQ(shown, QStringList{path + u" 正在预读,请稍候........."});
    EXPECT_EQ(window.Frame1->title(), QString());
    EXPECT_TRUE(window.cmdClick[0]->isEnabled());
    host.willChoose({});
    window.cmdLL->click();
    EXPECT_EQ(window.Text1->text(), QString());

    EXPECT_GT(window.cmdClick[0]->y(), window.Frame1->geometry().bottom());
    window.Text1->completer()->setCompletionPrefix(u"目 1.ISO"_s);
    EXPECT_EQ(window.Text1->completer()->completionCount(), 1) << "any part, in any case";
    window.Text1->setFocus(); // Down opens the list of recent files and moves down in it
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.Text1, Qt::Key_Down);
    ASSERT_TRUE(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    EXPECT_EQ(window.Text1->text(), path);
    EXPECT_EQ(shown.size(), 2); // the file is opened at once
    window.cmdClick[1]->click();
    EXPECT_FALSE(window.isVisible());
}

TEST(SelectMarcFile, EnterTidiesAFileThatWouldBeReadWrongly) {
    ScriptedHost host;
    QStringList ways;
    std::function<void()> whileOpen = [] {};
    workspace::frmSelectMFile window(host, {[&](const QString &) {
                                                ways.append(u"open"_s);
                                                whileOpen();
                                            },
                                            [&](const QString &) { ways.append(u"tidy"_s); }});
    const QString path = host.folder + u"/a.iso", good = recordOf(u"200=10$a数据库原理与应用"_s) + u"\r\n";
    const auto holds = [&](const QByteArray &bytes) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    };
    const auto looked = [&](bool wantsTidying) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window.labFacts->isLooking(); }));
        EXPECT_EQ(window.cmdTidy->isVisible(), wantsTidying) << window.labFacts->accessibleName().toStdString();
        EXPECT_EQ(window.labFacts->text().contains(u"color:"), wantsTidying);
    };
    holds(platform::encode(good));
    showActive(window);
    window.choose(path);
    looked(false);
    EXPECT_TRUE(window.cmdClick[0]->hasFocus());
    QTest::keyClick(window.Text1, Qt::Key_Return);
    holds(good.repeated(2).toUtf8()); // Enter notices other contents under the same name
    QTest::keyClick(window.Text1, Qt::Key_Return);
    EXPECT_EQ(ways, (QStringList{u"open"_s, u"tidy"_s}));
    looked(true);
    holds(platform::encode(good).repeated(3));
    QEvent back(QEvent::ActivationChange);
    QApplication::sendEvent(&window, &back);
    looked(false);
    holds(platform::encode(good).chopped(2).repeated(4));
    window.choose(path + u' ');
    looked(true);
    EXPECT_TRUE(window.cmdTidy->hasFocus()); // the focus moves to it
    whileOpen = [&] { holds(platform::encode(good)); };
    window.cmdClick[0]->click();
    EXPECT_EQ(ways.last(), u"open"_s);
    looked(false); // looks again after the workspace is closed
    window.Text1->setFocus();
    holds(platform::encode(good).chopped(2).repeated(4));
    window.Text1->setText(path + u"  ");
    looked(true);
    EXPECT_TRUE(window.Text1->hasFocus()) << "the box that the user types in keeps it";
}
