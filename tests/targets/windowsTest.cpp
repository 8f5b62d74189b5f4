// The windows of the search and of the targets, against real servers, and the texts that they show.
#include "catalogueServers.h"
#include "support/scriptedHost.h"
#include "targets/fieldComparison.h"
#include "targets/foundRecords.h"
#include "targets/searchWords.h"
#include "targets/windows/frmCompare.h"
#include "targets/windows/frmIsbnBatch.h"
#include "targets/windows/frmSearch.h"
#include "targets/windows/frmTargets.h"

using namespace targets;

namespace {

constexpr int longWait = 30'000; // milliseconds; the tests wait for a condition

marc::FieldedRecord book(const QString &isbn, const QString &title, const QString &author, const QString &year) {
    marc::FieldedRecord record{u"00000nam a2200000   450 "_s, {}};
    const auto add = [&record](const QString &tag, QString content) {
        record.fields.push_back({tag, content.replace(u'$', u'\u001F')});
    };
    if (!isbn.isEmpty())
        add(u"010"_s, u"  $a"_s + isbn);
    add(u"200"_s, u"1 $a"_s + title + u"$f" + author);
    add(u"210"_s, u"  $d"_s + year);
    return record;
}

QString column(const platform::TableSource &table, int column) {
    QStringList cells;
    for (int row = 0; row < table.rowCount(); ++row)
        cells.append(table.text(row, column));
    return cells.join(u'|');
}

struct Windows : testing::Test {
    ScriptedHost host;
    QStringList opened;
    QStringList held{u"书库已有相同ISBN"_s};

    void keep(const TargetList &list, const QStringList &ticked) {
        ASSERT_TRUE(keepTargets(host.remembered().folderFor(platform::kept::targets).value(), list));
        host.remembered().keep(platform::kept::chosenTargets, ticked);
    }
    Surroundings surroundings() {
        return {.proof =
                    [](const marc::FieldedRecord &) {
                        return FoundRecords::Faults{1, 2};
                    },
                .card = [](const marc::FieldedRecord &record) { return QString(u"卡片 "_s + summaryOf(record).title); },
                .searchHoldings =
                    [this](const std::vector<marc::FieldedRecord> &) {
                        return [this]() -> std::optional<std::vector<Holding>> {
                            if (held.isEmpty())
                                return std::nullopt;
                            return std::vector<Holding>{{0, held.takeFirst()}};
                        };
                    },
                .open = [this](const QString &file, QWidget *) { opened.append(file); }};
    }
    static bool wait(const std::function<bool()> &condition) { return QTest::qWaitFor(condition, longWait); }
};

} // namespace

TEST(FoundRecords, ShowsEachRecordAndMarksSameBooks) {
    FoundRecords found([](const marc::FieldedRecord &record) {
        return record.fields.size() > 2 ? std::optional(FoundRecords::Faults{2, 1}) : std::nullopt;
    });
    found.add(u"甲"_s, 1200, book(u"7-02-000220-X"_s, u"红楼梦"_s, u"曹雪芹"_s, u"1996.12"_s));
    found.add(u"乙"_s, 900, book(u"978-7-02-000220-7"_s, u"紅樓夢"_s, u"曹"_s, u"c2008"_s));
    found.add(u"甲"_s, 50, book({}, u"三国 演义"_s, u"罗贯中"_s, u"[1953]"_s));
    found.add(u"乙"_s, 60, book({}, u"三国演义："_s, u"罗贯中"_s, u"1953"_s));
    found.add(u"乙"_s, 70, book({}, u"三国演义"_s, u"罗贯中"_s, u"不详"_s));
    found.markHeld(1, u"套录库"_s);
    EXPECT_EQ(column(found, FoundRecords::YearColumn), u"1996|2008|1953|1953|不详");
    EXPECT_EQ(column(found, FoundRecords::KnownColumn), u"|套录库；同第 1 条||同第 3 条|");
    EXPECT_EQ(column(found, FoundRecords::ErrorColumn), u"2|2|||");
    EXPECT_TRUE(found.wanted(2).size() == 1 && found.wanted(-1).empty());
    found.tick(1, true);
    found.tick(4, true);
    ASSERT_EQ(found.wanted(2).size(), 2U);
    EXPECT_TRUE(found.wanted(2)[0] == found.record(1));
    found.forgetHeld();
    EXPECT_EQ(found.text(1, FoundRecords::KnownColumn), u"同第 1 条");
}

