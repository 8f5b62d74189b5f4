// Shows the pages of the handbook one at a time, with the way back and forward between them; marks what is looked for.
#pragma once

#include <QHash>
#include <QTextBrowser>

namespace handbook {

class PageView final : public QTextBrowser {
    Q_OBJECT
public:
    PageView(const QString &folder, QWidget *parent);

    // "import.md", at a heading or, where none is given, at its top; the page that is shown stays where it is then.
    void open(const QString &file, const QString &heading = {});
    QString file() const; // of the page that is shown

    // Marks the words wherever they stand in the page, which stays where it is; gives how often they do.
    int mark(const QString &words);
    int marks() const { return int(m_marks.size()); }
    int currentMark() const { return m_current; } // from 0; -1: none
    void goToMark(int number);
    // The mark that follows what is in sight or is current, or the one before; -1 where there is none.
    int markBehind() const;
    int markBefore() const;

Q_SIGNALS:
    void pageChanged();
    void linkLeads(const QUrl &outside); // out of the handbook

protected:
    QVariant loadResource(int type, const QUrl &name) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void arrived(const QUrl &place);
    void follow(const QUrl &link);
    QImage picture(const QUrl &name);
    void fitPictures();
    void showMarks();

    QString m_folder;
    QUrl m_page;                       // that is shown and has its look
    QHash<QString, QImage> m_pictures; // of it, as large as they are
    QList<QTextCursor> m_marks;
    int m_current = -1;
};

} // namespace handbook
