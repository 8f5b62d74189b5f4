// Compiles regular expressions that come from the user or from a file. Matching takes bounded time for every expression
// and text: a match that needs too many steps is stopped, and QRegularExpressionMatch::isValid() returns false.
#pragma once

#include "platform/result.h"
#include <QRegularExpression>

namespace platform {

// Fails with the reason and the position, counted from 1, if the expression is empty, too long or malformed. "\u4E00"
// and "\u{4E00}" are accepted as in ECMAScript.
Result<QRegularExpression> boundedExpression(const QString &expression,
                                             QRegularExpression::PatternOptions options = {});

} // namespace platform
