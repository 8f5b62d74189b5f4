// Create the two links of a notice: the maker's web address, with a message if it cannot be opened, and the maker's
// mail address. The window shows the wait cursor while a link is opened.
#pragma once

#include "platform/host.h"
#include "widgets/clickLabel.h"

namespace app {

widgets::ClickLabel *webLink(const QString &objectName, platform::Host &host, QWidget *window);
widgets::ClickLabel *mailLink(const QString &objectName, platform::Host &host, QWidget *window);

} // namespace app
