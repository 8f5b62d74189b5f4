#include "assist/windows/boxStrip.h"
#include "platform/desktop/screenSize.h"
#include "widgets/clickLabel.h"
#include "widgets/layout.h"
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QToolButton>
#include <algorithm>

using namespace Qt::StringLiterals;
using widgets::ClickLabel;
using widgets::named;

namespace assist {

namespace {

// The first words of captions that take two lines.
constexpr auto firstWords =
    std::to_array<QStringView>({u"记录", u"出版", u"阅读", u"政府", u"变更", u"编目语种", u"补充", u"题名"});

// Returns a long caption with a line break between two words.
QString inTwoLines(const QString &caption) {
    constexpr int longest = 4; // characters of a line
    if (caption.size() <= longest)
        return caption;
    const auto word = std::ranges::find_if(firstWords, [&](QStringView start) { return caption.startsWith(start); });
    const qsizetype first = word != firstWords.end() ? word->size() : (caption.size() + 1) / 2;
    return caption.first(first) + u'\n' + caption.sliced(first);
}

int longestLine(const QString &caption) {
    qsizetype longest = 0;
    for (const QStringView line : QStringView(caption).split(u'\n'))
        longest = std::max(longest, line.size());
    return int(longest);
}

// A label that is painted with the line breaks of inTwoLines().
class TwoLineLabel final : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        style()->drawItemText(&painter, contentsRect(), int(alignment()), palette(), isEnabled(), inTwoLines(text()),
                              foregroundRole());
    }
};

} // namespace

BoxStrip::BoxStrip(std::span<const assist::Box> table, QWidget *parent)
    : QScrollArea(parent) {
    setObjectName(u"boxArea"_s);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    for (const assist::Box &row : table) {
        auto *box = new CodeBox(u"Text1"_s + QString::number(boxes.size()), row.width, this);
        if (row.kind == BoxKind::Fixed)
            box->makeFixed();
        else
            box->makeEditable();
        boxes.push_back(box);
    }
    auto *content = new QWidget;
    content->setLayout(layOut(table));
    content->layout()->setContentsMargins(0, 0, 0, 0);
    setWidget(content);
    fit();
}

// Lays out the boxes in order, each label above the boxes it belongs to.
QLayout *BoxStrip::layOut(std::span<const assist::Box> table) {
    using widgets::row, widgets::column, widgets::stretch;
    auto *groups = new QHBoxLayout;
    QBoxLayout *group = nullptr;
    for (int i = 0; i < int(table.size()); ++i) {
        const assist::Box &entry = table[size_t(i)];
        CodeBox *box = boxes[size_t(i)];
        if (!entry.label.isEmpty()) {
            QWidget *label = makeLabel(entry, box);
            group = row({});
            group->setSpacing(group->spacing() / 3); // boxes of one label are close together
            groups->addLayout(column({row({stretch(), label, stretch()}), row({stretch(), group, stretch()})}));
        }
        box->setAccessibleName(labels.back()->accessibleName());
        group->addWidget(box);
        if (entry.fromList) {
            QToolButton *button = makeButton(entry);
            group->addWidget(button);
            connect(button, &QToolButton::clicked, this, [this, i] { Q_EMIT listWanted(i); });
            connect(box, &CodeBox::listWanted, this, [this, i] { Q_EMIT listWanted(i); });
        }
    }
    groups->addStretch();
    return groups;
}

// Long captions wrap to two lines.
QWidget *BoxStrip::makeLabel(const assist::Box &entry, QWidget *box) {
    const QString name = u"LabShuoMing"_s + QString::number(labels.size());
    const QString caption = entry.label.toString();
    constexpr Qt::Alignment place = Qt::AlignHCenter | Qt::AlignBottom;
    QWidget *label = nullptr;
    if (entry.fromList) {
        auto *link = new ClickLabel(name, caption, ClickLabel::Look::Underlined, this);
        link->setTextFlags(int(place));
        link->setPaintedText(inTwoLines(caption));
        link->setFocusPolicy(Qt::NoFocus);
        connect(link, &ClickLabel::pressed, box, qOverload<>(&QWidget::setFocus));
        label = link;
    } else {
        auto *plain = named(new TwoLineLabel(caption, this), name, caption);
        plain->setWordWrap(true);
        plain->setAlignment(place);
        label = plain;
    }
    const QFontMetrics metrics(font());
    label->setFixedWidth(metrics.horizontalAdvance(QString(longestLine(inTwoLines(caption)), u'字')) +
                         metrics.averageCharWidth() / 2);
    label->setMinimumHeight(2 * metrics.lineSpacing());
    labels.push_back(label);
    return label;
}

QToolButton *BoxStrip::makeButton(const assist::Box &entry) {
    const QString tip = u"查看%1列表"_s.arg(entry.label);
    auto *button = named(new QToolButton(this), u"picClick"_s + QString::number(buttons.size()), tip);
    button->setArrowType(Qt::DownArrow);
    button->setFocusPolicy(Qt::NoFocus); // the Down key in the box does the same
    button->setToolTip(tip);
    buttons.push_back(button);
    return button;
}

void BoxStrip::fit() {
    const QSize wanted = widget()->sizeHint();
    const int most =
        platform::usableScreenSize(parentWidget()).width() - 2 * style()->pixelMetric(QStyle::PM_LayoutLeftMargin);
    setMinimumWidth(std::min(wanted.width(), most));
    setFixedHeight(wanted.height() + (wanted.width() > most ? horizontalScrollBar()->sizeHint().height() : 0));
}

} // namespace assist
