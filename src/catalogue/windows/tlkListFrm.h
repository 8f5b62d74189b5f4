// The store list: the rows of the copy-cataloguing store that a query selected, and their deletion, by the selection or
// all that the query found. The reload behind a deletion repeats the last query; a deletion that the server refuses
// shows in nothing but the rows that are left.
#pragma once

#include "catalogue/queryTarget.h"
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
    void gridFix() override;
    void delSelected();
    void delAll();

    QLabel *lCounts;
    widgets::PacedLabel *conditionWords;
    widgets::Button *cmdThisImport;
    widgets::Button *cmdSave;
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
    platform::Result<QMap<QString, QString>> recordsOf(const QList<qint64> &keys) const;
    platform::Result<int> writeRecords(const QString &path, int first, int last) const;

    const database::SessionState &m_state;
    platform::Host &m_host;
    StoreListWindows m_windows;
    Condition m_storeCondition;
    QString m_storeOrder;
};

} // namespace catalogue
