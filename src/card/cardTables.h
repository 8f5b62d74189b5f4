// Defines which field fills which slot of the card, and how. The rows are processed in order, each with one pass over
// the whole directory.
#pragma once

#include "card/kapian.h"
#include "card/zdxsKaPian.h"
#include <array>

namespace card {

enum class Slot {
    s200, // the slots up to s010 are in the order of the card
    s205,
    s206,
    s207,
    s208,
    s230,
    s210,
    s215,
    s225,
    notes,
    s010,
    trace2, // authors
    trace3, // subjects
    trace4, // classification
    count,
};

using Format = Piece (*)(QString &field);

inline Piece textA(QString &field) {
    return fieldTextA(field);
}
inline Piece firstOfTextA(QString &field) {
    Piece piece = fieldTextA(field);
    piece.text = piece.text.first(1) + u"···";
    return piece;
}

// How a field changes its slot: to front + text + back if the slot is empty, else by appending joiner + text + back.
struct SlotRow {
    QStringView tag;
    Slot slot;
    Format format;
    QStringView front = {};
    QStringView joiner = {};
    QStringView back = {};
    bool replaces = false; // always starts the slot again: the last field wins
};

constexpr SlotRow note(QStringView tag, Format format = textA, bool replaces = false) {
    return {tag, Slot::notes, format, u"\r\n\r\n  ", u"·—", u"", replaces};
}

inline constexpr auto slotRows = std::to_array<SlotRow>({
    {u"010", Slot::s010, Kapian010, u"", u"\r\n  "},
    {u"200", Slot::s200, Kapian200, u"", u"", u"", true},
    {u"205", Slot::s205, Kapian205, u"", u"；"},
    {u"206", Slot::s206, Kapian206, u"", u"；"},
    {u"207", Slot::s207, Kapian207, u"", u"；"},
    {u"208", Slot::s208, Kapian208, u"", u"", u"", true},
    {u"230", Slot::s230, textA, u"·—", u"；"},
    {u"210", Slot::s210, Kapian210, u"", u"", u"", true},
    {u"215", Slot::s215, Kapian215, u"", u"\r\n  "},
    {u"225", Slot::s225, Kapian225, u"·—（", u"·—（", u"）"},
    note(u"300"),
    note(u"301"),
    note(u"302"),
    note(u"303"),
    note(u"304"),
    note(u"305"),
    note(u"306"),
    note(u"307"),
    note(u"308"),
    note(u"310"),
    note(u"312"),
    note(u"313"),
    note(u"314"),
    note(u"315"),
    note(u"316"),
    note(u"317"),
    note(u"320"),
    note(u"322"),
    note(u"323"),
    // Required behaviour: a 324 discards the notes before it.
    note(u"324", textA, true),
    note(u"325"),
    note(u"327", Kapian327),
    note(u"328"),
    note(u"330"),
    note(u"332"),
    note(u"333"),
    note(u"336"),
    note(u"337"),
});

// The numbered lists. A field whose test text is empty adds no item. Test and item are made one after the other from
// the same variable. Kapian686 consumes it for the test, so a filled 686 adds an empty item.
struct ListRow {
    QStringView tag;
    Slot slot;
    Format test = textA;
    Format item = textA;
};

inline constexpr auto listRows = std::to_array<ListRow>({
    {u"600", Slot::trace3},
    {u"601", Slot::trace3},
    {u"602", Slot::trace3},
    {u"605", Slot::trace3},
    {u"606", Slot::trace3},
    {u"607", Slot::trace3},
    {u"608", Slot::trace3},
    {u"610", Slot::trace3},
    {u"615", Slot::trace3},
    {u"700", Slot::trace2, textA, firstOfTextA},
    {u"701", Slot::trace2, textA, firstOfTextA},
    {u"702", Slot::trace2, textA, firstOfTextA},
    {u"710", Slot::trace2, textA, firstOfTextA},
    {u"711", Slot::trace2, textA, firstOfTextA},
    {u"712", Slot::trace2, textA, firstOfTextA},
    {u"720", Slot::trace2, textA, firstOfTextA},
    {u"721", Slot::trace2, textA, firstOfTextA},
    {u"722", Slot::trace2, textA, firstOfTextA},
    {u"675", Slot::trace4},
    {u"676", Slot::trace4},
    {u"680", Slot::trace4},
    {u"686", Slot::trace4, Kapian686, Kapian686},
    {u"690", Slot::trace4},
    {u"692", Slot::trace4},
});

} // namespace card
