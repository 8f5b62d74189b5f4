// The store list: the rows of the copy-cataloguing store that a query selected, and their deletion, by the selection or
// all that the query found. The reload behind a deletion repeats the last query; a deletion that the server refuses
// shows in nothing but the rows that are left. While records are saved, the list neither deletes nor starts again;
// closed then, it ends the run and afterwards itself.
#pragma once

#include "catalogue/queryTarget.h"
#include "catalogue/saveRun.h"
#include "catalogue/windows/listWindow.h"
#include "database/sublib.h"
#include "widgets/pacedLabel.h"
#include <array>
#include <functional>

namespace catalogue {

// What the store list leads to, and what it asks for.
struct StoreListWindows {
    std::function<void()> hideWorking; // hides the busy box, which comes into being by that
    std::function<QList<qint64>()> lastImport;
    std::function<void(const QString &marc)> showCard;
};

class TLKListFrm final : public ListWindow, public QueryTarget {
    Q_OBJECT
public:
    TLKListFrm(const database::SessionState &state, platform::Host &host, StoreListWindows windows,
               QWidget *parent = nullptr);

    void loadData(Condition &condition, QString &order) override;
    // Lists and marks exactly the rows of this session's last import.
    void showThisImport();
    // The records of the marked rows, or of all where one row alone is marked, one a line.
    void saveRecords();
    // Before the process ends: a run in progress ends without a file.
    void endRun();
    void gridFix() override;
    void delSelected();
    void delAll();

    QLabel *lCounts;
    widgets::PacedLabel *conditionWords;
    widgets::Button *cmdThisImport;
    widgets::Button *cmdSave;
    widgets::Button *stopSaving;
    widgets::PacedLabel *saved;
    std::array<widgets::Button *, 3> CmdDcgl;

protected:
    bool queryUnload() override;

private:
    void layOut();
    void bindRows();
    void reload();
    void announceDeletion();
    void sayCondition();
    void showCard();
    QList<qint64> keysToSave() const;
    void save(const QString &path);
    void setSaving(SaveRun *run);

    const database::SessionState &m_state;
    platform::Host &m_host;
    StoreListWindows m_windows;
    Condition m_storeCondition;
    QString m_storeOrder;
    SaveRun *m_run = nullptr;
    bool m_closesAfterRun = false;
    bool m_processEnds = false;
};

} // namespace catalogue
