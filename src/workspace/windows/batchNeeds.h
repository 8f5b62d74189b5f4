// The interface of the workspace to the window that changes many records at once.
#pragma once

#include "marc/fieldPlace.h"
#include "marc/preReadStore.h"
#include <QHash>
#include <QSet>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace workspace {

// The names of the rules that each record violates, by the row of the list.
using ViolatedRules = QHash<int, QSet<QString>>;

struct BatchNeeds {
    std::shared_ptr<const marc::PreReadStore> records;
    QString file;
    // Replaces the record and the title of a row.
    std::function<void(int row, const marc::RawRecord &record, const QString &title)> put;
    std::function<int()> busyRow;                           // a row with edits that are not in the list; -1: none
    std::function<std::optional<std::vector<int>>()> shown; // rows of the filter; std::nullopt: all
    std::function<std::vector<int>()> remarked;
    std::function<std::optional<ViolatedRules>()> rules; // RemarksPane::violatedRules
    std::function<void(const marc::FieldPlace &)> jump;
};

} // namespace workspace
