#include "workspace/windows/fieldGrid.h"
#include "widgets/fixedColours.h"
#include "widgets/flexGridColours.h"
#include "widgets/styleTokens.h"
#include <QFontDatabase>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextOption>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <memory>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr auto widths = std::to_array<int>({0, 2000, 450, 2000, 4600});
constexpr int fixedRows = 1;

static_assert(std::reduce(widths.begin(), widths.end()) == FieldGrid::allTwips);

// In coded data positions are counted, so blanks must be visible. A line separates the fields, not their subfields.
class FieldDelegate final : public widgets::FlexGridDelegate {
public:
    using FlexGridDelegate::FlexGridDelegate;

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override {
        QStringList words;
        for (const RowRemark &remark : grid().remarksOn(index.row() + fixedRows))
            words.append(remark.words.toHtmlEscaped());
        if (event->type() != QEvent::ToolTip || words.isEmpty())
            return FlexGridDelegate::helpEvent(event, view, option, index);
        QToolTip::showText(event->globalPos(), u"<qt>"_s + words.join(u"<br>") + u"</qt>", view->viewport(),
                           option.rect);
        return true;
    }

protected:
    bool hasLineAbove(const QModelIndex &index) const override { return index.row() > 0 && beginsField(index); }

    QFont cellFont(const QFont &plain, const QModelIndex &index) const override {
        if (isCoded(index))
            return codedFont(plain);
        QFont font = plain;
        if (index.column() == IdentifierColumn && beginsField(index))
            font.setWeight(QFont::Medium);
        return font;
    }

    void paintText(QPainter *painter, const QRect &place, const QStyleOptionViewItem &option, const QModelIndex &index,
                   const QString &text) const override {
        FlexGridDelegate::paintText(painter, place, option, index, text);
        if (!isCoded(index))
            return;
        const QFontMetricsF metrics(painter->font());
        painter->setPen(widgets::colour(widgets::Colour::FaintInk, option.palette));
        for (qsizetype at = text.indexOf(u' '); at >= 0; at = text.indexOf(u' ', at + 1)) {
            const double left = place.left() + metrics.horizontalAdvance(text, int(at));
            if (left < place.right())
                painter->drawText(QRectF(left, place.top(), metrics.horizontalAdvance(u' '), place.height()),
                                  Qt::AlignCenter, u"·"_s);
        }
    }

    std::optional<CellMark> markOf(const QModelIndex &index) const override {
        if (index.column() != SubfieldLabelColumn)
            return std::nullopt;
        const std::vector<RowRemark> remarks = grid().remarksOn(index.row() + fixedRows);
        return remarks.empty() ? std::nullopt : std::optional(CellMark{remarks[0].mark, true});
    }

private:
    const FieldGrid &grid() const { return *static_cast<const FieldGrid *>(parent()); }

    bool beginsField(const QModelIndex &index) const {
        return !grid().text(index.row() + fixedRows, IdentifierColumn).startsWith(u'$');
    }

    bool isCoded(const QModelIndex &index) const {
        return index.column() == ValueColumn && grid().isCoded(index.row() + fixedRows);
    }
};

} // namespace

QFont codedFont(const QFont &plain) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    QStringList families = font.families();
    families << u"Noto Sans Mono CJK SC"_s << plain.families();
    font.setFamilies(families);
    font.setPointSizeF(plain.pointSizeF());
    font.setStyleHint(QFont::Monospace);
    return font;
}

void showBlanks(QPlainTextEdit &box, bool shown) {
    QTextOption option = box.document()->defaultTextOption();
    option.setFlags(option.flags().setFlag(QTextOption::ShowTabsAndSpaces, shown));
    box.document()->setDefaultTextOption(option);
}

FieldGrid::FieldGrid(const QString &objectName, QWidget *parent)
    : FlexGrid(objectName, int(widths.size()), fixedRows, parent) {
    setFormat(u"行数|^字段说明|标识符|^子字段说明|^字段内容"_s);
    for (int column = 0; column < columns(); ++column) {
        setColumnTwips(column, widths[size_t(column)]);
        setColumnAlignment(column, Qt::AlignLeft | Qt::AlignVCenter);
    }
    setItemDelegate(new FieldDelegate(this));
    setStretchColumn(ValueColumn);
    for (const QScrollBar *bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &FieldGrid::scrolled);
}

void FieldGrid::follow(std::shared_ptr<const EditedRecord> record) {
    m_record = std::move(record);
    connect(m_record.get(), &EditedRecord::shown, this, &FieldGrid::showAnew);
    connect(m_record.get(), &EditedRecord::rowInserted, this, [this](int row) {
        sourceInsertedRow(row);
        shade(row);
    });
    connect(m_record.get(), &EditedRecord::rowRemoved, this, &FieldGrid::sourceRemovedRow);
    connect(m_record.get(), &EditedRecord::cellChanged, this, &FieldGrid::sourceChanged);
    showAnew();
}

bool FieldGrid::isCoded(int row) const {
    for (; row >= fixedRows; --row) {
        const QString tag = text(row, IdentifierColumn);
        if (tag.size() == 3 && tag[0].isDigit())
            return tag < u"010"_s || tag.startsWith(u'1');
    }
    return false;
}

void FieldGrid::markRows(std::vector<RowRemark> remarks) {
    std::ranges::stable_sort(remarks, {}, [](const RowRemark &remark) { return std::pair(remark.row, remark.mark); });
    m_remarks = std::move(remarks);
    viewport()->update();
}

std::vector<RowRemark> FieldGrid::remarksOn(int row) const {
    const auto from = std::ranges::lower_bound(m_remarks, row, {}, &RowRemark::row);
    return {from, std::ranges::upper_bound(from, m_remarks.end(), row, {}, &RowRemark::row)};
}

void FieldGrid::showAnew() {
    bind(m_record); // makes row 1 current
    for (int row = fixedRows; row < rows(); ++row)
        shade(row);
    Q_EMIT rearranged();
}

// A row added by the user has a number and stays white.
void FieldGrid::shade(int row) {
    if (!m_record->row(row).number.isEmpty())
        return;
    for (const int column : {FieldLabelColumn, IdentifierColumn, SubfieldLabelColumn})
        setCellBackground(row, column, widgets::descriptionGrey);
}

QRect FieldGrid::rightHalf() const {
    QRect half = geometry();
    half.setLeft(half.left() + half.width() / 2);
    return half;
}

void FieldGrid::keyPressEvent(QKeyEvent *event) {
    constexpr int tagLength = 3;
    constexpr qint64 soon = 1500; // ms
    const QString typed = event->text();
    if (event->modifiers() & ~Qt::KeypadModifier || typed.size() != 1 || typed[0] < u'0' || typed[0] > u'9')
        return FlexGrid::keyPressEvent(event);
    event->accept();
    if (m_digits.size() == tagLength || !m_sinceDigit.isValid() || m_sinceDigit.elapsed() > soon)
        m_digits.clear();
    m_digits += typed;
    m_sinceDigit.start();
    Q_EMIT tagTyped(m_digits);
}

void FieldGrid::resizeEvent(QResizeEvent *event) {
    const int top = rowViewportPosition(row() - fixedRows);
    const bool wasInSight = top >= 0 && top + rowHeight(row() - fixedRows) <= event->oldSize().height();
    FlexGrid::resizeEvent(event);
    if (wasInSight && row() >= fixedRows) // a pane shown below the grid must not hide the current row
        scrollToRow(row());
    QMetaObject::invokeMethod(this, &FieldGrid::rearranged, Qt::QueuedConnection);
}

} // namespace workspace
