// Makes a record file anew in one of the forms that files have: whatever encoding and line ends it came with. Done in
// steps of bounded work and memory. The files appear under their names in close(); where that is not reached, nothing
// is left of them. The source is only read.
#pragma once

#include "marc/fileSurvey.h"
#include "platform/byteFile.h"
#include "tidy/recordForms.h"
#include "tidy/sourceEncoding.h"
#include "tidy/tidyResult.h"
#include "tidy/tidySource.h"
#include <QStringList>
#include <memory>
#include <optional>

namespace tidy {

// The files that a run may write beside its target: records that could not be used, byte for byte or, from XML, as XML;
// and what stands ahead of a break in XML, in the target's stead.
struct TidyFiles {
    QString target;
    QString unreadable;
    QString unreadableXml;
    QString ahead;

    explicit TidyFiles(const QString &target);
    // Those of them that exist.
    QStringList existing() const;
};

struct Refusal {
    enum class Field { Source, Target };
    QString text; // of the box
    Field focus;
};

// What forbids to begin; nothing where the run may go on to the question about existing files. Both paths are trimmed.
std::optional<Refusal> refuseTidy(const QString &source, const QString &target);

class TidyRun {
public:
    TidyRun(QString source, const QString &target, TargetForm form,
            SourceEncoding encoding = SourceEncoding::Automatic);

    platform::Status open();
    // The next piece of work; false when all is read.
    platform::Result<bool> step();
    platform::Status close();

    int percent() const; // of the work
    // Before close() as far as it has come.
    const TidyResult &result() const { return m_result; }

private:
    platform::Result<bool> look();
    platform::Status beginWork();
    platform::Result<bool> work();
    platform::Result<bool> ended();
    platform::Status keep();
    QString write(const TidyRecord &record, platform::Status &written);
    platform::Status setAside(const QString &why);
    platform::Status openAside();
    platform::Status endXml();
    platform::Status writeAside(QByteArrayView bytes);
    qint64 damagedInHand();
    bool isXmlSource() const { return isXml(m_result.encoding); }

    QString m_source;
    TidyFiles m_files;
    TargetForm m_form;
    platform::Charset m_charset = platform::Charset::Gbk; // of a source in the exchange layout
    std::optional<marc::FileSurvey> m_survey;             // while the encoding is looked for
    std::unique_ptr<TidySource> m_records;
    std::optional<platform::SavedFile> m_target;
    std::optional<platform::SavedFile> m_aside;
    IsoRecordBytes m_iso;
    std::optional<MarcXmlWriter> m_xml;
    std::optional<MarcXmlWriter> m_asideXml;
    qint64 m_size = 0;
    qint64 m_damagedBefore = 0; // bytes, up to the record in hand
    TidyResult m_result;
};

} // namespace tidy
