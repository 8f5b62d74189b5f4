// The handbook that the program carries: its pages in the order of the contents, which of them tells of what is in
// front, and where a text stands in them.
#pragma once

#include <QStringList>
#include <optional>
#include <vector>

namespace handbook {

inline constexpr QStringView firstPage = u"index.md";

struct Page {
    QString file;  // "import.md"
    QString title; // its first heading
};

// The pages of a folder: the first page, then as that one lists them, then those that it has forgotten, by name.
std::vector<Page> pagesIn(const QString &folder);

// Where to open the handbook.
struct Place {
    QString file;
    QString heading; // as it is in the page; empty: the top
};

// The section about what is in front, given the names of the control with the keyboard and of all that it stands
// in, from inside to outside and on to the windows behind; nothing where none of them has a page.
std::optional<Place> placeOf(const QStringList &names);
// Every place that placeOf() may give.
std::vector<Place> allPlaces();

// What a link to a heading names it by, as Markdown's readers make it: small letters, without signs, "-" for blanks.
QString anchorOf(const QString &heading);

// Where the text stands in a page.
struct Hits {
    int count = 0;
    QString excerpt; // the first place, with what is around it
};
Hits hitsIn(const QString &pageText, const QString &words);

} // namespace handbook
