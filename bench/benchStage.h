// What the comparisons work on and with: the made files, fresh folders, and the real machine without its boxes.
#pragma once

#include "marc/preReadStore.h"
#include "platform/desktop/qtHost.h"
#include <QString>
#include <memory>

class QWidget;

namespace bench {

inline constexpr int recordCount = 200'000;
inline constexpr int importCount = 20'000;
inline constexpr int listedRows = 1'000'000;
inline constexpr int exportedRows = 100'000;

// The folder that scripts/bench fills before.
struct BenchStage {
    QString folder;

    QString file(QStringView name) const { return folder + u'/' + name; }
    QString records() const { return file(u"records.iso"); }      // recordCount records
    QString importRecords() const { return file(u"import.iso"); } // importCount records
    QString emptyDatabase() const { return file(u"empty.db"); }   // the tables alone
    QString listDatabase() const { return file(u"list.db"); }     // a catalogue of listedRows rows
    QString exportDatabase() const { return file(u"export.db"); } // a catalogue of exportedRows rows
    QString freshPath(QStringView name) const;                    // a name that no round had before
    QString freshFolder(QStringView name) const;                  // made, and empty
};

// The connection text of an SQLite file, as the program's own data source has it.
QString connectionTo(const QString &database);

// The records of a file, as the workspace lists them.
std::shared_ptr<const marc::PreReadStore> readStore(const QString &file);

// The real machine, but boxes answer themselves (No where it is a question) and the file dialog gives `chosenFile`.
class BenchHost final : public platform::QtHost {
public:
    BenchHost();
    platform::Answer show(const platform::Box &box) override;
    QString chooseFile(const platform::FileDialog &dialog) override;

    QString chosenFile;
    int boxes = 0;
};

// Shows the window and waits until it is on the screen.
void putUp(QWidget &window);
// Whatever waits: the last painting of a run belongs to it.
void settle();

} // namespace bench
