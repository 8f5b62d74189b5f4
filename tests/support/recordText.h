// Builds the text of a record with a valid directory from its fields, so that a test states only what it checks.
#pragma once

#include "platform/codepage936.h"
#include "platform/numbers.h"
#include "support/qtPrinters.h"

// Returns a record with the given directory and field data.
inline QString recordWithDirectory(const QString &directory, const QString &data, QChar type = u'a') {
    const int base = 24 + int(directory.size()) + 1;
    const int total = base + int(platform::gbkLength(data)) + 1;
    return platform::padZero(5, total) + u'n' + type + QStringLiteral("m0 22") + platform::padZero(5, base) +
           QStringLiteral("   450 ") + directory + QChar(0x1E) + data + QChar(0x1D);
}

// Tag and content; "$" represents the subfield delimiter. The field terminator is added.
using TestField = std::pair<QString, QString>;

inline QString recordOf(const QList<TestField> &fields, QChar type = u'a') {
    QString directory;
    QString data;
    for (const auto &[tag, content] : fields) {
        QString field = content;
        field.replace(u'$', QChar(0x1F)).append(QChar(0x1E));
        directory += tag + platform::padZero(4, int(platform::gbkLength(field))) +
                     platform::padZero(5, int(platform::gbkLength(data)));
        data += field;
    }
    return recordWithDirectory(directory, data, type);
}

// Builds a record from "tag=content" pieces separated by "|".
inline QString recordOf(const QString &fields) {
    QList<TestField> list;
    for (const QString &field : fields.split(u'|', Qt::SkipEmptyParts))
        list.append({field.left(3), field.sliced(4)});
    return recordOf(list);
}
