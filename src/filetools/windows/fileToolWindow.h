// What the windows of the split and of the merge have in common: the two progress labels, the state that is read from
// them, the way a run begins and ends, and the questions at closing. A run is taken to be active while `labJinDu` is
// shown and does not say that the work is done; a run that failed stays in that state.
#pragma once

#include "platform/host.h"
#include "platform/result.h"
#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include <QPointer>
#include <functional>
#include <optional>

namespace filetools {

using ShowReport = std::function<void(const QString &report)>; // modally

class FileToolWindow : public widgets::Window {
    Q_OBJECT
public:
    widgets::PacedLabel *labJinDu;
    widgets::PacedLabel *labShuDo;

protected:
    FileToolWindow(const QString &objectName, const QString &caption, platform::Host &host, ShowReport showReport,
                   QWidget *parent);

    bool queryUnload() override;

    // The path chosen in the file dialog; empty after a cancel.
    QString chooseFile(platform::FileDialogKind kind);
    // Puts up the hourglass, shows the labels and disables these until the run has ended well; the keyboard
    // is then where it was.
    void beginRun(const QList<QWidget *> &disabled);
    void endRun();
    void showCount(qint32 total);
    // Called before a count is seen: hands over to the files what was written. The number of records that stand in
    // them, which is the one that is seen; nothing while there is none.
    virtual std::optional<qint32> handOver() = 0;
    // Required as it stands: the box, and nothing is put back, so that the window cannot be closed any more.
    void tellFailure(const QString &description);
    // The report, then the question whether to look at the folder; it goes to the desktop unless it is empty.
    void showResult(const QString &report, const QString &folder);

    platform::Host &m_host;

private:
    ShowReport m_showReport;
    QList<QWidget *> m_disabled;
    QPointer<QWidget> m_focused; // when the run began
    std::optional<widgets::WaitCursor> m_waiting;
};

// Names the control after its prompt, for the screen reader and for the prompt's access key.
void nameAfter(QLabel *prompt, QWidget *control);

} // namespace filetools
