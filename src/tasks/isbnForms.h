// The forms of an ISBN: with hyphens between its elements, plain, of 10 and of 13 digits. A text may begin with "ISBN"
// and end with words such as "（精装）", which stay.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace tasks {

// Each returns std::nullopt if the text does not begin with an ISBN with a right check digit. The first also does so if
// the ranges of its group are not known, the third if the ISBN has 10 digits already or no such form.
std::optional<QString> hyphenatedIsbn(QStringView text);
std::optional<QString> plainIsbn(QStringView text);
std::optional<QString> isbnOf10(QStringView text);
std::optional<QString> isbnOf13(QStringView text);

} // namespace tasks
