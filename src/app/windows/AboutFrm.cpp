#include "app/windows/AboutFrm.h"
#include "app/windows/frmLook.h"
#include "app/windows/maker.h"
#include "widgets/layout.h"

using namespace Qt::StringLiterals;

namespace app {

namespace {

QLabel *line(const QString &objectName, QStringView text) {
    auto *label = new QLabel(text.toString());
    label->setObjectName(objectName);
    return label;
}

} // namespace

AboutFrm::AboutFrm(platform::Host &host, QWidget *parent)
    : Window(u"AboutFrm"_s, u"关于系统"_s, parent)
    , Image1(emblem(u"Image1"_s, 5))
    , Image3(new Backdrop(u"Image3"_s))
    , Label2(line(u"Label2"_s, u"【Tarvex图书馆管理系统4.0】"))
    , Label5(line(u"Label5"_s, makerLines[0]))
    , Label4(line(u"Label4"_s, makerLines[1]))
    , Label8(line(u"Label8"_s, makerLines[2]))
    , Label6(line(u"Label6"_s, u"World Wide Web："))
    , Label7(line(u"Label7"_s, u"E_mail： "))
    , lHttp(webLink(u"lHttp"_s, host, this))
    , lEmail1(mailLink(u"lEmail1"_s, host, this))
    , Command1(new widgets::Button(u"Command1"_s, u" 确定( &Q ) "_s)) {
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
