#include "targets/takenRecords.h"
#include "marc/fitText.h"
#include "marc/isoWriter.h"
#include "platform/byteFile.h"
#include "platform/paths.h"
#include "targets/recordSummary.h"
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

constexpr QByteArrayView lineEnd("\r\n");

QString freePath(const QString &folder, const QDate &date) {
    const QString base = platform::pathWithSlash(folder) + u"套录-" + date.toString(u"yyyy-MM-dd"_s);
    QString path = base + u".iso";
    for (int number = 2; QFileInfo::exists(path) || QFileInfo(path).isSymLink(); ++number)
        path = base + u'-' + QString::number(number) + u".iso";
    return path;
}

// Returns the characters that GBK lacks, each once.
QString fitted(marc::FieldedRecord &record) {
    record.leader = marc::leaderFor(marc::TargetForm::GbkIso, record.leader);
    QString lacking;
    for (marc::Field &field : record.fields) {
        for (const char32_t character : marc::fitText(marc::TargetForm::GbkIso, field.content)) {
            const QString text = QString::fromUcs4(&character, 1);
            if (!lacking.contains(text))
                lacking += text;
        }
    }
    return lacking;
}

} // namespace

platform::Result<TakenFile> writeTaken(const QString &folder, const QDate &date,
                                       std::span<const marc::FieldedRecord> records) {
    TakenFile taken;
    taken.path = freePath(folder, date);
    auto file = platform::SavedFile::create(taken.path);
    if (!file)
        return file.failure();
    marc::IsoWriter writer;
    int number = 0;
    for (marc::FieldedRecord record : records) {
        ++number;
        const QString title = summaryOf(record).title;
        const QString lacking = fitted(record);
        if (const QString why = writer.make(record); !why.isEmpty()) {
            taken.refused.append(u"第 %1 条 %2：%3"_s.arg(number).arg(title, why));
            continue;
        }
        if (!lacking.isEmpty())
            taken.lacking.append(u"第 %1 条 %2：%3"_s.arg(taken.written + 1).arg(title, lacking));
        ++taken.written;
        for (const QByteArrayView bytes : {writer.bytes(), lineEnd}) {
            if (const platform::Status written = file.value().write(bytes); !written)
                return written.failure();
        }
    }
    if (taken.written == 0)
        return platform::Failure{taken.refused.isEmpty() ? u"没有要写的记录"_s : taken.refused.join(u'\n')};
    if (const platform::Status done = file.value().commit(); !done)
        return done.failure();
    return taken;
}

} // namespace targets
