// Makes a record file anew so that this program, or others, can read it: whatever encoding and line ends it came with.
#pragma once

#include "filetools/tidyRun.h"
#include "filetools/windows/factsLabel.h"
#include "filetools/windows/fileToolWindow.h"
#include "widgets/selectingEdit.h"
#include "widgets/textBox.h"
#include <QComboBox>
#include <QGroupBox>
#include <array>
#include <optional>

namespace filetools {

using ShowTidy = std::function<void(const QString &source)>; // modally; the source may be empty

class frmTidy final : public FileToolWindow {
    Q_OBJECT
public:
    explicit frmTidy(platform::Host &host, const QString &source = {}, QWidget *parent = nullptr);

    QGroupBox *Frame1;
    std::array<QLabel *, 3> LabShuoMing;
    std::array<widgets::SelectingEdit *, 2> Text1; // source, target
    std::array<widgets::Button *, 2> cmdSelect;
    FactsLabel *LabFacts;
    QComboBox *cboForm;
    widgets::TextBox *txtResult;
    std::array<widgets::Button *, 3> cmdClick; // begin, stop, leave

private:
    void layOut();
    void chooseInto(widgets::SelectingEdit *box, platform::FileDialogKind kind);
    TargetForm form() const;
    // A name beside the source's, as long as the box holds none that the user gave.
    void suggestTarget();
    bool mayTidy(const QString &source, const QString &target);
    void tidy();
    platform::Result<bool> run(); // false where it was stopped
    void end(const QString &told);
    std::optional<qint32> handOver() override;

    std::optional<TidyRun> m_run;
    QString m_suggested;
    bool m_stopped = false;
};

} // namespace filetools
