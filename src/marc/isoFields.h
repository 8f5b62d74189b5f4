// Finds the fields of one record in exchange format in its bytes: by the directory if it is exact, else by the
// terminators and the tags of the directory. Nothing ambiguous is guessed.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <vector>

namespace marc {

class IsoFields {
public:
    // `record` may include its terminator. Returns false if the record is too damaged to use. Line breaks are removed
    // from a wrapped record.
    bool take(QByteArrayView record);

    // About the last record passed to take(). Valid until the next call and as long as the bytes of the record.
    QByteArrayView leader() const { return m_leader; }
    const QByteArray &tags() const { return m_tags; }   // three bytes for each field
    QByteArrayView data() const { return m_data; }      // the fields in directory order, each including its terminator
    bool directoryRight() const { return m_right; }     // all lengths and positions are exact
    bool directoryDamaged() const { return m_damaged; } // tags recovered by lengths and positions

private:
    struct Entry {
        QByteArrayView tag;
        qint64 length = -1; // below 0: not a number
        qint64 start = -1;
        qsizetype piece = 0;
    };

    bool cut(QByteArrayView record);
    void readEntries();
    bool entriesAgree(bool toTheByte);
    bool tagsByPlaces();
    bool takeStretch(QByteArrayView stretch, qsizetype firstPiece, qsizetype count);
    bool takeEntries();

    QByteArrayView m_leader;
    QByteArrayView m_directory;
    QByteArrayView m_body;
    std::vector<QByteArrayView> m_pieces; // of the body, each including its terminator
    std::vector<Entry> m_entries;
    std::vector<size_t> m_byStart; // indexes of m_entries
    QByteArray m_unwrapped;
    QByteArray m_joined;
    QByteArray m_tags;
    QByteArrayView m_data;
    bool m_right = false;
    bool m_damaged = false;
};

} // namespace marc
