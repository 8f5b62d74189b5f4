#include "support/testFolder.h"
#include "taskRows.h"
#include "tasks/stepCheck.h"
#include "tasks/stepTables.h"

using namespace tasks;

TEST(TaskFile, WritesWhatItReads) {
    for (const QString &line : linesOf(u"steps.txt"_s)) {
        const auto read = line.startsWith(u'{') ? taskOf(line) : platform::Failure{u"no step"_s};
        if (!read)
            continue;
        Task task = read.value();
        task.description = u"第一行\n“二”\\\t\U00020000"_s;
        const QByteArray written = writtenTask(task);
        const auto again = readTask(written);
        ASSERT_TRUE(again.ok()) << written.data();
        EXPECT_EQ(again.value(), task) << written.data();
        EXPECT_EQ(writtenTask(again.value()), written);
        EXPECT_TRUE(written.contains(line.toUtf8().replace(", \"off\": false", "")))
            << "the order of keys: " << written.data();
    }
}

TEST(TaskFile, NamesTheKeyAndTheReason) {
    const QByteArray head = R"("format": "task", "version": 1, "name": "x")";
    const QByteArray step = R"({"action": "sortFields"})";
    QByteArray many = step;
    for (size_t i = 0; i < mostSteps; ++i)
        many += "," + step;
    const struct {
        QByteArray json;
        QString fault;
    } rows[] = {
        {"", u"不是JSON，第1个字节"_s},
        {"[]", u"最外层应为 {…}"_s},
        {QByteArray(100'000, '['), u"不是JSON，第"_s},
        {QByteArray(largestTask + 1, ' '), u"文件太大，最多 4 MB"_s},
        {R"({"version": 1})", u"format：应为“task”"_s},
        {R"({"format": "task", "version": 2, "name": "x", "steps": []})", u"version：应为 1，这是另一版本的文件"_s},
        {R"({"format": "task", "version": 1, "name": " ", "steps": []})", u"name：应为 1 至 100 个字符"_s},
        {R"({"format": "task", "version": 1, "name": "a\nb", "steps": []})", u"name：不能有控制字符"_s},
        {R"({"format": "task", "version": 1, "name": ["x"], "steps": []})", u"name：应为文字"_s},
        {"{" + head + "}", u"steps：应为 […]"_s},
        {"{" + head + R"(, "steps": {}})", u"steps：应为 […]"_s},
        {"{" + head + R"(, "steps": [1]})", u"steps[0]：应为 {…}"_s},
        {"{" + head + R"(, "steps": [], "author": "x"})", u"author：这里没有这个键"_s},
        {"{" + head + R"(, "steps": [)" + many + "]}", u"steps：最多500步"_s},
        {"{" + head + R"(, "steps": [)" + step + R"(, {"action": "replace", "find": ")" +
             QByteArray(longestValue + 1, 'x') + R"("}]})",
         u"steps[1].find：太长，最多4000个字符"_s},
    };
    for (const auto &[json, fault] : rows) {
        const auto read = readTask(json);
        ASSERT_FALSE(read.ok()) << json.left(200).data();
        EXPECT_TRUE(read.failure().description.startsWith(fault)) << qPrintable(read.failure().description);
    }
}

TEST(TaskFile, IsReadFromAndWrittenToAFile) {
    const TestFolder folder;
    Task task = taskOf(uR"({"action": "dropEmpty"})"_s).value();
    ASSERT_TRUE(writeTaskFile(folder.path(u"t.json"_s), task).ok());
    EXPECT_EQ(readTaskFile(folder.path(u"t.json"_s)).value(), task);
    const auto missing = readTaskFile(folder.path(u"no.json"_s));
    EXPECT_TRUE(missing.failure().description.contains(u"no.json】不能用："_s));
}

TEST(TaskFile, DropsValuesThatTheChosenActionDoesNotHave) {
    Step step = taskOf(uR"({"action": "replace", "tag": "200", "code": "a", "find": "x"})"_s).value().steps[0];
    step.action = Action::DeleteField;
    dropUnused(step);
    EXPECT_EQ(step, taskOf(uR"({"action": "deleteField", "tag": "200"})"_s).value().steps[0]);
}
