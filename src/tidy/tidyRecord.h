// A record between two forms: what it says, without lengths and addresses.
#pragma once

#include "marc/separators.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <algorithm>

namespace tidy {

inline constexpr int tagLength = 3;

struct TidyRecord {
    QByteArray leader; // 24 ASCII characters; lengths and base address in it mean nothing
    QByteArray tags;   // three ASCII characters of each field, side by side
    QString data;      // the fields in that order, each ended by its terminator, which stands nowhere else in them
};

inline bool isTag(QByteArrayView tag) {
    const auto isLetterOrDigit = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    return tag.size() == tagLength && std::all_of(tag.begin(), tag.end(), isLetterOrDigit);
}

// 24 characters, whatever was given.
inline QByteArray tidyLeader(QByteArrayView leader) {
    QByteArray text = leader.toByteArray().leftJustified(marc::leaderLength, ' ', true);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, ' ');
    return text;
}

} // namespace tidy
