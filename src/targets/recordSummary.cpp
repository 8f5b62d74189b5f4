#include "targets/recordSummary.h"
#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

struct Place {
    QStringView tag;
    char16_t code;
};

struct Places { // the first one that the record has is used
    std::array<Place, 2> title, author, publisher, year;
    Place isbn;
};
constexpr Places unimarcPlaces{{{{u"200", u'a'}, {u"500", u'a'}}},
                               {{{u"200", u'f'}, {u"701", u'a'}}},
                               {{{u"210", u'c'}, {u"214", u'c'}}},
                               {{{u"210", u'd'}, {u"214", u'd'}}},
                               {u"010", u'a'}};
constexpr Places marc21Places{{{{u"245", u'a'}, {u"240", u'a'}}},
                              {{{u"245", u'c'}, {u"100", u'a'}}},
                              {{{u"264", u'b'}, {u"260", u'b'}}},
                              {{{u"264", u'c'}, {u"260", u'c'}}},
                              {u"020", u'a'}};

bool has(const marc::FieldedRecord &record, QStringView tag) {
    return std::ranges::any_of(record.fields, [tag](const marc::Field &field) { return field.tag == tag; });
}

QString textAt(const marc::FieldedRecord &record, std::span<const Place> places) {
    for (const Place &place : places) {
        for (const marc::Field &field : record.fields) {
            if (field.tag != place.tag)
                continue;
            if (const auto text = field.subfield(place.code); text && !text->trimmed().isEmpty())
                return text->trimmed().toString();
        }
    }
    return {};
}

// Returns the text without the punctuation that ends an element in MARC 21.
QString withoutPunctuation(QString text) {
    while (text.endsWith(u' ') || text.endsWith(u'/') || text.endsWith(u':') || text.endsWith(u','))
        text.chop(1);
    return text;
}

} // namespace

Family familyOf(const marc::FieldedRecord &record) {
    return has(record, u"245") && !has(record, u"200") ? Family::Marc21 : Family::Unimarc;
}

Summary summaryOf(const marc::FieldedRecord &record) {
    const bool isMarc21 = familyOf(record) == Family::Marc21;
    const Places &places = isMarc21 ? marc21Places : unimarcPlaces;
    Summary summary{textAt(record, places.title), textAt(record, places.author), textAt(record, places.publisher),
                    textAt(record, places.year), textAt(record, {&places.isbn, 1})};
    if (isMarc21) {
        summary.title = withoutPunctuation(summary.title);
        summary.publisher = withoutPunctuation(summary.publisher);
    }
    return summary;
}

std::vector<marc::IsbnKey> isbnsOf(const marc::FieldedRecord &record) {
    std::vector<marc::IsbnKey> keys;
    for (const marc::Field &field : record.fields) {
        if (field.tag != u"010" && field.tag != u"020")
            continue;
        for (const marc::Subfield part : field.subfields()) {
            const marc::IsbnKey key = part.code == u"a" || part.code == u"z" ? marc::isbnKey(part.text) : 0;
            if (key != 0)
                keys.push_back(key);
        }
    }
    return keys;
}

int essentialFields(const marc::FieldedRecord &record) {
    const auto count = [&](const auto &tags) {
        return int(std::ranges::count_if(tags, [&](QStringView tag) { return has(record, tag); }));
    };
    return familyOf(record) == Family::Marc21 ? count(essentialMarc21) : count(essentialUnimarc);
}

bool isBetter(const marc::FieldedRecord &record, marc::IsbnKey isbn, int &best) {
    const auto isbns = isbnsOf(record);
    const int fields = essentialFields(record);
    if (fields <= best || std::ranges::find(isbns, isbn) == isbns.end())
        return false;
    best = fields;
    return true;
}

} // namespace targets
