// Import, list, export and print preview in their real windows, and the bare loops beside them.
#pragma once

#include "benchStage.h"
#include "catalogue/windows/zskListFrm.h"
#include "database/linkPool.h"
#include "database/sqlDialect.h"
#include <QByteArray>
#include <functional>
#include <optional>
#include <vector>

namespace bench {

// A database to import into.
struct ImportTarget {
    database::Server server;
    std::function<QString()> emptied; // its connection text, with no row in it
};
ImportTarget sqliteTarget(const BenchStage &stage); // a new file each time
// PostgreSQL or MariaDB, where the connection texts in the file of scripts/test-servers have it.
std::optional<ImportTarget> serverTarget(const QString &serversFile, database::Server server);

// What the import sends for the records of a list, as the server takes it.
std::vector<QByteArray> insertsOf(const marc::PreReadStore &store, database::Server server);
// A round each; nothing where not every record went in.
std::optional<double> importInWindow(const ImportTarget &target, std::shared_ptr<const marc::PreReadStore> records);
std::optional<double> importByLoop(const ImportTarget &target, const std::vector<QByteArray> &statements);

// The list window on a database.
struct List {
    explicit List(const QString &database);
    bool load(int rows); // whether there were so many

    BenchHost host;
    database::LinkPool links;
    database::SessionState state;
    catalogue::CatalogueOrder order;
    std::function<void(const catalogue::DataReportJs &report)> showReport = [](const auto &) {};
    catalogue::ZSKListFrm window;
};

// A round each, on a catalogue of so many rows.
std::optional<double> listInWindow(const QString &catalogue, int rows);
std::optional<double> exportInWindow(const BenchStage &stage, const QString &catalogue, int rows);
std::optional<double> previewInWindow(const QString &catalogue, int rows);
std::optional<double> selectByLoop(const QString &catalogue, int rows); // what the export selects
QString listCommand(const QString &catalogue);                          // the list's select in the shell of SQLite
std::optional<double> listByLoop(const QString &catalogue, int rows);   // and its rows from the driver, dropped

} // namespace bench
