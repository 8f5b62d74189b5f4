// The store list: the rows of the copy-cataloguing store that a query selected. It deletes the selected rows or all
// that the query found, and then repeats the last query; if the server refuses a deletion, only the remaining rows show
// it. While records are being saved, the list can neither delete nor start another run; closing it then ends the run
// and closes the window afterwards.
#pragma once

#include "catalogue/queryTarget.h"
#include "catalogue/saveRun.h"
#include "catalogue/windows/listWindow.h"
#include "database/sublib.h"
#include "marc/rawRecord.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"
#include <array>
#include <functional>
#include <optional>

namespace catalogue {

// The functions that the store list calls.
struct StoreListWindows {
    std::function<void()> hideWorking; // hides the busy box, which is created by this call
    std::function<QList<qint64>()> lastImport;
    std::function<void(const QString &marc, const marc::RecordStep &step)> showCard;
};

class TLKListFrm final : public ListWindow, public QueryTarget {
    Q_OBJECT
public:
    TLKListFrm(const database::SessionState &state, platform::Host &host, StoreListWindows windows,
               QWidget *parent = nullptr);

    void loadData(Condition &condition, QString &order) override;
    // Lists and selects exactly the rows of the last import in this session.
    void showThisImport();
    // Saves the records of the selected rows, one per line, or those of all rows if only one is selected.
    void saveRecords();
    // Call before the process ends: a running save ends without a file.
    void endRun();
    void gridFix() override;
    void delSelected();
    void delAll();

    QLabel *lCounts;
    widgets::PacedLabel *conditionWords;
    widgets::PacedLabel *markedRows; // how many rows a deletion would delete
    widgets::Button *cmdThisImport;
    widgets::Button *cmdSave;
    widgets::Button *stopSaving;
    widgets::PacedLabel *saved;
    std::array<widgets::Button *, 3> CmdDcgl;

protected:
    bool queryUnload() override;

private:
    void layOut();
    void listRows();
    void bindRows();
    void sortBy(int column);
    // The order of the rows: that of the heading, or else that of the query.
    const QString &shownOrder() const { return m_headingOrder.isEmpty() ? m_storeOrder : m_headingOrder; }
    void announceDeletion();
    void sayCondition();
    void countMarked();
    void showCard();
    std::optional<QString> recordOfRow(int row);
    std::optional<QString> step(int by);
    QList<qint64> keysToSave() const;
    void save(const QString &path);
    void setSaving(SaveRun *run);

    const database::SessionState &m_state;
    platform::Host &m_host;
    StoreListWindows m_windows;
    Condition m_storeCondition;
    QString m_storeOrder;
    QString m_headingOrder; // chosen by a click on a heading; a deletion does not contain it
    SaveRun *m_run = nullptr;
    bool m_closesAfterRun = false;
    bool m_processEnds = false;
};

} // namespace catalogue
