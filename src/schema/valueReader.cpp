#include "schema/valueReader.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace schema {

void FaultPlace::report(const QString &key, const QString &reason) {
    if (failed())
        return;
    QStringList path = m_path;
    if (!key.isEmpty())
        path.append(key);
    m_key = path.join(u'.');
    m_reason = reason;
}

bool ValueReader::check(const QJsonObject &object, Part part) {
    const KeyFault fault = checkKeys(object, part);
    if (!fault.key.isEmpty() || !fault.reason.isEmpty())
        m_fault.report(fault.key, fault.reason);
    return !m_fault.failed();
}

void ValueReader::readDirectory(const QJsonObject &codelists) {
    const FaultPlace::Inside place(m_fault, u"codelists"_s);
    for (auto entry = codelists.begin(); entry != codelists.end(); ++entry) {
        const FaultPlace::Inside inside(m_fault, entry.key());
        const QJsonObject list = entry.value().toObject();
        if (!entry.value().isObject())
            return m_fault.report({}, u"应为 {…}"_s);
        // Before Avram 0.9.2 the directory contained the list itself.
        const bool extended = list[u"codes"].isObject();
        if (extended && !check(list, Part::CodeListEntry))
            return;
        m_directory.insert(entry.key(), readCodes(extended ? list[u"codes"].toObject() : list));
    }
}

std::shared_ptr<const CodeList> ValueReader::readCodes(const QJsonObject &object) {
    auto list = std::make_shared<CodeList>();
    for (auto code = object.begin(); code != object.end() && !m_fault.failed(); ++code)
        addCode(code.key(), code.value(), *list);
    return list;
}

void ValueReader::addCode(const QString &code, const QJsonValue &definition, CodeList &list) {
    const FaultPlace::Inside inside(m_fault, code);
    const QJsonObject object = definition.toObject();
    if (!definition.isObject() && !definition.isString())
        return m_fault.report({}, u"应为 {…} 或文字"_s);
    if (code.isEmpty())
        return m_fault.report({}, u"代码不能为空"_s);
    if (!check(object, Part::Code))
        return;
    if (object[u"code"].toString(code) != code)
        return m_fault.report(u"code"_s, u"应与上一层的键相同"_s);
    list.add(code, definition.isString() ? definition.toString() : object[u"label"].toString(),
             object[u"deprecated"].toBool());
}

CodeListUse ValueReader::use(const QJsonValue &codes, const QString &key) {
    if (codes.isUndefined())
        return std::shared_ptr<const CodeList>();
    if (codes.isString()) {
        const auto found = m_directory.constFind(codes.toString());
        return found == m_directory.constEnd() ? CodeListUse() : CodeListUse(*found);
    }
    const FaultPlace::Inside inside(m_fault, key);
    return readCodes(codes.toObject());
}

void ValueReader::read(const QJsonObject &object, ValueRules &rules) {
    if (const QJsonValue expression = object[u"pattern"]; expression.isString()) {
        auto pattern = Pattern::compile(expression.toString());
        if (!pattern)
            return m_fault.report(u"pattern"_s, pattern.failure().description);
        rules.pattern = std::make_shared<const Pattern>(std::move(pattern.value()));
    }
    rules.codes = use(object[u"codes"], u"codes"_s);
    rules.flags = use(object[u"flags"], u"flags"_s);
    if (rules.flags && *rules.flags && (*rules.flags)->length() == 0 && !(*rules.flags)->isEmpty())
        return m_fault.report(u"flags"_s, u"各代码的长度应相同"_s);
    if (object[u"positions"].isObject())
        readPositions(object[u"positions"].toObject(), rules.positions);
}

void ValueReader::readPositions(const QJsonObject &object, std::vector<PositionRules> &positions) {
    const FaultPlace::Inside place(m_fault, u"positions"_s);
    for (auto position = object.begin(); position != object.end() && !m_fault.failed(); ++position) {
        const FaultPlace::Inside inside(m_fault, position.key());
        if (!position.value().isObject())
            return m_fault.report({}, u"应为 {…}"_s);
        positions.push_back(readPosition(position.key(), position.value().toObject()));
    }
    std::ranges::sort(positions, {}, &PositionRules::start);
    for (size_t i = 1; i < positions.size() && !m_fault.failed(); ++i) {
        if (positions[i].start <= positions[i - 1].end)
            m_fault.report({}, u"字符位%1与前面的重叠"_s.arg(positions[i].start));
    }
}

PositionRules ValueReader::readPosition(const QString &range, const QJsonObject &object) {
    PositionRules position;
    if (!parseRange(range, position.start, position.end)) {
        m_fault.report({}, u"不是字符位，应如“05”或“00-07”"_s);
        return position;
    }
    if (!check(object, Part::Position))
        return position;
    if (object[u"start"].toInt(position.start) != position.start)
        m_fault.report(u"start"_s, u"应与字符位相同"_s);
    if (object[u"end"].toInt(position.end) != position.end)
        m_fault.report(u"end"_s, u"应与字符位相同"_s);
    position.label = object[u"label"].toString();
    read(object, position);
    return position;
}

} // namespace schema
