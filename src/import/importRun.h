// The counts and texts of an import run, independent of the window that shows them and of the database.
#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace importing {

// Returns 100 × done / total with two decimals, a half rounded up, and "%": "0.00%" to "100.00%". `total` must be above
// 0.
QString percentage(qint64 done, qint64 total);

class ImportRun {
public:
    explicit ImportRun(int total)
        : m_total(total) {}

    // Returns whether a record is left to take.
    bool hasNext() const { return m_taken < m_total; }
    // Returns the list row of the next record, from 0.
    int nextRow() const { return m_taken; }
    // Takes the next record; `daoru` imports it and returns whether it succeeded. `daoru` is not called for an empty
    // record: the result of the previous record is used again, so that an empty row after a successful record counts as
    // one more.
    void take(const QString &record, const std::function<bool(const QString &)> &daoru);

    // Skips the next record, which the user has excluded; lastWentIn() stays unchanged.
    void leaveOut();

    int taken() const { return m_taken; }
    int succeeded() const { return m_succeeded; }
    bool lastWentIn() const { return m_lastWentIn; } // for an empty record, the result of the previous one
    QString countText() const;                       // shows 0 after a failure, without changing the count
    QString percentText() const { return percentage(m_taken, m_total); }
    QString closingText() const;
    QString leftOutText() const; // empty if no record was left out

private:
    int m_total;
    int m_taken = 0;
    int m_succeeded = 0;
    int m_leftOut = 0;
    bool m_lastWentIn = false;
};

} // namespace importing
