#include "platform/host.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace platform {

void Host::tell(const QString &text, QStringView title, Icon icon) {
    show({.text = text, .title = title.toString(), .icon = icon, .buttons = Buttons::Ok, .preselected = Answer::Ok});
}

bool Host::ask(const QString &text, QStringView title, Answer preselected, Icon icon) {
    return show({.text = text,
                 .title = title.toString(),
                 .icon = icon,
                 .buttons = Buttons::YesNo,
                 .preselected = preselected}) == Answer::Yes;
}

bool Host::insist(const QString &text, QStringView title, Answer preselected) {
    return show({.text = text,
                 .title = title.toString(),
                 .buttons = Buttons::YesNo,
                 .preselected = preselected,
                 .leaving = Leaving::ByButtonsOnly}) == Answer::Yes;
}

QString Host::chooseFileToWrite(FileDialog dialog, QStringView suffix) {
    dialog.kind = FileDialogKind::Save;
    QString path = chooseFile(dialog);
    if (path.isEmpty())
        return path;
    if (!path.sliced(folderOf(path).size()).contains(u'.'))
        path += suffix;
    const bool mayWrite =
        !fileExists(path) || ask(u"文件【"_s + path + u"】已经存在，是否替换？", hintTitle, Answer::No);
    return mayWrite ? path : QString();
}

void RunBoxes::tell(const QString &text, QStringView title) {
    if (m_silenced.contains(text))
        return;
    if (m_host.showWithTick({.text = text, .title = title.toString()}, u"以后相同的不再提示"_s))
        m_silenced.append(text);
}

} // namespace platform
