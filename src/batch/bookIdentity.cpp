#include "batch/bookIdentity.h"
#include "platform/numbers.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

// Returns the first element that is not empty, as an import does, or std::nullopt.
std::optional<qsizetype> firstFilled(const marc::FieldRows &rows, QStringView identifier) {
    const std::vector<qsizetype> elements = subfieldsOf(rows, u"200", identifier);
    const auto filled =
        std::ranges::find_if(elements, [&rows](qsizetype element) { return !rows[element].value.isEmpty(); });
    return filled == elements.end() ? std::nullopt : std::optional(*filled);
}

} // namespace

QString comparedTitle(const QString &title) {
    return platform::trimBlanks(title.left(titleKept));
}

QString comparedAuthor(const QString &author) {
    return platform::trimBlanks(author.left(authorKept));
}

std::vector<qsizetype> subfieldsOf(const marc::FieldRows &rows, QStringView tag, QStringView identifier) {
    std::vector<qsizetype> elements;
    bool inField = false;
    for (qsizetype at = 0; at < rows.size(); ++at) {
        const QString &found = rows[at].identifier;
        if (!found.startsWith(u'$'))
            inField = found == tag;
        else if (inField && found == identifier)
            elements.push_back(at);
    }
    return elements;
}

BookIdentity identityOf(const marc::FieldRows &rows) {
    BookIdentity identity;
    for (const qsizetype element : subfieldsOf(rows, u"010", u"$a")) {
        const marc::IsbnKey key = marc::isbnKey(rows[element].value);
        if (!key || std::ranges::find(identity.isbns, key) != identity.isbns.end())
            continue;
        if (identity.isbns.empty())
            identity.fieldRow = gridRow(element);
        identity.isbns.push_back(key);
    }
    if (const auto author = firstFilled(rows, u"$f"))
        identity.author = comparedAuthor(rows[*author].value);
    if (const auto title = firstFilled(rows, u"$a")) {
        identity.title = comparedTitle(rows[*title].value);
        if (identity.isbns.empty())
            identity.fieldRow = gridRow(*title);
    }
    return identity;
}

} // namespace batch
