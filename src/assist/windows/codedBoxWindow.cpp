#include "assist/windows/codedBoxWindow.h"
#include "platform/desktop/screenSize.h"
#include "platform/host.h"
#include "widgets/button.h"
#include "widgets/choiceList.h"
#include "widgets/keys.h"
#include "widgets/layout.h"
#include <QLabel>
#include <QShowEvent>
#include <QTextEdit>
#include <algorithm>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::ChoiceList;
using widgets::named;

namespace assist {

CodedBoxWindow::CodedBoxWindow(platform::Host &host, std::span<const Box> table, const WindowTexts &texts,
                               QWidget *parent)
    : Window(texts.name, texts.caption, parent)
    , boxArea(new BoxStrip(table, this))
    , Text1(boxArea->boxes)
    , LabShuoMing(boxArea->labels)
    , picClick(boxArea->buttons)
    , listLx(new ChoiceList(u"listLx"_s, u"代码列表"_s, this))
    , richTextTS(named(new QTextEdit(this), u"richTextTS"_s, u"代码说明"_s))
    , textMarc(named(new QLineEdit(this), u"textMarc"_s))
    , cmdclick{new Button(u"cmdclick0"_s, u"&S 确定"_s, this), new Button(u"cmdclick1"_s, u"&Q 取消"_s, this)}
    , listMenu(new ChoiceList(u"listMenu"_s, {}, this))
    , m_host(host)
    , m_boxes(table) {
    cmdclick[0]->markPrimary();
    richTextTS->setReadOnly(true);
    richTextTS->setVisible(texts.explains);
    textMarc->setReadOnly(true);
    textMarc->setToolTip(texts.formatTip);
    cmdclick[0]->setToolTip(u"确认修改"_s);
    cmdclick[1]->setToolTip(u"取消修改"_s);
    listMenu->setFocusPolicy(Qt::ClickFocus); // opened from its box, not by Tab
    listMenu->hide();

    using widgets::row, widgets::column, widgets::stretch;
    setLayout(column({boxArea,
                      widgets::labelled(new QLabel(texts.formatLabel, this), textMarc),
                      {row({{listLx, 1}, {richTextTS, 1}}), 1},
                      row({stretch(), cmdclick[0], cmdclick[1]})}));
    // High enough for the longest list if the screen allows it.
    resize(
        sizeHint().expandedTo(QSize(0, 29 * fontMetrics().lineSpacing())).boundedTo(platform::usableScreenSize(this)));
    for (int i = 0; i < m_boxes.count(); ++i)
        wireBox(i);
    wireLists();
    connect(boxArea, &BoxStrip::listWanted, this, &CodedBoxWindow::openMenu);
    connect(cmdclick[0], &Button::clicked, this, &CodedBoxWindow::confirm);
    connect(cmdclick[1], &Button::clicked, this, &CodedBoxWindow::unload);
}

std::optional<QString> CodedBoxWindow::edit(const QString &text) {
    incoming() = text;
    exec();
    return confirmed;
}

void CodedBoxWindow::wireBox(int i) {
    CodeBox *box = Text1[size_t(i)];
    box->onKey = [this, i](char16_t key) { return typed(i, key); };
    connect(box, &CodeBox::entered, this, [this, i] { enterBox(i); });
    connect(box, &CodeBox::left, this, &CodedBoxWindow::leaveBox);
    connect(box, &QLineEdit::textChanged, this, [this, i](const QString &text) { m_boxes.edit(i, text); });
}

void CodedBoxWindow::wireLists() {
    listMenu->tellKeys(u"回车选用　Esc 收起"_s);
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
    boxArea->ensureWidgetVisible(Text1[size_t(i)]);
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
    const KeyEffect effect = m_boxes.type(i, key, Text1[size_t(i)]->hasSelectedText());
    if (effect == KeyEffect::LeftToBox)
        return false;
    showBoxes();
    if (effect == KeyEffect::MovesOn) {
        moveOn(i);
    } else if (effect == KeyEffect::YearRefused) {
        m_host.tell(u"输入年份格式不正确。请重新输入"_s);
    } else if (effect == KeyEffect::AsksAgain) {
        if (!m_host.ask(m_boxes.question(i).toString(), platform::hintTitle, platform::Answer::No))
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
    if (focusWidget() == listMenu)
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
