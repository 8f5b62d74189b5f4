#include "tasks/taskFile.h"
#include "platform/byteFile.h"
#include "platform/plainFile.h"
#include "tasks/stepCheck.h"
#include "tasks/stepTables.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr int version = 1;
constexpr QStringView format = u"task", formatKey = u"format", versionKey = u"version", nameKey = u"name",
                      descriptionKey = u"description", stepsKey = u"steps", testKey = u"if", testNameKey = u"is",
                      actionKey = u"action", offKey = u"off";

// Reads one JSON document; keeps the first fault.
class TaskReader {
public:
    platform::Result<Task> read(const QJsonObject &root);

private:
    void readSteps(const QJsonValue &value);
    void readStep(const QJsonObject &object, const QString &place);
    void readTest(const QJsonValue &value, const QString &place, Step &step);
    void readValues(const QJsonObject &object, std::span<const Use> uses, const QString &place, Values &values);
    QString text(const QJsonObject &object, QStringView key, const QString &place);
    void refuseOthers(const QJsonObject &object, std::span<const QStringView> known, std::span<const Use> uses,
                      const QString &place);
    void report(const QString &place, const QString &reason) {
        if (m_fault.isEmpty())
            m_fault = place + u'：' + reason;
    }

    Task m_task;
    QString m_fault;
};

platform::Result<Task> TaskReader::read(const QJsonObject &root) {
    constexpr QStringView known[] = {formatKey, versionKey, nameKey, descriptionKey, stepsKey};
    refuseOthers(root, known, {}, {});
    if (root[formatKey].toString() != format)
        report(formatKey.toString(), u"应为“task”"_s);
    if (root[versionKey] != QJsonValue(version))
        report(versionKey.toString(), u"应为 %1，这是另一版本的文件"_s.arg(version));
    m_task.name = text(root, nameKey, {});
    if (const QString fault = nameFault(m_task.name); !fault.isEmpty())
        report(nameKey.toString(), fault);
    m_task.description = text(root, descriptionKey, {});
    if (m_task.description.size() > longestValue)
        report(descriptionKey.toString(), u"太长，最多%1个字符"_s.arg(longestValue));
    readSteps(root[stepsKey]);
    if (!m_fault.isEmpty())
        return platform::Failure{m_fault};
    return std::move(m_task);
}

void TaskReader::readSteps(const QJsonValue &value) {
    const QJsonArray steps = value.toArray();
    if (!value.isArray())
        return report(stepsKey.toString(), u"应为 […]"_s);
    if (size_t(steps.size()) > mostSteps)
        return report(stepsKey.toString(), u"最多%1步"_s.arg(mostSteps));
    for (qsizetype i = 0; i < steps.size() && m_fault.isEmpty(); ++i) {
        const QString place = u"steps[%1]"_s.arg(i);
        if (steps[i].isObject())
            readStep(steps[i].toObject(), place);
        else
            report(place, u"应为 {…}"_s);
    }
}

void TaskReader::readStep(const QJsonObject &object, const QString &place) {
    const QString name = text(object, actionKey, place + u'.');
    const auto row = std::ranges::find(actionRows(), QStringView(name), &ActionRow::key);
    if (row == actionRows().end())
        return report(place + u".action", u"没有“%1”这种动作"_s.arg(name));
    Step step{.action = row->action};
    constexpr QStringView known[] = {testKey, actionKey, offKey};
    refuseOthers(object, known, row->uses, place + u'.');
    if (object.contains(testKey))
        readTest(object[testKey], place + u".if", step);
    if (const QJsonValue off = object[offKey]; !off.isUndefined() && !off.isBool())
        report(place + u".off", u"应为 true 或 false"_s);
    step.on = !object[offKey].toBool();
    readValues(object, row->uses, place + u'.', step.values);
    if (!m_fault.isEmpty())
        return;
    if (const auto fault = checkStep(step))
        report(place + (fault->inTest ? u".if." : u".") + keyOf(fault->parameter), fault->reason);
    m_task.steps.push_back(std::move(step));
}

void TaskReader::readTest(const QJsonValue &value, const QString &place, Step &step) {
    if (!value.isObject())
        return report(place, u"应为 {…}"_s);
    const QJsonObject object = value.toObject();
    const QString name = text(object, testNameKey, place + u'.');
    const auto row = std::ranges::find(testRows(), QStringView(name), &TestRow::key);
    if (row == testRows().end())
        return report(place + u".is", u"没有“%1”这种条件"_s.arg(name));
    step.test = row->test;
    constexpr QStringView known[] = {testNameKey};
    refuseOthers(object, known, row->uses, place + u'.');
    readValues(object, row->uses, place + u'.', step.testValues);
}

