// The list of the records and the store that it shows: which record is current, by a colour, and which were visited.
#pragma once

#include "marc/preReadStore.h"
#include "widgets/flexGrid.h"
#include <memory>

namespace workspace {

class RecordList final : public widgets::FlexGrid {
    Q_OBJECT
public:
    static constexpr quint32 currentColour = 255;      // red
    static constexpr quint32 visitedColour = 12648447; // light yellow
    static constexpr int allTwips = 2190;              // the width of all columns

    RecordList(const QString &objectName, QWidget *parent);

    marc::PreReadStore &records() { return *m_records; }
    const marc::PreReadStore &records() const { return *m_records; }
    std::shared_ptr<const marc::PreReadStore> sharedRecords() const { return m_records; }

    void reset() override; // back to 20 empty rows
    void setTitle(int row, const QString &title);
    // The record as it was edited, in the place of the one that was read.
    void take(int row, const marc::RawRecord &record);
    void markCurrent(); // colours the current row; told by currentMarked
    void markVisited(); // the current row too, before it is left

Q_SIGNALS:
    void currentMarked(const QString &number); // its number in the list, empty where the row holds no record

    void taken(int row, const QString &before, const QString &after);
    void lettersTyped(const QString &text); // by a key or an input method

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    static constexpr int titleColumn = 1;

    std::shared_ptr<marc::PreReadStore> m_records = std::make_shared<marc::PreReadStore>();
};

} // namespace workspace