TEST(TargetShelf, StoresEachChangeAndRefusesFaults) {
    const TestFolder folder;
    TargetShelf shelf(folder.path());
    const int shipped = shelf.count();
    const int at = shelf.add({.name = u"甲"_s, .host = u"a.cn"_s}).value();
    ASSERT_EQ(shelf.copy(at).value(), shipped + 1);
    EXPECT_EQ(shelf.at(at + 1).name, u"甲 2");
    ASSERT_TRUE(shelf.markTested(at));
    Target target = shelf.at(at);
    target.password = u"geheim"_s;
    ASSERT_TRUE(shelf.set(at, target));
    EXPECT_TRUE(shelf.at(at).tested);
    EXPECT_EQ(captionOf(shelf.at(at)), u"甲");
    target.host = u"b.cn"_s;
    ASSERT_TRUE(shelf.set(at, target));
    EXPECT_EQ(captionOf(shelf.at(at)), u"甲（未验证）") << "another address was not tested";
    target.name = u"甲 2"_s;
    EXPECT_EQ(shelf.set(at, target).failure().description, u"“甲 2”已经有了");
    EXPECT_EQ(shelf.move(at, -1).value(), at - 1);
    EXPECT_EQ(shelf.move(0, -1).value(), 0);
    ASSERT_TRUE(shelf.remove(at));
    EXPECT_TRUE(TargetShelf(folder.path()).list() == shelf.list()) << "as it is on the disk";
    EXPECT_EQ(shelf.named({u"甲 2"_s, u"甲"_s}).front().host, u"b.cn");

    folder.file(u"targets.json"_s, "[]");
    TargetShelf broken(folder.path());
    EXPECT_TRUE(broken.complaint().contains(u"不是 JSON"));
    EXPECT_FALSE(broken.add({.name = u"甲"_s, .host = u"a.cn"_s}));
    EXPECT_EQ(folder.read(u"targets.json"_s), "[]") << "the user's file stays";
}

TEST(SearchWords, TakenWordsNameTheFirstLosses) {
    TakenFile taken{.path = u"/a.iso"_s, .written = 20};
    for (int i = 1; i <= mostLines + 1; ++i)
        taken.lacking.append(u"第 %1 条"_s.arg(i));
    EXPECT_TRUE(takenWords(taken).endsWith(u"第 8 条\r\n……共 9 条"));
}

