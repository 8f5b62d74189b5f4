// A listed record that an import did not put into the store: the store refused it, or the user had it left out.
#pragma once

#include <QString>

namespace marc {

struct RefusedRecord {
    int record = 0; // row in the list, from 0
    QString reason; // as reported by the server, or why it is left out
};

} // namespace marc
