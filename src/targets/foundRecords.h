// The records that a search has found, as the rows of a table, in the order in which they arrived. Records of the same
// book are marked: an earlier one in the table, and those that the library has already.
#pragma once

#include "marc/fieldedRecord.h"
#include "marc/standardNumber.h"
#include "platform/tableSource.h"
#include "targets/recordSummary.h"
#include <QHash>
#include <functional>
#include <optional>
#include <vector>

namespace targets {

class FoundRecords final : public platform::TableSource {
public:
    enum Column {
        TickColumn,
        TitleColumn,
        AuthorColumn,
        PublisherColumn,
        YearColumn,
        IsbnColumn,
        TargetColumn,
        SizeColumn, // bytes of the answer
        ErrorColumn,
        WarningColumn,
        KnownColumn,
        ColumnCount
    };
    static constexpr QStringView headings = u"取|题名|责任者|出版社|年|ISBN|目标|长度|错误|警告|重复";

    // The numbers of findings of a validation.
    struct Faults {
        int errors = 0;
        int warnings = 0;
    };
    // Returns std::nullopt for a record that cannot be validated: there is no schema, or it is of another format.
    using Proof = std::function<std::optional<Faults>(const marc::FieldedRecord &)>;

    explicit FoundRecords(Proof proof = {})
        : m_proof(std::move(proof)) {}

    void add(const QString &target, qsizetype bytes, marc::FieldedRecord record);
    // Marks a record that the library has; `words` name the place.
    void markHeld(int row, const QString &words);
    void forgetHeld(); // removes these marks

    const marc::FieldedRecord &record(int row) const { return m_rows[size_t(row)].record; }
    bool isTicked(int row) const { return m_rows[size_t(row)].ticked; }
    void tick(int row, bool ticked) { m_rows[size_t(row)].ticked = ticked; }
    void tickAll(bool ticked);
    int ticked() const;

    // Returns the ticked records, or the one in row `current` if none is ticked and there is such a row.
    std::vector<marc::FieldedRecord> wanted(int current) const;
    // All records, in the order of the rows.
    std::vector<marc::FieldedRecord> records() const;

    int rowCount() const override { return int(m_rows.size()); }
    int columnCount() const override { return ColumnCount; }
    QString text(int row, int column) const override;

private:
    struct Row {
        marc::FieldedRecord record;
        Summary summary;
        QString target;
        qsizetype bytes = 0;
        std::optional<Faults> faults;
        int sameAs = -1; // an earlier row with the same book; -1: none
        QStringList held;
        bool ticked = false;
    };
    QString known(const Row &row) const;

    Proof m_proof;
    std::vector<Row> m_rows;
    QHash<marc::IsbnKey, int> m_byIsbn; // the first row with it
    QHash<QString, int> m_byTitle;      // of records without ISBN: title, author and year
};

} // namespace targets
