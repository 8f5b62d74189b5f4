#include "assist/windows/codedBoxWindow.h"
#include "platform/desktop/screenSize.h"
#include "widgets/clickLabel.h"
#include "widgets/keys.h"
#include "widgets/layout.h"
#include <QScrollBar>
#include <QShowEvent>
#include <algorithm>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::ChoiceList;
using widgets::ClickLabel;
using widgets::named;

namespace assist {

namespace {

std::vector<CodeBox *> boxesOf(std::span<const Box> table, QWidget *parent) {
    std::vector<CodeBox *> boxes;
    for (const Box &row : table) {
        boxes.push_back(new CodeBox(u"Text1"_s + QString::number(boxes.size()), row.width, parent));
        if (row.kind == BoxKind::Fixed)
            boxes.back()->makeFixed();
        else
            boxes.back()->makeEditable();
    }
    return boxes;
}

} // namespace

CodedBoxWindow::CodedBoxWindow(platform::Host &host, std::span<const Box> table, const WindowTexts &texts,
                               QWidget *parent)
    : Window(texts.name, texts.caption, parent)
    , Text1(boxesOf(table, this))
    , listLx(new ChoiceList(u"listLx"_s, u"代码列表"_s, this))
    , richTextTS(named(new QTextEdit(this), u"richTextTS"_s, u"代码说明"_s))
    , textMarc(named(new QLineEdit(this), u"textMarc"_s))
    , cmdclick{new Button(u"cmdclick0"_s, u"&S 确定"_s, this), new Button(u"cmdclick1"_s, u"&Q 取消"_s, this)}
    , listMenu(new ChoiceList(u"listMenu"_s, {}, this))
    , m_host(host)
    , m_boxes(table) {
    richTextTS->setReadOnly(true);
    richTextTS->setTabChangesFocus(true);
    richTextTS->setVisible(texts.explains);
    textMarc->setReadOnly(true);
    textMarc->setToolTip(texts.formatTip);
    cmdclick[0]->setToolTip(u"确认修改"_s);
    cmdclick[1]->setToolTip(u"取消修改"_s);
    listMenu->setFocusPolicy(Qt::ClickFocus); // opened from its box, not by Tab
    listMenu->hide();

    using widgets::row, widgets::column, widgets::stretch;
    m_boxArea = boxArea();
    setLayout(column({m_boxArea,
                      widgets::labelled(new QLabel(texts.formatLabel, this), textMarc),
                      {row({{listLx, 1}, {richTextTS, 1}}), 1},
                      row({stretch(), cmdclick[0], cmdclick[1]})}));
    // High enough for the longest list if the screen allows it.
    resize(
        sizeHint().expandedTo(QSize(0, 29 * fontMetrics().lineSpacing())).boundedTo(platform::usableScreenSize(this)));
    wireLists();
    connect(cmdclick[0], &Button::clicked, this, &CodedBoxWindow::confirm);
    connect(cmdclick[1], &Button::clicked, this, &CodedBoxWindow::unload);
}

std::optional<QString> CodedBoxWindow::edit(const QString &text) {
    incoming() = text;
    exec();
    return confirmed;
}

// Lays out the boxes in order, each label above the boxes it belongs to.
QLayout *CodedBoxWindow::boxRow() {
    using widgets::row, widgets::column, widgets::stretch;
    auto *groups = new QHBoxLayout;
    QBoxLayout *boxes = nullptr;
    for (int i = 0; i < m_boxes.count(); ++i) {
        if (!m_boxes.box(i).label.isEmpty()) {
            QWidget *label = makeLabel(i);
            boxes = row({});
            boxes->setSpacing(boxes->spacing() / 3); // boxes of one label are close together
            groups->addLayout(column({row({stretch(), label, stretch()}), row({stretch(), boxes, stretch()})}));
        }
        boxes->addWidget(Text1[size_t(i)]);
        if (m_boxes.box(i).fromList)
            boxes->addWidget(makeButton(i));
        wireBox(i);
    }
    groups->addStretch();
    return groups;
}

// The boxes scroll horizontally if the screen is too narrow.
QScrollArea *CodedBoxWindow::boxArea() {
    auto *boxes = new QWidget;
    boxes->setLayout(boxRow());
    boxes->layout()->setContentsMargins(0, 0, 0, 0);
    auto *area = named(new QScrollArea(this), u"boxArea"_s);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setWidget(boxes);
    const QSize wanted = boxes->sizeHint();
    const int room = platform::usableScreenSize(this).width() - 2 * style()->pixelMetric(QStyle::PM_LayoutLeftMargin);
    area->setMinimumWidth(std::min(wanted.width(), room));
    area->setFixedHeight(wanted.height() +
                         (wanted.width() > room ? area->horizontalScrollBar()->sizeHint().height() : 0));
    return area;
}

// Long captions wrap to two lines.
QWidget *CodedBoxWindow::makeLabel(int i) {
    const QString name = u"LabShuoMing"_s + QString::number(LabShuoMing.size());
    const QString caption = m_boxes.box(i).label.toString();
    constexpr Qt::Alignment place = Qt::AlignHCenter | Qt::AlignBottom;
    QWidget *label = nullptr;
    if (m_boxes.box(i).fromList) {
        auto *link = new ClickLabel(name, caption, ClickLabel::Look::Underlined, this);
        link->setTextFlags(int(place) | Qt::TextWordWrap);
        link->setFocusPolicy(Qt::NoFocus);
        connect(link, &ClickLabel::pressed, Text1[size_t(i)], qOverload<>(&QWidget::setFocus));
        label = link;
    } else {
        auto *plain = named(new QLabel(caption, this), name, caption);
        plain->setWordWrap(true);
        plain->setAlignment(place);
        label = plain;
    }
    const int perLine = caption.size() > 4 ? int(caption.size() + 1) / 2 : int(caption.size());
    const QFontMetrics metrics(font());
    label->setFixedWidth(metrics.horizontalAdvance(QString(perLine, u'字')) + metrics.averageCharWidth() / 2);
    label->setMinimumHeight(2 * metrics.lineSpacing());
    LabShuoMing.push_back(label);
    return label;
}

QToolButton *CodedBoxWindow::makeButton(int i) {
    const QString tip = u"查看%1列表"_s.arg(m_boxes.box(i).label);
    auto *button = named(new QToolButton(this), u"picClick"_s + QString::number(picClick.size()), tip);
    button->setArrowType(Qt::DownArrow);
    button->setFocusPolicy(Qt::NoFocus); // the Down key in the box does the same
    button->setToolTip(tip);
    connect(button, &QToolButton::clicked, this, [this, i] { openMenu(i); });
    picClick.push_back(button);
    return button;
}

void CodedBoxWindow::wireBox(int i) {
    CodeBox *box = Text1[size_t(i)];
    box->setAccessibleName(LabShuoMing.back()->accessibleName());
    box->onKey = [this, i](char16_t key) { return typed(i, key); };
    connect(box, &CodeBox::entered, this, [this, i] { enterBox(i); });
    connect(box, &CodeBox::left, this, &CodedBoxWindow::leaveBox);
    connect(box, &QLineEdit::textChanged, this, [this, i](const QString &text) { m_boxes.edit(i, text); });
    if (m_boxes.box(i).fromList)
        connect(box, &CodeBox::listWanted, this, [this, i] { openMenu(i); });
}

void CodedBoxWindow::wireLists() {
    connect(listLx, &ChoiceList::chosen, this, &CodedBoxWindow::choose);
    connect(listLx, &ChoiceList::itemClicked, this, [this](QListWidgetItem *entry) { explain(entry->text()); });
    connect(listMenu, &ChoiceList::chosen, this, [this](const QString &entry) {
        choose(entry);
        closeMenu();
    });
    connect(listMenu, &ChoiceList::cancelled, this, &CodedBoxWindow::closeMenu);
    connect(listMenu, &ChoiceList::left, this, &CodedBoxWindow::closeMenu);
    for (ChoiceList *list : {listLx, listMenu}) {
        list->setHorizontalScrollMode(QListWidget::ScrollPerPixel);
        connect(list, &ChoiceList::itemSelectionChanged, this, [this, list] {
            if (list->currentItem())
                explain(list->currentItem()->text());
        });
    }
}

void CodedBoxWindow::showEvent(QShowEvent *event) {
    if (!event->spontaneous()) {
        confirmed.reset();
        m_inside = CodedBoxes::noBox;
        m_boxes.load(incoming());
        listLx->fill({});
        richTextTS->clear();
        showBoxes();
        Text1[1]->setFocus(); // the first editable box
    }
    Window::showEvent(event);
}

void CodedBoxWindow::resizeEvent(QResizeEvent *event) {
    Window::resizeEvent(event);
    if (listMenu->isVisible())
        placeMenu();
}

// Returning from another window does not enter the box again.
void CodedBoxWindow::enterBox(int i) {
    if (m_inside == i)
        return;
    leaveBox();
    m_inside = i;
    m_boxes.focus(i);
    m_boxArea->ensureWidgetVisible(Text1[size_t(i)]);
    showBoxes();
    listLx->fill(m_boxes.list(), m_boxes.listed());
    explain(m_boxes.text(i));
}

void CodedBoxWindow::leaveBox() {
    if (m_inside < 0)
        return;
    m_boxes.leave(m_inside);
    m_inside = CodedBoxes::noBox;
    showBoxes();
}

bool CodedBoxWindow::typed(int i, char16_t key) {
    CodeBox *box = Text1[size_t(i)];
    const KeyEffect effect = m_boxes.type(i, key, box->hasSelectedText());
    if (effect == KeyEffect::LeftToBox)
        return false;
    showBoxes();
    if (effect == KeyEffect::MovesOn) {
        moveOn(i);
    } else if (effect == KeyEffect::YearRefused) {
        m_host.tell(u"输入年份格式不正确。请重新输入"_s);
        box->setFocus();
    } else if (effect == KeyEffect::AsksAgain) {
        if (m_host.ask(m_boxes.question(i).toString(), platform::hintTitle, platform::Answer::No))
            box->setFocus();
        else
            moveOn(i);
    }
    return true;
}

// Always leaves the box: after a message box the window may not be active yet, and then the focus changes without a
// signal.
void CodedBoxWindow::moveOn(int i) {
    leaveBox();
    widgets::sendTab(Text1[size_t(i)]);
}

void CodedBoxWindow::openMenu(int i) {
    Text1[size_t(i)]->setFocus();
    enterBox(i);
    listMenu->setAccessibleName(m_boxes.box(i).label.toString());
    listMenu->fill(m_boxes.list(), m_boxes.listed());
    placeMenu();
    listMenu->offer();
}

// Places the list below its box, as large as its entries and the window allow.
void CodedBoxWindow::placeMenu() {
    const CodeBox *box = Text1[size_t(m_boxes.currentBox())];
    const QPoint corner = box->mapTo(this, QPoint(0, box->height()));
    QSize size = listMenu->fullSize().boundedTo(QSize(width(), height() - corner.y()));
    const int left = std::min(corner.x(), width() - size.width());
    listMenu->setGeometry(QRect(QPoint(left, corner.y()), size));
}

void CodedBoxWindow::closeMenu() {
    if (listMenu->isHidden())
        return;
    if (focusWidget() == listMenu && m_boxes.currentBox() >= 0)
        Text1[size_t(m_boxes.currentBox())]->setFocus();
    listMenu->dismiss();
}

void CodedBoxWindow::choose(const QString &entry) {
    if (!m_boxes.choose(entry))
        return;
    m_inside = CodedBoxes::noBox;
    Text1[size_t(m_boxes.currentBox())]->setFocus();
    enterBox(m_boxes.currentBox());
}

void CodedBoxWindow::explain(const QString &listText) {
    if (const auto explanation = m_boxes.explanation(listText))
        richTextTS->setPlainText(*explanation);
}

void CodedBoxWindow::showBoxes() {
    for (int i = 0; i < m_boxes.count(); ++i) {
        if (Text1[size_t(i)]->text() != m_boxes.text(i))
            Text1[size_t(i)]->setText(m_boxes.text(i));
    }
    textMarc->setText(m_boxes.whole());
}

void CodedBoxWindow::confirm() {
    confirmed = m_boxes.result();
    unload();
}

} // namespace assist