TEST_F(Windows, ASearchFillsTheTableAndTickedRecordsAreWritten) {
    keep({openCatalogue(), {.name = u"死"_s, .host = u"127.0.0.1"_s, .port = 1}, gbkCatalogue()}, {u"open"_s, u"死"_s});
    frmSearch form(host, surroundings());
    form.show();
    form.searchButton->click();
    EXPECT_TRUE(form.adviceLabel->text().startsWith(u"请先填写"));
    form.ask({.isbn = u"9787020002207"_s});
    form.searchButton->click();
    EXPECT_FALSE(form.searchButton->isEnabled());
    ASSERT_TRUE(wait([&] { return !form.isSearching() && held.isEmpty(); }));
    EXPECT_EQ(form.targetPicker->item(0)->text(), u"open（未验证）\n已取 3 条，共 3 条");
    EXPECT_TRUE(form.targetPicker->item(1)->text().contains(u"连不上"));
    EXPECT_EQ(form.labJinDu->pacedText(), u"已取 3 条；1 个目标没有查成");
    EXPECT_EQ(column(form.found(), FoundRecords::KnownColumn), u"书库已有相同ISBN|同第 1 条|同第 1 条");
    EXPECT_EQ(form.resultsPane->recordText->text(), u"卡片 红楼梦");
    form.resultsPane->viewBar->setCurrentIndex(2);
    EXPECT_TRUE(form.resultsPane->recordText->text().contains(u"200 1 $a红楼梦"));

    form.allButton->click();
    host.willChoose({});
    form.takeButton->click();
    EXPECT_FALSE(form.openButton->isEnabled());
    host.willAnswer(platform::Answer::No); // the ticked ones were not taken
    form.quitButton->click();
    EXPECT_TRUE(form.isVisible());
    host.willChoose(host.folder);
    form.takeButton->click();
    const QString path = host.folder + u"/套录-"_s + host.clock.date().toString(u"yyyy-MM-dd"_s) + u".iso";
    EXPECT_TRUE(host.lastBox().text.startsWith(u"已写入 3 条记录：\r\n"_s + path));
    form.openButton->click();
    EXPECT_EQ(opened, QStringList{path});
    form.quitButton->click();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Windows, ASearchThatFindsNothingGivesAdvice) {
    keep({openCatalogue(), {.name = u"死"_s, .host = u"127.0.0.1"_s, .port = 1}}, {});
    frmSearch form(host, surroundings());
    form.show();
    form.ask({.title = u"没有这本书"_s});
    form.searchButton->click();
    EXPECT_TRUE(form.adviceLabel->text().contains(u"勾选"));
    const std::tuple<std::vector<bool>, QString> rows[] = {{{true, false}, u"没有找到：少填几项"_s},
                                                           {{false, true}, u"目标都没有查成"_s}};
    for (const auto &[ticks, words] : rows) {
        for (size_t row = 0; row < ticks.size(); ++row)
            form.targetPicker->tick(int(row), ticks[row]);
        form.searchButton->click();
        ASSERT_TRUE(wait([&] { return !form.isSearching(); }));
        EXPECT_TRUE(form.adviceLabel->text().startsWith(words)) << form.adviceLabel->text().toStdString();
    }
    EXPECT_EQ(host.remembered().value(platform::kept::chosenTargets), QStringList{u"死"_s});
}

