// Alters records in the ways in which suppliers' records often differ from the rules: full-width digits, superfluous
// blanks, other forms of prices, ISBNs, dates and sizes, empty subfields, doubled fields, fields in another order.
#pragma once

#include "marc/isoWriter.h"
#include "tools/recordGenerator.h"

namespace tools {

class SupplierForms {
public:
    explicit SupplierForms(quint64 seed)
        : m_random(seed) {}

    // Returns the altered record. Each alteration is made to one record in three. Valid until the next call.
    QByteArrayView apply(QByteArrayView record);

private:
    void alterTexts();
    void alterFields();

    RandomNumbers m_random;
    marc::FieldedRecord m_record;
    marc::IsoWriter m_writer;
};

} // namespace tools
