#include "app/windows/AboutFrm.h"
#include "app/windows/frmLook.h"
#include "app/windows/maker.h"
#include "widgets/layout.h"
#include "widgets/oneSize.h"

using namespace Qt::StringLiterals;
using widgets::named;

namespace app {

AboutFrm::AboutFrm(platform::Host &host, QWidget *parent)
    : Window(u"AboutFrm"_s, u"关于系统"_s, parent)
    , Image1(emblem(u"Image1"_s, 5))
    , Image3(new Backdrop(u"Image3"_s))
    , Label2(named(new QLabel(u"【Tarvex图书馆管理系统4.0】"_s), u"Label2"_s))
    , Label5(named(new QLabel(makerLines[0].toString()), u"Label5"_s))
    , Label4(named(new QLabel(makerLines[1].toString()), u"Label4"_s))
    , Label8(named(new QLabel(makerLines[2].toString()), u"Label8"_s))
    , Label6(named(new QLabel(u"World Wide Web："_s), u"Label6"_s))
    , Label7(named(new QLabel(u"E_mail： "_s), u"Label7"_s))
    , lHttp(webLink(u"lHttp"_s, host, this))
    , lEmail1(mailLink(u"lEmail1"_s, host, this))
    , Command1(new widgets::Button(u"Command1"_s, u" 确定( &Q ) "_s)) {
    widgets::keepOneSize(this);
    layOut();
    connect(Command1, &widgets::Button::clicked, this, &AboutFrm::unload);
}

void AboutFrm::layOut() {
    using namespace widgets;
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setBold(true);
    Label2->setFont(large);
    Image3->setMinimumSize(fontMetrics().height() * 26, fontMetrics().height() * 6);
    QBoxLayout *words =
        column({Label2, Label5, Label4, Label8, row({Label6, lHttp, stretch()}), row({Label7, lEmail1, stretch()})});
    QBoxLayout *body = column({row({Image1, {words, 1}}), row({stretch(), Command1})});
    const int margin = fontMetrics().height();
    body->setContentsMargins(margin, margin, margin, margin);
    QBoxLayout *whole = column({{Image3, 1}, body});
    whole->setContentsMargins(0, 0, 0, 0);
    setLayout(whole);
    Command1->setFocus();
}

} // namespace app
