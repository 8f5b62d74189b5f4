// A listed record that an import could not put into the store.
#pragma once

#include <QString>

namespace marc {

struct RefusedRecord {
    int record = 0; // row in the list, from 0
    QString reason; // as reported by the server
};

} // namespace marc
