#include "marc/subfields.h"
#include "marc/isoLayout.h"

namespace marc {

bool SubfieldWalk::next() {
    const qsizetype at = m_rest.indexOf(QChar(subfieldDelimiter));
    if (at < 0)
        return false;
    const qsizetype following = m_rest.indexOf(QChar(subfieldDelimiter), at + 1);
    const bool last = at == m_rest.size() - 1;
    m_negativeLength = following == at + 1 || (last && m_first);
    m_rest = m_rest.sliced(at + 1);
    m_code = m_rest.first(last ? 0 : 1);
    m_value = last || m_negativeLength ? QStringView()
              : following < 0          ? m_rest.sliced(1)
                                       : m_rest.sliced(1, following - at - 2);
    m_first = false;
    return true;
}

} // namespace marc
