// The line that finds records in the batch: by a text in titles or in whole records, or by number. It searches the list
// in slices, so that the window stays responsive. It only requests that a record is made current and never changes the
// list itself.
#pragma once

#include "marc/recordSearch.h"
#include "platform/slicedWork.h"
#include "workspace/windows/recordList.h"
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <memory>

namespace workspace {

class FindLine final : public QWidget {
    Q_OBJECT
public:
    FindLine(RecordList &list, QWidget *parent);

    enum class Place { Title, WholeRecord, Number };
    // Shows the line and gives it the focus. A given text is entered as if typed. Numbers and words are kept
    // separately: the last words are restored by the next search for words.
    void open(Place place, const QString &text = {});
    void next();
    void previous();
    // Discards the results. Call when records of the list have changed.
    void forget();
    // Returns the words searched for in whole records, or an empty text in other searches.
    QString wholeRecordWords() const;

    QLineEdit *findText;
    QComboBox *findPlace;
    QLabel *findCount;

Q_SIGNALS:
    void wanted(int row); // counted from 0
    void closed();        // the line was closed, and the previous focus widget cannot get the focus back

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
    platform::SlicedWork m_slices;
    std::optional<Direction> m_owed; // a step that waits for the end of the search
    QString m_words;                 // the last words, while a number is searched for
    QPointer<QWidget> m_cameFrom;    // had the focus before the line was opened
};

} // namespace workspace
