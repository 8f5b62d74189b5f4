#include "shippedFiles.h"
#include <QFile>

using namespace Qt::StringLiterals;

QString builtPath(const QString &name) {
    return QStringLiteral(PROGRAM_FOLDER) + u'/' + name;
}

QByteArray builtFile(const QString &name) {
    QFile file(builtPath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

RawFields checkedFields(const QByteArray &record) {
    const auto number = [&record](qsizetype at, qsizetype width) { return record.mid(at, width).toInt(); };
    RawFields result;
    const qsizetype base = record.indexOf('\x1E') + 1;
    if (number(0, 5) != record.size() || number(12, 5) != base || (base - 25) % 12 != 0 || !record.endsWith('\x1D'))
        result.fault = u"leader or directory"_s;
    qsizetype end = base;
    for (qsizetype entry = 24; result.fault.isEmpty() && entry + 12 < base; entry += 12) {
        const qsizetype length = number(entry + 3, 4);
        if (base + number(entry + 7, 5) != end || record.mid(end + length - 1, 1) != "\x1E")
            result.fault = u"entry of "_s + QString::fromLatin1(record.mid(entry, 3));
        result.fields.append({record.mid(entry, 3), record.mid(end, length - 1)});
        end += length;
    }
    if (result.fault.isEmpty() && end != record.size() - 1)
        result.fault = u"bytes that no entry names"_s;
    return result;
}

QList<RawSubfield> subfieldsOf(const RawField &field) {
    QList<RawSubfield> subfields;
    for (const QByteArray &piece : field.content.split('\x1F').sliced(1))
        subfields.append({piece.isEmpty() ? '\0' : piece[0], piece.mid(1)});
    return subfields;
}

QList<QByteArray> recordLines(const QByteArray &file) {
    QList<QByteArray> records;
    for (qsizetype at = 0, end = 0; (end = file.indexOf("\r\n", at)) >= 0; at = end + 2)
        records.append(file.sliced(at, end - at));
    return records;
}
