// The codes that a value may have.
#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <bitset>

namespace schema {

class CodeList {
public:
    void add(const QString &code, const QString &label, bool deprecated);

    bool contains(QStringView code) const;
    bool isDeprecated(QStringView code) const {
        return !m_deprecated.isEmpty() && m_deprecated.contains(code.toString());
    }
    // All codes with their labels, in the order of the codes.
    const QMap<QString, QString> &labels() const { return m_labels; }
    bool isEmpty() const { return m_single.none() && m_others.isEmpty(); }
    // Returns the length that all codes have, or 0 if they differ. Flags are read in pieces of this length.
    qsizetype length() const { return m_length; }

private:
    static constexpr size_t asciiCount = 128;
    std::bitset<asciiCount> m_single; // codes of one ASCII character
    QSet<QString> m_others;
    QSet<QString> m_deprecated;
    QMap<QString, QString> m_labels;
    qsizetype m_length = -1; // -1: no code yet
};

} // namespace schema
