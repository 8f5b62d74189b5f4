#include "card/windows/frmMarcKaPian.h"
#include "card/showKapian.h"
#include "marc/isoLayout.h"
#include "widgets/layout.h"
#include <QKeyEvent>
#include <QShowEvent>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::TextBox;

namespace card {

namespace {

QString signsOfTheRecord() {
    return u"%1 子字段标识符　%2 字段结束符　%3 记录结束符"_s.arg(TextBox::signOf(marc::subfieldDelimiter),
                                                                  TextBox::signOf(marc::fieldTerminator),
                                                                  TextBox::signOf(marc::recordTerminator));
}

} // namespace

frmMarcKaPian::frmMarcKaPian(platform::Host &host, QWidget *parent)
    : Window(u"frmMarcKaPian"_s, u"MARC数据阅读1器"_s, parent)
    , Label2(widgets::named(new QLabel(u"通用MARC阅读器"_s, this), u"Label2"_s))
    , Text1(new TextBox(u"Text1"_s, this))
    , cmdclick{new Button(u"cmdclick0"_s, u"&B 标准式"_s, this), new Button(u"cmdclick1"_s, u"&K 卡片式"_s, this),
               new Button(u"cmdclick2"_s, u"&Q 返回"_s, this)}
    , m_host(host)
    , m_face(new CardFace(Text1, this)) {
    Text1->setLineHeight(1.2);
    Text1->lock();
    Text1->setAccessibleName(u"记录内容"_s);
    Text1->setRoom(40, 22);
    setLayout(widgets::column(
        {Label2, {m_face, 1}, widgets::row({cmdclick[0], cmdclick[1], widgets::stretch(), cmdclick[2]})}));
    Text1->installEventFilter(this);
    for (const Button *button : cmdclick)
        connect(button, &Button::clicked, this, [this, button] { clicked(button); });
}

void frmMarcKaPian::showEvent(QShowEvent *event) {
    if (!event->spontaneous()) {
        Text1->clear();
        if (showMode == u"标准")
            showStandard();
        else
            showCard();
    }
    Window::showEvent(event);
}

void frmMarcKaPian::clicked(const Button *button) {
    lastButton = button->text();
    if (button == cmdclick[0])
        showStandard();
    else if (button == cmdclick[1])
        showCard();
    else
        unload();
}

bool frmMarcKaPian::eventFilter(QObject *watched, QEvent *event) {
    if (watched == Text1 && event->type() == QEvent::KeyPress && step) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool sideways = key->key() == Qt::Key_Left || key->key() == Qt::Key_Right;
        if (sideways && (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
            page(key->key() == Qt::Key_Left ? -1 : 1);
            return true;
        }
    }
    return Window::eventFilter(watched, event);
}

void frmMarcKaPian::page(int by) {
    const std::optional<marc::RawRecord> next = step(by);
    if (!next)
        return;
    marcRecord = *next;
    Text1->clear(); // a record without a card leaves the box as it is
    if (m_standard)
        showStandard();
    else
        showCard();
}

void frmMarcKaPian::showStandard() {
    m_standard = true;
    m_face->showAsCard(false);
    Text1->setText(marcRecord);
    Text1->setToolTip(signsOfTheRecord());
}

void frmMarcKaPian::showCard() {
    m_standard = false;
    m_face->showAsCard(true);
    const Card card = showKapian(marcRecord);
    Text1->setToolTip({});
    for (const QString &text : card.boxes)
        m_host.tell(text, {}, platform::Icon::None);
    if (!card.fault.isEmpty())
        m_host.tell(card.fault);
    if (card.text)
        Text1->setText(*card.text);
}

} // namespace card
