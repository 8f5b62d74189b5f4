// The fields of one record in the exchange layout, found in its bytes: by the directory where that is right to the
// byte, else by the terminators with the directory's tags. What cannot be told for certain is not guessed.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <vector>

namespace tidy {

class IsoFields {
public:
    // `record` with or without its terminator. False where it is damaged beyond use. Line breaks in it are left out
    // where it is wrapped.
    bool take(QByteArrayView record);

    // Of the record taken, valid as long as its bytes and until the next one.
    QByteArrayView leader() const { return m_leader; }
    const QByteArray &tags() const { return m_tags; }   // three bytes of each field
    QByteArrayView data() const { return m_data; }      // the fields in directory order, each with its terminator
    bool directoryRight() const { return m_right; }     // to the byte
    bool directoryDamaged() const { return m_damaged; } // tags were found again by lengths and places

private:
    struct Entry {
        QByteArrayView tag;
        qint64 length = -1; // below 0: no number
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
    std::vector<QByteArrayView> m_pieces; // of the body, each with its terminator
    std::vector<Entry> m_entries;
    QByteArray m_unwrapped;
    QByteArray m_joined;
    QByteArray m_tags;
    QByteArrayView m_data;
    bool m_right = false;
    bool m_damaged = false;
};

} // namespace tidy
