// The icons of the program, one family of lines, drawn in the colours of the light scheme and painted in those of the
// current scheme.
#pragma once

#include <QIcon>
#include <QStyle>
#include <optional>

namespace widgets {

// Returns the icon of data/pictures/lines/`name`.svg.
QIcon lineIcon(const QString &name);
// Returns the icon that replaces an icon of the toolkit, such as that of a message box, if the family has one.
std::optional<QIcon> lineIcon(QStyle::StandardPixmap standard);

} // namespace widgets
