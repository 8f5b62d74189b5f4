// Shows the records found in a table with ticks, and the current one as a card, in standard form and field by field.
#pragma once

#include "platform/deskState.h"
#include "targets/windows/surroundings.h"
#include "widgets/flexGrid.h"
#include "widgets/textBox.h"
#include <QSplitter>
#include <QTabBar>

namespace targets {

class ResultsPane final : public QSplitter {
    Q_OBJECT
public:
    ResultsPane(const Surroundings &surroundings, QWidget *parent = nullptr);

    // Shows the rows of a search.
    void begin(std::shared_ptr<FoundRecords> records);
    void grow();          // records were added
    void rowsChanged();   // marks were added
    int current() const;  // row of the table, without its heading; -1: none
    void tickAllOrNone(); // ticks all rows, or none if all are ticked
    void keep(const platform::DeskState &state) const;
    void recall(const platform::DeskState &state);

    widgets::FlexGrid *grid;
    QTabBar *viewBar;
    widgets::TextBox *recordText;

Q_SIGNALS:
    void ticked(); // ticks have changed
    void moved();  // another row is current

private:
    void layOut();
    void fitWidths();
    void toggle();
    void showRecord();
    QString viewOf(const marc::FieldedRecord &record) const;

    const Surroundings &m_surroundings;
    std::shared_ptr<FoundRecords> m_records;
};

} // namespace targets
