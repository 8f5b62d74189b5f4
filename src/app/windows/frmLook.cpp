#include "app/windows/frmLook.h"
#include "app/windows/maker.h"
#include "widgets/layout.h"
#include "widgets/oneSize.h"
#include <QFrame>
#include <QIcon>
#include <QPainter>
#include <QScreen>

using namespace Qt::StringLiterals;
using widgets::named;

namespace app {

namespace {

constexpr QColor lightWords(0xfd, 0xfb, 0xf4);

QFont enlarged(QFont font, double factor, QFont::Weight weight) {
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setWeight(weight);
    return font;
}

// Returns a label with the maker's logo: the first letter of the name in a ring.
QLabel *makerMark(const QString &objectName) {
    auto *label = named(new QLabel, objectName);
    const int side = 2 * label->fontMetrics().lineSpacing();
    const double ratio = label->devicePixelRatioF();
    QPixmap mark(QSize(side, side) * ratio);
    mark.setDevicePixelRatio(ratio);
    mark.fill(Qt::transparent);
    QPainter painter(&mark);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(lightWords, side / 14.0));
    painter.drawEllipse(QRectF(0, 0, side, side).adjusted(2, 2, -2, -2));
    painter.setFont(enlarged(label->font(), 1.2, QFont::Bold));
    painter.drawText(QRect(0, 0, side, side), Qt::AlignCenter, makerName.first(1).toString());
    label->setPixmap(mark);
    return label;
}

// Returns the palette for light text on the dark picture, independent of the desktop's colours.
QPalette onPicture(QPalette palette) {
    palette.setColor(QPalette::WindowText, lightWords);
    palette.setColor(QPalette::Link, QColor(0xa9, 0xd4, 0xff));
    return palette;
}

} // namespace

QLabel *emblem(const QString &objectName, int lines) {
    auto *label = named(new QLabel, objectName);
    const int side = lines * label->fontMetrics().lineSpacing();
    label->setPixmap(QIcon(QStringLiteral(TARVEX_PICTURE)).pixmap(QSize(side, side), label->devicePixelRatioF()));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

frmLook::frmLook(platform::Host &host, QWidget *parent)
    : Window(u"frmLook"_s, u"Tarvex图书馆管理集成系统"_s, parent)
    , Picture1(new Backdrop(u"Picture1"_s, this))
    , imgMain(emblem(u"imgMain"_s, 7))
    , Image1(makerMark(u"Image1"_s))
    , lMain(named(new QLabel(u"Tarvex图书馆管理集成系统"_s), u"lMain"_s))
    , Label1(named(new QLabel(makerName.toString()), u"Label1"_s))
    , lHttp(webLink(u"lHttp"_s, host, this))
    , lEmail(mailLink(u"lEmail"_s, host, this))
    , Check1(named(new QCheckBox(u"启动时显示"_s), u"Check1"_s))
    , cmOK(new widgets::Button(u"cmOK"_s, u"确定"_s))
    , m_host(host) {
    widgets::keepOneSize(this);
    cmOK->markPrimary();
    layOut();
    Check1->setChecked(true); // the notice is always shown
    connect(Check1, &QCheckBox::clicked, this, &frmLook::keepTick);
    connect(cmOK, &widgets::Button::clicked, this, &frmLook::unload);
}

void frmLook::layOut() {
    using namespace widgets;
    lMain->setFont(enlarged(font(), 2.6, QFont::Bold));
    lMain->setAlignment(Qt::AlignCenter);
    Label1->setFont(enlarged(font(), 1.6, QFont::Normal));
    auto *strip = new QFrame;
    strip->setAutoFillBackground(true);
    QPalette dark = onPicture(palette());
    dark.setColor(QPalette::Window, QColor(8, 18, 30, 205));
    strip->setPalette(dark);
    strip->setLayout(row({lHttp, lEmail, stretch(), Check1, cmOK}));
    strip->layout()->setSpacing(fontMetrics().height());
    for (QLabel *label : {lMain, Label1})
        label->setPalette(onPicture(palette()));
    QBoxLayout *whole =
        column({stretch(2), imgMain, lMain, row({stretch(), Image1, Label1, stretch()}), stretch(5), strip});
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(fontMetrics().height());
    setLayout(whole);
    cmOK->setFocus();
    setWindowState(Qt::WindowMaximized);
}

// The picture is as large as the screen, or as the window if that is larger.
void frmLook::resizeEvent(QResizeEvent *event) {
    Picture1->resize(screen()->size().expandedTo(size()));
    Window::resizeEvent(event);
}

void frmLook::keepTick(bool ticked) {
    const platform::Status kept = m_host.settings().write(platform::settingsApplication.toString(), u"SystemInf"_s,
                                                          u"IfLoad"_s, ticked ? u"True"_s : u"False"_s);
    if (!kept)
        m_host.tell(kept.failure().description, {});
}

} // namespace app
