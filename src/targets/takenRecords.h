// Writes taken records to a file of the form that the program reads: GBK, one record a line.
#pragma once

#include "marc/fieldedRecord.h"
#include "platform/result.h"
#include <QDate>
#include <QStringList>
#include <span>

namespace targets {

struct TakenFile {
    QString path;
    int written = 0;
    // One line for each record concerned: its number in the file or in the list, its title, and
    QStringList lacking; // the characters that GBK lacks, which are written as "?"
    QStringList refused; // why the record does not fit the format; it is not in the file
};

// Writes 套录-DATE.iso in the folder, or 套录-DATE-2.iso and so on if that file exists. Fails if no record can be
// written; then no file is made.
platform::Result<TakenFile> writeTaken(const QString &folder, const QDate &date,
                                       std::span<const marc::FieldedRecord> records);

} // namespace targets
