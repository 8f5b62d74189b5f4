// A record during conversion: its content without lengths and positions.
#pragma once

#include "marc/isoLayout.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <algorithm>

namespace tidy {

inline constexpr int tagLength = 3;

struct TidyRecord {
    QByteArray leader; // 24 ASCII characters; the lengths and the base address in it are not valid
    QByteArray tags;   // three ASCII characters for each field, without separators
    QString data;      // the fields in this order, each followed by its terminator, which does not occur inside a field
};

inline bool isTag(QByteArrayView tag) {
    const auto isLetterOrDigit = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    return tag.size() == tagLength && std::all_of(tag.begin(), tag.end(), isLetterOrDigit);
}

// Returns a leader of exactly 24 characters.
inline QByteArray tidyLeader(QByteArrayView leader) {
    QByteArray text = leader.toByteArray().leftJustified(marc::leaderLength, ' ', true);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, ' ');
    return text;
}

} // namespace tidy
