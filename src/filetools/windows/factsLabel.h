// What a record file is, told under the box that names it: looked at in slices while the window stays alive, shown as
// far as it has come, and dropped as soon as another path is given.
#pragma once

#include "marc/fileSurvey.h"
#include <QBasicTimer>
#include <QLabel>
#include <optional>

namespace filetools {

class FactsLabel final : public QLabel {
    Q_OBJECT
public:
    explicit FactsLabel(const QString &objectName, QWidget *parent = nullptr);

    // Begins anew; empty where no file stands at that path.
    void lookAt(const QString &path);
    void stop(); // what was seen stays told
    bool isLooking() const { return m_survey.has_value(); }

Q_SIGNALS:
    // The file has been seen whole. It wants tidying where what it is and what will be read disagree.
    void looked(const marc::FileFacts &facts, bool disagree);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void tell(const QString &text);

    std::optional<marc::FileSurvey> m_survey; // while it goes on
    QBasicTimer m_slices;
};

} // namespace filetools
