// Shared by all fuzz targets: the input as a sequence of values, a folder for files, and the report of a violated
// property.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace fuzz {

// Takes bytes from the front of the input; after the last byte every number is 0 and every text is empty.
class Input {
public:
    explicit Input(QByteArrayView bytes)
        : m_left(bytes) {}

    bool atEnd() const { return m_left.isEmpty(); }
    int byte();                                     // 0 to 255
    int below(int limit) { return byte() % limit; } // limit at most 256
    bool flag() { return byte() % 2 == 1; }
    QByteArrayView piece() { return take(byte()); } // a byte gives the length
    QByteArrayView rest() { return take(m_left.size()); }
    QString text();   // a piece, decoded as GBK or as UTF-16 code units
    QString number(); // digits, signs, points, blanks and similar characters
    template <class List>
    auto oneOf(const List &list) {
        return list[size_t(below(int(std::size(list))))];
    }

private:
    QByteArrayView take(qsizetype count);
    QByteArrayView m_left;
};

// Ends the process with the message `what`, which states the property, if the property does not hold.
void require(bool holds, const char *what);

// Returns a folder of this process, with a separator at its end. It is removed when the process exits normally.
QString scratchFolder();
// Writes a file with these bytes into the scratch folder and returns its path.
QString scratchFile(QStringView name, QByteArrayView bytes);

} // namespace fuzz
