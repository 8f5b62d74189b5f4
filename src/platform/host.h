// The operations of the machine that event procedures need. Windows know only this; the one implementation that shows
// real boxes and dialogs stands in platform/desktop/, and tests hand in a scripted one.
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
// How a box may be left beside its buttons: Esc and the close cross may stand for No, or leave it standing.
enum class Leaving { Freely, ByButtonsOnly };

inline constexpr QStringView programTitle = u"Tarvex图书馆管理系统";
inline constexpr QStringView hintTitle = u"操作提示"; // of most boxes

// One message box. An empty title means the program's own title.
struct Box {
    QString text;
    QString title;
    Icon icon = Icon::Information;
    Buttons buttons = Buttons::Ok;
    Answer preselected = Answer::Yes; // of YesNo boxes
    Leaving leaving = Leaving::Freely;
};

enum class FileDialogKind { Open, Save }; // Save: a name that does not exist yet may be given, and nothing is asked

struct FileDialog {
    QString title;
    QString filter; // "label(*.iso)|*.iso|label(*.*)|*.*"; the first one is selected
    FileDialogKind kind = FileDialogKind::Open;
    QString start = {}; // a path to begin at; where it has no folder, the dialog begins at the one chosen from last
};

class Host {
public:
    virtual ~Host() = default;

    // Shows the box modally over the active window; where it may be left freely, Esc and the close cross answer No if
    // there is one.
    virtual Answer show(const Box &box) = 0;
    // Shows a box with one button and a check box under the text; whether it was checked.
    virtual bool showWithTick(const Box &box, const QString &tick) = 0;
    // The chosen path in the machine's manner; empty after a cancel.
    virtual QString chooseFile(const FileDialog &dialog) = 0;
    // Hands a folder, a file or a link to the desktop; false where that failed. May take some seconds, in which windows
    // are painted and no keys and clicks come in.
    virtual bool openInShell(const QString &target) = 0;
    virtual const Settings &settings() const = 0;
    // What may be remembered between starts.
    virtual const DeskState &remembered() const = 0;
    virtual QDateTime now() const = 0;
    // The program's own folder (see programFolder.h), with no separator at its end but for a root.
    virtual QString programFolder() const = 0;
    // Lets waiting events in, within a fraction of a millisecond; costs next to nothing otherwise. For each record of a
    // long run.
    virtual void yield() = 0;
    // Ends the process at once.
    virtual void endProcess() = 0;

    // The common boxes.
    void tell(const QString &text, QStringView title = hintTitle, Icon icon = Icon::Information);
    bool ask(const QString &text, QStringView title, Answer preselected = Answer::Yes, Icon icon = Icon::Information);
    // A question on which edits or rows hang: only its two buttons answer it.
    bool insist(const QString &text, QStringView title, Answer preselected = Answer::Yes);
};

// The boxes of one run over many records. Each has a check box by which the same box is not shown again in this run.
class RunBoxes {
public:
    explicit RunBoxes(Host &host)
        : m_host(host) {}

    void tell(const QString &text, QStringView title = hintTitle);

private:
    Host &m_host;
    QStringList m_silenced; // texts
};

} // namespace platform
