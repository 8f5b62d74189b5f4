#include "tidy/tidyResult.h"
#include "marc/fileSurvey.h"
#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tidy {

namespace {

constexpr QStringView lineBreak = u"\r\n";

// Returns a text such as "第 1、7 条".
QString placesOf(const Noted &noted) {
    QStringList numbers;
    for (const qint64 record : noted.records)
        numbers.append(QString::number(record));
    return u"第 "_s + numbers.join(u'、') + (noted.inMore ? u"……条"_s : u" 条"_s);
}

QString shownCharacter(char32_t character) {
    const QString code = u"U+"_s + QString::number(uint(character), 16).toUpper().rightJustified(4, u'0');
    return character < 0x20 ? code : QStringView(QChar::fromUcs4(character)).toString() + u"（"_s + code + u"）"_s;
}

// XML declares its own encoding, so the user's choice does not apply to it.
bool isChosen(const TidyResult &result) {
    return result.chosen != SourceEncoding::Automatic && !isXml(result.encoding);
}

QString encodingWords(const TidyResult &result) {
    return isChosen(result) ? u"按 "_s + caption(result.chosen) + u" 读"_s : marc::encodingName(result.encoding);
}

QString lackingLines(const TidyResult &result) {
    if (result.lacking.count == 0)
        return {};
    QString text = u"\r\n【写成“?”的字符】\r\n目标编码没有的字符 %1 处：\r\n"_s.arg(result.lacking.count);
    for (const auto &[character, noted] : result.lackingByCharacter)
        text += shownCharacter(character) + u"：%1 处，"_s.arg(noted.count) + placesOf(noted) + lineBreak;
    if (result.lackingByCharacter.size() >= TidyResult::mostListed)
        text += u"……\r\n"_s;
    return text;
}

QString damageLines(const TidyResult &result) {
    QString text;
    if (result.damagedBytes.count > 0)
        text += u"受损字节 %1 处："_s.arg(result.damagedBytes.count) + placesOf(result.damagedBytes) + lineBreak;
    if (result.damagedDirectories.count > 0)
        text += u"目次区损坏，按分隔符取出 %1 条："_s.arg(result.damagedDirectories.count) +
                placesOf(result.damagedDirectories) + lineBreak;
    return text.isEmpty() ? text : u"\r\n【受损】\r\n"_s + text;
}

QString reasonLines(const Reasons &reasons, qint64 all) {
    QString text;
    qint64 listed = 0;
    for (const auto &[why, noted] : reasons) {
        text += placesOf(noted) + (noted.count > 1 ? u"（共 %1 条）"_s.arg(noted.count) : QString()) + u'：' + why +
                lineBreak;
        listed += noted.count;
    }
    return all > listed ? QString(text + u"……\r\n") : text;
}

QString unreadableLines(const TidyResult &result) {
    if (result.unreadable.count == 0)
        return {};
    return u"\r\n【未能整理】\r\n%1 条，原样存入文件{%2}：\r\n"_s.arg(result.unreadable.count)
               .arg(result.unreadableFile) +
           reasonLines(result.reasons, result.unreadable.count);
}

QString changeLines(const TidyResult &result) {
    if (result.change.isEmpty())
        return {};
    QString text = u"\r\n【批改】\r\n任务“%1”改了 %2 条记录！\r\n"_s.arg(result.change).arg(result.changed);
    for (const StepTally &step : result.steps)
        text += u"　%1 处，%2 条　%3\r\n"_s.arg(step.changes).arg(step.records).arg(step.words);
    if (result.notChanged.count > 0)
        text += u"%1 条不能改，照原样写出：\r\n"_s.arg(result.notChanged.count) +
                reasonLines(result.reasonsNotChanged, result.notChanged.count);
    return text;
}

void addReason(Reasons &reasons, qint64 record, const QString &why) {
    constexpr qsizetype mostReasons = 100;
    const auto known = std::ranges::find(reasons, why, &std::pair<QString, Noted>::first);
    if (known != reasons.end()) {
        known->second.add(record);
    } else if (reasons.size() < mostReasons) {
        reasons.append({why, {}});
        reasons.last().second.add(record);
    }
}

} // namespace

void Noted::add(qint64 record, qint64 times) {
    count += times;
    if (!records.isEmpty() && records.last() == record)
        return;
    if (records.size() < most)
        records.append(record);
    else
        inMore = true;
}

void TidyResult::addLacking(char32_t character, qint64 record) {
    lacking.add(record);
    if (lackingByCharacter.size() < mostListed || lackingByCharacter.contains(character))
        lackingByCharacter[character].add(record);
}

void TidyResult::addUnreadable(qint64 record, const QString &why) {
    unreadable.add(record);
    addReason(reasons, record, why);
}

void TidyResult::addChange(qint64 record, bool wasChanged, const QString &why) {
    changed += wasChanged;
    if (why.isEmpty())
        return;
    notChanged.add(record);
    addReason(reasonsNotChanged, record, why);
}

QString warning(const TidyResult &result) {
    QStringList parts;
    const bool isGuess = !isChosen(result);
    if (isGuess && result.encoding == marc::FileEncoding::Unknown)
        parts.append(u"编码不明，是按 GBK 读的"_s);
    if (isGuess && result.doubtful)
        parts.append(u"编码不一定对"_s);
    const std::pair<QStringView, const Noted &> rows[] = {{u"写成“?”的字符 %1 处（%2）", result.lacking},
                                                          {u"受损字节 %1 处（%2）", result.damagedBytes},
                                                          {u"未能整理 %1 条（%2）", result.unreadable},
                                                          {u"未能批改 %1 条（%2）", result.notChanged}};
    for (const auto &[words, noted] : rows) {
        if (noted.count > 0)
            parts.append(words.toString().arg(noted.count).arg(placesOf(noted)));
    }
    return parts.isEmpty() ? QString() : u"⚠ "_s + parts.join(u"；"_s);
}

QString report(const TidyResult &result, const QString &source) {
    QString text = u"【源文件】\r\n文件{"_s + source + u"}（"_s + encodingWords(result) + u"）读到"_s +
                   QString::number(result.in) + u"条记录！\r\n"_s;
    if (result.passedOver > 0)
        text += u"XML 里有 %1 个 record 不是机读目录记录，略过了。\r\n"_s.arg(result.passedOver);
    if (result.broken)
        text += u"XML 有错，只取出了前面的记录："_s + *result.broken + lineBreak;
    text +=
        u"\r\n【目标文件】\r\n文件{"_s + result.target + u"}保存了"_s + QString::number(result.out) + u"条记录！\r\n"_s;
    return text + changeLines(result) + unreadableLines(result) + lackingLines(result) + damageLines(result);
}

} // namespace tidy
