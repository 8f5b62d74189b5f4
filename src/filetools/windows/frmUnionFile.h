// Merges the record files of a list into one, in the order of the list.
#pragma once

#include "filetools/mergeRun.h"
#include "filetools/windows/fileToolWindow.h"
#include "widgets/button.h"
#include "widgets/selectingEdit.h"
#include <QGroupBox>
#include <QListWidget>
#include <array>

namespace filetools {

class frmUnionFile final : public RunWindow<MergeRun> {
    Q_OBJECT
public:
    frmUnionFile(platform::Host &host, ShowReport showReport, QWidget *parent = nullptr);

    QListWidget *List1;
    QGroupBox *Frame2;
    std::array<widgets::Button *, 2> cmdSelect; // add, remove
    QGroupBox *Frame1;
    widgets::SelectingEdit *Text1;
    widgets::Button *cmdSave;
    std::array<widgets::Button *, 2> cmdClick;

private:
    void layOut();
    void addFile();
    void removeFile();
    void merge();
    QStringList sources() const;
    // Returns whether all checks pass and an existing target may be replaced.
    bool mayMerge(const QStringList &sources, const QString &target);
    platform::Status run(const QStringList &sources);
    platform::Status mergeSource(const QString &path);
};

} // namespace filetools
