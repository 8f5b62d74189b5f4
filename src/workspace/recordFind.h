// The search of the find line: in titles or in whole records, or for a record number. It searches the list in slices,
// so that the window stays responsive, and requests that a record is made current. Rows are counted from 0.
#pragma once

#include "marc/recordSearch.h"
#include "platform/slicedWork.h"
#include <QObject>
#include <functional>
#include <memory>
#include <optional>

namespace workspace {

class RecordFind final : public QObject {
    Q_OBJECT
public:
    enum class Place { Title, WholeRecord, Number };
    enum class Direction { Next, Previous };

    // `currentRow` returns the row from which the next step continues.
    RecordFind(const marc::PreReadStore &records, std::function<int()> currentRow);

    // Sets the text to search for, and begins the search for words.
    void look(Place place, const QString &text);
    // Discards the results. Call when records of the list have changed.
    void forget();
    // Goes to a hit or to the record with the number; at once, or when the search has ended.
    void walk(Direction direction);
    // Returns the text about the hits; empty without a search for words.
    QString words() const;

Q_SIGNALS:
    void wanted(int row);
    void noSuchNumber(); // the text is not the number of a record
    void changed();      // words() may have changed

private:
    void goToNumber();

    const marc::PreReadStore &m_records;
    std::function<int()> m_currentRow;
    Place m_place = Place::Title;
    QString m_text;
    std::unique_ptr<marc::RecordSearch> m_search;
    platform::SlicedWork m_slices;
    std::optional<Direction> m_owed; // a step that waits for the end of the search
};

} // namespace workspace
