// The line that finds records in the batch: a text in titles or whole records, or a record by its number. It looks
// through the list in slices, so that the window stays alive, and asks for a record to be made current; it never moves
// the list itself.
#pragma once

#include "marc/recordSearch.h"
#include "workspace/windows/recordList.h"
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <memory>

namespace workspace {

class FindLine final : public QWidget {
    Q_OBJECT
public:
    FindLine(RecordList &list, QWidget *parent);

    enum class Place { Title, WholeRecord, Number };
    // Comes up with the keyboard in it; a text is typed into it already.
    void open(Place place, const QString &text = {});
    void next();
    void previous();
    // The list is another one, or its records are.
    void forget();

    QLineEdit *findText;
    QComboBox *findPlace;
    QLabel *findCount;

Q_SIGNALS:
    void wanted(int row); // from 0
    void closed();        // the keyboard is to go back

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class Direction { Next, Previous };
    Place place() const { return Place(findPlace->currentIndex()); }
    void look();
    void walk(Direction direction);
    void say();

    RecordList &m_list;
    std::unique_ptr<marc::RecordSearch> m_search;
    QTimer m_slices;
    std::optional<Direction> m_owed; // a step that waits for the search to end
};

} // namespace workspace
