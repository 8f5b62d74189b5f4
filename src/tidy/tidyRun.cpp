#include "tidy/tidyRun.h"
#include "marc/fitText.h"
#include "platform/paths.h"
#include "tidy/isoSource.h"
#include "tidy/marcXmlSource.h"
#include <QFileInfo>
#include <algorithm>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Status;

namespace tidy {

namespace {

constexpr qint64 bytesPerStep = 1 << 20;
constexpr int looking = 20; // percentage of the work for detecting the encoding
constexpr QByteArrayView lineEnd("\r\n");

// Returns the target path with `mark` before its extension, which is replaced by `extension` unless that is empty.
QString beside(const QString &target, const QString &mark, const QString &extension = {}) {
    const qsizetype folder = platform::folderOf(target).size();
    const qsizetype point = target.lastIndexOf(u'.');
    const qsizetype end = point > folder ? point : target.size();
    return target.first(end) + mark + (extension.isEmpty() ? target.sliced(end) : extension);
}

// Replaces line breaks by blanks, since a field is on one line.
void blankBreaks(QString &text) {
    if (text.contains(u'\n') || text.contains(u'\r'))
        text.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
}

} // namespace

TidyFiles::TidyFiles(const QString &target)
    : target(target)
    , unreadable(beside(target, u".bad"_s))
    , unreadableXml(beside(target, u".bad"_s, u".xml"_s))
    , ahead(beside(target, u".part"_s)) {}

QStringList TidyFiles::existing() const {
    QStringList found;
    for (const QString &path : {target, unreadable, unreadableXml, ahead}) {
        const bool stands = platform::fileExists(path) || QFileInfo(path).isSymLink(); // even if the link is dangling
        if (stands && !found.contains(path))
            found.append(path);
    }
    return found;
}

std::optional<Refusal> refuseTidy(const QString &source, const QString &target) {
    if (source.isEmpty())
        return Refusal{.text = u"请选择需要整理的文件！"_s, .focus = Refusal::Field::Source};
    if (!platform::fileExists(source))
        return Refusal{.text = u"文件{"_s + source + u"}不存在！"_s, .focus = Refusal::Field::Source};
    if (platform::folderOf(target) == target)
        return Refusal{.text = u"请给出整理后的目标文件！"_s, .focus = Refusal::Field::Target};
    const TidyFiles files(target);
    for (const QString &path : {files.target, files.unreadable, files.unreadableXml, files.ahead}) {
        if (platform::isSameFile(source, path))
            return Refusal{.text = u"整理目标文件不能为源文件！"_s, .focus = Refusal::Field::Target};
    }
    return std::nullopt;
}

TidyRun::TidyRun(QString source, const QString &target, TargetForm form, SourceEncoding encoding)
    : m_source(std::move(source))
    , m_files(target)
    , m_form(form) {
    m_result.chosen = encoding;
}

Status TidyRun::open() {
    auto survey = marc::FileSurvey::open(m_source, marc::FileSurvey::Subject::NotReadableRecords);
    if (!survey)
        return survey.failure();
    m_survey = std::move(survey).value();
    m_size = m_survey->size();
    return platform::success();
}

platform::Result<bool> TidyRun::step() {
    return m_survey ? look() : work();
}

platform::Result<bool> TidyRun::look() {
    const platform::Result<bool> more = m_survey->step();
    if (!more)
        return more.failure();
    const marc::FileFacts facts = m_survey->facts();
    m_result.encoding = facts.encoding;
    m_result.doubtful = facts.doubtful;
    if (more.value() && !isXmlSource())
        return true;
    m_survey.reset();
    if (!isXmlSource() && facts.terminators == 0)
        return Failure{u"文件{"_s + m_source + u"}不是机读目录文件：没有记录结束符，也不是 MARCXML"_s};
    if (const Status begun = beginWork(); !begun)
        return begun.failure();
    return true;
}

// From an XML source, the target is first written under another name, since the XML may be broken.
Status TidyRun::beginWork() {
    m_charset = charsetOf(m_result.chosen, m_result.encoding);
    auto source = isXmlSource() ? MarcXmlSource::open(m_source) : IsoSource::open(m_source, m_charset);
    if (!source)
        return source.failure();
    m_records = std::move(source).value();
    auto target = platform::SavedFile::create(isXmlSource() ? m_files.ahead : m_files.target);
    if (!target)
        return target.failure();
    m_target = std::move(target).value();
    if (m_form == TargetForm::MarcXml)
        m_xml.emplace().begin();
    return platform::success();
}

platform::Result<bool> TidyRun::work() {
    using Found = TidySource::Found;
    const qint64 until = m_records->position() + bytesPerStep;
    for (Found found = Found::Record; found != Found::NotYet && m_records->position() < until;) {
        const platform::Result<Found> next = m_records->next();
        if (!next)
            return next.failure();
        found = next.value();
        if (found == Found::End)
            return ended();
        Status done = platform::success();
        if (found == Found::Record)
            done = keep();
        else if (found == Found::Unreadable)
            done = setAside(m_records->why());
        else if (found == Found::Piece)
            done = writeAside(m_records->raw());
        if (!done)
            return done.failure();
    }
    return true;
}

platform::Result<bool> TidyRun::ended() {
    m_result.broken = m_records->broken();
    m_result.passedOver = m_records->passedOver();
    if (m_result.in > 0)
        return false;
    return Failure{u"文件{"_s + m_source + u"}里没有机读目录记录"_s +
                   (m_result.broken ? u"。XML 有错，"_s + *m_result.broken : QString())};
}

// Returns the number of damaged byte sequences in the current record.
qint64 TidyRun::damagedInRecord() {
    const qint64 sofar = m_records->damagedBytes();
    return sofar - std::exchange(m_damagedBefore, sofar);
}

Status TidyRun::keep() {
    marc::FieldedRecord &record = m_records->record();
    record.leader = leaderFor(m_form, record.leader);
    const qint64 damaged = damagedInRecord();
    const QByteArrayView raw = m_records->raw();
    const bool mayBreak = isXmlSource() || raw.contains('\r') || raw.contains('\n');
    if (mayBreak) {
        for (marc::Field &field : record.fields)
            blankBreaks(field.content);
    }
    const RecordChange change = m_change.change ? m_change.change(record) : RecordChange();
    // UTF-8 holds every text; text that was decoded from GBK without damage can be encoded again.
    const bool isGbk = !isXmlSource() && m_charset == platform::Charset::Gbk && m_form == TargetForm::GbkIso;
    const bool fits = m_form == TargetForm::Utf8Iso || (isGbk && damaged == 0 && !m_change.change);
    QList<char32_t> lacking;
    if (!fits) {
        for (marc::Field &field : record.fields)
            lacking += marc::fitText(m_form, field.content);
    }
    Status written = platform::success();
    if (const QString why = write(record, written); !why.isEmpty())
        return setAside(why);
    const qint64 number = ++m_result.in;
    ++m_result.out;
    m_result.addChange(number, change.changed, change.why);
    for (const char32_t character : lacking) {
        if (character != QChar::ReplacementCharacter || damaged == 0) // otherwise it replaces damaged bytes
            m_result.addLacking(character, number);
    }
    if (damaged > 0)
        m_result.damagedBytes.add(number, damaged);
    if (m_records->directoryDamaged())
        m_result.damagedDirectories.add(number);
    return written;
}

// Returns why the record does not fit the target form, or an empty text.
QString TidyRun::write(const marc::FieldedRecord &record, Status &written) {
    if (m_xml) {
        m_xml->add(record);
        written = m_target->write(m_xml->take());
        return {};
    }
    const bool isGbk = m_form == TargetForm::GbkIso;
    const QString why = m_iso.make(record, isGbk ? marc::IsoEncoding::Gbk : marc::IsoEncoding::Utf8);
    if (why.isEmpty() && (written = m_target->write(m_iso.bytes())) && isGbk)
        written = m_target->write(lineEnd); // other programs expect no line ends in the UTF-8 form
    return why;
}

Status TidyRun::setAside(const QString &why) {
    damagedInRecord(); // not reported, since the bytes are kept
    m_result.addUnreadable(++m_result.in, why);
    if (isXmlSource()) {
        if (const Status opened = openAside(); !opened)
            return opened;
        m_asideXml->addAsItStood(m_records->raw());
        return writeAside(m_asideXml->take());
    }
    if (const Status kept = writeAside(m_records->raw()); !kept)
        return kept;
    using enum platform::Charset;
    constexpr QByteArrayView wideBig("\0\r\0\n", 4);
    constexpr QByteArrayView wideLittle("\r\0\n\0", 4);
    return writeAside(m_charset == Utf16Be ? wideBig : m_charset == Utf16Le ? wideLittle : lineEnd);
}

Status TidyRun::openAside() {
    if (m_aside)
        return platform::success();
    m_result.unreadableFile = isXmlSource() ? m_files.unreadableXml : m_files.unreadable;
    auto aside = platform::SavedFile::create(m_result.unreadableFile);
    if (!aside)
        return aside.failure();
    m_aside = std::move(aside).value();
    if (isXmlSource())
        m_asideXml.emplace().begin();
    return platform::success();
}

Status TidyRun::writeAside(QByteArrayView bytes) {
    if (const Status opened = openAside(); !opened)
        return opened;
    return m_aside->write(bytes);
}

// Commits the file of unusable records first: if the target then fails, that file is removed and nothing remains.
Status TidyRun::close() {
    m_result.target = m_result.broken ? m_files.ahead : m_files.target;
    m_result.change = m_change.name;
    if (m_change.tally)
        m_result.steps = m_change.tally();
    if (const Status ended = endXml(); !ended)
        return ended;
    if (m_aside) {
        if (const Status kept = m_aside->commit(); !kept)
            return kept;
    }
    Status done = m_target->commit();
    if (done && isXmlSource() && !m_result.broken)
        done = platform::moveOver(m_files.ahead, m_files.target);
    if (!done && m_aside)
        std::ignore = platform::removeFile(m_result.unreadableFile);
    m_target.reset();
    m_aside.reset();
    return done;
}

Status TidyRun::endXml() {
    if (m_asideXml) {
        m_asideXml->end();
        if (const Status written = m_aside->write(m_asideXml->take()); !written)
            return written;
    }
    if (!m_xml)
        return platform::success();
    m_xml->end();
    return m_target->write(m_xml->take());
}

int TidyRun::percent() const {
    const auto share = [this](qint64 position, int of) { return m_size > 0 ? int(position * of / m_size) : of; };
    if (m_survey)
        return share(m_survey->position(), looking);
    return m_records ? looking + share(m_records->position(), 100 - looking) : 0;
}

} // namespace tidy
