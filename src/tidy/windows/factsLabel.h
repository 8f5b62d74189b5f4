// Shows facts about a record file below its path. The file is surveyed in slices while the window stays responsive;
// preliminary facts are shown, and the survey ends as soon as another path is given. Warnings have the warning colour;
// the accessible name is the plain text.
#pragma once

#include "marc/fileSurvey.h"
#include "platform/slicedWork.h"
#include <QDateTime>
#include <QLabel>
#include <optional>

namespace tidy {

class FactsLabel final : public QLabel {
    Q_OBJECT
public:
    explicit FactsLabel(const QString &objectName, QWidget *parent = nullptr);

    // Starts again with the file at `path`; shows nothing if there is none.
    void lookAt(const QString &path);
    // Starts again if the file has changed since.
    void lookAgain();
    // Runs the next slices at once, as many as the user does not notice.
    void hurry();
    void stop(); // keeps the facts shown so far
    bool isLooking() const { return m_survey.has_value(); }

Q_SIGNALS:
    // The whole file was surveyed. With `disagree` the detected encoding and the one used for reading differ, and the
    // file needs tidying.
    void looked(const marc::FileFacts &facts, bool disagree);

private:
    struct Stand { // identifies a version of a file
        qint64 size = -1;
        QDateTime written;
        friend bool operator==(const Stand &, const Stand &) = default;
    };
    static Stand standOf(const QString &path);
    void look();
    bool step();
    void report(bool more);
    void tell(const QList<marc::FactLine> &lines);

    QString m_path;
    Stand m_stand;
    std::optional<marc::FileSurvey> m_survey; // during the survey
    std::optional<platform::Failure> m_fault; // of the last step
    platform::SlicedWork m_slices;
};

} // namespace tidy
