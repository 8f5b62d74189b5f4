#include "targets/targetFile.h"
#include "platform/byteFile.h"
#include "platform/paths.h"
#include "platform/plainFile.h"
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Result;

namespace targets {

namespace {

constexpr int formatVersion = 1;
constexpr qsizetype mostTargets = 1000;
constexpr QStringView formatName = u"targets";

// Names in the file that differ from those in a window.
constexpr auto charsetKeys = std::to_array<QStringView>({u"automatic", u"UTF-8", u"GBK", u"MARC-8"});
constexpr auto useKeys = std::to_array<QStringView>({u"isbn", u"title", u"author", u"publisher", u"year", u"any"});

QString listed(std::span<const QStringView> names) {
    QStringList texts;
    for (const QStringView name : names)
        texts.append(name.toString());
    return texts.join(u"、"_s);
}

// Reads the keys of one JSON object. After the last key, fault() returns the first fault; values then keep their
// defaults.
class ObjectReader {
public:
    ObjectReader(QJsonObject object, QString place)
        : m_object(std::move(object))
        , m_place(std::move(place)) {}

    enum class Need { Must, May };
    void text(QStringView key, QString &value, Need need = Need::May) {
        if (const auto found = take(key, QJsonValue::String, need))
            value = found->toString();
    }
    void flag(QStringView key, bool &value) {
        if (const auto found = take(key, QJsonValue::Bool, Need::May))
            value = found->toBool();
    }
    void number(QStringView key, int &value, Need need = Need::May) {
        const auto found = take(key, QJsonValue::Double, need);
        if (!found)
            return;
        value = found->toInt(-1);
        if (value < 0)
            report(key, u"应为整数"_s);
    }
    template <class Value, size_t count>
    void choice(QStringView key, Value &value, const std::array<QStringView, count> &names, Need need = Need::May) {
        const auto found = take(key, QJsonValue::String, need);
        if (!found)
            return;
        const auto name = std::ranges::find(names, found->toString());
        if (name == names.end())
            report(key, u"应为 "_s + listed(names) + u" 之一");
        else
            value = Value(name - names.begin());
    }
    std::optional<QJsonValue> take(QStringView key, QJsonValue::Type type, Need need) {
        constexpr QStringView kinds[] = {u"null", u"true 或 false", u"数字", u"文字", u"[…]", u"{…}"};
        m_known.insert(key.toString());
        const QJsonValue value = m_object.value(key);
        if (value.type() == type)
            return value;
        if (!value.isUndefined())
            report(key, u"应为"_s + kinds[type]);
        else if (need == Need::Must)
            report(key, u"缺少这个键"_s);
        return std::nullopt;
    }
    void report(QStringView key, const QString &reason) {
        if (!m_fault.isEmpty())
            return;
        const QStringView point = m_place.isEmpty() || key.isEmpty() ? u"" : u".";
        m_fault = m_place + point + key + u"：" + reason;
    }
    void adopt(const QString &fault) { // of an inner object
        if (m_fault.isEmpty())
            m_fault = fault;
    }
    // Call last: reports keys that were not read.
    const QString &fault() {
        for (const QString &key : m_object.keys()) {
            if (!m_known.contains(key))
                report(key, u"不认识这个键"_s);
        }
        return m_fault;
    }

private:
    QJsonObject m_object;
    QString m_place;
    QSet<QString> m_known;
    QString m_fault;
};

void readAttributes(ObjectReader &reader, const QString &place, Attributes &attributes) {
    const auto found = reader.take(u"attributes", QJsonValue::Object, ObjectReader::Need::May);
    if (!found)
        return;
    attributes = {};
    ObjectReader inner(found->toObject(), place + u".attributes");
    for (size_t use = 0; use < useCount; ++use)
        inner.text(useKeys[use], attributes[use]);
    reader.adopt(inner.fault());
}

Result<Target> readTarget(const QJsonObject &object, const QString &place) {
    using Need = ObjectReader::Need;
    Target target;
    ObjectReader reader(object, place);
    reader.text(u"name", target.name, Need::Must);
    reader.choice(u"protocol", target.protocol, protocolNames, Need::Must);
    if (target.protocol == Protocol::Sru)
        target.syntax = Syntax::Xml;
    reader.text(u"host", target.host, Need::Must);
    reader.number(u"port", target.port, Need::Must);
    reader.text(u"database", target.database, Need::Must);
    reader.text(u"user", target.user);
    reader.text(u"password", target.password);
    reader.flag(u"encrypted", target.encrypted);
    reader.choice(u"syntax", target.syntax, syntaxNames);
    reader.choice(u"records", target.recordCharset, charsetKeys);
    reader.choice(u"queries", target.queryCharset, queryCharsetNames);
    reader.choice(u"language", target.language, languageNames);
    reader.text(u"version", target.version);
    reader.text(u"schema", target.schema);
    readAttributes(reader, place, target.attributes);
    reader.flag(u"tested", target.tested);
    if (const QString fault = reader.fault(); !fault.isEmpty())
        return Failure{fault};
    if (const auto fault = faultOf(target))
        return Failure{place + u'.' + fault->key + u"：" + fault->reason};
    return target;
}

QJsonObject asObject(const Target &target, Passwords passwords) {
    QJsonObject object{{u"name"_s, target.name},
                       {u"protocol"_s, protocolNames[size_t(target.protocol)].toString()},
                       {u"host"_s, target.host},
                       {u"port"_s, target.port},
                       {u"database"_s, target.database},
                       {u"encrypted"_s, target.encrypted},
                       {u"syntax"_s, syntaxNames[size_t(target.syntax)].toString()},
                       {u"records"_s, charsetKeys[size_t(target.recordCharset)].toString()},
                       {u"queries"_s, queryCharsetNames[size_t(target.queryCharset)].toString()},
                       {u"tested"_s, target.tested}};
    if (!target.user.isEmpty())
        object.insert(u"user"_s, target.user);
    if (!target.password.isEmpty() && passwords == Passwords::Kept)
        object.insert(u"password"_s, target.password);
    if (target.protocol == Protocol::Sru) {
        object.insert(u"language"_s, languageNames[size_t(target.language)].toString());
        object.insert(u"version"_s, target.version);
        object.insert(u"schema"_s, target.schema);
    }
    QJsonObject attributes;
    for (size_t use = 0; use < useCount; ++use) {
        if (!target.attributes[use].isEmpty())
            attributes.insert(useKeys[use].toString(), target.attributes[use]);
    }
    object.insert(u"attributes"_s, attributes);
    return object;
}

bool isTaken(const TargetList &list, const QString &name) {
    return std::ranges::find(list, name, &Target::name) != list.end();
}

} // namespace

Result<TargetList> parseTargets(const QByteArray &json) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (!document.isObject())
        return Failure{u"不是 JSON：第 %1 字节处有错"_s.arg(error.offset)};
    ObjectReader reader(document.object(), {});
    QString format;
    int version = 0;
    reader.text(u"format", format, ObjectReader::Need::Must);
    reader.number(u"version", version, ObjectReader::Need::Must);
    const auto found = reader.take(u"targets", QJsonValue::Array, ObjectReader::Need::Must);
    if (format != formatName)
        reader.report(u"format", u"应为“targets”"_s);
    if (version != formatVersion)
        reader.report(u"version", u"应为 1"_s);
    if (found && found->toArray().size() > mostTargets)
        reader.report(u"targets", u"最多 1000 个目标"_s);
    if (const QString fault = reader.fault(); !fault.isEmpty())
        return Failure{fault};
    TargetList list;
    const QJsonArray entries = found->toArray();
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const QString place = u"targets.%1"_s.arg(i + 1);
        if (!entries[i].isObject())
            return Failure{place + u"：应为{…}"};
        auto target = readTarget(entries[i].toObject(), place);
        if (!target)
            return target.failure();
        if (isTaken(list, target.value().name))
            return Failure{place + u".name：“"_s + target.value().name + u"”已经有了"};
        list.push_back(std::move(target).value());
    }
    return list;
}

