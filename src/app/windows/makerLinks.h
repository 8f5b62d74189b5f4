// The two links of a notice, made and wired: the maker's web address, with a box when it cannot be opened, and the
// maker's mail address. The wait cursor is on the window meanwhile.
#pragma once

#include "platform/host.h"
#include "widgets/clickLabel.h"

namespace app {

widgets::ClickLabel *webLink(const QString &objectName, platform::Host &host, QWidget *window);
widgets::ClickLabel *mailLink(const QString &objectName, platform::Host &host, QWidget *window);

} // namespace app
