// The user's tasks on files.
#include "app/taskOffer.h"
#include "support/recordFiles.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"
#include "tasks/taskFile.h"
#include "tidy/tidyRun.h"

namespace {

struct TaskOffer : testing::Test {
    ScriptedHost host;
    files::Folder folder;
    QString source = folder.write(u"a.iso"_s, platform::encode(recordOf(u"200=1 $a甲"_s)) +
                                                  platform::encode(recordOf(u"200=1 $a乙"_s)));

    // Writes a task of the user with these steps.
    void keep(const QString &name, const QString &steps) {
        const QString json = uR"({"format": "task", "version": 1, "name": "%1", "steps": [%2]})"_s.arg(name, steps);
        const auto task = tasks::readTask(json.toUtf8());
        ASSERT_TRUE(task) << task.failure().description.toStdString();
        const QString kept = host.remembered().folderFor(platform::kept::tasks).value();
        ASSERT_TRUE(tasks::writeTaskFile(kept + name + u".json", task.value()));
    }
    platform::Result<tidy::FileChange> change(const QString &name, tidy::TargetForm form) {
        const tidy::ChangeOffer offer = app::taskOffer(host);
        return offer.prepare(int(offer.names.indexOf(name)), source, form);
    }
    QString report(const QString &name, tidy::TargetForm form) {
        tidy::TidyRun run(source, folder.path(u"t.iso"_s), form);
        run.setChange(change(name, form).value());
        EXPECT_TRUE(run.open().ok());
        for (auto more = run.step(); more && more.value();)
            more = run.step();
        EXPECT_TRUE(run.close().ok());
        return tidy::report(run.result(), source).section(u"【批改】\r\n"_s, 1);
    }
};

} // namespace

TEST_F(TaskOffer, WritesTheChangedRecordsAndTheReasonsOfTheOthers) {
    keep(u"某"_s, uR"({"action": "replace", "find": "甲", "with": "𠮷"},
                      {"action": "addField", "tag": "801", "content": "#0$aCN", "off": true},
                      {"action": "addSubfield", "tag": "200", "code": "f", "text": "{文件名}{日期}"})"_s);
    EXPECT_EQ(report(u"某"_s, tidy::TargetForm::GbkIso),
              u"任务“某”改了 1 条记录！\r\n　0 处，0 条　1　在所有字段里，把“甲”换成“𠮷”\r\n"
              u"　0 处，0 条　2　添加 801 字段“#0$aCN”（没有时）（停用）\r\n"
              u"　1 处，1 条　3　在 200 字段添加 $f“{文件名}{日期}”（没有时）\r\n"
              u"1 条不能改，照原样写出：\r\n第 1 条：字段 200 的“𠮷”，GBK 里没有\r\n"_s);
    const QString date = host.now().toString(u"yyyyMMdd"_s);
    EXPECT_EQ(folder.read(u"t.iso"_s), platform::encode(QString(recordOf(u"200=1 $a甲"_s) + u"\r\n" +
                                                                recordOf(u"200=1 $a乙$fa.iso"_s + date) + u"\r\n")));
    EXPECT_TRUE(report(u"某"_s, tidy::TargetForm::Utf8Iso).startsWith(u"任务“某”改了 2 条记录！"_s));
}

TEST_F(TaskOffer, RefusesTasksThatCannotRunOnAFile) {
    keep(u"全关"_s, uR"({"action": "deleteField", "tag": "801", "off": true})"_s);
    keep(u"校对"_s, uR"({"if": {"is": "noRemark", "rules": "甲"}, "action": "deleteField", "tag": "801"})"_s);
    EXPECT_EQ(change(u"全关"_s, tidy::TargetForm::GbkIso).failure().description, u"任务“全关”没有启用的步骤"_s);
    EXPECT_TRUE(change(u"校对"_s, tidy::TargetForm::GbkIso).failure().description.contains(u"整理时不校对"_s));
    const QString kept = host.remembered().folderFor(platform::kept::tasks).value();
    QFile broken(kept + u"坏.json");
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly) && broken.write("{") == 1);
    broken.close();
    EXPECT_EQ(app::taskOffer(host).names.size(), 6 + 2);
}