Result<TargetList> readTargetFile(const QString &path) {
    const auto bytes = platform::readSmallFile(path, largestTargetFile);
    if (!bytes)
        return Failure{u"文件{"_s + path + u"}不能读：" + bytes.failure().description};
    auto list = parseTargets(bytes.value());
    if (!list)
        return Failure{u"文件{"_s + path + u"}：" + list.failure().description};
    return list;
}

QByteArray targetsAsJson(const TargetList &list, Passwords passwords) {
    QJsonArray entries;
    for (const Target &target : list)
        entries.append(asObject(target, passwords));
    return QJsonDocument(QJsonObject{{u"format"_s, formatName.toString()},
                                     {u"version"_s, formatVersion},
                                     {u"targets"_s, entries}})
        .toJson();
}

Result<TargetList> readKeptTargets(const QString &folder) {
    const QString path = folder + targetFileName;
    if (!QFile::exists(path))
        return shippedTargets();
    if (const platform::Status closed = platform::makeOwnerFile(path); !closed)
        return closed.failure();
    return readTargetFile(path);
}

platform::Status keepTargets(const QString &folder, const TargetList &list) {
    return platform::writeWholeFile(folder + targetFileName, targetsAsJson(list, Passwords::Kept),
                                    platform::Saving::OwnerOnly);
}

platform::Status exportTargets(const QString &path, const TargetList &list) {
    return platform::writeWholeFile(path, targetsAsJson(list, Passwords::LeftOut));
}

QString freeName(const TargetList &list, const QString &wanted) {
    QString name = wanted;
    for (int number = 2; isTaken(list, name); ++number)
        name = wanted + u' ' + QString::number(number);
    return name;
}

int addTargets(TargetList &list, const TargetList &more) {
    int added = 0;
    for (Target target : more) {
        const auto sameAddress = [&](const Target &other) {
            return other.protocol == target.protocol && addressOf(other) == addressOf(target);
        };
        if (std::ranges::any_of(list, sameAddress))
            continue;
        target.name = freeName(list, target.name);
        target.tested = false;
        list.push_back(std::move(target));
        ++added;
    }
    return added;
}

TargetList shippedTargets() {
    QFile file(u":/targets/targets.json"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    auto list = parseTargets(file.readAll());
    return list ? std::move(list).value() : TargetList();
}

} // namespace targets
