// Reads records of any form one after the other, in steps of limited work.
#pragma once

#include "marc/fieldedRecord.h"
#include "platform/result.h"
#include <optional>

namespace tidy {

class TidySource {
public:
    enum class Found {
        Record,
        Unreadable, // a record that cannot be used; why() returns the reason
        Piece,  // part of a record that is too long; raw() returns its next bytes, and the record ends as Unreadable
        NotYet, // no result in this step
        End
    };

    virtual ~TidySource() = default;

    virtual platform::Result<Found> next() = 0;
    // About the current record; valid until the next step.
    virtual marc::FieldedRecord &record() = 0; // the caller may change it
    virtual QByteArrayView raw() const = 0;    // its bytes in the source; for XML, its element unchanged
    virtual QString why() const = 0;
    virtual bool directoryDamaged() const { return false; } // the record is usable nevertheless

    virtual qint64 damagedBytes() const = 0;        // invalid byte sequences so far
    virtual qint64 position() const = 0;            // in bytes of the source
    virtual qint64 passedOver() const { return 0; } // elements named "record" that are not MARC records
    // Returns where and why the XML of the source is broken.
    virtual std::optional<QString> broken() const { return std::nullopt; }
};

} // namespace tidy
