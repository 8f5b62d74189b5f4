// What was found about the records of a batch, one remark a finding, and the list of them as a table shows it.
#pragma once

#include "platform/tableSource.h"
#include <array>
#include <optional>
#include <vector>

namespace batch {

enum class Kind {
    Unchecked, // what could not be looked at
    Directory,
    Required,
    Repeated,
    Template,
    Isbn,
    Issn,
    InBatch,
    InStore,
    Refused,
};
inline constexpr std::size_t kindCount = 10;

QStringView nameOf(Kind kind);

struct Remark {
    int record = -1; // row in the list of records, from 0; -1: of the whole batch
    QString title;
    Kind kind = Kind::Unchecked;
    QString tag;      // empty where no field is meant
    int fieldRow = 0; // row on the field grid, whose heading is row 0; 0: none, or the field is missing
    QString text;
};

// All remarks in the order of arrival until they are sorted, and those among them that are shown.
class RemarkList final : public platform::TableSource {
public:
    static constexpr QStringView headings = u"记录|题名|类别|字段|说明";

    int rowCount() const override { return int(m_shown.size()); }
    int columnCount() const override { return 5; }
    QString text(int row, int column) const override;

    void add(Remark remark);
    void clear();
    // By record, those of the whole batch first; the remarks of one record stay in their order.
    void sort();
    // Shows the remarks of one kind; all of them where none is given.
    void setFilter(std::optional<Kind> kind);

    const Remark &remark(int row) const { return m_all[m_shown.at(std::size_t(row))]; }
    // A remark's own number, which stays through sort() and setFilter(), and its row; -1 where it is not shown.
    int idOf(int row) const { return int(m_shown.at(std::size_t(row))); }
    int rowOf(int id) const;

    int count() const { return int(m_all.size()); }
    int count(Kind kind) const { return m_counts[std::size_t(kind)]; }
    // How many findings there are: what could not be looked at is none.
    int found() const { return count() - count(Kind::Unchecked); }

    // The headings and the rows shown, cells parted by tabs; tabs and line ends in texts are blanks.
    QString tabSeparated(QStringView lineEnd) const;

private:
    bool isShown(const Remark &remark) const { return !m_filter || remark.kind == *m_filter; }

    std::vector<Remark> m_all;
    std::vector<std::size_t> m_order; // of m_all
    std::vector<std::size_t> m_shown;
    std::optional<Kind> m_filter;
    std::array<int, kindCount> m_counts{};
};

} // namespace batch
