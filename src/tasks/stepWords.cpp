#include "tasks/stepWords.h"
#include "tasks/stepTables.h"

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr QStringView missing = u"…";

QString tagWords(const QString &tag, QStringView ifEmpty) {
    if (tag.isEmpty())
        return ifEmpty.toString();
    if (tag == leaderTag)
        return u"头标区"_s;
    return u' ' + QString(tag).replace(u',', u'、') + u" 字段";
}

QString codeWords(const QString &codes) {
    QString words;
    for (const QChar code : codes)
        words += (words.isEmpty() ? u"$" : u"、$") + QString(code);
    return words;
}

QString wordsOf(const Use &use, const QString &value) {
    switch (use.kind) {
    case Kind::Choice:
        return choiceOf(use, value).words.toString();
    case Kind::OwnTags:
        return tagWords(value, u"该字段");
    case Kind::Tags:
        return tagWords(value, use.required ? missing : u"所有字段");
    case Kind::Tag:
    case Kind::FixedTag:
        return tagWords(value, use.required ? missing : u"");
    case Kind::Code:
    case Kind::Codes:
        return value.isEmpty() && use.required ? missing.toString() : codeWords(value);
    default:
        return value.isEmpty() && use.required ? missing.toString() : value;
    }
}

// Fills the sentence of a row with the values.
QString filled(QStringView sentence, std::span<const Use> uses, const Values &values) {
    QString text;
    qsizetype begun = -1; // of a part in brackets
    bool leaveOut = false;
    for (qsizetype i = 0; i < sentence.size(); ++i) {
        if (sentence[i] == u'[') {
            begun = text.size();
            leaveOut = false;
        } else if (sentence[i] == u']') {
            if (leaveOut)
                text.truncate(begun);
        } else if (sentence[i] == u'{') {
            const qsizetype end = sentence.indexOf(u'}', i);
            const QStringView key = sentence.sliced(i + 1, end - i - 1);
            for (const Use &use : uses) {
                if (keyOf(use.parameter) != key)
                    continue;
                const QString words = wordsOf(use, values[use.parameter]);
                leaveOut = leaveOut || words.isEmpty();
                text += words;
            }
            i = end;
        } else {
            text += sentence[i];
        }
    }
    return text;
}

} // namespace

QString describe(const Step &step) {
    const TestRow &test = rowOf(step.test);
    const ActionRow &action = rowOf(step.action);
    const QString act = filled(action.sentence, action.uses, step.values);
    if (step.test == Test::Always)
        return act;
    return u"如果"_s + filled(test.sentence, test.uses, step.testValues) + u"，" + act;
}

QStringList stepsInWords(const Task &task) {
    QStringList words;
    for (size_t i = 0; i < task.steps.size(); ++i)
        words.append(QString::number(i + 1) + u"　" + describe(task.steps[i]) +
                     (task.steps[i].on ? u""_s : u"（停用）"_s));
    return words;
}

} // namespace tasks
