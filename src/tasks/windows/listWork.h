// Previews a task on the records of a list, carries it out and undoes it, in slices between events.
#pragma once

#include "marc/fieldPlace.h"
#include "platform/host.h"
#include "platform/slicedWork.h"
#include "tasks/listHistory.h"
#include <QObject>
#include <optional>

namespace tasks {

// The list of records that the window works on, and the functions of the window that shows it.
struct ListDesk {
    std::shared_ptr<const marc::PreReadStore> records; // null: there is no list
    QString file;
    ListHistory::Put put;
    std::function<int()> busyRow;                           // see ChangePreview::Source
    std::function<std::optional<std::vector<int>>()> shown; // rows of the filter; std::nullopt: there is none
    std::function<std::vector<int>()> remarked;             // rows with a remark
    // Returns a function for the names of the rules that a record violates; an empty one before the first proof.
    std::function<std::function<QSet<QString>(int row)>()> remarks;
    std::function<void(const marc::FieldPlace &)> jump;
};

enum class Scope { All, Shown, Remarked };

class ListWork final : public QObject {
    Q_OBJECT
public:
    ListWork(platform::Host &host, ListDesk desk);

    enum class Kind { None, Preview, Run, Undo };
    Kind kind() const { return m_kind; }
    bool isBusy() const { return m_kind != Kind::None; }

    // Rows with a record, in ascending order.
    std::vector<int> rowsOf(Scope scope) const;
    // Starts the preview. Fails with the reason if the task cannot be run.
    platform::Status preview(const Task &task, Scope scope);
    void run(); // carries out the preview
    // Starts to undo the last run, after a question if records were changed since.
    void undo();
    void stop();

    const std::shared_ptr<ChangePreview> &changes() const { return m_preview; } // null: there is no preview
    const ListHistory &history() const { return m_history; }
    const ListDesk &desk() const { return m_desk; }
    const Task &task() const { return m_task; } // of the preview
    QStringList steps() const;                  // its steps in words
    QString progress() const;
    // The current place of a change, for ListDesk::jump.
    marc::FieldPlace placeOf(int row, const Change *change) const;
    void forget(); // the preview

Q_SIGNALS:
    void progressed();                        // after each slice
    void ended(QString report, bool stopped); // an empty report ends a preview

private:
    bool step();
    void report(bool more);
    void finish(bool stopped);
    void begin(Kind kind);

    platform::Host &m_host;
    ListDesk m_desk;
    Task m_task;
    std::shared_ptr<PinyinReader> m_pinyin; // opened when a task needs it
    std::shared_ptr<ChangePreview> m_preview;
    ListHistory m_history;
    QString m_undoneTask;
    std::vector<int> m_kept;
    Kind m_kind = Kind::None;
    platform::SlicedWork m_slices;
};

} // namespace tasks
