// Builds the text of a record from its fields, with a directory that is right, so that a test says only what it is
// about.
#pragma once

#include "platform/codepage936.h"
#include "platform/numbers.h"
#include "support/qtPrinters.h"

// The directory and the fields as they are given.
inline QString recordWithDirectory(const QString &directory, const QString &data, QChar type = u'a') {
    const int base = 24 + int(directory.size()) + 1;
    const int total = base + int(platform::gbkLength(data)) + 1;
    return platform::padZero(5, total) + u'n' + type + QStringLiteral("m0 22") + platform::padZero(5, base) +
           QStringLiteral("   450 ") + directory + QChar(0x1E) + data + QChar(0x1D);
}

// Tag and content; "$" stands for the subfield delimiter. The field terminator is added.
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

// The same from "tag=content" pieces, parted by "|".
inline QString recordOf(const QString &fields) {
    QList<TestField> list;
    for (const QString &field : fields.split(u'|', Qt::SkipEmptyParts))
        list.append({field.left(3), field.sliced(4)});
    return recordOf(list);
}
