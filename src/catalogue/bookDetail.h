// The contents of the detail window: the labels of a catalogue row, and the copies with their loans.
#pragma once

#include "database/resultTable.h"
#include <array>
#include <memory>
#include <utility>

namespace catalogue {

inline constexpr size_t detailLabels = 13;
inline constexpr size_t titleLabel = 2;
inline constexpr size_t copyCountLabel = 12; // the number of copies
extern const std::array<QStringView, detailLabels> detailCaptions;

// Returns the values of the labels from the first row of the result, which must exist, in the order of the captions. A
// column that is missing or NULL gives an empty text.
std::array<QString, detailLabels> detailValues(const database::ResultTable &book);

// The copies as shown on the grid: column 5 as a word.
class CopiesTable final : public platform::TableSource {
public:
    explicit CopiesTable(std::shared_ptr<const database::ResultTable> copies)
        : m_copies(std::move(copies)) {}
    int rowCount() const override { return m_copies->rowCount(); }
    int columnCount() const override { return m_copies->columnCount(); }
    QString text(int row, int column) const override;

private:
    std::shared_ptr<const database::ResultTable> m_copies;
};

} // namespace catalogue
