// The handbook beside the work: the contents, one page, what is looked for in all of them. It stays usable whatever
// window comes in front of it to be answered, and outlives the one it was opened from; it never takes the keyboard by
// itself but when it is opened.
#pragma once

#include "handbook/handbook.h"
#include "handbook/windows/pageView.h"
#include "platform/host.h"
#include "widgets/window.h"
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QSplitter>

namespace handbook {

class frmHandbook final : public widgets::Window {
    Q_OBJECT
public:
    explicit frmHandbook(platform::Host &host, const QString &folder = QStringLiteral(":/handbook"));

    // Shows the place in front of that window, with the keyboard, which goes back there.
    void openBefore(QWidget *window, const Place &place);

    void lookFor(const QString &words);
    void next(); // on to the next page that has the words, behind the last one of this page
    void previous();
    void printPage();

    PageView *view;
    QListWidget *contents; // or, while something is looked for, the pages that have it
    QLineEdit *findText;
    QLabel *findCount;
    widgets::Button *cmdBack;
    widgets::Button *cmdForward;
    widgets::Button *cmdContents;
    widgets::Button *cmdPrint;
    QSplitter *across;

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void layOut();
    void connectControls();
    void bindKeys();
    void showContents();
    void showPlace();
    void standBefore(QWidget *window); // null: on its own
    void standInFront();               // of what waits to be answered
    void step(int direction);
    void leave(const QUrl &link);
    const QString &textOf(const QString &file);

    platform::Host &m_host;
    QString m_folder;
    std::vector<Page> m_pages;
    QHash<QString, QString> m_texts; // of the pages, without Markdown's signs; read when first looked for
    QPointer<QWidget> m_opener;
};

} // namespace handbook
