#include "targets/isbnList.h"
#include "marc/standardNumber.h"
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

constexpr qsizetype fewestDigits = 9;

class Collector {
public:
    // Returns false if the part is not an ISBN.
    bool take(const QString &part) {
        QString number = part;
        number.remove(QRegularExpression(u"^ISBN[- ]?(1[03])?[:：]?\\s*"_s, QRegularExpression::CaseInsensitiveOption));
        const marc::IsbnKey key = marc::isbnKey(number);
        const bool isOtherNumber = marc::isIsbn13(number) && !number.startsWith(u"978") && !number.startsWith(u"979");
        if (key == 0 || isOtherNumber)
            return false;
        if (m_keys.contains(key)) {
            ++list.repeated;
        } else {
            m_keys.insert(key);
            list.isbns.append(number);
        }
        return true;
    }
    void takeAny(const QString &part) {
        if (std::ranges::count_if(part, [](QChar c) { return c.isDigit(); }) < fewestDigits || take(part))
            return;
        const QStringList words = part.split(u' ', Qt::SkipEmptyParts); // several in a line
        if (words.size() == 1)
            list.ignored.append(part);
        else
            std::ranges::for_each(words, [this](const QString &word) { takeAny(word); });
    }

    IsbnList list;

private:
    QSet<marc::IsbnKey> m_keys;
};

} // namespace

IsbnList isbnsIn(const QString &text) {
    static const QRegularExpression separator(u"[\\r\\n\\t,;，；、\"]+"_s);
    Collector collector;
    for (const QString &part : text.split(separator, Qt::SkipEmptyParts))
        collector.takeAny(part.simplified());
    return collector.list;
}

} // namespace targets
