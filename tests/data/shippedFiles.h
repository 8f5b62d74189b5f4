// Reads built files with parsers of the tests' own, so that a fault in a file is not hidden by the same fault in the
// program.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

QString builtPath(const QString &name); // of a file beside the executable
QByteArray builtFile(const QString &name);

struct RawField {
    QByteArray tag;
    QByteArray content; // indicators included, terminator left out
};
struct RawFields {
    QList<RawField> fields;
    QString fault; // empty where leader, directory and fields agree to the byte
};
// `record`: with its record terminator, without a line end.
RawFields checkedFields(const QByteArray &record);

struct RawSubfield {
    char code;
    QByteArray value;
};
QList<RawSubfield> subfieldsOf(const RawField &field);

// The records of a file that has one to a line, each followed by CR LF.
QList<QByteArray> recordLines(const QByteArray &file);
