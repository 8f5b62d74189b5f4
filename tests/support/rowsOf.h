// Builds the rows of the field grid, so that a test states only what it checks.
#pragma once

#include "marc/fieldRows.h"
#include "support/qtPrinters.h"

// Builds rows from "200 $a=题 $f= 010": an identifier and, after "=", its value; "_" represents a blank.
inline marc::FieldRows rowsOf(const QString &text) {
    marc::FieldRows rows;
    for (QString word : text.split(u' ', Qt::SkipEmptyParts)) {
        word.replace(u'_', u' ');
        rows.append({.identifier = word.section(u'=', 0, 0), .value = word.section(u'=', 1)});
    }
    return rows;
}
