// What the windows of the split and of the merge have in common: the two progress labels, the state that is read from
// them, the way a run begins and ends, and the questions at closing. A run is taken to be active while `labJinDu` is
// shown and does not say that the work is done; a run that failed stays in that state.
#pragma once

#include "platform/host.h"
#include "platform/result.h"
#include "widgets/runControls.h"
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
    // Puts up the hourglass, shows the labels, disables these and locks the box until the run has ended well; the
    // keyboard is then where it was.
    void beginRun(const QList<QWidget *> &disabled, QLineEdit *locked);
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
    widgets::RunControls m_controls;
};

// A window with its run, which keeps its files after a failure until the window goes.
template <class Run>
class RunWindow : public FileToolWindow {
protected:
    using FileToolWindow::FileToolWindow;

    // Does the work of m_run as a whole, and shows its report.
    template <class Work>
    void carryOut(const QList<QWidget *> &disabled, QLineEdit *locked, const QString &folder, Work work) {
        beginRun(disabled, locked);
        if (const platform::Status done = work(); !done)
            return tellFailure(done.failure().description);
        const QString report = m_run->report();
        m_run.reset();
        endRun();
        showResult(report, folder);
    }

    // Writes each record up to the end of the source.
    template <class Write>
    platform::Status writeRecords(Write write) {
        for (;;) {
            const platform::Result<bool> found = m_run->next();
            if (!found)
                return found.failure();
            if (!found.value())
                return platform::success();
            m_host.yield();
            if (const platform::Status written = write(); !written)
                return written;
            showCount(m_run->total());
        }
    }

    std::optional<qint32> handOver() override {
        return m_run && m_run->total() != 0 ? std::optional(m_run->handOver()) : std::nullopt;
    }

    std::optional<Run> m_run;
};

} // namespace filetools
