// Generates any number of well-formed book records of realistic size (about 700 to 900 bytes) with valid ISBNs. The
// same seed gives the same bytes on every machine.
#pragma once

#include "tools/recordAssembler.h"
#include <QByteArray>
#include <vector>

namespace tools {

// xorshift64*, implemented here because the distributions of the standard library differ between platforms.
class RandomNumbers {
public:
    explicit RandomNumbers(quint64 seed);
    quint32 below(quint32 limit); // 0 to limit - 1
    bool oneIn(quint32 count) { return below(count) == 0; }

private:
    quint64 m_state;
};

class RecordGenerator {
public:
    explicit RecordGenerator(quint64 seed = 1);

    // Returns the next record in code page 936, with its terminator, without a line end. Valid until the next call.
    const QByteArray &next();

private:
    struct Book;

    Book drawBook();
    int drawPerson();
    void addControlFields(const Book &book);
    void addCodedFields(const Book &book);
    void addTitle(const Book &book);
    void addPublication(const Book &book);
    void addNotes(const Book &book);
    void addSubjects(const Book &book);
    void addNames(const Book &book);
    void addOrigin(const Book &book);

    void open(QByteArrayView tag, QByteArrayView indicators);
    void subfield(char code, QByteArrayView value);
    void subfield(char code, QByteArrayView value, QByteArrayView more);
    void number(qsizetype value, int width);
    void close() { m_assembler.closeField(); }

    RandomNumbers m_random;
    RecordAssembler m_assembler;
    qsizetype m_serial = 0;
};

// Returns the check character for the nine digits of an ISBN-10.
char isbnCheckCharacter(QByteArrayView nineDigits);

} // namespace tools
