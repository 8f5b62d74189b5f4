// The ISBNs of the sample records.
#pragma once

#include "platform/codepage936.h"
#include "targets/isbnList.h"
#include <QFile>

// Returns the ISBNs of a record file in GBK that begin with "7-", each once; an empty list if the file cannot be read.
inline QStringList sampleIsbns(const QString &path) {
    constexpr qsizetype length = 13;
    QFile file(path);
    QStringList texts;
    for (const QString &text :
         platform::decode(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray()).split(u'\u001F'))
        if (text.startsWith(u"a7-") && text.size() > length)
            texts.append(text.mid(1, length));
    return targets::isbnsIn(texts.join(u'\n')).isbns;
}
