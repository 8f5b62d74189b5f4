// Common behaviour of the split and merge windows: two progress labels, the state derived from them, start and end of a
// run, and the questions on closing. A run counts as active while `labJinDu` is visible and does not report the end of
// the work; a failed run stays in that state.
#pragma once

#include "platform/host.h"
#include "platform/result.h"
#include "widgets/runControls.h"
#include "widgets/window.h"
#include <functional>
#include <optional>

namespace filetools {

using ShowReport = std::function<void(const QString &report)>; // shows it modally

class FileToolWindow : public widgets::Window {
    Q_OBJECT
public:
    widgets::PacedLabel *labJinDu;
    widgets::PacedLabel *labShuDo;

protected:
    FileToolWindow(const QString &objectName, const QString &caption, platform::Host &host, ShowReport showReport,
                   QWidget *parent);

    bool queryUnload() override;

    // Returns the path chosen in the file dialog; empty if the user cancelled.
    QString chooseFile(platform::FileDialogKind kind);
    // Shows the wait cursor and the labels, disables the controls and makes the box read-only until endRun(), which
    // also restores the focus.
    void beginRun(const QList<QWidget *> &disabled, QLineEdit *locked);
    void endRun();
    void showCount(qint32 total);
    // Called before a count is shown: flushes the files and returns the number of records they contain, which is the
    // one shown, or std::nullopt if there are none yet.
    virtual std::optional<qint32> handOver() = 0;
    // Required: shows the message and restores nothing, so that the window can no longer be closed.
    void tellFailure(const QString &description);
    // Shows the report, then asks whether to look at the target. On yes, opens `folder`
    // on the desktop unless it is empty.
    void showResult(const QString &report, const QString &folder);

    platform::Host &m_host;

private:
    ShowReport m_showReport;
    widgets::RunControls m_controls;
};

// A window with its run. After a failure the run keeps its files open until the window is closed.
template <class Run>
class RunWindow : public FileToolWindow {
protected:
    using FileToolWindow::FileToolWindow;

    // Runs the whole work of m_run and shows its report.
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

    // Writes all remaining records of the source.
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
