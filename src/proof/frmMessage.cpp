#include "proof/frmMessage.h"
#include "platform/paths.h"
#include "platform/widgets/layout.h"
#include "proof/reportFile.h"

using namespace Qt::StringLiterals;
using platform::Button;

namespace proof {

frmMessage::frmMessage(platform::Host &host, QWidget *parent)
    : Window(u"frmMessage"_s, u"报告清单"_s, parent)
    , messageText(new platform::TextBox(u"messageText"_s, this))
    , cmdClick{new Button(u"cmdClick0"_s, u"&S 保存报告"_s, this), new Button(u"cmdClick1"_s, u"&Q 退出"_s, this)}
    , m_host(host) {
    messageText->setAccessibleName(u"报告内容"_s);
    messageText->setRoom(40, 20);
    setLayout(platform::column({{messageText, 1}, platform::row({platform::stretch(), cmdClick[0], cmdClick[1]})}));

    connect(cmdClick[0], &Button::clicked, this, &frmMessage::save);
    connect(cmdClick[1], &Button::clicked, this, &frmMessage::unload);
}

void frmMessage::setText(const QString &text) {
    messageText->setText(text);
}

void frmMessage::save() {
    const auto saved = saveReport(messageText->text(), platform::pathWithSlash(m_host.programFolder()));
    m_host.tell(saved ? saved.value() : saved.failure().description, u"操作提示"_s);
}

} // namespace proof
