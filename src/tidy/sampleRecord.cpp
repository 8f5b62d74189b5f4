#include "tidy/sampleRecord.h"
#include "tidy/isoSource.h"
#include "tidy/marcXmlSource.h"
#include <algorithm>

namespace tidy {

namespace {

bool isAscii(const QString &text) {
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
}

bool isAscii(const marc::FieldedRecord &record) {
    return std::ranges::all_of(record.fields, [](const marc::Field &field) { return isAscii(field.content); });
}

QString linesOf(const marc::FieldedRecord &record) {
    constexpr qsizetype most = 20'000; // characters
    QString text;
    for (const marc::Field &field : record.fields) {
        text += field.tag + u' ' + field.content + u"\r\n";
        if (text.size() >= most)
            break;
    }
    return text.left(most);
}

} // namespace

platform::Result<SampleRecord> sampleRecord(const QString &path, SourceEncoding choice, marc::FileEncoding guessed) {
    constexpr int mostRecords = 500, mostSteps = 16;
    auto source = isXml(guessed) ? MarcXmlSource::open(path) : IsoSource::open(path, charsetOf(choice, guessed));
    if (!source)
        return source.failure();
    SampleRecord sample;
    qint64 number = 0;
    for (int steps = 0; number < mostRecords && steps < mostSteps;) {
        const auto found = source.value()->next();
        if (!found)
            return found.failure();
        if (found.value() == TidySource::Found::End)
            break;
        number += found.value() == TidySource::Found::Record || found.value() == TidySource::Found::Unreadable;
        if (found.value() != TidySource::Found::Record) {
            ++steps;
            continue;
        }
        const marc::FieldedRecord &record = source.value()->record();
        const bool isTelling = !isAscii(record);
        if (isTelling || sample.number == 0)
            sample = {number, linesOf(record)};
        if (isTelling)
            break;
    }
    return sample;
}

} // namespace tidy
