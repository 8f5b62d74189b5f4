// A small model of the workspace's state: the expected list, grid, marks and drafts after each action. It has no
// windows or files, and keeps complete copies where the program keeps differences.
#pragma once

#include "marc/configurationFiles.h"
#include "marc/fieldLookup.h"
#include "marc/recordWriter.h"
#include "workspace/fieldEditing.h"
#include <QDateTime>
#include <QSet>

struct WorkspaceModel {
    struct Grid {
        marc::FieldRows rows{marc::FieldRow{}};
        QString leader;
        bool edited = false;
        bool cameOrWent = false;
    };
    struct Draft {
        QString record;
        QString origin; // the record in the file from which the draft was made
        friend bool operator==(const Draft &, const Draft &) = default;
    };
    using Drafts = QMap<int, Draft>;
    struct OnDisk {
        int version = 0; // of the record file
        Drafts changed;
        Drafts left;
        // Returns the drafts that a start reads: the newest of each row, and the older ones.
        std::pair<Drafts, Drafts> means() const {
            std::pair<Drafts, Drafts> found{changed, {}};
            for (auto draft = left.begin(); draft != left.end(); ++draft)
                (changed.contains(draft.key()) ? found.second : found.first).insert(draft.key(), *draft);
            return found;
        }
    };
    struct File {
        QStringList records;
        int version = 0; // differs after a change that size or time reveals
    };

    QString folder; // of the descriptions
    QDateTime now;
    marc::DamagedDirectory damaged; // called when a record with a damaged directory is shown or examined
    QMap<QString, File> files;
    QMap<QString, OnDisk> disk; // drafts by file
    int kept = 0;               // files of drafts that were set aside

    // State of the open window.
    QString path;
    QStringList list, titles;
    int listed = 0;
    bool atEnd = false;
    int row = 0;
    Grid grid, inList;
    std::vector<Grid> states;
    size_t at = 0;
    Drafts taken, left;
    QMap<int, QString> origins; // of the rows changed since the window was opened
    bool restoring = false;
    bool offered = false;
    int filter = 0; // 0: all records, 1: those with a remark, 2: the changed ones
    QSet<int> remarked;
    std::optional<std::pair<int, QString>> typing;

    static bool sameRows(const marc::FieldRows &one, const marc::FieldRows &other) {
        return std::ranges::equal(one, other, [](const marc::FieldRow &a, const marc::FieldRow &b) {
            return a.fieldLabel == b.fieldLabel && a.identifier == b.identifier && a.subfieldLabel == b.subfieldLabel &&
                   a.value == b.value;
        });
    }
    QString built(const Grid &of) const { return marc::madeMyMarc(of.rows, of.leader, now); }

    // Windows and disk.
    void open(const QString &file, int firstBatch) {
        path = file;
        listed = 0;
        atEnd = false;
        list = titles = QStringList(QList<QString>(20));
        taken.clear();
        left.clear();
        origins.clear();
        restoring = offered = false;
        filter = 0;
        typing.reset();
        row = 0;
        grid = {};
        readTo(std::min<int>(firstBatch, int(files[path].records.size())));
        show(list[0]);
        const OnDisk found = disk.value(path);
        if (found.changed.isEmpty() && found.left.isEmpty())
            return;
        if (found.version != files[path].version) {
            disk.remove(path);
            ++kept;
            return;
        }
        Drafts older;
        std::tie(left, older) = found.means();
        kept += older.isEmpty() ? 0 : 1;
        offered = true;
    }
    void readTo(int count) {
        const QStringList &records = files[path].records;
        for (; listed < count; ++listed) {
            while (list.size() <= listed) {
                list.append(QString());
                titles.append(QString());
            }
            list[listed] = records[listed];
            titles[listed] = marc::readZd(records[listed], u"200a", {}).value_or(QString());
            if (restoring && left.contains(listed))
                kept += restoreRow(listed, false) ? 0 : 1;
        }
        atEnd = listed == records.size();
        settle();
    }
    Grid seen() const {
        Grid result = grid;
        if (typing)
            result.rows[typing->first - 1].value = typing->second;
        return result;
    }
    bool differs(const Grid &state) const {
        return state.leader != inList.leader ||
               !std::ranges::equal(state.rows, inList.rows, [](const marc::FieldRow &a, const marc::FieldRow &b) {
                   return a.identifier == b.identifier && a.value == b.value;
               });
    }
    qsizetype changedCount() const { return taken.size() + (differs(grid) && !taken.contains(row) ? 1 : 0); }
    QList<int> shownRows() const {
        QList<int> rows;
        for (int at = 0; at < list.size(); ++at)
            if (filter == 0 || at == row || (filter == 1 ? remarked.contains(at) : taken.contains(at)))
                rows.append(at);
        return rows;
    }
    OnDisk drafts() const {
        OnDisk result{files[path].version, taken, left};
        if (differs(seen()))
            result.changed.insert(row, {built(seen()), origins.value(row, list[row])});
        return result;
    }
    void write() {
        const OnDisk now = drafts();
        if (now.changed.isEmpty() && now.left.isEmpty())
            disk.remove(path);
        else
            disk.insert(path, now);
    }

