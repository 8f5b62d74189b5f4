#include "marc/fieldLookup.h"
#include "marc/directory.h"
#include "marc/subfields.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"

namespace marc {

namespace {

using Found = std::optional<QString>; // the value; std::nullopt if the field does not have the subfield

// Searches one field. Returns an empty outer optional if the lookup as a whole fails.
std::optional<Found> lookInto(QStringView field, QChar code) {
    for (SubfieldWalk walk(field); walk.next();) {
        if (walk.negativeLength())
            return std::nullopt;
        if (walk.code() == code)
            return Found(walk.value().toString());
    }
    return Found();
}

// `cutter` is called when the first field is extracted, and may encode the record.
std::optional<QString> lookUp(const RawRecord &record, QStringView wanted, const DamagedDirectory &damaged,
                              const std::function<FieldCutter()> &cutter) {
    const DirectoryView directory = viewDirectory(record);
    const std::optional<qint32> base = platform::toInt32(directory.baseAddress);
    if (!base || !directory.hasFieldTerminator)
        return std::nullopt;
    if (directory.damaged) {
        if (damaged)
            damaged(record);
        return QString();
    }
    std::optional<FieldCutter> fields;
    std::optional<FieldAllowance> allowance;
    for (qsizetype i = 0; i < directory.count(); ++i) {
        if (directory.tag(i) != wanted.first(3))
            continue;
        const std::optional<qint32> length = platform::toInt32(directory.length(i));
        const std::optional<qint32> start = platform::toInt32(directory.start(i));
        if (!length || !start)
            return std::nullopt;
        if (!fields) {
            fields = cutter();
            allowance.emplace(*fields);
        }
        const std::optional<QString> field = fields->cut(*base, *start, *length);
        if (!field || field->isEmpty()) // there is no terminator to remove
            return std::nullopt;
        if (!allowance->admits(field->size()))
            break;
        const std::optional<Found> found = lookInto(QStringView(*field).chopped(1), wanted.back());
        if (!found)
            return std::nullopt;
        if (*found)
            return **found;
    }
    return QString();
}

} // namespace

std::optional<QString> readZd(const RawRecord &record, QStringView wanted, const DamagedDirectory &damaged) {
    return lookUp(record, wanted, damaged, [&] { return FieldCutter(record); });
}

std::optional<QString> readZd(const RawRecord &record, QByteArrayView gbk, QStringView wanted,
                              const DamagedDirectory &damaged) {
    return lookUp(record, wanted, damaged, [&] {
        // Offsets and values refer to the text encoded again, which equals the file's own bytes unless some of them
        // were not a character.
        return record.contains(QChar::ReplacementCharacter) ? FieldCutter(record) : FieldCutter::over(gbk);
    });
}

} // namespace marc
