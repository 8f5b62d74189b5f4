#include "catalogue/bookDetail.h"
#include <optional>

using namespace Qt::StringLiterals;

namespace catalogue {

namespace {

constexpr int canBorrow = 5; // column of the copies

// The columns of the labels. The first label also has the book number.
constexpr std::array<QStringView, detailLabels> columns = {
    u"classcode", u"isbn",     u"bookname", u"author",  u"publisher", u"pubplace", u"pubdate",
    u"docclass",  u"lagclass", u"edition",  u"measure", u"pages",     u"bookcount"};

QString cell(const database::ResultTable &book, QStringView name) {
    const std::optional<int> column = book.column(name);
    return column ? book.text(0, *column) : QString();
}

} // namespace

const std::array<QStringView, detailLabels> detailCaptions = {
    u"分类号  ：", u"ISBN  ：", u"书名    ：", u"著者    ：", u"出版者  ：", u"出版地：",  u"出版日期：",
    u"文献类型：", u"语种  ：", u"版本    ：", u"开本    ：", u"页数  ：",   u"册数    ："};

std::array<QString, detailLabels> detailValues(const database::ResultTable &book) {
    std::array<QString, detailLabels> values;
    for (size_t i = 0; i < detailLabels; ++i)
        values[i] = cell(book, columns[i]);
    values[0] += u"/" + cell(book, u"zch");
    return values;
}

QString CopiesTable::text(int row, int column) const {
    const QString stored = m_copies->text(row, column);
    if (column != canBorrow)
        return stored;
    return stored == u"1" ? u"是"_s : u"否"_s;
}

} // namespace catalogue
