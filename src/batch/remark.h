// The findings about the records of a batch, one remark each, and the list of them as a table source.
#pragma once

#include "platform/result.h"
#include "platform/tableSource.h"
#include "schema/finding.h"
#include <array>
#include <optional>
#include <vector>

namespace batch {

enum class Kind {
    Unchecked, // could not be checked
    Directory,
    Required,
    Repeated,
    Template,
    Isbn,
    Issn,
    InBatch,
    InStore,
    Refused,
    LeftOut, // by the user's choice
    Format,  // violates the schema of the format
    Rule,    // violates a rule across fields
};
inline constexpr size_t kindCount = 13;

QStringView nameOf(Kind kind);

struct Remark {
    int record = -1; // row in the list of records, counted from 0; -1: about the whole batch
    QString title;
    Kind kind = Kind::Unchecked;
    QString tag;      // empty if no field is concerned
    int fieldRow = 0; // row on the field grid, whose row 0 is the heading; 0: none, or the field is missing
    QString text;
    schema::Level level = schema::Level::Error;          // of Format and Rule
    schema::Check check = schema::Check::UndefinedField; // of Format
    qint16 rule = -1;                                    // of Rule: index in the schema
};

// All remarks, in the order they were added until sort(), and the filtered ones, which are shown.
class RemarkList final : public platform::TableSource {
public:
    static constexpr QStringView headings = u"记录|题名|类别|字段|说明";

    int rowCount() const override { return int(m_shown.size()); }
    int columnCount() const override { return 5; }
    QString text(int row, int column) const override;

    void add(Remark remark);
    void clear();
    // Sorts by record, remarks about the whole batch first. Remarks about the same record keep their order.
    void sort();
    // Shows only the remarks of one kind, or all if `kind` is empty.
    void setFilter(std::optional<Kind> kind);

    const Remark &remark(int row) const { return m_all[m_shown.at(size_t(row))]; }
    // The id of a remark does not change with sort() and setFilter(). rowOf() returns -1 if the remark is not shown.
    int idOf(int row) const { return int(m_shown.at(size_t(row))); }
    int rowOf(int id) const;

    const std::vector<Remark> &all() const { return m_all; } // shown or not, in the order they were added
    // Returns the records that have a remark, shown or not, in ascending order.
    std::vector<int> records() const;

    int count() const { return int(m_all.size()); }
    int count(Kind kind) const { return m_counts[size_t(kind)]; }
    // Returns the number of findings: all remarks except those of Kind::Unchecked.
    int found() const { return count() - count(Kind::Unchecked); }

    // Returns the headings and the shown rows with tab-separated cells.
    QString tabSeparated(QStringView lineEnd) const;

private:
    bool isShown(const Remark &remark) const { return !m_filter || remark.kind == *m_filter; }

    std::vector<Remark> m_all;
    std::vector<size_t> m_order; // of m_all
    std::vector<size_t> m_shown;
    std::optional<Kind> m_filter;
    std::array<int, kindCount> m_counts{};
};

// Writes the shown rows as tab-separated UTF-8 text with a byte order mark, by which spreadsheets detect the encoding.
// On failure an existing file is unchanged.
platform::Status saveRemarks(const QString &path, const RemarkList &remarks);

} // namespace batch