void TaskReader::readValues(const QJsonObject &object, std::span<const Use> uses, const QString &place,
                            Values &values) {
    for (const Use &use : uses)
        values[use.parameter] = text(object, keyOf(use.parameter), place);
}

// Returns the text at a key; an empty one if the key is absent.
QString TaskReader::text(const QJsonObject &object, QStringView key, const QString &place) {
    const QJsonValue value = object[key];
    if (!value.isUndefined() && !value.isString())
        report(place + key, u"应为文字"_s);
    return value.toString();
}

void TaskReader::refuseOthers(const QJsonObject &object, std::span<const QStringView> known, std::span<const Use> uses,
                              const QString &place) {
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const QString key = entry.key();
        const bool isUsed = std::ranges::any_of(uses, [&](const Use &use) { return keyOf(use.parameter) == key; });
        if (!isUsed && std::ranges::find(known, QStringView(key)) == known.end())
            report(place + key, u"这里没有这个键"_s);
    }
}

QByteArray quoted(QStringView text) {
    QByteArray array = QJsonDocument(QJsonArray{text.toString()}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2);
}

void addPair(QByteArray &object, QStringView key, QStringView value) {
    object += (object.endsWith('{') ? QByteArray() : QByteArray(", ")) + quoted(key) + ": " + quoted(value);
}

void addValues(QByteArray &object, const Values &values, std::span<const Use> uses) {
    for (const Use &use : uses) {
        if (!values[use.parameter].isEmpty())
            addPair(object, keyOf(use.parameter), values[use.parameter]);
    }
}

QByteArray writtenStep(const Step &step) {
    QByteArray line("{");
    if (step.test != Test::Always) {
        line += quoted(testKey) + ": {";
        addPair(line, testNameKey, rowOf(step.test).key);
        addValues(line, step.testValues, rowOf(step.test).uses);
        line += '}';
    }
    addPair(line, actionKey, rowOf(step.action).key);
    addValues(line, step.values, rowOf(step.action).uses);
    if (!step.on)
        line += ", " + quoted(offKey) + ": true";
    return line + '}';
}

} // namespace

QString nameFault(const QString &name) {
    if (name.trimmed().isEmpty() || name.size() > longestName)
        return u"应为 1 至 %1 个字符"_s.arg(longestName);
    const bool isPlain = std::ranges::all_of(name, [](QChar c) { return c >= u' ' && c != QChar(0x7F); });
    return isPlain ? QString() : u"不能有控制字符"_s;
}

platform::Result<Task> readTask(const QByteArray &json) {
    if (json.size() > largestTask)
        return platform::Failure{u"文件太大，最多 %1 MB"_s.arg(largestTask >> 20)};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (document.isNull())
        return platform::Failure{u"不是JSON，第%1个字节：%2"_s.arg(error.offset + 1).arg(error.errorString())};
    if (!document.isObject())
        return platform::Failure{u"最外层应为 {…}"_s};
    return TaskReader().read(document.object());
}

QByteArray writtenTask(const Task &task) {
    QByteArray text("{\n  \"format\": \"task\",\n  \"version\": 1,\n  \"name\": ");
    text += quoted(task.name);
    if (!task.description.isEmpty())
        text += ",\n  \"description\": " + quoted(task.description);
    text += ",\n  \"steps\": [";
    for (size_t i = 0; i < task.steps.size(); ++i)
        text += (i ? ",\n    " : "\n    ") + writtenStep(task.steps[i]);
    return text + (task.steps.empty() ? "]\n}\n" : "\n  ]\n}\n");
}

platform::Result<Task> readTaskFile(const QString &path) {
    const auto bytes = platform::readSmallFile(path, largestTask);
    auto task = bytes ? readTask(bytes.value()) : bytes.failure();
    if (!task)
        return platform::Failure{u"批改任务【"_s + path + u"】不能用：" + task.failure().description,
                                 task.failure().number};
    return task;
}

platform::Status writeTaskFile(const QString &path, const Task &task) {
    return platform::writeWholeFile(path, writtenTask(task));
}

} // namespace tasks
