#include "tasks/taskShelf.h"
#include "support/fullDisk.h"
#include "support/testFolder.h"
#include "taskRows.h"

using namespace tasks;

namespace {

struct TaskShelfTest : testing::Test {
    const TestFolder folder;
    const Task task = [] {
        Task made = taskOf(uR"({"action": "dropEmpty"})"_s).value();
        made.name = u"去空"_s;
        return made;
    }();
    const std::vector<Task> ready{task};
    QString own = folder.path(u"own/"_s);

    void SetUp() override { ASSERT_TRUE(QDir().mkpath(own)); }
    QStringList files() const { return QDir(own).entryList(QDir::Files, QDir::Name); }
    static QStringList names(const TaskShelf &shelf) {
        QStringList names;
        for (const TaskShelf::Entry &entry : shelf.entries())
            names.append((entry.ready ? u"*"_s : QString()) + entry.name + (entry.fault.isEmpty() ? u""_s : u"!"_s));
        return names;
    }
};

} // namespace

TEST_F(TaskShelfTest, KeepsTheTasksOfTheUserNextToTheReadyOnes) {
    TaskShelf shelf(ready, own);
    EXPECT_EQ(shelf.add(task).value(), 1);
    Task odd = task;
    odd.name = u"../去/空. "_s;
    ASSERT_TRUE(shelf.add(odd));
    EXPECT_EQ(names(shelf), (QStringList{u"*去空"_s, u"../去/空. "_s, u"去空 (2)"_s}));
    EXPECT_EQ(files(), (QStringList{u"___去_空_.json"_s, u"去空 (2).json"_s}));
    ASSERT_TRUE(shelf.exportTo(2, folder.path(u"out.json"_s)));
    const int imported = shelf.import(folder.path(u"out.json"_s)).value();
    EXPECT_EQ(names(shelf)[imported], u"去空 (2) (2)"_s);

    Task changed = shelf.entries()[2].task;
    changed.steps.clear();
    EXPECT_EQ(shelf.save(2, changed).value(), 2);
    EXPECT_EQ(shelf.rename(2, u"去空"_s).failure().description, u"已经有任务“去空”"_s);
    EXPECT_EQ(shelf.rename(2, u" "_s).failure().description, u"名称应为 1 至 100 个字符"_s);
    const int renamed = shelf.rename(2, u"甲"_s).value();
    EXPECT_EQ(TaskShelf(ready, own).entries()[size_t(renamed)].task, (Task{u"甲"_s, {}, {}}));
    ASSERT_TRUE(shelf.remove(renamed));
    EXPECT_EQ(files().size(), 2);
    EXPECT_FALSE(TaskShelf(ready, {}, u"没有地方"_s).add(task));
}

TEST_F(TaskShelfTest, AFileThatIsNotATaskIsListedAndStays) {
    const QByteArray broken = R"({"format": "task", "version": 9})";
    folder.file(u"own/坏.json"_s, broken);
    TaskShelf shelf(ready, own);
    EXPECT_EQ(names(shelf), (QStringList{u"*去空"_s, u"坏.json!"_s}));
    EXPECT_TRUE(shelf.entries()[1].fault.contains(u"另一版本"_s));
    EXPECT_FALSE(shelf.import(own + u"坏.json"));
    Task named = task;
    named.name = u"坏"_s;
    ASSERT_TRUE(shelf.add(named));
    EXPECT_EQ(folder.read(u"own/坏.json"_s), broken);
    {
        const FullDisk full(10);
        EXPECT_FALSE(shelf.save(shelf.find(u"坏"_s), task));
    }
    EXPECT_EQ(TaskShelf(ready, own).find(u"坏"_s), shelf.find(u"坏"_s));
}
