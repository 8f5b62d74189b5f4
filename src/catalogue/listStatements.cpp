#include "catalogue/listStatements.h"
#include <QStringList>
#include <algorithm>
#include <functional>
#include <iterator>
#include <span>

using namespace Qt::StringLiterals;

namespace catalogue {

namespace {

QString with(QStringView statement, const QString &condition, const QString &order) {
    QString result = statement.toString();
    if (!condition.isEmpty())
        result += u" where " + condition;
    if (!order.isEmpty())
        result += u" order by " + order;
    return result;
}

using KeyRun = std::span<const qint64>; // consecutive keys in ascending order

QList<KeyRun> runsOf(const QList<qint64> &sorted) {
    QList<KeyRun> runs;
    for (auto from = sorted.cbegin(); from != sorted.cend();) {
        // Subtracts, since adding 1 to the largest key would overflow.
        auto to = std::ranges::adjacent_find(from, sorted.cend(),
                                             [](qint64 one, qint64 next) { return next > one && next - 1 > one; });
        if (to != sorted.cend())
            ++to;
        runs.append(KeyRun(from, to));
        from = to;
    }
    return runs;
}

} // namespace

QString catalogueStatement(const QString &condition, const QString &order) {
    return with(u"select zskid as [控制号],ISBN as isbn,bookname as [书   名],author as [著 者],classcode as [分类号],"
                u"publisher as [出版社],bookcount as [册 数],convert(varchar(10),catatime,111) as [入库日期] from zsk",
                condition, order);
}

QString reportStatement(const QString &condition, const QString &order) {
    return with(u"Select bookname,author,classcode,publisher,bookcount From zsk", condition, order);
}

QString exportStatement(const QString &zskid) {
    return u"select zskid,ISBN ,bookname,author,classcode,publisher,bookcount,edition,pubplace,pubdate,pages,appendix,"
           u"books,booksauthor,measure,ztc,lagclass from zsk where zskid=" +
           zskid;
}

QString detailStatement(qint32 zskid) {
    return u"select classcode,isbn,bookname,author,publisher,pubplace,pubdate,docclass,lagclass,"
           u"edition,measure,pages,bookcount,bookname,zch from ZSK where zskid=" +
           QString::number(zskid);
}

QString copiesStatement(qint32 zskid) {
    return u"select sck.barcode as [条形码],rollcode as [卷 次],bookplace as [藏 地],price as [价 格],"
           u"bookstatus as [状 态],convert(nvarchar(1),borrowstatus) as [可借否],convert(nvarchar(10),yhdate,111) as "
           u"[应还日期] from sck Left Join jhsk On sck.barcode=jhsk.barcode Where zskid=" +
           QString::number(zskid);
}

QString storeStatement(const QString &condition, const QString &order) {
    return with(u"select zskid,bookname,author,ISBN,classcode,pages,measure,edition from taoluTable", condition, order);
}

// A chain of "or" is nested as deep as it is long and takes some servers quadratic time. Therefore only the longest
// runs, which shorten the statement most, become ranges.
QString keysCondition(QList<qint64> keys) {
    constexpr qsizetype rangesAtMost = 20;
    std::ranges::sort(keys);
    QList<KeyRun> runs = runsOf(keys);
    std::ranges::stable_sort(runs, std::greater(), &KeyRun::size);
    QStringList parts;
    QStringList single;
    for (const KeyRun &run : std::as_const(runs)) {
        if (run.size() > 2 && parts.size() < rangesAtMost)
            parts.append(u"zskid between " + QString::number(run.front()) + u" and " + QString::number(run.back()));
        else
            std::ranges::transform(run, std::back_inserter(single), [](qint64 key) { return QString::number(key); });
    }
    if (!single.isEmpty())
        parts.append(u"zskid in (" + single.join(u',') + u')');
    return parts.isEmpty() ? u"zskid is null"_s : QString(u'(' + parts.join(u" or ") + u')');
}

QString recordsStatement(const QString &condition) {
    return with(u"select zskid,marc from taoluTable", condition, {});
}

QString deleteRowStatement(const QString &zskid) {
    return u"delete from taoluTable where zskid=" + zskid;
}

QString deleteAllStatement(const QString &condition, const QString &order) {
    return with(u"delete from taoluTable", condition, condition.isEmpty() ? QString() : order);
}

} // namespace catalogue
