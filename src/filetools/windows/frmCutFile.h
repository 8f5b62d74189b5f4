// Splits a record file into numbered files with a maximum number of records each.
#pragma once

#include "filetools/splitRun.h"
#include "filetools/windows/fileToolWindow.h"
#include "widgets/button.h"
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
    widgets::SelectingEdit *Text2;                 // maximum number of records per file
    std::array<widgets::Button *, 2> cmdSelect;
    std::array<widgets::Button *, 2> cmdclick;
    QGroupBox *Frame1;
    std::array<QLabel *, 3> LabShuoMing;

private:
    void layOut();
    void split();
    // Returns the pattern of the target names, or std::nullopt if a check fails or the user does not confirm.
    std::optional<TargetPattern> confirmedTarget(const QString &source, const QString &target);
    platform::Status run();

    QString m_limit; // current text of Text2; reading the box for each record would take a seventh of the time
};

} // namespace filetools
