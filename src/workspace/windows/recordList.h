// The list of records and the store that it shows. Colours mark the current and the visited records.
#pragma once

#include "marc/preReadStore.h"
#include "widgets/fixedColours.h"
#include "widgets/flexGrid.h"
#include <memory>

namespace workspace {

class RecordList final : public widgets::FlexGrid {
    Q_OBJECT
public:
    static constexpr quint32 currentColour = widgets::currentRed;
    static constexpr quint32 visitedColour = widgets::visitedYellow;
    static constexpr int allTwips = 2190; // the width of all columns

    RecordList(const QString &objectName, QWidget *parent);

    marc::PreReadStore &records() { return *m_records; }
    const marc::PreReadStore &records() const { return *m_records; }
    std::shared_ptr<const marc::PreReadStore> sharedRecords() const { return m_records; }

    void reset() override; // to 20 empty rows
    void setTitle(int row, const QString &title);
    // Replaces the record of the row by the edited one.
    void take(int row, const marc::RawRecord &record);
    void markCurrent(); // colours the current row and emits currentMarked()
    void markVisited(); // marks the current row too; call before leaving it

Q_SIGNALS:
    void currentMarked(const QString &number); // its number in the list; empty if the row has no record

    void taken(int row, const QString &before, const QString &after);
    void lettersTyped(const QString &text); // by a key or an input method

protected:
    void keyPressEvent(QKeyEvent *event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    static constexpr int titleColumn = 1;

    std::shared_ptr<marc::PreReadStore> m_records = std::make_shared<marc::PreReadStore>();
};

} // namespace workspace
