#include "targets/target.h"
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

constexpr qsizetype longestText = 200; // characters
constexpr int lastPort = 65535;

bool isWhole(const QString &text, const QString &pattern) {
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

bool isHost(const QString &host) {
    return isWhole(host, u"[A-Za-z0-9]([A-Za-z0-9._-]*[A-Za-z0-9])?"_s) || isWhole(host, u"\\[[0-9A-Fa-f:.]+\\]"_s);
}

bool isAttribute(const QString &text, bool isPqf) {
    return text.isEmpty() || isWhole(text, isPqf ? u"[0-9]{1,5}=[0-9]{1,5}( [0-9]{1,5}=[0-9]{1,5})*"_s
                                                 : u"[A-Za-z][A-Za-z0-9._-]*( (=|==|exact|all|any|adj))?"_s);
}

bool isPrintable(const QString &text) {
    return std::ranges::all_of(text, [](QChar c) { return c >= u' ' && c != u'\x7F'; });
}

std::optional<TargetFault> attributeFault(const Target &target) {
    for (size_t use = 0; use < useCount; ++use) {
        if (!isAttribute(target.attributes[use], target.asksPqf()))
            return TargetFault{attributeKeys[use], target.asksPqf() ? u"应为“1=4”或“1=4 4=1”的样子"_s
                                                                    : u"应为“dc.title”或“dc.title all”的样子"_s};
    }
    if (std::ranges::all_of(target.attributes, &QString::isEmpty))
        return TargetFault{u"attributes", u"至少要有一项"_s};
    return std::nullopt;
}

} // namespace

Attributes bib1Attributes() {
    return {u"1=7"_s, u"1=4"_s, u"1=1003"_s, u"1=1018"_s, u"1=31"_s, u"1=1016"_s};
}

Attributes cqlAttributes() {
    return {u"bath.isbn"_s, u"dc.title"_s, u"dc.creator"_s, u"dc.publisher"_s, u"dc.date"_s, u"cql.serverChoice"_s};
}

std::optional<TargetFault> faultOf(const Target &target) {
    const bool isSru = target.protocol == Protocol::Sru;
    if (target.name.trimmed().isEmpty() || target.name.size() > longestText || !isPrintable(target.name))
        return TargetFault{u"name", u"应为 1 到 200 个字"_s};
    if (!isHost(target.host) || target.host.size() > longestText)
        return TargetFault{u"host", u"应为主机名或地址，不带“http://”和路径"_s};
    if (target.port < 1 || target.port > lastPort)
        return TargetFault{u"port", u"应为 1 到 65535 的整数"_s};
    if (!isWhole(target.database, u"[!-~]*"_s) || target.database.contains(u'?') || target.database.contains(u'#') ||
        target.database.startsWith(u'/') || target.database.size() > longestText)
        return TargetFault{u"database", u"应为英文字母、数字和符号，不以“/”开头，没有“?”和“#”"_s};
    if (!isPrintable(target.user) || target.user.size() > longestText)
        return TargetFault{u"user", u"太长，或者有控制字符"_s};
    if (!isPrintable(target.password) || target.password.size() > longestText)
        return TargetFault{u"password", u"太长，或者有控制字符"_s};
    if (isSru && !isWhole(target.version, u"1\\.[12]|2\\.0"_s))
        return TargetFault{u"version", u"应为 1.1、1.2 或 2.0"_s};
    if (isSru && !isWhole(target.schema, u"[!-~]{1,200}"_s))
        return TargetFault{u"schema", u"应为英文字母、数字和符号"_s};
    if (isSru && target.syntax != Syntax::Xml)
        return TargetFault{u"syntax", u"SRU 的记录只有 XML"_s};
    return attributeFault(target);
}

QString addressOf(const Target &target) {
    return u"%1:%2/%3"_s.arg(target.host).arg(target.port).arg(target.database);
}

} // namespace targets
