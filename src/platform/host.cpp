#include "platform/host.h"

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

void RunBoxes::tell(const QString &text, QStringView title) {
    if (m_silenced.contains(text))
        return;
    if (m_host.showWithTick({.text = text, .title = title.toString()}, u"以后相同的不再提示"_s))
        m_silenced.append(text);
}

} // namespace platform
