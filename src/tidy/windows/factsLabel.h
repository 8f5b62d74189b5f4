// What a record file is, shown under the box that names it: looked at in slices while the window stays alive, shown as
// far as it has come, and dropped as soon as another path is given. Warnings stand in the ink of warnings; the
// accessible name has the plain text.
#pragma once

#include "marc/fileSurvey.h"
#include <QBasicTimer>
#include <QDateTime>
#include <QLabel>
#include <optional>

namespace tidy {

class FactsLabel final : public QLabel {
    Q_OBJECT
public:
    explicit FactsLabel(const QString &objectName, QWidget *parent = nullptr);

    // Begins again; empty where no file stands at that path.
    void lookAt(const QString &path);
    // Looks again where the file is no longer the one that was looked at.
    void lookAgain();
    // Takes the next slices at once, as many as pass unnoticed.
    void hurry();
    void stop(); // what was seen stays
    bool isLooking() const { return m_survey.has_value(); }

Q_SIGNALS:
    // The file has been seen whole. It wants tidying where what it is and what will be read disagree.
    void looked(const marc::FileFacts &facts, bool disagree);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    struct Stand { // of a file: one that differs in these is another one
        qint64 size = -1;
        QDateTime written;
        friend bool operator==(const Stand &, const Stand &) = default;
    };
    static Stand standOf(const QString &path);
    void look();
    void step();
    void tell(const QList<marc::FactLine> &lines);

    QString m_path;
    Stand m_stand;
    std::optional<marc::FileSurvey> m_survey; // while it goes on
    QBasicTimer m_slices;
};

} // namespace tidy
