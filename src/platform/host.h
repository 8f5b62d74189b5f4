// The operations of the system that event procedures need. Windows use only this interface; platform/desktop/ holds the
// implementation that shows real boxes and dialogs, and tests use a scripted one.
#pragma once

#include "platform/deskState.h"
#include "platform/settings.h"
#include <QDateTime>
#include <QStringList>

class QWidget;

namespace platform {

enum class Icon { None, Information, Exclamation, Critical };
enum class Buttons { Ok, YesNo };
enum class Answer { Ok, Yes, No };
// Whether Esc and the close button close a box, answering No if there is such a button, or only its buttons do.
enum class Leaving { Freely, ByButtonsOnly };

inline constexpr QStringView programTitle = u"Tarvex图书馆管理系统";
inline constexpr QStringView hintTitle = u"操作提示"; // the title of most boxes

// One message box. An empty title means the program's own title.
struct Box {
    QString text;
    QString title;
    Icon icon = Icon::Information;
    Buttons buttons = Buttons::Ok;
    Answer preselected = Answer::Yes; // for YesNo boxes
    Leaving leaving = Leaving::Freely;
};

// Save accepts a name that does not exist yet, and does not ask before overwriting. Folder chooses an existing folder.
enum class FileDialogKind { Open, Save, Folder };

struct FileDialog {
    QString title;
    QString filter = {}; // "label(*.iso)|*.iso|label(*.*)|*.*"; the first one is preselected
    FileDialogKind kind = FileDialogKind::Open;
    QString start = {}; // the path to begin at; if its folder does not exist, the folder chosen from last
};

class Host {
public:
    virtual ~Host() = default;

    // Shows the box modally over the active window. With Leaving::Freely, Esc and the close button answer No if there
    // is one.
    virtual Answer show(const Box &box) = 0;
    // Shows a box with one button and a check box under the text. Returns whether the check box was checked.
    virtual bool showWithTick(const Box &box, const QString &tick) = 0;
    // Returns the chosen path with native separators; an empty string after a cancel.
    virtual QString chooseFile(const FileDialog &dialog) = 0;
    // Opens a folder, a file or a link by the desktop; returns false if that failed. May take some seconds, during
    // which windows are painted and no user input is processed.
    virtual bool openInShell(const QString &target) = 0;
    virtual const Settings &settings() const = 0;
    // The state remembered between starts.
    virtual const DeskState &remembered() const = 0;
    virtual QDateTime now() const = 0;
    // Returns the program's own folder (see programFolder.h), without a separator at its end unless it is a root.
    virtual QString programFolder() const = 0;
    // Processes pending events, at most some hundred times a second; other calls cost almost nothing. Long runs call it
    // for each record.
    virtual void yield() = 0;
    // Ends the process at once.
    virtual void endProcess() = 0;

    // The usual boxes.
    void tell(const QString &text, QStringView title = hintTitle, Icon icon = Icon::Information);
    bool ask(const QString &text, QStringView title, Answer preselected = Answer::Yes, Icon icon = Icon::Information);
    // A question whose answer can discard edits or rows: only its two buttons answer it.
    bool insist(const QString &text, QStringView title, Answer preselected = Answer::Yes);
    // Chooses a file to write, in a dialog of any kind. Adds the suffix to a name without one and asks before
    // an existing file is replaced. Returns an empty path if the file must not be written.
    QString chooseFileToWrite(FileDialog dialog, QStringView suffix);
};

// The boxes of one run over many records. Each has a check box that suppresses the same box for the rest of the run.
class RunBoxes {
public:
    explicit RunBoxes(Host &host)
        : m_host(host) {}

    void tell(const QString &text, QStringView title = hintTitle);

private:
    Host &m_host;
    QStringList m_silenced; // texts that are no longer shown
};

} // namespace platform
