// A field of a listed record as it was found at some moment; the record may have been edited since.
#pragma once

namespace marc {

struct FieldPlace {
    int record = 0;   // row in the list, from 0
    int fieldRow = 0; // row on the field grid of that moment; 0: the record as a whole
    int moment = 0;   // PreReadStore::replacements() of that moment
};

} // namespace marc
