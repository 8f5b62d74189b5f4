#include "workspace/draftFile.h"
#include "platform/byteFile.h"
#include "platform/plainFile.h"
#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr int version = 3;
constexpr int versionBefore = 2;                // without replaced lines
constexpr qint64 longestLine = qint64(1) << 24; // bytes; a record has at most 99,999 unless its file is damaged

enum class Fault { Damaged, OtherVersion, OtherFile };

QByteArray lineOf(const QJsonObject &object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QByteArray goneLine(int row) {
    return lineOf({{u"row"_s, row}, {u"gone"_s, true}});
}

QByteArray linesOf(const Drafts &drafts, bool left) {
    QByteArray lines;
    for (auto draft = drafts.cbegin(); draft != drafts.cend(); ++draft) {
        QJsonObject object{
            {u"row"_s, draft.key()}, {u"origin"_s, QString::fromLatin1(draft->origin)}, {u"record"_s, draft->record}};
        if (left)
            object.insert(u"left"_s, true);
        lines += lineOf(object);
    }
    return lines;
}

std::optional<QJsonObject> objectOf(const QByteArray &line) {
    const QJsonDocument document = QJsonDocument::fromJson(line);
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

std::optional<int> rowOf(const QJsonValue &value) {
    const double number = value.toDouble(-1);
    const bool isRow = number >= 0 && number < std::numeric_limits<int>::max() && double(int(number)) == number;
    return isRow ? std::optional(int(number)) : std::nullopt;
}

// The contents of the lines read so far.
struct Lines {
    Drafts changed;
    Drafts left;
};

// Returns false if the object is not a valid line.
bool takeLine(const QJsonObject &object, Lines &lines) {
    const auto row = rowOf(object[u"row"_s]);
    if (!row)
        return false;
    if (object[u"gone"_s].toBool()) {
        lines.changed.remove(*row);
        return true;
    }
    if (object[u"record"_s].toString().isEmpty() || !object[u"origin"_s].isString())
        return false;
    Drafts &drafts = object[u"left"_s].toBool() ? lines.left : lines.changed;
    drafts.insert(*row, {object[u"record"_s].toString(), object[u"origin"_s].toString().toLatin1()});
    return true;
}

// The older draft of a row that has two goes to `older`.
DraftFile::Found foundIn(const Lines &lines) {
    DraftFile::Found found{lines.changed, {}};
    for (auto left = lines.left.cbegin(); left != lines.left.cend(); ++left)
        (lines.changed.contains(left.key()) ? found.older : found.drafts).insert(left.key(), *left);
    return found;
}

// Reads the format of an earlier version of the program: one object with all drafts.
std::optional<DraftFile::Found> earlierForm(const QJsonObject &object) {
    const QJsonObject records = object[u"records"_s].toObject();
    DraftFile::Found found;
    for (auto record = records.begin(); record != records.end(); ++record) {
        bool isNumber = false;
        const int row = record.key().toInt(&isNumber);
        if (!isNumber || row < 0 || record->toString().isEmpty())
            return std::nullopt;
        found.drafts.insert(row, {record->toString(), {}});
    }
    return found.drafts.isEmpty() ? std::nullopt : std::optional(found);
}

std::variant<DraftFile::Found, Fault> parse(QFile &file, const QByteArray &heading) {
    const auto opening = objectOf(file.readLine(longestLine));
    if (!opening)
        return Fault::Damaged;
    const QJsonObject wanted = QJsonDocument::fromJson(heading).object();
    const bool isEarlier = !opening->contains(u"version"_s) && opening->contains(u"records"_s);
    if (!isEarlier && (*opening)[u"format"_s] != wanted[u"format"_s])
        return Fault::Damaged;
    const QJsonValue written = (*opening)[u"version"_s];
    if (!isEarlier && written != QJsonValue(version) && written != QJsonValue(versionBefore))
        return Fault::OtherVersion;
    if ((*opening)[u"identity"_s] != wanted[u"identity"_s])
        return Fault::OtherFile;
    if (isEarlier) {
        auto found = earlierForm(*opening);
        return found ? std::variant<DraftFile::Found, Fault>(std::move(*found)) : Fault::Damaged;
    }
    Lines lines;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine(longestLine);
        if (!line.endsWith('\n') && file.atEnd())
            break; // the last change was not written completely
        const auto object = objectOf(line);
        if (!object || !takeLine(*object, lines))
            return Fault::Damaged;
    }
    return foundIn(lines);
}

} // namespace

DraftFile::DraftFile(const QString &folder, const QString &recordFile)
    : m_recordFile(QFileInfo(recordFile).canonicalFilePath()) {
    if (m_recordFile.isEmpty())
        m_recordFile = QFileInfo(recordFile).absoluteFilePath();
    const QByteArray name = QCryptographicHash::hash(m_recordFile.toUtf8(), QCryptographicHash::Sha1).toHex();
    m_path = folder + QString::fromLatin1(name) + u".json";
    const QFileInfo file(m_recordFile);
    m_identity = u"%1 %2"_s.arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch());
}

