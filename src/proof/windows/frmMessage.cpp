#include "proof/windows/frmMessage.h"
#include "platform/paths.h"
#include "proof/reportFile.h"
#include "widgets/layout.h"

using namespace Qt::StringLiterals;
using widgets::Button;

namespace proof {

frmMessage::frmMessage(platform::Host &host, QWidget *parent)
    : Window(u"frmMessage"_s, u"报告清单"_s, parent)
    , messageText(new widgets::TextBox(u"messageText"_s, this))
    , cmdClick{new Button(u"cmdClick0"_s, u"&S 保存报告"_s, this), new Button(u"cmdClick1"_s, u"&Q 退出"_s, this)}
    , m_host(host) {
    messageText->setAccessibleName(u"报告内容"_s);
    messageText->setRoom(40, 20);
    setLayout(widgets::column({{messageText, 1}, widgets::row({widgets::stretch(), cmdClick[0], cmdClick[1]})}));
    widgets::hint({{cmdClick[0], u"存为 errorlog.txt，替换上一次的"}});

    connect(cmdClick[0], &Button::clicked, this, &frmMessage::save);
    connect(cmdClick[1], &Button::clicked, this, &frmMessage::unload);
}

void frmMessage::setText(const QString &text) {
    messageText->setText(text);
}

void frmMessage::save() {
    const auto saved = saveReport(messageText->text(), platform::pathWithSlash(m_host.programFolder()));
    m_host.tell(saved ? saved.value() : saved.failure().description);
}

} // namespace proof
