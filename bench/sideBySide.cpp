#include "sideBySide.h"
#include <QElapsedTimer>
#include <QLocale>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

QString number(double value, const char *unit) {
    return QString::number(value, 'f', value < 10 ? 2 : 1) + u' ' + QLatin1StringView(unit);
}

QString amount(double value, Unit unit) {
    if (unit == Unit::Bytes)
        return value < 1e4 ? number(value, "B") : number(value / 1e6, "MB");
    return value < 1 ? number(value * 1000, "ms") : number(value, "s");
}

QString times(double ratio) {
    return QString::number(ratio, 'f', 2) + u" x";
}

void printRow(const QString &what, const QString &ours, const QString &theirs, const QString &ratio,
              const QString &wanted) {
    std::printf("%-66s %12s %12s %9s %12s\n", qUtf8Printable(what), qUtf8Printable(ours), qUtf8Printable(theirs),
                qUtf8Printable(ratio), qUtf8Printable(wanted));
    std::fflush(stdout);
}

} // namespace

std::vector<double> takeTurns(const char *what, int rounds, const std::vector<Side> &sides) {
    std::vector<double> best(sides.size(), std::numeric_limits<double>::infinity());
    for (int round = 0; round < rounds; ++round) {
        for (size_t i = 0; i < sides.size(); ++i) {
            const std::optional<double> taken = sides[i]();
            if (!taken) {
                std::fprintf(stderr, "%s: side %d did not do its work\n", what, int(i) + 1);
                std::exit(1);
            }
            best[i] = std::min(best[i], *taken);
        }
    }
    return best;
}

std::optional<double> timed(const std::function<bool()> &work) {
    QElapsedTimer clock;
    clock.start();
    const bool done = work();
    const double taken = double(clock.nsecsElapsed()) / 1e9;
    return done ? std::optional(taken) : std::nullopt;
}

Side command(const QString &line) {
    return [line = line.toLocal8Bit()] { return timed([&line] { return std::system(line.constData()) == 0; }); };
}

QString quoted(const QString &path) {
    QString text = path;
    text.replace(u'\'', u"'\\''"_s);
    return u'\'' + text + u'\'';
}

bool Row::missed() const {
    const double value = ratio.value_or(ours);
    return wanted > 0 && (sense == Sense::AtLeast ? value < wanted : value > wanted);
}

Table::Table() {
    printRow(u"what"_s, u"ours"_s, u"theirs"_s, u"ratio"_s, u"wanted"_s);
}

void Table::speed(const QString &what, double ours, double theirs, double wanted) {
    add({what, m_records, ours, theirs, theirs / ours, wanted, Sense::AtLeast});
}

void Table::time(const QString &what, double ours, double theirs, double wanted, double fixedPart) {
    add({what, m_records, ours, theirs, std::max(ours - fixedPart, 0.0) / theirs, wanted, Sense::AtMost});
}

void Table::size(const QString &what, double ours, double theirs, double wanted, double fixedPart) {
    add({what, m_records, ours, theirs, std::max(ours - fixedPart, 0.0) / theirs, wanted, Sense::AtMost, Unit::Bytes});
}

void Table::bound(const QString &what, double ours, double wanted, Unit unit) {
    add({what, m_records, ours, {}, {}, wanted, Sense::AtMost, unit});
}

void Table::rate(const QString &what, double perSecond, const QString &unit) {
    printRow(what, QString::number(perSecond, 'f', 0) + unit, u"-"_s, u"-"_s, u"-"_s);
}

void Table::add(Row row) {
    const QString limit = row.ratio ? times(row.wanted) : amount(row.wanted, row.unit);
    printRow(row.records > 0 ? QString(QLocale(QLocale::English).toString(row.records) + u": " + row.what) : row.what,
             amount(row.ours, row.unit), row.theirs ? amount(*row.theirs, row.unit) : u"-"_s,
             row.ratio ? times(*row.ratio) : u"-"_s,
             row.wanted > 0 ? QString((row.missed() ? u"! "_s : QString()) +
                                      (row.sense == Sense::AtLeast ? u">= "_s : u"<= "_s) + limit)
                            : u"-"_s);
    m_rows.push_back(std::move(row));
}

int Table::missed() const {
    return int(std::ranges::count_if(m_rows, &Row::missed));
}

} // namespace bench
