// Records of any form, one after the other, in steps of bounded work.
#pragma once

#include "platform/result.h"
#include "tidy/tidyRecord.h"
#include <optional>

namespace tidy {

class TidySource {
public:
    enum class Found {
        Record,
        Unreadable, // a record that cannot be used; why() says what is wrong with it
        Piece,      // of a record that is too long to be looked at; raw() has its next bytes, it ends as Unreadable
        NotYet,     // nothing in this step
        End
    };

    virtual ~TidySource() = default;

    virtual platform::Result<Found> next() = 0;
    // Of the record in hand, until the next step.
    virtual const TidyRecord &record() const = 0;
    virtual QByteArrayView raw() const = 0; // its bytes in the source; out of XML, its element as it stood
    virtual QString why() const = 0;
    virtual bool directoryDamaged() const { return false; } // though it could be used

    virtual qint64 damagedBytes() const = 0;        // sequences that are no characters, up to here
    virtual qint64 position() const = 0;            // in the source's bytes
    virtual qint64 passedOver() const { return 0; } // elements that are named as records are and hold none
    // Where and why the source ended ahead of its end.
    virtual std::optional<QString> broken() const { return std::nullopt; }
};

} // namespace tidy
