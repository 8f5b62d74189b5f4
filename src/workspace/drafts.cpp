#include "workspace/drafts.h"
#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <tuple>

using namespace Qt::StringLiterals;

namespace workspace {

Drafts::Drafts(const QString &folder, const QString &sourceFile)
    : m_source(QFileInfo(sourceFile).absoluteFilePath()) {
    if (folder.isEmpty())
        return;
    const QByteArray name = QCryptographicHash::hash(m_source.toUtf8(), QCryptographicHash::Sha1).toHex();
    m_path = folder + QString::fromLatin1(name) + u".json";
}

// Size and time of the file as it stands.
QByteArray Drafts::identity() const {
    const QFileInfo file(m_source);
    return QByteArray::number(file.size()) + ' ' + QByteArray::number(file.lastModified().toMSecsSinceEpoch());
}

Drafts::Found Drafts::look() {
    QFile file(m_path);
    if (m_path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return Found::Nothing;
    const QJsonObject draft = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonObject records = draft["records"_L1].toObject();
    for (auto record = records.begin(); record != records.end(); ++record) {
        bool isRow = false;
        if (const int row = record.key().toInt(&isRow); isRow && row >= 0 && record->isString())
            m_left.insert(row, record->toString());
    }
    if (m_left.isEmpty())
        return Found::Nothing;
    if (draft["identity"_L1].toString().toLatin1() == identity())
        return Found::OfThisFile;
    m_left.clear();
    file.close();
    QFile::remove(keptPath());
    file.rename(keptPath());
    return Found::OfAnOlderFile;
}

void Drafts::keep(int row, const marc::RawRecord &record) {
    if (m_records.value(row) == record)
        return;
    m_records.insert(row, record);
    m_unwritten = true;
}

void Drafts::forget(int row) {
    m_unwritten = m_records.remove(row) > 0 || m_unwritten;
}

platform::Status Drafts::write() {
    m_unwritten = false;
    if (m_path.isEmpty())
        return platform::success();
    QMap<int, marc::RawRecord> all = m_left;
    all.insert(m_records);
    if (all.isEmpty()) {
        QFile::remove(m_path);
        return platform::success();
    }
    QJsonObject records;
    for (auto record = all.cbegin(); record != all.cend(); ++record)
        records.insert(QString::number(record.key()), record.value());
    const QJsonObject draft{
        {u"path"_s, m_source}, {u"identity"_s, QString::fromLatin1(identity())}, {u"records"_s, records}};
    QSaveFile file(m_path);
    const QByteArray text = QJsonDocument(draft).toJson(QJsonDocument::Compact);
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(text) == text.size() && file.commit())
        return platform::success();
    return platform::Failure{file.errorString(), int(file.error())};
}

void Drafts::drop() {
    m_records.clear();
    m_left.clear();
    std::ignore = write();
}

} // namespace workspace
