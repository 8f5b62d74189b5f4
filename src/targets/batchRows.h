// A batch of ISBNs as the rows of a table, and the texts about it in the window.
#pragma once

#include "platform/tableSource.h"
#include "targets/isbnBatch.h"

namespace targets {

class BatchRows final : public platform::TableSource {
public:
    enum Column { IsbnColumn, StateColumn, TargetColumn, TitleColumn, ColumnCount };
    static constexpr QStringView headings = u"ISBN|结果|目标|题名";

    explicit BatchRows(std::shared_ptr<const IsbnBatch> batch)
        : m_batch(std::move(batch)) {}

    int rowCount() const override { return int(m_batch->isbns().size()); }
    int columnCount() const override { return ColumnCount; }
    QString text(int row, int column) const override;

private:
    std::shared_ptr<const IsbnBatch> m_batch;
};

// Returns the number of ISBNs that have no outcome or whose look-up failed.
int leftIn(const IsbnBatch &batch);
// Returns a line about the batch: its progress and its result.
QString batchWords(const IsbnBatch &batch);
// Returns the reason why a batch cannot begin, with advice; empty if it can.
QString whyNoBatch(const QStringList &isbns, const TargetList &chosen);

} // namespace targets
