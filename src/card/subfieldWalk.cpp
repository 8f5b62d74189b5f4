#include "card/subfieldWalk.h"
#include "marc/subfields.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace card {

namespace {

// Adds a value to its accumulator. Returns whether to show the message about the missing title.
bool take(QString &part, const Rule &rule, QStringView value) {
    if (rule.manner == Manner::Replace) {
        part = rule.opening + value + rule.closing;
        return false;
    }
    if (!part.isEmpty()) {
        part += rule.joiner + value + rule.closing;
        return false;
    }
    if (rule.manner != Manner::DropFirst && rule.manner != Manner::ComplainAndDrop)
        part = rule.opening + value + rule.closing;
    return rule.manner == Manner::ComplainAndDrop || rule.manner == Manner::ComplainAndStart;
}

} // namespace

Piece walk(QString &field, std::span<const Rule> rules, QString (*finish)(Parts &)) {
    Piece piece;
    if (field.isEmpty()) {
        piece.failed = true;
        return piece;
    }
    field.chop(1);
    Parts parts;
    marc::SubfieldWalk subfields(field);
    while (subfields.next()) {
        if (subfields.negativeLength()) {
            piece.failed = true;
            return piece;
        }
        const auto rule =
            std::ranges::find(rules, subfields.code(), [](const Rule &r) { return QStringView(&r.code, 1); });
        if (rule != rules.end() && take(parts[rule->part], *rule, subfields.value()))
            piece.boxes.append(u"本条记录缺少题名，无法正常显示！"_s);
    }
    field = subfields.rest().toString();
    piece.text = finish(parts);
    return piece;
}

} // namespace card
