// The set of fields that a step concerns, and positions in a fixed field.
#pragma once

#include <QString>
#include <QStringView>
#include <bitset>
#include <optional>

namespace tasks {

class TagSet {
public:
    // The tags are separated by commas; "X" in a tag is any digit. Returns std::nullopt if one is not a tag of a field.
    static std::optional<TagSet> parse(QStringView text);

    // An empty text gives an empty set.
    bool isEmpty() const { return m_tags.none(); }
    // Tags with letters are in no set.
    bool contains(QStringView tag) const { return m_tags[numberOf(tag)]; }
    // Returns whether the set has a control field although the tag is that of a data field, or the other way round.
    bool mixes(QStringView tag) const;

private:
    static constexpr size_t count = 1000;
    static size_t numberOf(QStringView tag); // 0 if the tag is not a number
    std::bitset<count> m_tags;
};

// Counted from 0, both included.
struct Positions {
    int first = 0;
    int last = 0;
    int count() const { return last - first + 1; }
};

// "8" or "9-12"; std::nullopt for anything else.
std::optional<Positions> parsePositions(QStringView text);

// Returns whether the text is three digits other than "000".
bool isFieldTag(QStringView text);
inline bool isControlTag(QStringView tag) {
    return tag.startsWith(u"00");
}
// Returns whether the character can be the code of a subfield: a letter or digit of ASCII.
bool isCode(QChar c);

} // namespace tasks
