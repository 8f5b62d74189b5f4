// The windows that the workspace opens modally, as it knows them: each call returns when the window has closed. Their
// owner hands them in.
#pragma once

#include "marc/preReadStore.h"
#include <QString>
#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace workspace {

// Edits a text; nothing where it was left without an answer.
using Assistant = std::function<std::optional<QString>(const QString &text, QWidget *owner)>;

struct WorkspaceWindows {
    // frmMarcKaPian with the record; the mode is "标准" or "卡片".
    std::function<void(const marc::RawRecord &record, const QString &mode, QWidget *owner)> showCard;
    // frmMessage with the text: a report, or a record whose directory is damaged.
    std::function<void(const QString &text, QWidget *owner)> showReport;
    // frmDaoRuJindu over the list; `count` is the number of records as text.
    std::function<void(std::shared_ptr<const marc::PreReadStore> records, const QString &count, QWidget *owner)>
        runImport;
    Assistant leaderAssistant;   // frmHelpLR000
    Assistant field100Assistant; // frmHelpLR100
};

} // namespace workspace
