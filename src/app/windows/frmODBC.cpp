#include "app/windows/frmODBC.h"
#include "database/storedConnection.h"
#include "platform/numbers.h"
#include "widgets/keys.h"
#include "widgets/layout.h"
#include "widgets/oneSize.h"
#include "widgets/waitCursor.h"
#include <QGridLayout>
#include <initializer_list>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace app {

namespace {

constexpr QStringView formTitle = u"管理系统操作提示";
constexpr QStringView valuesCaption = u"连接值";

} // namespace

frmODBC::frmODBC(platform::Host &host, ConnectionProbe probe, QWidget *parent)
    : Window(u"frmODBC"_s, u"请设置要连接的数据库信息"_s, parent)
    , cboDSNList(named(new QComboBox, u"cboDSNList"_s))
    , cboDrivers(named(new QComboBox, u"cboDrivers"_s))
    , txtServer(named(new QLineEdit, u"txtServer"_s))
    , txtUID(named(new QLineEdit, u"txtUID"_s))
    , txtPWD(named(new QLineEdit, u"txtPWD"_s))
    , txtDatabase(named(new QLineEdit, u"txtDatabase"_s))
    , fraStep3(named(new QGroupBox(valuesCaption.toString()), u"fraStep3"_s))
    , dataSourceWords(named(new QLabel, u"dataSourceWords"_s))
    , cmdCeshi(new Button(u"cmdCeshi"_s, u"测试(&C)"_s))
    , cmdOK(new Button(u"cmdOK"_s, u"保存(&D)"_s))
    , cmdCancel(new Button(u"cmdCancel"_s, u"取消(&Q)"_s))
    , m_host(host)
    , m_probe(std::move(probe)) {
    widgets::keepOneSize(this);
    cmdOK->markPrimary();
    txtPWD->setEchoMode(QLineEdit::Password);
    for (QWidget *control : std::initializer_list<QWidget *>{cboDrivers, txtServer, txtUID, txtPWD, txtDatabase})
        widgets::enterActsAsTab(control);
    layOut();
    connect(cboDSNList, &QComboBox::activated, this, &frmODBC::dataSourceClicked);
    connect(cmdCeshi, &Button::clicked, this, &frmODBC::testConnection);
    connect(cmdOK, &Button::clicked, this, &frmODBC::save);
    connect(cmdCancel, &Button::clicked, this, &frmODBC::unload);
    GetDSNsAndDrivers();
}

void frmODBC::layOut() {
    auto *values = new QGridLayout;
    const auto line = [&](const QString &caption, QWidget *control) {
        const int row = values->rowCount();
        values->addWidget(widgets::naming(new QLabel(caption), control), row, 0);
        values->addWidget(control, row, 1);
    };
    line(u"数据源(&D):"_s, cboDSNList);
    line(u"驱动(&V):"_s, cboDrivers);
    line(u"服务器(&S):"_s, txtServer);
    line(u"用户名(&U):"_s, txtUID);
    line(u"密码(&P):"_s, txtPWD);
    line(u"数据库(&B):"_s, txtDatabase);
    values->setColumnStretch(1, 1);
    dataSourceWords->setTextFormat(Qt::PlainText);
    dataSourceWords->setWordWrap(true);
    widgets::hint({{cboDSNList, u"选了数据源，就不必填驱动、服务器和数据库"},
                   {txtUID, u"必须填；数据源不要用户名时，随便填一个"},
                   {txtPWD, u"原样存在设置文件里；不要用分号"},
                   {cmdCeshi, u"试着连接，不保存"},
                   {cmdOK, u"保存，不测试；下次启动时生效"}});
    widgets::giveWidth(txtServer, fontMetrics().averageCharWidth() * 44);
    setLayout(widgets::column({
        {widgets::framed(fraStep3, values)},
        dataSourceWords,
        widgets::stretch(),
        widgets::row({widgets::stretch(), cmdCeshi, cmdOK, cmdCancel}),
    }));
}

void frmODBC::GetDSNsAndDrivers() {
    cboDSNList->addItem(noDataSource.toString());
    QStringList names = m_probe.dataSources();
    names.removeIf([](const QString &name) { return platform::trimBlanks(name).isEmpty(); });
    cboDSNList->addItems(names);
    dataSourceWords->setText(dataSourceHint(names));
    cboDrivers->addItems({u"SQL Server"_s, u"Microsoft Access Driver (*.mdb)"_s});
}

void frmODBC::dataSourceClicked() {
    const bool byDriver = cboDSNList->currentText() == noDataSource;
    for (QWidget *control : std::initializer_list<QWidget *>{txtServer, cboDrivers, txtDatabase})
        control->setEnabled(byDriver);
    // With a screen reader, the toolkit reports Enter in the open list twice; the first one moves the focus.
    if (focusWidget() == cboDSNList)
        widgets::sendTab(cboDSNList);
}

ConnectionFields frmODBC::fields() const {
    return {.dataSourceChosen = cboDSNList->currentIndex() > 0,
            .dataSource = cboDSNList->currentText(),
            .driver = cboDrivers->currentText(),
            .server = txtServer->text(),
            .user = txtUID->text(),
            .password = txtPWD->text(),
            .database = txtDatabase->text()};
}

bool frmODBC::checkInput() {
    const std::optional<QString> complaint = checkConnectionFields(fields());
    if (!complaint)
        return true;
    m_host.tell(*complaint, formTitle.toString());
    txtUID->setFocus();
    return false;
}

void frmODBC::testConnection() {
    if (!checkInput())
        return;
    std::optional<widgets::WaitCursor> waiting(this);
    const QString connectionString = composeConnectionString(fields());
    fraStep3->setTitle(u"正在尝试连接数据库,请稍候......."_s);
    m_host.yield();
    const platform::Status opened = m_probe.open(connectionString);
    fraStep3->setTitle(valuesCaption.toString());
    waiting.reset();
    if (opened) {
        m_host.tell(u"测试通过！\r\n请保存连接参数！"_s, u"系统提示"_s);
        return;
    }
    const TestMessage message = messageForFault(opened.failure().description);
    m_host.tell(message.text, message.title);
}

void frmODBC::save() {
    if (!checkInput())
        return;
    const platform::Status written = database::storeConnection(m_host.settings(), composeConnectionString(fields()));
    if (!written) {
        m_host.tell(written.failure().description, formTitle.toString());
        return;
    }
    unload();
}

} // namespace app
