// The handbook window: the contents, one page, and a search in all pages. It stays usable while any modal window is
// open, and outlives the window it was opened from; it takes the keyboard focus only when it is opened.
#pragma once

#include "handbook/handbook.h"
#include "handbook/windows/pageView.h"
#include "platform/host.h"
#include "widgets/button.h"
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

    // Shows the place in front of `window`, with the keyboard focus, which returns to `window` at the end.
    void openBefore(QWidget *window, const Place &place);

    void lookFor(const QString &words);
    void next(); // continues on the next page with the text after the last occurrence on this page
    void previous();
    void printPage();

    PageView *view;
    QListWidget *contents; // or, during a search, the pages with the text
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
    void standBefore(QWidget *window); // null: no window
    void raiseAboveModal();            // in front of the current modal window
    void step(int direction);
    void leave(const QUrl &link);
    const QString &textOf(const QString &file);

    platform::Host &m_host;
    QString m_folder;
    std::vector<Page> m_pages;
    QHash<QString, QString> m_texts; // page texts without Markdown syntax, by file; read at the first search
    QPointer<QWidget> m_opener;
};

} // namespace handbook
