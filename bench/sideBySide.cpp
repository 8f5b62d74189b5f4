#include "sideBySide.h"
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace bench {

namespace {

constexpr const char *rowForm = "%-58s %12s %12s %9s %9s\n";

QByteArray number(double value, const char *unit) {
    return QByteArray::number(value, 'f', value < 10 ? 2 : 1) + ' ' + unit;
}

QByteArray seconds(double value) {
    return value < 1 ? number(value * 1000, "ms") : number(value, "s");
}

QByteArray times(double ratio) {
    return QByteArray::number(ratio, 'f', 2) + " x";
}

void printRow(const char *what, const QByteArray &ours, const QByteArray &theirs, const QByteArray &ratio,
              const QByteArray &wanted, bool missed) {
    std::printf(rowForm, what, ours.constData(), theirs.constData(), ratio.constData(),
                (missed ? "! " + wanted : wanted).constData());
    std::fflush(stdout);
}

} // namespace

std::vector<double> takeTurns(const char *what, int rounds, const std::vector<Side> &sides) {
    std::vector<double> best(sides.size(), std::numeric_limits<double>::infinity());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < sides.size(); ++i) {
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
    text.replace(u'\'', QStringLiteral("'\\''"));
    return u'\'' + text + u'\'';
}

Table::Table() {
    std::printf(rowForm, "what", "ours", "theirs", "ratio", "wanted");
}

void Table::speed(const char *what, double ours, double theirs, double wanted) {
    const double ratio = theirs / ours;
    const bool missed = ratio < wanted;
    m_missed += missed;
    printRow(what, seconds(ours), seconds(theirs), times(ratio), wanted > 0 ? QByteArray(">= " + times(wanted)) : "-",
             missed);
}

void Table::size(const char *what, double ours, double theirs, double wanted) {
    const double ratio = ours / theirs;
    const bool missed = ratio > wanted;
    m_missed += missed;
    printRow(what, number(ours / 1e6, "MB"), number(theirs / 1e6, "MB"), times(ratio), "<= " + times(wanted), missed);
}

void Table::rate(const char *what, double perSecond, const char *unit) {
    printRow(what, QByteArray::number(perSecond, 'f', 0) + unit, "-", "-", "-", false);
}

} // namespace bench
