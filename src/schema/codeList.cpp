#include "schema/codeList.h"

namespace schema {

void CodeList::add(const QString &code, const QString &label, bool deprecated) {
    m_labels.insert(code, label);
    if (code.size() == 1 && code[0].unicode() < asciiCount)
        m_single.set(code[0].unicode());
    else
        m_others.insert(code);
    if (deprecated)
        m_deprecated.insert(code);
    if (m_length < 0)
        m_length = code.size();
    else if (m_length != code.size())
        m_length = 0;
}

bool CodeList::contains(QStringView code) const {
    if (code.size() == 1 && code[0].unicode() < asciiCount)
        return m_single.test(code[0].unicode());
    return !m_others.isEmpty() && m_others.contains(code.toString());
}

} // namespace schema
