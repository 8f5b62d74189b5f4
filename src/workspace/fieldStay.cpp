#include "workspace/fieldStay.h"
#include "workspace/fieldEditing.h"
#include <algorithm>

namespace workspace {

namespace {

const QString &identifierOf(const marc::FieldRows &rows, int row) {
    return rows[row - 1].identifier;
}

} // namespace

FieldStay::Spot FieldStay::spotOf(const marc::FieldRows &rows, int row) {
    const int head = fieldOf(rows, row).value_or(1);
    Spot spot{.tag = identifierOf(rows, head)};
    for (int above = 1; above < head; ++above)
        spot.field += beginsField(rows[above - 1]) && identifierOf(rows, above) == spot.tag ? 1 : 0;
    if (head == row)
        return spot;
    spot.subfield = identifierOf(rows, row);
    for (int above = head + 1; above < row; ++above)
        spot.count += identifierOf(rows, above) == spot.subfield ? 1 : 0;
    return spot;
}

void FieldStay::leave(const marc::FieldRows &rows, int row) {
    if (row < 1 || row > rows.size())
        return;
    if (const Spot spot = spotOf(rows, row); spot != m_entered)
        m_wanted = spot;
}

// Returns the field's row, or that of the last field with its tag, or of the next larger tag, or the last field.
int FieldStay::fieldRow(const marc::FieldRows &rows) {
    int found = 0, larger = 0, last = 1, left = m_wanted->field;
    for (int row = 1; row <= rows.size(); ++row) {
        if (!beginsField(rows[row - 1]))
            continue;
        last = row;
        const QString &tag = identifierOf(rows, row);
        if (tag == m_wanted->tag && (found == 0 || left-- > 0))
            found = row;
        if (larger == 0 && tag > m_wanted->tag)
            larger = row;
    }
    m_missingTag = found == 0 ? m_wanted->tag : QString();
    return found > 0 ? found : larger > 0 ? larger : last;
}

int FieldStay::nearest(const marc::FieldRows &rows) {
    const int head = fieldRow(rows);
    int found = head, left = m_wanted->count;
    if (!m_missingTag.isEmpty() || m_wanted->subfield.isEmpty())
        return head;
    for (int row = head + 1; row <= rows.size() && !beginsField(rows[row - 1]); ++row)
        if (identifierOf(rows, row) == m_wanted->subfield && (found == head || left-- > 0))
            found = row;
    return found;
}

int FieldStay::enter(const marc::FieldRows &rows) {
    m_missingTag.clear();
    if (!m_wanted || rows.isEmpty())
        return 1;
    const int row = nearest(rows);
    m_entered = spotOf(rows, row);
    return row;
}

} // namespace workspace
