// Cuts a record file into numbered files of a largest number of records each.
#pragma once

#include "filetools/splitRun.h"
#include "filetools/windows/fileToolWindow.h"
#include "widgets/selectingEdit.h"
#include <QGroupBox>
#include <array>
#include <optional>

namespace filetools {

class frmCutFile final : public RunWindow<SplitRun> {
    Q_OBJECT
public:
    frmCutFile(platform::Host &host, ShowReport showReport, QWidget *parent = nullptr);

    std::array<widgets::SelectingEdit *, 2> Text1; // source, target
    widgets::SelectingEdit *Text2;                 // largest number of records per file
    std::array<widgets::Button *, 2> cmdSelect;
    std::array<widgets::Button *, 2> cmdclick;
    QGroupBox *Frame1;
    std::array<QLabel *, 3> LabShuoMing;

private:
    void layOut();
    void split();
    // The pattern of the target names, when the checks have passed and the question about existing files is answered.
    std::optional<TargetPattern> confirmedTarget(const QString &source, const QString &target);
    platform::Status run();

    QString m_limit; // what Text2 says at each moment: to ask the box once a record is a seventh of the work
};

} // namespace filetools
