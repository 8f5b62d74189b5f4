// Compares a fetched record with the current one, field by field, and takes fields of it into the current one. Both are
// rows of the field grid; rows that are not replaced stay unchanged, with their descriptions. The leader, 001 and 005,
// which identify the record in this library, are neither compared nor taken.
#pragma once

#include "marc/fieldRows.h"
#include "marc/fieldedRecord.h"
#include "platform/tableSource.h"
#include <optional>
#include <vector>

namespace targets {

// The rows of one field.
struct FieldSpan {
    qsizetype first = 0;
    qsizetype count = 0;
};

struct ComparedField {
    enum class State { Same, Different, OnlyCurrent, OnlyFetched };
    QString tag;
    QString currentText; // as the grid shows it, "1#$a红楼梦$f曹雪芹"; empty if the record has no such field
    QString fetchedText;
    std::optional<FieldSpan> current;
    std::optional<FieldSpan> fetched;

    State state() const {
        if (!current || !fetched)
            return current ? State::OnlyCurrent : State::OnlyFetched;
        return currentText == fetchedText ? State::Same : State::Different;
    }
};

// Returns the fields of both records by tag and, among those of one tag, in their order. Equal fields of a tag are
// paired first, then the others in their order.
std::vector<ComparedField> compareFields(const marc::FieldRows &current, const marc::FieldRows &fetched);

// Returns the current rows with the fetched field in the place of its own, or added after the last field whose tag is
// not greater. A field that the fetched record does not have changes nothing.
marc::FieldRows withField(const marc::FieldRows &current, const marc::FieldRows &fetched, const ComparedField &field);

// Returns the fetched rows with the leader and the fields 001 and 005 of the current ones.
marc::FieldRows withAllFields(const marc::FieldRows &current, const marc::FieldRows &fetched);

// Returns the rows of a record for the field grid, the leader first, without descriptions; characters that GBK lacks
// become "?". std::nullopt if the record does not fit the format.
std::optional<marc::FieldRows> rowsOf(const marc::FieldedRecord &record);

// A comparison as a table.
class ComparisonRows final : public platform::TableSource {
public:
    enum Column { TagColumn, StateColumn, CurrentColumn, FetchedColumn, ColumnCount };
    static constexpr QStringView headings = u"字段|比较|当前记录|取来的记录";

    explicit ComparisonRows(std::vector<ComparedField> fields)
        : m_fields(std::move(fields)) {}

    const ComparedField &field(int row) const { return m_fields[size_t(row)]; }
    int different() const; // fields that can be taken and change something
    int rowCount() const override { return int(m_fields.size()); }
    int columnCount() const override { return ColumnCount; }
    QString text(int row, int column) const override;

private:
    std::vector<ComparedField> m_fields;
};

} // namespace targets
