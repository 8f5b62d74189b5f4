// The desktop functions of the real host.
#include "platform/desktop/qtHost.h"
#include "platform/desktop/screenSize.h"
#include "support/testFolder.h"
#include <QTest>

using namespace platform;

// A helper that starts but then finds no browser has opened nothing.
TEST(QtHost, ReportsWhetherTheHelperOpenedALink) {
    const TestFolder folder;
    QtHost host{Settings(folder.path())};
    host.helperPatience = std::chrono::hours(1);
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(folder.path()));
    for (const int code : {0, 3, 4}) {
        const QString helper =
            folder.file(u"xdg-open"_s, "#!/bin/sh\nlinks=$(/usr/bin/readlink /proc/$$/fd/[012])\necho \"$1\" $links >" +
                                           QFile::encodeName(folder.path(u"asked"_s)) + "\nexit " +
                                           QByteArray::number(code) + "\n");
        ASSERT_TRUE(QFile::setPermissions(helper, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        for (const auto &[target, link] : {std::pair(u"http://localhost/馆"_s, "http://localhost/%E9%A6%86"),
                                           {u"mailto:a@b"_s, "mailto:a@b"},
                                           {u"/a b"_s, "file:///a%20b"}}) {
            EXPECT_EQ(host.openInShell(target), code == 0) << code;
            EXPECT_EQ(folder.read(u"asked"_s), link + QByteArray(" /dev/null /dev/null /dev/null\n"));
        }
    }
    folder.file(u"xdg-open"_s, "#!/bin/sh\nexec /bin/sleep 100\n");
    host.helperPatience = std::chrono::milliseconds(1);
    EXPECT_TRUE(host.openInShell(u"/a"_s)) << "a helper that runs on has become the browser";
    auto *browser = qApp->findChild<QProcess *>();
    ASSERT_TRUE(browser && browser->waitForStarted());
    browser->kill();
    EXPECT_TRUE(browser->waitForFinished());
    qputenv("PATH", before);
}

TEST(QtHost, YieldsToEventsNowAndThen) {
    const TestFolder folder;
    QtHost host{Settings(folder.path())};
    int events = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++events; });
    timer.start(0);
    for (int call = 0; call < 100'000; ++call)
        host.yield();
    EXPECT_TRUE(events > 0 && events < 50'000) << events;
}

TEST(QtHost, ReturnsWhetherTheTickOfABoxIsSet) {
    const TestFolder folder;
    QtHost host{Settings(folder.path())};
    const QString tick = u"以后相同的不再提示"_s;
    for (const bool checked : {true, false}) {
        QTimer::singleShot(0, qApp, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_TRUE(box && box->checkBox());
            EXPECT_EQ(box->checkBox()->text(), tick);
            box->checkBox()->setChecked(checked);
            box->button(QMessageBox::Ok)->click();
        });
        EXPECT_EQ(host.showWithTick({.text = u"无法连接"_s}, tick), checked);
    }
}

