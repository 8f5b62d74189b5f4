#include "tasks/stepTest.h"
#include "platform/boundedExpression.h"
#include "tasks/stepTables.h"
#include <algorithm>
#include <array>

namespace tasks {

namespace {

struct Negation {
    Test negated;
    Test test;
};
constexpr auto negations = std::to_array<Negation>({
    {Test::Absent, Test::Present},
    {Test::Differs, Test::Equals},
    {Test::Lacks, Test::Contains},
    {Test::Mismatches, Test::Matches},
    {Test::PositionIsNot, Test::PositionIs},
    {Test::NoRemark, Test::Remark},
});

Answer answer(bool yes) {
    return yes ? Answer::Yes : Answer::No;
}

Answer turned(Answer given, bool negated) {
    if (!negated || given == Answer::GivenUp)
        return given;
    return answer(given == Answer::No);
}

} // namespace

StepTest::StepTest(Test test, const Values &values)
    : m_test(test)
    , m_tags(TagSet::parse(values[Parameter::Tag]).value_or(TagSet()))
    , m_text(values[Parameter::Text]) {
    if (const auto row = std::ranges::find(negations, test, &Negation::negated); row != negations.end()) {
        m_test = row->test;
        m_negated = true;
    }
    const QString &tag = values[Parameter::Tag];
    m_ofField = tag.isEmpty() && m_test != Test::Always && m_test != Test::Remark;
    m_ofLeader = tag == leaderTag;
    if (const QString &code = values[Parameter::Code]; !code.isEmpty())
        m_code = code[0];
    m_rules = values[Parameter::Rules].split(u'|', Qt::SkipEmptyParts);
    if (m_test == Test::PositionIs) {
        m_positions = parsePositions(values[Parameter::At]).value_or(Positions());
        m_text.replace(u'#', u' ');
    }
    if (m_test == Test::Matches) {
        m_expression = platform::boundedExpression(m_text).value();
        m_expression.optimize();
    }
}

Answer StepTest::askRecord(const marc::FieldedRecord &record, const QSet<QString> &remarks) const {
    if (m_test == Test::Always || m_ofField)
        return Answer::Yes;
    if (m_test == Test::Remark)
        return turned(answer(std::ranges::any_of(m_rules, [&](const QString &rule) { return remarks.contains(rule); })),
                      m_negated);
    return turned(findIn(record), m_negated);
}

Answer StepTest::askField(const marc::Field &field) const {
    return m_ofField ? turned(findIn(field), m_negated) : Answer::Yes;
}

Answer StepTest::findIn(const marc::FieldedRecord &record) const {
    if (m_ofLeader)
        return findIn(QStringView(record.leader));
    for (const marc::Field &field : record.fields) {
        if (!m_tags.contains(field.tag))
            continue;
        if (const Answer found = findIn(field); found != Answer::No)
            return found;
    }
    return Answer::No;
}

Answer StepTest::findIn(const marc::Field &field) const {
    if (m_code.isNull() && m_test == Test::Present)
        return Answer::Yes;
    if (field.isControl())
        return m_code.isNull() ? findIn(QStringView(field.content)) : Answer::No;
    for (const marc::Subfield part : field.subfields()) {
        if (!m_code.isNull() && part.code != m_code)
            continue;
        if (const Answer found = findIn(part.text); found != Answer::No)
            return found;
    }
    return Answer::No;
}

Answer StepTest::findIn(QStringView text) const {
    switch (m_test) {
    case Test::Equals:
        return answer(text == m_text);
    case Test::Contains:
        return answer(text.contains(m_text));
    case Test::Matches: {
        const auto match = m_expression.match(text);
        return match.isValid() ? answer(match.hasMatch()) : Answer::GivenUp;
    }
    case Test::PositionIs:
        return answer(text.size() > m_positions.last && text.sliced(m_positions.first, m_positions.count()) == m_text);
    default:
        return Answer::Yes;
    }
}

} // namespace tasks
