// A text with variables, which a record and its run replace:
//   {010$a}       the first subfield $a in fields 010              {001}   a control field
//   {$a}          the first subfield $a of the current field        {LDR}   the leader
//   {100$a/9-12}  positions, counted from 0                         {200$e?}  empty if it is absent
//   {日期} {年} {月} {日}  of the run, as 20260131, 2026, 01, 31     {文件名}  of the file, without its folder
//   {序号} {序号:6}  the number of the record among those that need one, with leading zeros
//   {dollar}      the dollar sign, which elsewhere begins a subfield   {{ }}  braces
#pragma once

#include "marc/fieldedRecord.h"
#include "platform/result.h"
#include "tasks/tagSet.h"
#include <QDate>
#include <vector>

namespace tasks {

// The data that a text may contain besides those of the record.
struct RunFacts {
    QDate date;
    QString fileName;
    qint64 number = 1; // of the current record
};

class FieldTemplate {
public:
    // Fails with the reason if a variable is unknown or a brace has no counterpart. A "$" outside of variables becomes
    // the delimiter of subfields if `isField`.
    static platform::Result<FieldTemplate> parse(const QString &text, bool isField);

    // Returns the text; std::nullopt if the record lacks the value of a variable. `current` may be null.
    std::optional<QString> expand(const marc::FieldedRecord &record, const marc::Field *current,
                                  const RunFacts &facts) const;
    bool needsNumber() const;
    bool needsCurrentField() const;

private:
    enum class Source { Literal, Record, Current, Date, Year, Month, Day, Number, FileName };
    struct Part {
        Source source = Source::Literal;
        QString text; // of a literal; the tag of a field
        QChar code;   // null: none
        std::optional<Positions> positions;
        bool optional = false;
        int width = 0; // of a number
    };
    static std::optional<Part> parseVariable(QStringView name);
    static std::optional<Part> parseValue(QStringView name);
    static std::optional<QString> valueOf(const Part &part, const marc::FieldedRecord &record,
                                          const marc::Field *current);
    static QString factOf(const Part &part, const RunFacts &facts);

    std::vector<Part> m_parts;
};

} // namespace tasks