QByteArray DraftFile::heading() const {
    return lineOf(
        {{u"format"_s, u"drafts"_s}, {u"version"_s, version}, {u"path"_s, m_recordFile}, {u"identity"_s, m_identity}});
}

// Returns a path that does not exist yet.
QString DraftFile::freePath() const {
    const QString base = m_path.chopped(5) + QDateTime::currentDateTime().toString(u"-yyyyMMdd-hhmmss"_s);
    QString path = base + u".kept";
    for (int number = 2; QFileInfo::exists(path) || QFileInfo(path).isSymLink(); ++number)
        path = base + u'-' + QString::number(number) + u".kept";
    return path;
}

platform::Failure DraftFile::refuse(const QString &words) {
    const QString kept = freePath();
    if (QFile::rename(m_path, kept))
        return {words + u"，已另存为 " + kept};
    m_mayWrite = false;
    return {words + u"，也不能移开；本次的修改不会暂存：" + m_path};
}

platform::Result<DraftFile::Found> DraftFile::read() {
    const QFileInfo info(m_path);
    if (!info.exists() && !info.isSymLink())
        return Found{};
    if (!info.isFile() || info.size() > largest)
        return refuse(u"上次未导入的修改不能读"_s);
    m_mayAppend = false;
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(u"上次未导入的修改不能读（"_s + file.errorString() + u"）");
    auto parsed = parse(file, heading());
    file.close();
    if (auto *found = std::get_if<Found>(&parsed))
        return std::move(*found);
    switch (std::get<Fault>(parsed)) {
    case Fault::OtherFile:
        return refuse(u"上次未导入的修改属于改变前的文件"_s);
    case Fault::OtherVersion:
        return refuse(u"上次未导入的修改是另一版本的程序存下的"_s);
    default:
        return refuse(u"上次未导入的修改已损坏"_s);
    }
}

qsizetype DraftFile::count() const {
    QFile file(m_path);
    const QFileInfo info(m_path);
    if (!info.isFile() || info.size() > largest || !file.open(QIODevice::ReadOnly))
        return 0;
    const auto parsed = parse(file, heading());
    const auto *found = std::get_if<Found>(&parsed);
    return found ? found->drafts.size() : 0;
}

platform::Status DraftFile::write(const Drafts &changed, const Drafts &left) {
    if (!m_mayWrite)
        return platform::success(); // reported when the file was refused
    if (changed.isEmpty() && left.isEmpty()) {
        // Without its folder, the file is not gone: it is there again when a network drive comes back.
        if (const QString folder = QFileInfo(m_path).path(); !QFileInfo::exists(folder))
            return platform::Failure{u"没有文件夹 "_s + folder};
        if (QFile file(m_path); file.exists() && !file.remove())
            return platform::Failure{file.errorString(), int(file.error())};
        m_lines = 0;
        m_mayAppend = true;
        return platform::success();
    }
    return writeWhole(heading() + linesOf(changed, false) + linesOf(left, true), changed.size() + left.size());
}

platform::Status DraftFile::writeWhole(const QByteArray &text, qsizetype lines) {
    if (text.size() > largest)
        return platform::Failure{u"修改太多"_s};
    auto written = platform::writeWholeFile(m_path, text, platform::Saving::OwnerOnly);
    if (written) {
        m_mayAppend = true;
        m_lines = lines;
    }
    return written;
}

bool DraftFile::needsWhole(qsizetype drafts) const {
    constexpr qint64 spare = 1000; // a few outdated lines do no harm
    return !m_mayAppend || m_lines > 2 * drafts + spare || (m_lines > 0 && !QFileInfo::exists(m_path));
}

platform::Status DraftFile::append(const Drafts &changed, const std::vector<int> &gone) {
    if (!m_mayWrite)
        return platform::success();
    QByteArray text = linesOf(changed, false);
    const qsizetype lines = changed.size() + qsizetype(gone.size());
    if (m_lines == 0)
        return changed.isEmpty() ? platform::success() : writeWhole(heading() + text, changed.size());
    for (const int row : gone)
        text += goneLine(row);
    auto opened = platform::openPlainFile(m_path, QIODevice::WriteOnly | QIODevice::Append);
    m_mayAppend = false; // until it is known that every line is complete
    if (!opened)
        return opened.failure();
    QFile &file = *opened.value();
    const qint64 before = file.size();
    if (before + text.size() > largest)
        return platform::Failure{u"修改太多"_s}; // as a whole, without the outdated lines, it may be short enough
    if (platform::notTaken(file, text).isEmpty()) {
        m_lines += lines;
        m_mayAppend = true;
        return platform::success();
    }
    const platform::Failure failure{file.errorString(), int(file.error())};
    m_mayAppend = file.resize(before);
    return failure;
}

platform::Result<QString> DraftFile::setAside(const Drafts &drafts) const {
    const QString path = freePath();
    const QByteArray text = heading() + linesOf(drafts, false);
    if (const auto written = platform::writeWholeFile(path, text, platform::Saving::OwnerOnly); !written)
        return written.failure();
    return path;
}

} // namespace workspace
