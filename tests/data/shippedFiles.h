// Reads built files with parsers of the tests' own, so that a fault in a file is not hidden by the same fault in the
// program.
#pragma once

#include "support/qtPrinters.h"
#include <QFile>

// The path of a file beside the executable.
inline QString builtPath(const QString &name) {
    return QStringLiteral(PROGRAM_FOLDER "/") + name;
}

struct RawField {
    QByteArray tag;
    QByteArray content; // indicators included, terminator left out
};

// The fields of a record with its terminator, without a line end; a failure where leader, directory and fields do not
// agree to the byte.
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
        EXPECT_EQ(base + number(entry + 7, 5), end) << "entry of " << record.mid(entry, 3).data();
        EXPECT_EQ(record.mid(end + length - 1, 1), "\x1E") << "entry of " << record.mid(entry, 3).data();
        fields.append({record.mid(entry, 3), record.mid(end, length - 1)});
        end += length;
    }
    EXPECT_EQ(record.mid(end), "\x1D") << "bytes that no entry names";
    return fields;
}

// The records of a file that has one to a line, each followed by CR LF.
inline QList<QByteArray> recordLines(const QByteArray &file) {
    QList<QByteArray> records;
    for (qsizetype at = 0, end = 0; (end = file.indexOf("\r\n", at)) >= 0; at = end + 2)
        records.append(file.sliced(at, end - at));
    return records;
}
