// Shows the pages of the handbook one at a time, with navigation back and forward, and marks a searched text.
#pragma once

#include <QHash>
#include <QTextBrowser>

namespace handbook {

class PageView final : public QTextBrowser {
    Q_OBJECT
public:
    PageView(const QString &folder, QWidget *parent);

    // Opens a page such as "import.md" at a heading, or at its top if none is given; without a heading, the page that
    // is already shown is not scrolled.
    void open(const QString &file, const QString &heading = {});
    QString file() const; // of the page shown

    // Marks all occurrences of the words in the page, without scrolling; returns their number.
    int mark(const QString &words);
    int marks() const { return int(m_marks.size()); }
    int currentMark() const { return m_current; } // from 0; -1: none
    void goToMark(int number);
    // Return the mark after or before the current one; without a current one, the first mark from the visible part on,
    // or the last mark. -1 if there is none.
    int markAfter() const;
    int markBefore() const;

Q_SIGNALS:
    void pageChanged();
    void linkLeads(const QUrl &outside); // the target is not in the handbook

protected:
    QVariant loadResource(int type, const QUrl &name) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool focusNextPrevChild(bool next) override; // Tab goes through the links, and a screen reader reads them

private:
    void arrived(const QUrl &place);
    void follow(const QUrl &link);
    QImage picture(const QUrl &name);
    void fitPictures();
    void showMarks();

    QString m_folder;
    QUrl m_page;                       // the page shown, after dress()
    QHash<QString, QImage> m_pictures; // its pictures, in original size
    QList<QTextCursor> m_marks;
    int m_current = -1;
};

} // namespace handbook
