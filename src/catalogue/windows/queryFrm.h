// The dialogs for composing a query from fields, operators and values, one for the catalogue list and one for the store
// list. They pass condition and order to their list window and never access the database themselves.
#pragma once

#include "catalogue/queryBuilder.h"
#include "catalogue/queryTarget.h"
#include "platform/host.h"
#include "widgets/window.h"
#include <array>

class QComboBox;
class QLabel;
class QListWidget;
class QTextEdit;
namespace widgets {
class Button;
class ClickLabel;
class MaskedEdit;
} // namespace widgets

namespace catalogue {

class QueryDialog : public widgets::Window {
    Q_OBJECT
public:
    // Sets three comma-separated lists of corresponding items. Call once, before the dialog is shown.
    void LoadCombo(const QString &fieldNames, const QString &fieldLabels, const QString &fieldTypes);
    // Closes the dialog and passes the result on.
    void findData();

    // Offers the query that `last` holds, and stores there the next one that is passed on. `last` must outlive the
    // dialog.
    void offerLast(EnteredQuery &last);

    QueryTarget *resultForm = nullptr; // set before LoadCombo

    QListWidget *LFields;
    QComboBox *cSql;
    QComboBox *cFuhao;
    widgets::MaskedEdit *lSql;
    widgets::Button *Command3;
    QTextEdit *signSql;
    QListWidget *totalSql;
    QComboBox *cOrderby;
    std::array<widgets::ClickLabel *, 2> Label3;
    QTextEdit *lOrderby;
    std::array<widgets::Button *, 3> Command1;
    widgets::Button *Command2;
    QLabel *queriedTable; // "查询：书库"
    widgets::Button *lastQueryButton;

protected:
    QueryDialog(const QString &objectName, QueryRules rules, platform::Host &host, QWidget *parent);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void prepareBoxes();
    void layOut();
    void connectControls();
    void fieldClicked(int field);
    void loadFuhao();
    void addCondition();
    void addSortTerm(int index);
    void clearAll();
    void showConditions();
    void fillOrderby();
    void enterLast();

    platform::Host &m_host;
    QueryBuilder m_builder;
    EnteredQuery *m_last = nullptr; // null if none is offered
};

// For the catalogue list.
class QueryFrm final : public QueryDialog {
    Q_OBJECT
public:
    explicit QueryFrm(platform::Host &host, QWidget *parent = nullptr);
};

// For the store list: at most 46 fields, and no dates.
class QueryFrmdel final : public QueryDialog {
    Q_OBJECT
public:
    explicit QueryFrmdel(platform::Host &host, QWidget *parent = nullptr);
};

} // namespace catalogue
