// The handbook included in the program: its pages in the order of the contents, the section for a control or window,
// and a text search.
#pragma once

#include <QStringList>
#include <optional>
#include <vector>

namespace handbook {

inline constexpr QStringView firstPage = u"index.md";

struct Page {
    QString file;  // "import.md"
    QString title; // the first heading of the page
};

// Returns the pages of a folder: the first page, the pages it links to in order, then all others by name.
std::vector<Page> pagesIn(const QString &folder);

// A position in the handbook.
struct Place {
    QString file;
    QString heading; // as written in the page; empty: the top of the page
};

// Returns the section for the control with the keyboard focus. `names` contains the names of the control and its
// parents, from the inside out, then those of the windows below. Returns std::nullopt if none of them has a page.
std::optional<Place> placeOf(const QStringList &names);
// Returns every place that placeOf() may return.
std::vector<Place> allPlaces();

// Returns the anchor of a heading as Markdown renderers form it: lower case, without punctuation, "-" for a blank.
QString anchorOf(const QString &heading);

// The occurrences of a text in a page.
struct Hits {
    int count = 0;
    QString excerpt; // the first occurrence, with the text around it
};
Hits hitsIn(const QString &pageText, const QString &words);

} // namespace handbook
