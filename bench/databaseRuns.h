// Import, list, export and print preview in the real windows, and bare loops for comparison.
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

// A database that receives an import.
struct ImportTarget {
    database::Server server;
    std::function<QString()> emptied; // returns the connection text of the database without rows
};
ImportTarget sqliteTarget(const BenchStage &stage); // a new file for each round
// Returns PostgreSQL or MariaDB if the file written by scripts/test-servers contains a connection text for it.
std::optional<ImportTarget> serverTarget(const QString &serversFile, database::Server server);

// Returns the statements that the import sends for the records of a list, encoded for the server.
std::vector<QByteArray> insertsOf(const marc::PreReadStore &store, database::Server server);
// Run one round. Return its seconds, or std::nullopt if not every record was imported.
std::optional<double> importInWindow(const ImportTarget &target, std::shared_ptr<const marc::PreReadStore> records);
std::optional<double> importByLoop(const ImportTarget &target, const std::vector<QByteArray> &statements);

// The list window of a database.
struct List {
    explicit List(const QString &database);
    bool load(int rows); // returns whether that many rows were loaded

    BenchHost host;
    database::LinkPool links;
    database::SessionState state;
    catalogue::CatalogueOrder order;
    std::function<void(const catalogue::DataReportJs &report)> showReport = [](const auto &) {};
    catalogue::ZSKListFrm window;
};

// Run one round on a catalogue of `rows` rows. Return its seconds, or std::nullopt if it failed.
std::optional<double> listInWindow(const QString &catalogue, int rows);
std::optional<double> exportInWindow(const BenchStage &stage, const QString &catalogue, int rows);
std::optional<double> previewInWindow(const QString &catalogue, int rows);
std::optional<double> selectByLoop(const QString &catalogue, int rows); // the statement of the export
QString listCommand(const QString &catalogue);                          // the list's statement for the SQLite shell
std::optional<double> listByLoop(const QString &catalogue, int rows);   // fetched and discarded

} // namespace bench
