// The store list: the rows of the copy-cataloguing store that a query selected, and their deletion, by the selection or
// all that the query found. The reload behind a deletion repeats the last query; a deletion that the server refuses
// shows in nothing but the rows that are left.
#pragma once

#include "catalogue/queryTarget.h"
#include "catalogue/windows/listWindow.h"
#include "database/sublib.h"
#include <array>
#include <functional>

namespace catalogue {

class TLKListFrm final : public ListWindow, public QueryTarget {
    Q_OBJECT
public:
    // `hideWorking` hides the busy box, which comes into being by that.
    TLKListFrm(const database::SessionState &state, platform::Host &host, std::function<void()> hideWorking,
               QWidget *parent = nullptr);

    void loadData(QString &condition, QString &order) override;
    void gridFix() override;
    void delSelected();
    void delAll();

    QLabel *lCounts;
    std::array<widgets::Button *, 3> CmdDcgl;

protected:
    bool queryUnload() override;

private:
    void layOut();
    void bindRows();
    void reload();
    void announceDeletion();

    const database::SessionState &m_state;
    platform::Host &m_host;
    std::function<void()> m_hideWorking;
    QString m_storeCondition;
    QString m_storeOrder;
};

} // namespace catalogue
