// The fuzz targets. Each takes any bytes, returns, and ends the process where the program is wrong; each has a corpus
// of its name.
#pragma once

#include <QByteArrayView>

namespace fuzz {

void record(QByteArrayView bytes);        // a record file: reader, title, rows, writer, card
void mapping(QByteArrayView bytes);       // a record: row of the store, statement, dialects
void configuration(QByteArrayView bytes); // configuration files, descriptions, pick lists, proofs
void texts(QByteArrayView bytes);         // code page, numbers, connection text
void query(QByteArrayView bytes);         // query builder and its statements
void maskedEdit(QByteArrayView bytes);    // the box with a mask
void splitMerge(QByteArrayView bytes);    // record files through both file tools
void tidy(QByteArrayView bytes);          // any file made anew in each form
void drafts(QByteArrayView bytes);        // a file of drafts

} // namespace fuzz
