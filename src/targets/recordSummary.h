// The data of a record for a list of results, and how complete a record is. Knows the tags of UNIMARC, of which CNMARC
// is a form, and of MARC 21.
#pragma once

#include "marc/fieldedRecord.h"
#include "marc/standardNumber.h"
#include <QString>
#include <vector>

namespace targets {

enum class Family { Unimarc, Marc21 };

// A record with a title in 245 and none in 200 belongs to MARC 21.
Family familyOf(const marc::FieldedRecord &record);

struct Summary {
    QString title;
    QString author;
    QString publisher;
    QString year;
    QString isbn;
};
Summary summaryOf(const marc::FieldedRecord &record);

// Returns the ISBNs of the record, including those that it marks as wrong or cancelled.
std::vector<marc::IsbnKey> isbnsOf(const marc::FieldedRecord &record);

// The fields that count for completeness; each counts once.
inline constexpr auto essentialUnimarc =
    std::to_array<QStringView>({u"010", u"100", u"101", u"102", u"105", u"200", u"205", u"210", u"215", u"225", u"300",
                                u"330", u"606", u"690", u"701", u"801"});
inline constexpr auto essentialMarc21 =
    std::to_array<QStringView>({u"008", u"020", u"040", u"041", u"082", u"100", u"245", u"250", u"260", u"264", u"300",
                                u"490", u"500", u"520", u"650", u"700"});
// Returns the number of essential fields that the record has.
int essentialFields(const marc::FieldedRecord &record);

// Returns whether the record has the ISBN and more essential fields than `best`; `best` is then set to their number.
// Its initial value is -1.
bool isBetter(const marc::FieldedRecord &record, marc::IsbnKey isbn, int &best);

} // namespace targets
