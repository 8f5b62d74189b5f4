// Rewrites a record file of any encoding and line ends in one of the target forms, in steps of limited work and memory.
// The files get their names in close(); if it is not called, nothing remains of them. The source is only read.
#pragma once

#include "marc/fileSurvey.h"
#include "platform/byteFile.h"
#include "tidy/recordChange.h"
#include "tidy/recordForms.h"
#include "tidy/sourceEncoding.h"
#include "tidy/tidyResult.h"
#include "tidy/tidySource.h"
#include <QStringList>
#include <memory>
#include <optional>

namespace tidy {

// The files that a run may write. In addition to the target: the unusable records, unchanged (from an XML source as
// XML), and, instead of the target, the records before an error in the XML.
struct TidyFiles {
    QString target;
    QString unreadable;
    QString unreadableXml;
    QString ahead;

    explicit TidyFiles(const QString &target);
    // Returns the existing ones of these files.
    QStringList existing() const;
};

struct Refusal {
    enum class Field { Source, Target };
    QString text; // of the box
    Field focus;
};

// Returns why the run must not begin, or std::nullopt if it may continue with the question about existing files. Both
// paths must be trimmed.
std::optional<Refusal> refuseTidy(const QString &source, const QString &target);

class TidyRun {
public:
    TidyRun(QString source, const QString &target, TargetForm form,
            SourceEncoding encoding = SourceEncoding::Automatic);

    void setChange(FileChange change) { m_change = std::move(change); }

    platform::Status open();
    // Does the next step. Returns false when everything is read.
    platform::Result<bool> step();
    platform::Status close();

    int percent() const; // of the work done
    // Before close(), the result so far.
    const TidyResult &result() const { return m_result; }

private:
    platform::Result<bool> look();
    platform::Status beginWork();
    platform::Result<bool> work();
    platform::Result<bool> ended();
    platform::Status keep();
    QString write(const marc::FieldedRecord &record, platform::Status &written);
    platform::Status setAside(const QString &why);
    platform::Status openAside();
    platform::Status endXml();
    platform::Status writeAside(QByteArrayView bytes);
    qint64 damagedInRecord();
    bool isXmlSource() const { return isXml(m_result.encoding); }

    QString m_source;
    TidyFiles m_files;
    TargetForm m_form;
    platform::Charset m_charset = platform::Charset::Gbk; // of a source in exchange format
    std::optional<marc::FileSurvey> m_survey;             // while the encoding is being detected
    std::unique_ptr<TidySource> m_records;
    std::optional<platform::SavedFile> m_target;
    std::optional<platform::SavedFile> m_aside;
    FileChange m_change;
    marc::IsoWriter m_iso;
    std::optional<MarcXmlWriter> m_xml;
    std::optional<MarcXmlWriter> m_asideXml;
    qint64 m_size = 0;
    qint64 m_damagedBefore = 0; // bytes, before the current record
    TidyResult m_result;
};

} // namespace tidy
