// The forms of an ISBN: with hyphens between its elements, plain, of 10 and of 13 digits. The places of the hyphens
// follow from the registrant ranges of the International ISBN Agency; see data/config/isbn-ranges.txt.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace marc {

// An ISBN with a correct check digit at the start of a text, which may begin with "ISBN" and end with words such as
// "（精装）".
struct Isbn {
    QString digits;   // 10 or 13, with an X as the last of 10
    bool hasHyphens;  // as it was written
    QStringView rest; // of the text, after the ISBN
};
std::optional<Isbn> isbnIn(QStringView text);

// Each takes the 10 or 13 digits of a correct ISBN. The first returns std::nullopt if the ISBN is in no range; the
// others if it has that form already or does not have one.
std::optional<QString> isbnWithHyphens(const QString &digits);
std::optional<QString> isbnOf10(const QString &digits);
std::optional<QString> isbnOf13(const QString &digits);

} // namespace marc