// The answer of a box to Esc, the close button, Enter and each button.
TEST(QtHost, BoxesAnswerByTheirButtonsAndKeys) {
    const TestFolder folder;
    QtHost host{Settings(folder.path())};
    enum class Way { Enter, Escape, Close, Yes, No };
    using enum Way;
    const QString longTitle = u"一个很长的标题"_s.repeated(6);
    const std::tuple<Box, Way, Answer> rows[] = {
        {{.text = u"<b>"_s, .title = longTitle}, Enter, Answer::Ok},
        {{.text = u"a"_s, .icon = Icon::Critical}, Escape, Answer::Ok},
        {{.text = u"a"_s, .icon = Icon::Exclamation, .buttons = Buttons::YesNo}, Enter, Answer::Yes},
        {{.text = u"a"_s, .icon = Icon::None, .buttons = Buttons::YesNo, .preselected = Answer::No}, Enter, Answer::No},
        {{.text = u"a"_s, .buttons = Buttons::YesNo}, Escape, Answer::No},
        {{.text = u"a"_s, .buttons = Buttons::YesNo}, Close, Answer::No},
        {{.text = u"a"_s, .buttons = Buttons::YesNo, .leaving = Leaving::ByButtonsOnly}, Yes, Answer::Yes},
        {{.text = u"a"_s, .buttons = Buttons::YesNo, .leaving = Leaving::ByButtonsOnly}, No, Answer::No},
    };
    const auto iconOf = [](Icon icon) {
        return icon == Icon::Critical      ? QMessageBox::Critical
               : icon == Icon::Exclamation ? QMessageBox::Warning
               : icon == Icon::Information ? QMessageBox::Information
                                           : QMessageBox::NoIcon;
    };
    QWidget opener;
    opener.show();
    for (const auto &[asked, way, answer] : rows) {
        opener.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&opener));
        QTimer::singleShot(0, qApp, [&asked = asked, &way = way, &iconOf, &opener] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            EXPECT_TRUE(box->parentWidget() == &opener && box->text() == asked.text &&
                        box->icon() == iconOf(asked.icon));
            EXPECT_EQ(box->windowTitle(), asked.title.isEmpty() ? programTitle.toString() : asked.title);
            EXPECT_GE(box->width(), box->fontMetrics().horizontalAdvance(box->windowTitle()));
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            if (asked.leaving == Leaving::ByButtonsOnly) { // neither key nor button closes it
                QTest::keyClick(box, Qt::Key_Escape);
                EXPECT_FALSE(box->close());
                EXPECT_TRUE(box->isVisible());
            }
            way == Enter    ? QTest::keyClick(box, Qt::Key_Return)
            : way == Escape ? QTest::keyClick(box, Qt::Key_Escape)
            : way == Close  ? void(box->close())
                            : box->button(way == Yes ? QMessageBox::Yes : QMessageBox::No)->click();
        });
        EXPECT_EQ(host.show(asked), answer) << int(way);
    }
}

TEST(QtHost, FilesAreChosenFromTheFolderUsedLast) {
    const TestFolder folder, toolkit;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, toolkit.path()); // the dialog keeps its columns
    folder.file(u"甲.iso"_s, QByteArray(3000, 'x'));
    folder.file(u"乙.txt"_s, "x");
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"夹"_s));
    QtHost host{Settings(folder.path()), DeskState(folder.path(u"state"_s))};
    const QString filter = u"记录(*.iso)|*.iso|全部(*.*)|*.*"_s;
    const auto choose = [&](const FileDialog &asked, const std::function<void(QFileDialog &)> &act) {
        QTimer::singleShot(0, qApp, [&act] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            act(*dialog);
        });
        return host.chooseFile(asked);
    };
    const FileDialog open{.title = u"打开"_s, .filter = filter, .start = folder.path(u"甲.iso"_s)};
    EXPECT_EQ(
        choose(
            open,
            [&](QFileDialog &dialog) {
                EXPECT_EQ(dialog.windowTitle(), u"打开"_s);
                EXPECT_EQ(dialog.nameFilters(), (QStringList{u"记录(*.iso) (*.iso)"_s, u"全部(*.*) (*)"_s}));
                EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
                EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
                EXPECT_EQ(dialog.directory().path() + u'/', folder.path());
                auto *tree = dialog.findChild<QTreeView *>(u"treeView"_s);
                EXPECT_TRUE(tree->isColumnHidden(2) && !tree->header()->stretchLastSection());
                EXPECT_TRUE(dialog.testOption(QFileDialog::HideNameFilterDetails));
                EXPECT_EQ(dialog.findChild<QComboBox *>(u"lookInCombo"_s)->accessibleDescription(), u"查看的文件夹"_s);
                EXPECT_EQ(dialog.findChild<QComboBox *>(u"fileTypeCombo"_s)->accessibleDescription(), u"文件类型"_s);
                const QFontMetrics font = dialog.fontMetrics();
                EXPECT_EQ(dialog.size(),
                          QSize(font.averageCharWidth() * 76, font.height() * 28).boundedTo(usableScreenSize(&dialog)));
                const auto shown = [&](int row, int column) {
                    return tree->model()->index(row, column, tree->rootIndex()).data().toString();
                };
                EXPECT_TRUE(QTest::qWaitFor([&] { return tree->model()->rowCount(tree->rootIndex()) == 2; }));
                const int file = shown(0, 0) == u"夹" ? 1 : 0;
                EXPECT_EQ(shown(1 - file, 1), u""); // of the folder
                EXPECT_TRUE(shown(file, 1).startsWith(u"2.9 ")) << shown(file, 1).toStdString();
                EXPECT_EQ(QDateTime::fromString(shown(file, 3), u"yyyy-MM-dd HH:mm"_s).date(), QDate::currentDate());
                QString headings;
                for (int column = 0; column < 4; ++column)
                    headings += tree->model()->headerData(column, Qt::Horizontal).toString();
                EXPECT_EQ(headings, u"名称大小类型修改时间");
                EXPECT_NE(tree->model()->headerData(0, Qt::Vertical), QVariant(u"名称"_s)) << "of rows";
                EXPECT_EQ(tree->header()->sectionResizeMode(0), QHeaderView::Stretch);
                EXPECT_EQ(tree->header()->sectionResizeMode(3), QHeaderView::ResizeToContents);
                dialog.reject();
            }),
        QString());
    const FileDialog save{.title = u"存"_s, .filter = filter, .kind = FileDialogKind::Save, .start = folder.path()};
    EXPECT_EQ(choose(save,
                     [&](QFileDialog &dialog) {
                         EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
                         EXPECT_EQ(dialog.fileMode(), QFileDialog::AnyFile);
                         EXPECT_TRUE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
                         dialog.selectFile(folder.path(u"新.iso"_s));
                         dialog.findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(folder.path(u"新.iso"_s));
                         QMetaObject::invokeMethod(&dialog, "accept");
                     }),
              folder.path(u"新.iso"_s));
    EXPECT_EQ(choose({.title = u"夹"_s, .kind = FileDialogKind::Folder, .start = folder.path(u"夹/"_s)},
                     [&](QFileDialog &dialog) {
                         EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
                         EXPECT_TRUE(dialog.testOption(QFileDialog::ShowDirsOnly));
                         QMetaObject::invokeMethod(&dialog, "accept");
                     }),
              folder.path(u"夹"_s));
    const DeskState state(folder.path(u"state"_s));
    EXPECT_EQ(state.value(kept::lastFolder), folder.path(u"夹"_s)) << "the chosen folder itself";
    state.keep(kept::lastFolder, QDir(folder.path()).absolutePath());
    EXPECT_EQ(state.value(kept::lastFolder) + u'/', folder.path());
    state.keep(kept::lastFolder, folder.path(u"夹"_s)); // not the folder that the dialog itself showed last
    for (const QString &start : {QString(), u"/no/such/folder/a.iso"_s})
        EXPECT_EQ(choose({.title = u"打开"_s, .filter = filter, .start = start},
                         [&](QFileDialog &dialog) {
                             EXPECT_EQ(dialog.directory().path(), folder.path(u"夹"_s));
                             dialog.reject();
                         }),
                  QString());
}

