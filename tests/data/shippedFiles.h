// Reads built files with separate parsers, so that an error in the program's parsers cannot hide the same error in a
// file.
#pragma once

#include "support/qtPrinters.h"
#include <QFile>

// Returns the path of a file in the folder of the executable.
inline QString builtPath(const QString &name) {
    return QStringLiteral(PROGRAM_FOLDER "/") + name;
}

struct RawField {
    QByteArray tag;
    QByteArray content; // with indicators, without the field terminator
};

// Returns the fields of a record that includes its terminator but no line end. The test fails if leader, directory and
// fields do not match to the byte.
inline QList<RawField> checkedFields(const QByteArray &record) {
    const auto number = [&record](qsizetype at, qsizetype width) { return record.mid(at, width).toInt(); };
    QList<RawField> fields;
    const qsizetype base = record.indexOf('\x1E') + 1;
    EXPECT_EQ(number(0, 5), record.size());
    EXPECT_EQ(number(12, 5), base);
    EXPECT_EQ((base - 25) % 12, 0);
    qsizetype end = base;
    for (qsizetype entry = 24; entry + 12 < base; entry += 12) {
        const qsizetype length = number(entry + 3, 4);
        EXPECT_EQ(base + number(entry + 7, 5), end) << "directory entry of " << record.mid(entry, 3).data();
        EXPECT_EQ(record.mid(end + length - 1, 1), "\x1E") << "directory entry of " << record.mid(entry, 3).data();
        fields.append({record.mid(entry, 3), record.mid(end, length - 1)});
        end += length;
    }
    EXPECT_EQ(record.mid(end), "\x1D") << "bytes that belong to no directory entry";
    return fields;
}

// Returns the records of a file that has one record per line, each line ended by CR LF.
inline QList<QByteArray> recordLines(const QByteArray &file) {
    QList<QByteArray> records;
    for (qsizetype at = 0, end = 0; (end = file.indexOf("\r\n", at)) >= 0; at = end + 2)
        records.append(file.sliced(at, end - at));
    return records;
}
