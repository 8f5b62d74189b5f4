// The environment of the comparisons: generated files, fresh folders, and a host that answers its own message boxes.
#pragma once

#include "marc/preReadStore.h"
#include "platform/desktop/qtHost.h"
#include <QString>
#include <functional>
#include <memory>

class QWidget;

namespace bench {

inline constexpr int recordCount = 200'000;
inline constexpr int importCount = 20'000;
inline constexpr int listedRows = 1'000'000;
inline constexpr int exportedRows = 100'000;

struct RecordFile {
    QString path;
    int records;
};

// The folder that scripts/bench has filled.
struct BenchStage {
    QString folder;

    QString file(QStringView name) const { return folder + u'/' + name; }
    RecordFile recordsOf(int count) const {
        return {file(QString(u"records-" + QString::number(count) + u".iso")), count};
    }
    RecordFile records() const { return recordsOf(recordCount); }
    RecordFile importRecords() const { return recordsOf(importCount); }
    QString catalogueOf(int rows) const { return file(QString(u"catalogue-" + QString::number(rows) + u".db")); }
    QString listDatabase() const { return catalogueOf(listedRows); }
    QString exportDatabase() const { return catalogueOf(exportedRows); }
    QString emptyDatabase() const { return file(u"empty.db"); } // with tables but no rows
    QString freshPath(QStringView name) const;                  // a name that no earlier round used
    QString freshFolder(QStringView name) const;                // created, empty
};

// Returns the connection text for an SQLite file, with the settings of the program's own data source.
QString connectionTo(const QString &database);

// Reads the records of a file into the list that the workspace uses.
std::shared_ptr<const marc::PreReadStore> readStore(const QString &file);

// The real host, but message boxes answer themselves and the file dialog returns `chosenFile`.
class BenchHost final : public platform::QtHost {
public:
    BenchHost();
    platform::Answer show(const platform::Box &box) override;
    bool showWithTick(const platform::Box &box, const QString &tick) override;
    QString chooseFile(const platform::FileDialog &dialog) override;

    QString chosenFile;
    platform::Answer answer = platform::Answer::No; // to every question
    std::function<void()> told = [] {};             // called for each box
    int boxes = 0;
};

// Shows the window and waits until it is visible.
void putUp(QWidget &window);
// Processes all pending events; the last painting of a run is part of its time.
void settle();

} // namespace bench
