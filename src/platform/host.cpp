#include "platform/host.h"

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

} // namespace platform
