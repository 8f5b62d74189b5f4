#include "targets/isbnForms.h"
#include "marc/isbnForms.h"
#include "marc/standardNumber.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

// Returns the text up to the first character that is not part of a number.
QString writtenNumber(QStringView text) {
    const auto isPart = [](QChar c) { return QStringView(u"0123456789xX- ").contains(c); };
    const auto end = std::ranges::find_if_not(text, isPart);
    return text.first(end - text.begin()).trimmed().toString();
}

QStringList formsOf(const QString &digits) {
    const auto of13 = marc::isbnOf13(digits), of10 = marc::isbnOf10(digits);
    QStringList forms{of13.value_or(digits)};
    if (of13 || of10)
        forms.append(of10.value_or(digits));
    for (const QString &form : QStringList(forms)) {
        if (const auto hyphenated = marc::isbnWithHyphens(form))
            forms.append(*hyphenated);
    }
    return forms;
}

} // namespace

QStringList isbnForms(QStringView text) {
    const QStringView trimmed = text.trimmed();
    if (const auto isbn = marc::isbnIn(trimmed))
        return formsOf(isbn->digits);
    if (marc::isbnKey(trimmed) == 0)
        return trimmed.isEmpty() ? QStringList() : QStringList{trimmed.toString()};
    const QString written = writtenNumber(trimmed);
    QStringList forms{QString(written).remove(u'-').remove(u' '), written};
    forms.removeDuplicates();
    return forms;
}

} // namespace targets
