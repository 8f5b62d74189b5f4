#include "scaleReport.h"
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

double loadNow() {
    double load = 0;
    return getloadavg(&load, 1) == 1 ? load : 0;
}

QJsonValue orNull(std::optional<double> value) {
    return value ? QJsonValue(*value) : QJsonValue();
}

QJsonObject asJson(const Figure &figure) {
    return {{u"operation"_s, figure.operation},
            {u"records"_s, figure.records},
            {u"counted"_s, figure.counted},
            {u"seconds"_s, figure.seconds},
            {u"theirs"_s, orNull(figure.theirs)},
            {u"beside"_s, figure.beside},
            {u"load"_s, figure.load}};
}

QJsonObject asJson(const Row &row) {
    return {{u"what"_s, row.what},
            {u"records"_s, row.records},
            {u"ours"_s, row.ours},
            {u"theirs"_s, orNull(row.theirs)},
            {u"ratio"_s, orNull(row.ratio)},
            {u"wanted"_s, row.wanted},
            {u"sense"_s, row.sense == Sense::AtLeast ? u"atLeast"_s : u"atMost"_s},
            {u"unit"_s, row.unit == Unit::Seconds ? u"s"_s : u"B"_s},
            {u"missed"_s, row.missed()}};
}

template <class T>
QJsonArray allAsJson(const std::vector<T> &list) {
    QJsonArray array;
    for (const T &one : list)
        array.append(asJson(one));
    return array;
}

} // namespace

void ScaleReport::about(int records) {
    m_records = records;
    table.about(records);
}

void ScaleReport::compared(const QString &operation, const std::vector<double> &sides, const QString &beside,
                           double wanted) {
    m_figures.push_back({operation, m_records, m_records, sides[0], sides[1], beside, loadNow()});
    if (wanted > 0)
        table.speed(operation + u" | " + beside, sides[0], sides[1], wanted);
}

void ScaleReport::alone(const QString &operation, double seconds, int counted, double wanted) {
    m_figures.push_back({operation, m_records, counted, seconds, {}, {}, loadNow()});
    table.bound(operation, seconds, wanted * counted);
}

bool ScaleReport::write(const QString &path) const {
    const QJsonObject all{{u"toolkit"_s, QLatin1StringView(qVersion())},
                          {u"figures"_s, allAsJson(m_figures)},
                          {u"rows"_s, allAsJson(table.rows())}};
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(all).toJson()) > 0;
}

int roundsOf(int records, int usual, int ofLarge) {
    return records >= 1'000'000 ? ofLarge : usual;
}

} // namespace bench
