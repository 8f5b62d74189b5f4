#include "import/importRun.h"

using namespace Qt::StringLiterals;

namespace importing {

QString percentage(qint64 done, qint64 total) {
    const qint64 hundredths = (done * 20'000 + total) / (total * 2);
    return QString::number(hundredths / 100) + u'.' + QString::number(hundredths % 100).rightJustified(2, u'0') + u'%';
}

void ImportRun::take(const QString &record, const std::function<bool(const QString &)> &daoru) {
    if (!record.isEmpty())
        m_lastWentIn = daoru(record);
    ++m_taken;
    if (m_lastWentIn)
        ++m_succeeded;
}

void ImportRun::leaveOut() {
    ++m_taken;
    ++m_leftOut;
}

QString ImportRun::leftOutText() const {
    return m_leftOut > 0 ? u"跳过查重命中的 %1 条"_s.arg(m_leftOut) : QString();
}

QString ImportRun::countText() const {
    return u"已经成功处理的记录数："_s + QString::number(m_lastWentIn ? m_succeeded : 0);
}

QString ImportRun::closingText() const {
    return u"本次成功处理的记录数："_s + QString::number(m_succeeded);
}

} // namespace importing
