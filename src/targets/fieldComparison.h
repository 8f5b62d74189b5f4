// A fetched record beside the current one, field by field, and what the current one becomes when fields are taken.
#pragma once

#include "marc/fieldRows.h"
#include "marc/fieldedRecord.h"
#include <optional>
#include <vector>

namespace targets {

struct ComparedField {
    enum class State { Same, Different, OnlyCurrent, OnlyFetched };
    QString tag;
    std::optional<size_t> current; // indexes of the fields
    std::optional<size_t> fetched;
    State state() const {
        if (!current || !fetched)
            return current ? State::OnlyCurrent : State::OnlyFetched;
        return isSame ? State::Same : State::Different;
    }
    bool isSame = false;
};

// Returns the fields of both records by tag and, among those of one tag, in their order. Equal fields of a tag are
// compared with each other first, the rest in their order.
std::vector<ComparedField> compareFields(const marc::FieldedRecord &current, const marc::FieldedRecord &fetched);

// Returns the text of a field as a person reads it: "200 1  $a红楼梦$f曹雪芹".
QString shownField(const marc::Field &field);

// Returns the current record with the fetched field of the row in the place of its own, or added after the last field
// whose tag is not greater. A row without a fetched field changes nothing.
marc::FieldedRecord withField(const marc::FieldedRecord &current, const marc::FieldedRecord &fetched,
                              const ComparedField &row);

// Returns the fetched record with the leader and the fields 001 and 005 of the current one, which name the record in
// this library.
marc::FieldedRecord withAllFields(const marc::FieldedRecord &current, const marc::FieldedRecord &fetched);

// Returns the rows of a record for the field grid, the leader first, without descriptions; characters that GBK lacks
// become "?". std::nullopt if the record does not fit the format.
std::optional<marc::FieldRows> rowsOf(marc::FieldedRecord record);

} // namespace targets
