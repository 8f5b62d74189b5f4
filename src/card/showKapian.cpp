#include "card/showKapian.h"
#include "card/cardTables.h"
#include "marc/directory.h"
#include "marc/isoLayout.h"
#include "platform/numbers.h"
#include <array>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;
using platform::trimBlanks;

namespace card {

namespace {

constexpr qsizetype largestPosition = 32767; // card positions are 16-bit integers
constexpr QStringView itemSigns = u"①②③④⑤⑥⑦⑧⑨⑩";

struct Source {
    qint64 base;
    marc::DirectoryView directory;
    marc::FieldCutter cutter;
};

QString faultText(const QString &words) {
    return u"【showKapian】" + words + u"，卡片无法显示！";
}

// Returns std::nullopt if the record cannot be read; `card` then has a message or a fault.
std::optional<Source> openRecord(const marc::RawRecord &record, Card &card) {
    const marc::DirectoryView directory = marc::viewDirectory(record);
    const std::optional<qint16> base = platform::toInt16(directory.baseAddress);
    if (!platform::isNumericText(directory.baseAddress))
        card.fault = faultText(u"基地址“" + directory.baseAddress + u"”不是数字");
    else if (!base)
        card.fault = faultText(u"基地址“" + directory.baseAddress + u"”超出32767");
    else if (!directory.hasFieldTerminator)
        card.fault = faultText(u"没有找到地址目次区"_s);
    else if (record.indexOf(marc::fieldTerminator) >= largestPosition) // counted from 0
        card.fault = faultText(u"地址目次区超出32767个字符"_s);
    else if (directory.damaged)
        card.boxes.append(u"地址目次区数据出现错误，校验失败！"_s);
    else
        return Source{*base, directory, marc::FieldCutter(record)};
    return std::nullopt;
}

class Builder {
public:
    Builder(const Source &source, Card &card)
        : m_source(source)
        , m_allowance(source.cutter)
        , m_card(card) {}

    void build();

private:
    QString &slot(Slot name) { return m_slots[size_t(name)]; }
    bool failed() const { return !m_card.fault.isEmpty(); }

    template <class Work>
    void forEachField(QStringView tag, Work work);
    QString run(Format format, QStringView tag, QString &field);
    void fill(const SlotRow &row, QString &field);
    void addItem(const ListRow &row, QString &field);
    QString tracingLine();
    void assemble();

    const Source &m_source;
    marc::FieldAllowance m_allowance;
    Card &m_card;
    std::array<QString, size_t(Slot::count)> m_slots;
    int m_itemNo = 1;
};

template <class Work>
void Builder::forEachField(QStringView tag, Work work) {
    const marc::DirectoryView &directory = m_source.directory;
    for (qsizetype i = 0; i < directory.count() && !failed(); ++i) {
        if (directory.tag(i) != tag)
            continue;
        const auto start = qint64(std::nearbyint(platform::leadingNumber(directory.start(i))));
        const auto length = qint64(std::nearbyint(platform::leadingNumber(directory.length(i))));
        std::optional<QString> field = m_source.cutter.cut(m_source.base, start, length);
        if (field && !m_allowance.admits(field->size()))
            return;
        if (field)
            work(*field);
        else
            m_card.fault = faultText(u"字段" + tag + u"的长度或起始位置有误");
    }
}

// Returns the formatter's text and adds its messages and its failure to the card.
QString Builder::run(Format format, QStringView tag, QString &field) {
    const Piece piece = format(field);
    m_card.boxes += piece.boxes;
    if (piece.failed)
        m_card.fault = faultText(u"字段" + tag + u"没有内容，或者其中的子字段缺少代码");
    return piece.text;
}

void Builder::fill(const SlotRow &row, QString &field) {
    const QString text = run(row.format, row.tag, field);
    QString &target = slot(row.slot);
    if (target.isEmpty() || row.replaces)
        target = row.front + text + row.back;
    else
        target += row.joiner + text + row.back;
}

void Builder::addItem(const ListRow &row, QString &field) {
    if (run(row.test, row.tag, field).isEmpty())
        return;
    const QString item = run(row.item, row.tag, field);
    QString &list = slot(row.slot);
    if (m_itemNo == 1)
        list = item;
    else if (m_itemNo == 2)
        list = itemSigns[0] + list + u' ' + itemSigns[1] + item;
    else if (m_itemNo <= itemSigns.size())
        list += itemSigns[m_itemNo - 1] + item;
    ++m_itemNo;
}

void Builder::build() {
    for (const SlotRow &row : slotRows)
        forEachField(row.tag, [&](QString &field) { fill(row, field); });
    Slot family = Slot::count;
    for (const ListRow &row : listRows) {
        if (row.slot != family)
            m_itemNo = 1;
        family = row.slot;
        forEachField(row.tag, [&](QString &field) { addItem(row, field); });
    }
    if (!failed())
        assemble();
}

QString Builder::tracingLine() {
    QString line = u"  Ⅰ."_s;
    const QString title = trimBlanks(slot(Slot::s200)).left(1) + u"···";
    if (slot(Slot::s225).isEmpty()) {
        line += title;
    } else {
        // The fourth character is the first one of the series title, after "·—（".
        line += u'①' + title + u'②' + trimBlanks(slot(Slot::s225)).mid(3, 1) + u"···";
    }
    return line + slot(Slot::trace2) + slot(Slot::trace3) + u' ' + slot(Slot::trace4);
}

void Builder::assemble() {
    constexpr auto numerals = std::to_array<std::pair<Slot, QStringView>>(
        {{Slot::trace4, u"Ⅳ."}, {Slot::trace3, u"Ⅲ."}, {Slot::trace2, u"Ⅱ."}});
    for (const auto &[name, numeral] : numerals) {
        if (!slot(name).isEmpty())
            slot(name).prepend(numeral);
    }
    QString &isbn = slot(Slot::s010);
    const bool closesUp = !isbn.isEmpty() && !slot(Slot::notes).isEmpty();
    isbn.prepend(closesUp ? u"\r\n  " : u"\r\n\r\n  ");

    if (slot(Slot::s200).isEmpty()) {
        m_card.text = u"没有正题名,无法显示卡片!"_s;
        return;
    }
    QString text = u"\r\n\r\n  "_s;
    for (size_t i = 0; i <= size_t(Slot::s010); ++i)
        text += m_slots[i];
    m_card.text = text + u"\r\n\r\n" + tracingLine();
}

} // namespace

Card showKapian(const marc::RawRecord &record) {
    Card card;
    if (const std::optional<Source> source = openRecord(record, card))
        Builder(*source, card).build();
    return card;
}

} // namespace card
