// Reads the parts of a schema that describe values: patterns, code lists and positions.
#pragma once

#include "schema/metaschema.h"
#include "schema/schema.h"
#include <QHash>
#include <QJsonObject>

namespace schema {

// The place in the schema, as "fields.200.subfields.a", and the first fault found.
class FaultPlace {
public:
    // Reports the fault of a key of the current object; keeps the first.
    void report(const QString &key, const QString &reason);
    bool failed() const { return !m_reason.isEmpty(); }
    const QString &key() const { return m_key; }
    const QString &reason() const { return m_reason; }

    // Enters the object at this key during the lifetime of the returned guard.
    class Inside {
    public:
        Inside(FaultPlace &place, const QString &key)
            : m_place(place) {
            m_place.m_path.append(key);
        }
        ~Inside() { m_place.m_path.removeLast(); }
        Inside(const Inside &) = delete;
        Inside &operator=(const Inside &) = delete;

    private:
        FaultPlace &m_place;
    };

private:
    QStringList m_path;
    QString m_key;
    QString m_reason;
};

class ValueReader {
public:
    explicit ValueReader(FaultPlace &fault)
        : m_fault(fault) {}

    void readDirectory(const QJsonObject &codelists);
    void read(const QJsonObject &object, ValueRules &rules);
    // Checks the keys of an object; returns false and reports the fault if one is wrong.
    bool check(const QJsonObject &object, Part part);

private:
    std::shared_ptr<const CodeList> readCodes(const QJsonObject &object);
    void addCode(const QString &code, const QJsonValue &definition, CodeList &list);
    CodeListUse use(const QJsonValue &codes, const QString &key);
    void readPositions(const QJsonObject &object, std::vector<PositionRules> &positions);
    PositionRules readPosition(const QString &range, const QJsonObject &object);

    FaultPlace &m_fault;
    QHash<QString, std::shared_ptr<const CodeList>> m_directory;
};

} // namespace schema
