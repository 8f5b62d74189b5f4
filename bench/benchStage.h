// What the comparisons work on and with: the made files, fresh folders, and the real machine without its boxes.
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

// The folder that scripts/bench fills before.
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
    QString emptyDatabase() const { return file(u"empty.db"); } // the tables alone
    QString freshPath(QStringView name) const;                  // a name that no round had before
    QString freshFolder(QStringView name) const;                // made, and empty
};

// The connection text of an SQLite file, as the program's own data source has it.
QString connectionTo(const QString &database);

// The records of a file, as the workspace lists them.
std::shared_ptr<const marc::PreReadStore> readStore(const QString &file);

// The real machine, but boxes answer themselves and the file dialog gives `chosenFile`.
class BenchHost final : public platform::QtHost {
public:
    BenchHost();
    platform::Answer show(const platform::Box &box) override;
    bool showWithTick(const platform::Box &box, const QString &tick) override;
    QString chooseFile(const platform::FileDialog &dialog) override;

    QString chosenFile;
    platform::Answer answer = platform::Answer::No; // to every question
    std::function<void()> told = [] {};             // called with each box
    int boxes = 0;
};

// Shows the window and waits until it is on the screen.
void putUp(QWidget &window);
// Whatever waits: the last painting of a run belongs to it.
void settle();

} // namespace bench