TEST_F(Windows, ATargetIsEditedTestedAndKept) {
    keep({openCatalogue()}, {});
    TargetShelf shelf(host.remembered().folderFor(platform::kept::targets));
    frmTargets form(host, shelf);
    form.show();
    const auto type = [&](const QString &key, const QString &text) {
        auto *edit = qobject_cast<QLineEdit *>(form.form->box(key));
        edit->setText(text);
        Q_EMIT edit->textEdited(text);
    };
    form.testButton->click();
    EXPECT_FALSE(form.targetList->isEnabled());
    ASSERT_TRUE(wait([&] { return !form.isTesting(); }));
    EXPECT_TRUE(form.testLabel->text().startsWith(u"服务器：Zebra")) << form.testLabel->text().toStdString();
    EXPECT_EQ(form.targetList->item(0)->text(), u"open") << "tested now";
    form.addButton->click();
    EXPECT_EQ(form.targetList->item(1)->text(), u"新目标（未验证）");
    type(u"password"_s, u"geheim"_s);
    type(u"port"_s, u"x"_s);
    host.willAnswer(platform::Answer::No);
    form.targetList->setCurrentRow(0);
    EXPECT_EQ(form.targetList->currentRow(), 1);
    EXPECT_TRUE(host.lastBox().text.startsWith(u"应为 1 到 65535 的整数\r\n"));
    type(u"port"_s, u"1"_s);
    form.testButton->click();
    ASSERT_TRUE(wait([&] { return !form.isTesting(); }));
    EXPECT_TRUE(form.testLabel->text().startsWith(u"连不上 127.0.0.1:1/"));
    EXPECT_FALSE(shelf.at(1).tested);
    host.willChoose(host.folder + u"/目标");
    form.exportButton->click();
    QFile exported(host.folder + u"/目标.json");
    ASSERT_TRUE(exported.open(QIODevice::ReadOnly));
    EXPECT_FALSE(exported.readAll().contains("geheim"));
    host.willAnswer(platform::Answer::Yes);
    form.deleteButton->click();
    host.willChoose(host.folder + u"/目标.json");
    form.importButton->click();
    EXPECT_EQ(host.lastBox().text, u"加了 1 个目标；地址相同的没有再加。");
    EXPECT_EQ(form.targetList->count(), 2);
    form.quitButton->click();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Windows, ABatchIsStoppedAndContinuesInAnotherWindow) {
    keep({openCatalogue()}, {});
    host.remembered().keep(platform::kept::batchPause, 0);
    const TargetShelf shelf(host.remembered().folderFor(platform::kept::targets));
    const Surroundings others = surroundings();
    const CurrentRecord list{.rows = {}, .put = {}, .isbns = [] {
                                 return QStringList{u"7-02-000220-X"_s, u"9787020002207"_s, u"7-02-889802-4"_s,
                                                    u"9787999999994"_s, u"7-900000-00-2"_s};
                             }};
    {
        frmIsbnBatch form(host, others, list, shelf);
        form.show();
        form.startButton->click();
        EXPECT_TRUE(form.adviceLabel->text().startsWith(u"没有看到 ISBN"));
        form.listButton->click();
        EXPECT_EQ(form.isbnText->toPlainText().count(u'\n'), 3) << "one of them twice";
        form.startButton->click();
        EXPECT_TRUE(form.adviceLabel->text().contains(u"勾选"));
        form.targetPicker->tick(0, true);
        form.startButton->click();
        EXPECT_FALSE(form.startButton->isEnabled());
        ASSERT_TRUE(wait([&] { return form.batch().count(Outcome::State::Found) == 1; }));
        form.stopButton->click();
        EXPECT_TRUE(form.goOnButton->isEnabled());
        EXPECT_TRUE(form.labJinDu->pacedText().startsWith(u"停下了，已查 1，共 4；找到 1"));
        host.willAnswer(platform::Answer::No); // the rest would be lost
        form.startButton->click();
        EXPECT_EQ(form.batch().count(Outcome::State::Found), 1);
        form.quitButton->click();
    }
    frmIsbnBatch form(host, others, list, shelf);
    form.show();
    EXPECT_TRUE(form.labJinDu->pacedText().startsWith(u"上次的一批：停下了，已查 1"));
    form.goOnButton->click();
    ASSERT_TRUE(wait([&] { return !form.batch().isActive(); }));
    EXPECT_EQ(form.labJinDu->pacedText(), u"找到 2，未找到 2");
    EXPECT_EQ(form.grid->text(2, BatchRows::TitleColumn), u"中国小说史略");
    EXPECT_EQ(form.grid->text(4, BatchRows::StateColumn), u"未找到");
    host.willChoose(host.folder + u"/missing");
    form.saveButton->click();
    QFile saved(host.folder + u"/missing.txt");
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), "9787999999994\r\n7-900000-00-2\r\n");
    host.willChoose(host.folder);
    form.takeButton->click();
    EXPECT_TRUE(host.lastBox().text.startsWith(u"已写入 2 条记录"));
    host.willChoose(host.folder + u"/missing.txt");
    form.readButton->click();
    EXPECT_EQ(form.isbnText->toPlainText(), u"9787999999994\n7-900000-00-2");
}

TEST_F(Windows, AFieldIsTakenIntoTheCurrentRecord) {
    marc::FieldRows rows = rowsOf(book(u"7-02-000220-X"_s, u"红楼"_s, u"曹雪芹"_s, u"1996"_s)).value();
    int edits = 0;
    const CurrentRecord current{.rows = [&] { return rows; },
                                .put =
                                    [&](const marc::FieldRows &changed) {
                                        rows = changed;
                                        ++edits;
                                    },
                                .isbns = {}};
    const auto fetched = rowsOf(book(u"7-02-000220-X"_s, u"红楼梦"_s, u"曹雪芹"_s, u"2008"_s)).value();
    frmCompare form(host, current, fetched);
    form.show();
    EXPECT_FALSE(form.takeButton->isEnabled()) << "010 is the same";
    EXPECT_EQ(form.countLabel->text(), u"2 个字段可以取用");
    form.grid->clickRow(2);
    EXPECT_EQ(form.currentText->text(), u"1#$a红楼$f曹雪芹");
    form.takeButton->click();
    EXPECT_EQ(form.fetchedText->text(), form.currentText->text());
    EXPECT_EQ(form.countLabel->text(), u"1 个字段可以取用");
    form.takeAllButton->click();
    EXPECT_EQ(edits, 2);
    EXPECT_TRUE(rows.sliced(1) == fetched.sliced(1)) << "all but the leader";
    EXPECT_FALSE(form.takeAllButton->isEnabled());
}
