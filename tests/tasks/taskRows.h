// Tasks and records as short texts.
#pragma once

#include "support/qtPrinters.h"
#include "tasks/taskFile.h"
#include "tasks/taskRun.h"
#include <QFile>

using namespace Qt::StringLiterals;

namespace tasks {

inline const RunFacts testFacts{QDate(2026, 1, 31), u"到货.iso"_s, 7};

// Builds a record from "tag content" pieces separated by "|", with "$" for the subfield delimiter and "{dollar}" for a
// dollar sign. "LDR" is the leader.
inline marc::FieldedRecord recordIn(const QString &pieces) {
    marc::FieldedRecord record;
    for (const QString &piece : pieces.split(u'|', Qt::SkipEmptyParts)) {
        const QString tag = piece.left(3);
        const QString content =
            piece.mid(4).replace(u'$', QChar(marc::subfieldDelimiter)).replace(u"{dollar}"_s, u"$"_s);
        if (tag == u"LDR")
            record.leader = content;
        else
            record.fields.push_back({tag, content});
    }
    return record;
}

inline QString shown(const marc::FieldedRecord &record) {
    QStringList pieces;
    if (!record.leader.isEmpty())
        pieces.append(u"LDR " + record.leader);
    for (const marc::Field &field : record.fields) {
        QString content = field.content;
        content.replace(u'$', u"{dollar}"_s).replace(QChar(marc::subfieldDelimiter), u'$');
        pieces.append(field.tag + u' ' + content);
    }
    return pieces.join(u'|');
}

inline platform::Result<Task> taskOf(const QString &steps) {
    return readTask(u"{\"format\": \"task\", \"version\": 1, \"name\": \"t\", \"steps\": [%1]}"_s.arg(steps).toUtf8());
}

inline TaskRun runOf(const QString &steps, Fit fit = Fit::GbkRecord) {
    const auto task = taskOf(steps);
    EXPECT_TRUE(task.ok()) << qPrintable(task ? QString() : task.failure().description);
    static const auto pinyin = std::make_shared<PinyinReader>(PinyinReader::open().value());
    return TaskRun::prepare(task ? task.value() : Task(), testFacts, fit, pinyin).value();
}

inline QStringList linesOf(const QString &name) {
    QFile file(QStringLiteral(TASK_ROWS "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll()).split(u'\n');
}

} // namespace tasks