TEST(ScreenSize, IsLowForALargeFont) {
    QWidget window;
    EXPECT_FALSE(isScreenLow(&window));
    QFont font = window.font();
    font.setPixelSize(window.screen()->availableSize().height() / 30);
    window.setFont(font);
    EXPECT_TRUE(isScreenLow(&window));
}

// In a process of its own, since both change the process.
TEST(QtHost, PreparesTheToolkitAndEndsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            prepareToolkit();
            const QMessageBox box(QMessageBox::Question, {}, {}, QMessageBox::Yes);
            std::fputs(box.button(QMessageBox::Yes)->text().toUtf8().constData(), stderr);
            const TestFolder folder;
            QtHost host(Settings(folder.path()), DeskState(folder.path()), [] { std::fputs(" before", stderr); });
            const bool chinese = QLocale().name() == u"zh_CN" && QGuiApplication::desktopFileName() == u"tarvex";
            if (chinese)
                host.endProcess();
        },
        testing::ExitedWithCode(0), "是.* before$");
}

TEST(ScreenSize, AWindowIsMovedOntoTheScreen) {
    QWidget window;
    window.resize(300, 200);
    window.show();
    const QRect room = window.screen()->availableGeometry();
    EXPECT_EQ(usableScreenSize(&window), room.size() - (window.frameGeometry().size() - window.size()));
    for (const QPoint &away :
         {QPoint(-500, 20), QPoint(20, -500), QPoint(9000, 9000), QPoint(-9000, 9000), QPoint(40, 50)}) {
        window.move(away);
        keepOnScreen(&window);
        EXPECT_TRUE(room.contains(window.frameGeometry())) << away.x() << ' ' << away.y();
        const bool inside = room.contains(QRect(away, window.frameGeometry().size()));
        EXPECT_EQ(window.pos() == away, inside);
    }
}
