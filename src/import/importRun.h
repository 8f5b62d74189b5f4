// What an import run counts and says, apart from the window that shows it and the database that takes the rows.
#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace importing {

// 100 × done / total with two decimals, a half rounded up, and "%": "0.00%" to "100.00%". `total` is above 0.
QString percentage(qint64 done, qint64 total);

class ImportRun {
public:
    explicit ImportRun(int total)
        : m_total(total) {}

    // Whether a record is left to take.
    bool hasNext() const { return m_taken < m_total; }
    // The list row of the next record, from 0.
    int nextRow() const { return m_taken; }
    // Takes the next record; `daoru` says whether it went in. It is not called for an empty one: the result before it
    // then stands, so that an empty row behind a record that went in counts as one more.
    void take(const QString &record, const std::function<bool(const QString &)> &daoru);

    int taken() const { return m_taken; }
    int succeeded() const { return m_succeeded; }
    bool lastWentIn() const { return m_lastWentIn; } // or, for an empty record, the one before it
    QString countText() const;                       // says 0 after a failure, without touching the count
    QString percentText() const { return percentage(m_taken, m_total); }
    QString closingText() const;

private:
    int m_total;
    int m_taken = 0;
    int m_succeeded = 0;
    bool m_lastWentIn = false;
};

} // namespace importing
