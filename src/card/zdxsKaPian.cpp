#include "card/zdxsKaPian.h"
#include <array>

namespace card {

namespace {

constexpr auto rules = std::to_array<Rule>({{u'a', u" 、"}});

} // namespace

Piece fieldTextA(QString field) {
    if (field.isEmpty())
        return {};
    return walk(field, rules, [](Parts &parts) { return parts[0]; });
}

} // namespace card
