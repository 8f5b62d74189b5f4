// The fuzz targets. Each accepts any bytes and ends the process if the program behaves incorrectly. Each has a corpus
// of the same name.
#pragma once

#include <QByteArrayView>

namespace fuzz {

void record(QByteArrayView bytes);        // a record file: reader, title, rows, writer, card
void mapping(QByteArrayView bytes);       // a record: row of the database, statement, dialects
void configuration(QByteArrayView bytes); // configuration files, descriptions, pick lists, proofs
void texts(QByteArrayView bytes);         // code page, numbers, connection text
void query(QByteArrayView bytes);         // query builder and its statements
void maskedEdit(QByteArrayView bytes);    // the box with a mask
void splitMerge(QByteArrayView bytes);    // record files through split and merge
void tidy(QByteArrayView bytes);          // any file tidied into each form
void drafts(QByteArrayView bytes);        // a file of drafts
void schema(QByteArrayView bytes);        // a schema, its patterns and rules, on a record
void answers(QByteArrayView bytes);       // an answer of another catalogue, a list of targets
void tasks(QByteArrayView bytes);         // a task on a record

} // namespace fuzz
