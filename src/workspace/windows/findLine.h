// The line that finds records in the batch: by a text in titles or in whole records, or by number. It only requests
// that a record is made current and never changes the list itself.
#pragma once

#include "workspace/recordFind.h"
#include "workspace/windows/recordList.h"
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

namespace workspace {

class FindLine final : public QWidget {
    Q_OBJECT
public:
    FindLine(RecordList &list, QWidget *parent);

    using Place = RecordFind::Place;
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
    Place place() const { return Place(findPlace->currentIndex()); }
    void look();
    void say();

    RecordFind m_find;
    QString m_words;              // the last words, while a number is searched for
    QPointer<QWidget> m_cameFrom; // had the focus before the line was opened
};

} // namespace workspace
