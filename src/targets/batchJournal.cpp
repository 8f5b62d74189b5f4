#include "targets/batchJournal.h"
#include "platform/byteFile.h"
#include "platform/plainFile.h"
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Status;
using State = targets::Outcome::State;

namespace targets {

namespace {

constexpr int version = 1;
constexpr QStringView formatName = u"isbn-batch";

QByteArray lineOf(const QJsonObject &object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<QStringList> isbnsOf(const QJsonObject &heading) {
    if (heading[u"format"_s].toString() != formatName || heading[u"version"_s].toInt() != version ||
        !heading[u"isbns"_s].isArray())
        return std::nullopt;
    QStringList isbns;
    for (const QJsonValue &isbn : heading[u"isbns"_s].toArray())
        isbns.append(isbn.toString());
    return isbns;
}

// Returns false if the object is not an outcome.
bool take(const QJsonObject &object, std::vector<Outcome> &outcomes) {
    const int row = object[u"row"_s].toInt(-1);
    if (row < 0 || size_t(row) >= outcomes.size())
        return false;
    Outcome outcome;
    outcome.state = object.contains(u"target"_s) ? State::Found : State::Missing;
    outcome.target = object[u"target"_s].toString();
    outcome.record.leader = object[u"leader"_s].toString();
    for (const QJsonValue &field : object[u"fields"_s].toArray()) {
        const QJsonArray parts = field.toArray();
        if (parts.size() != 2 || parts[0].toString().size() != marc::tagLength || !parts[1].isString())
            return false;
        outcome.record.fields.push_back({parts[0].toString(), parts[1].toString()});
    }
    if (outcome.state == State::Found && outcome.record.leader.size() != marc::leaderLength)
        return false;
    outcomes[size_t(row)] = std::move(outcome);
    return true;
}

} // namespace

BatchJournal::BatchJournal() = default;
BatchJournal::~BatchJournal() = default;

Status BatchJournal::begin(const QString &path, const QStringList &isbns) {
    m_file.reset();
    const QByteArray heading = lineOf({{u"format"_s, formatName.toString()},
                                       {u"version"_s, version},
                                       {u"isbns"_s, QJsonArray::fromStringList(isbns)}});
    if (const Status written = platform::writeWholeFile(path, heading, platform::Saving::OwnerOnly); !written)
        return written;
    return open(path);
}

Status BatchJournal::open(const QString &path) {
    auto opened = platform::openPlainFile(path, QIODevice::WriteOnly | QIODevice::Append);
    if (!opened)
        return opened.failure();
    m_file = std::move(opened).value();
    return platform::success();
}

platform::Result<BatchJournal::Contents> BatchJournal::resume(const QString &path) {
    m_file.reset();
    const auto bytes = platform::readSmallFile(path, largest);
    if (!bytes)
        return bytes.failure();
    const qsizetype complete = bytes.value().lastIndexOf('\n') + 1;
    Contents contents;
    qsizetype number = 0;
    for (qsizetype at = 0; at < complete;) {
        const qsizetype end = bytes.value().indexOf('\n', at);
        const QJsonObject object = QJsonDocument::fromJson(bytes.value().sliced(at, end - at)).object();
        at = end + 1;
        bool isRight = true;
        if (++number == 1) {
            const auto isbns = isbnsOf(object);
            isRight = isbns.has_value();
            contents.isbns = isbns.value_or(QStringList());
            contents.outcomes.resize(size_t(contents.isbns.size()));
        } else {
            isRight = take(object, contents.outcomes);
        }
        if (!isRight)
            return Failure{u"文件{"_s + path + u"}第 %1 行受了损，不能接着查"_s.arg(number)};
    }
    if (number == 0)
        return Failure{u"文件{"_s + path + u"}是空的，不能接着查"};
    if (complete < bytes.value().size() && !QFile::resize(path, complete))
        return Failure{u"文件{"_s + path + u"}不能写"};
    if (const Status opened = open(path); !opened)
        return opened.failure();
    return contents;
}

Status BatchJournal::add(int row, const Outcome &outcome) {
    QJsonObject object{{u"row"_s, row}};
    if (outcome.state == State::Found) {
        QJsonArray fields;
        for (const marc::Field &field : outcome.record.fields)
            fields.append(QJsonArray{field.tag, field.content});
        object.insert(u"target"_s, outcome.target);
        object.insert(u"leader"_s, outcome.record.leader);
        object.insert(u"fields"_s, fields);
    }
    if (!m_file || !platform::notTaken(*m_file, lineOf(object)).isEmpty())
        return Failure{m_file ? m_file->errorString() : u"没有记录文件"_s};
    return platform::success();
}

} // namespace targets