    // The record in the grid.
    void show(const QString &record) {
        marc::ShownRecord shown = marc::showRecord(record);
        if (shown.damaged)
            damaged(record);
        else
            marc::fillDescriptions(shown.rows, folder);
        begin({shown.rows, shown.leader});
    }
    void begin(const Grid &state) {
        grid = inList = state;
        states = {state};
        at = 0;
    }
    void note() {
        if (!sameRows(states[at].rows, grid.rows) || states[at].leader != grid.leader) {
            states.resize(++at);
            states.push_back(grid);
            return;
        }
        const bool marked = grid.edited && !states[at].edited;
        states[at] = grid;
        for (Grid &state : states)
            state.edited = state.edited || marked;
    }
    bool go(int by) {
        if (by < 0 ? at == 0 : at + 1 == states.size())
            return false;
        at += size_t(by);
        grid = states[at];
        return true;
    }
    void change(int at, const QString &text, bool marks, const std::optional<QString> &leader = {}) {
        grid.rows[at - 1].value = text;
        grid.leader = leader.value_or(grid.leader);
        grid.edited = grid.edited || marks;
        note();
    }
    void insert(const workspace::NewRow &added) {
        grid.rows.insert(added.place - 1, added.content);
        grid.cameOrWent = true;
        note();
    }
    void remove(int at, int count) {
        grid.rows.remove(at - 1, count);
        grid.cameOrWent = true;
        note();
    }

    // The list. Leaving an edited record asks a question.
    void take(int at, const QString &record) {
        if (!origins.contains(at))
            origins.insert(at, list[at]);
        list[at] = record;
        taken.insert(at, {record, origins[at]});
    }
    void leave(bool keep, bool byList) {
        if (grid.edited && keep) {
            take(row, built(grid));
            if (const QString title =
                    byList ? marc::readZd(list[row], u"200a", damaged).value_or(QString()) : QString();
                !title.isEmpty())
                titles[row] = title;
        }
        grid.edited = grid.edited && !byList;
        grid.cameOrWent = false;
        begin(Grid(grid));
    }
    void enter(int to) {
        row = to;
        if (!list[row].isEmpty())
            show(list[row]);
    }
    void import(bool keep, int count, const QSet<int> &refused) {
        if (grid.edited && keep) {
            take(row, built(grid));
            inList = grid;
            for (Grid &state : states)
                state.edited = true;
        }
        taken.removeIf([&](Drafts::iterator at) { return at.key() < count && !refused.contains(at.key()); });
        write();
    }

    // Drafts of an earlier start.
    bool restoreRow(int at, bool isNewer) {
        const auto [record, origin] = left.take(at);
        if (isNewer || origin != list[at])
            return false;
        take(at, record);
        if (const QString title = marc::readZd(record, u"200a", {}).value_or(QString()); !title.isEmpty())
            titles[at] = title;
        if (at == row)
            show(record);
        return true;
    }
    void restore() {
        bool aside = false;
        const bool inGrid = differs(grid);
        const int current = row;
        for (const int at : left.keys())
            if (at < list.size())
                aside = !restoreRow(at, origins.contains(at) || (inGrid && at == current)) || aside;
        kept += aside ? 1 : 0;
        restoring = true;
        offered = false;
        settle();
    }
    void settle() {
        if (!restoring || !atEnd)
            return;
        if (left.removeIf([&](Drafts::iterator at) { return at.key() >= list.size(); }) > 0)
            ++kept;
    }
    void giveUp() {
        kept += left.isEmpty() ? 0 : 1;
        left.clear();
        offered = false;
        write();
    }
};
