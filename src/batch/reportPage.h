// The report as a page for browsers and for printing.
#pragma once

#include "batch/recordDraw.h"
#include "batch/reportTexts.h"

namespace batch {

struct PageDress {
    QString font;                           // as in CSS; empty: the font of the document, which is as wide as its paper
    QString ink, secondInk, hairline, tint; // colours such as "#1f2933"
    std::array<QString, schema::levelCount> levels;
    QString chart;                      // address of the picture; empty: no chart
    int chartWidth = 0;                 // in pixels
    qsizetype mostNumbers = allNumbers; // record numbers for each rule
};

// Returns a page in the subset of HTML that both browsers and QTextDocument show, with texts escaped.
QString reportPage(const BatchReport &report, const RecordDraw &draw, const PageDress &dress);

} // namespace batch
