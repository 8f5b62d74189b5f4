// What every fuzz target shares: its input taken apart, a folder for files, and the one way to say that a property does
// not hold.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace fuzz {

// Takes the bytes from the front; when they are used up, every number is 0 and every text empty.
class Input {
public:
    explicit Input(QByteArrayView bytes)
        : m_left(bytes) {}

    bool atEnd() const { return m_left.isEmpty(); }
    int byte();                                     // 0 to 255
    int below(int limit) { return byte() % limit; } // limit at most 256
    bool flag() { return byte() % 2 == 1; }
    QByteArrayView piece() { return take(byte()); } // a byte tells how long
    QByteArrayView rest() { return take(m_left.size()); }
    QString text();   // a piece, as GBK or as UTF-16 units
    QString number(); // digits, signs, points, blanks and what is near them
    template <class List>
    auto oneOf(const List &list) {
        return list[size_t(below(int(std::size(list))))];
    }

private:
    QByteArrayView take(qsizetype count);
    QByteArrayView m_left;
};

// `what` says what should have held.
void require(bool holds, const char *what);

// A folder of this process, with a separator at its end; gone when the process ends in peace.
QString scratchFolder();
// The path of a file in it with these bytes.
QString scratchFile(QStringView name, QByteArrayView bytes);

} // namespace fuzz
