#include "platform/host.h"

namespace platform {

void Host::tell(const QString &text, const QString &title, Icon icon) {
    show({.text = text, .title = title, .icon = icon, .buttons = Buttons::Ok, .preselected = Answer::Ok});
}

bool Host::ask(const QString &text, const QString &title, Answer preselected, Icon icon) {
    return show({.text = text, .title = title, .icon = icon, .buttons = Buttons::YesNo, .preselected = preselected}) ==
           Answer::Yes;
}

} // namespace platform
