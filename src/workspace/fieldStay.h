// Keeps the place in the field grid while the user steps through the records: the next record opens at the same field,
// counted among the fields with its tag, and at the same subfield. A record without that field does not lose the place:
// the record after it opens there again, unless the user has chosen another row meanwhile.
#pragma once

#include "marc/fieldRows.h"
#include <optional>

namespace workspace {

class FieldStay {
public:
    // Call before the record is left, with its current row, numbered as on the grid.
    void leave(const marc::FieldRows &rows, int row);
    // Returns the row of the next record to make current: the one nearest to the wanted place.
    int enter(const marc::FieldRows &rows);
    // Returns the tag of the field that the record of the last enter() does not have, or an empty text.
    const QString &missingTag() const { return m_missingTag; }

private:
    // Both counts begin at 0. An empty subfield means the row that begins the field.
    struct Spot {
        QString tag;
        int field = 0;
        QString subfield;
        int count = 0;
        friend bool operator==(const Spot &, const Spot &) = default;
    };
    static Spot spotOf(const marc::FieldRows &rows, int row);
    int fieldRow(const marc::FieldRows &rows);
    int nearest(const marc::FieldRows &rows);

    std::optional<Spot> m_wanted;
    std::optional<Spot> m_entered; // the place after the last enter()
    QString m_missingTag;
};

} // namespace workspace
