// The line that finds records in the batch: a text in titles or whole records, or a record by its number. It looks
// through the list in slices, so that the window stays alive, and asks for a record to be made current; it never moves
// the list itself.
#pragma once

#include "marc/recordSearch.h"
#include "workspace/windows/recordList.h"
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <memory>

namespace workspace {

class FindLine final : public QWidget {
    Q_OBJECT
public:
    FindLine(RecordList &list, QWidget *parent);

    enum class Place { Title, WholeRecord, Number };
    // Shows the line and gives it the focus; with a text, as if that had been typed into it. Numbers and words are kept
    // apart: words that were looked for come back with the next search for words.
    void open(Place place, const QString &text = {});
    void next();
    void previous();
    // Records of the list have changed: what was found no longer counts.
    void forget();
    // The words that are looked for in whole records; empty where something else is.
    QString wholeRecordWords() const;

    QLineEdit *findText;
    QComboBox *findPlace;
    QLabel *findCount;

Q_SIGNALS:
    void wanted(int row); // from 0
    void closed();        // and the widget that had the focus before cannot have it back

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
    QString m_words;                 // last looked for, while a number is
    QPointer<QWidget> m_cameFrom;    // had the focus before
};

} // namespace workspace
