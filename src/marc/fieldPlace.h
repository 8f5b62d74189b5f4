// The position of a field in a listed record at some moment; the record may have been edited since.
#pragma once

namespace marc {

struct FieldPlace {
    int record = 0;   // row in the list, from 0
    int fieldRow = 0; // row in the field grid at that moment; 0: the record as a whole
    int moment = 0;   // PreReadStore::replacements() at that moment
};

} // namespace marc
