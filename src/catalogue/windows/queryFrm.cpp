#include "catalogue/windows/queryFrm.h"
#include "widgets/button.h"
#include "widgets/clickLabel.h"
#include "widgets/keys.h"
#include "widgets/layout.h"
#include "widgets/maskedEdit.h"
#include "widgets/waitCursor.h"
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QTextEdit>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::ClickLabel;
using widgets::column;
using widgets::named;
using widgets::row;
using widgets::stretch;

namespace catalogue {

namespace {

bool leavesTheBox(int key) {
    return key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Escape;
}

} // namespace

QueryDialog::QueryDialog(const QString &objectName, QueryRules rules, platform::Host &host, QWidget *parent)
    : Window(objectName, u"请输入查询条件"_s, parent)
    , LFields(named(new QListWidget(this), u"LFields"_s, u"字段"_s))
    , cSql(named(new QComboBox(this), u"cSql"_s))
    , cFuhao(named(new QComboBox(this), u"cFuhao"_s))
    , lSql(new widgets::MaskedEdit(u"lSql"_s, this))
    , Command3(new Button(u"Command3"_s, u"&A加入"_s, this))
    , signSql(named(new QTextEdit(this), u"signSql"_s, u"当前条件"_s))
    , totalSql(named(new QListWidget(this), u"totalSql"_s, u"合并的条件"_s))
    , cOrderby(named(new QComboBox(this), u"cOrderby"_s))
    , Label3{new ClickLabel(u"Label30"_s, u"升序"_s, ClickLabel::Look::Raised, this),
             new ClickLabel(u"Label31"_s, u"降序"_s, ClickLabel::Look::Raised, this)}
    , lOrderby(named(new QTextEdit(this), u"lOrderby"_s, u"排序方式"_s))
    , Command1{new Button(u"Command10"_s, u"&U 条件合并"_s, this), new Button(u"Command11"_s, u"&O  确定"_s, this),
               new Button(u"Command12"_s, u"&X  关闭"_s, this)}
    , Command2(new Button(u"Command2"_s, u"&C  清除"_s, this))
    , queriedTable(named(new QLabel(u"查询："_s + rules.queried, this), u"queriedTable"_s))
    , lastQueryButton(new Button(u"lastQueryButton"_s, u"&L 上次的查询"_s, this))
    , m_host(host)
    , m_builder(rules) {
    Command1[1]->markPrimary();
    prepareBoxes();
    layOut();
    connectControls();
}

void QueryDialog::prepareBoxes() {
    for (QTextEdit *box : {signSql, lOrderby}) {
        box->setReadOnly(true);
        box->installEventFilter(this);
        box->setMinimumHeight(box->fontMetrics().lineSpacing() * 2); // on a low screen
        box->setMaximumHeight(box->fontMetrics().lineSpacing() * 3);
    }
    widgets::hint({{Command3, u"加入当前条件，各项要同时满足；用 Tab 离开“查找条件”也会加入"},
                   {Command1[0], u"当前条件成为一组；几组之间满足一组就行"},
                   {Command2, u"清除全部条件和排序"},
                   {Command1[1], u"没有条件就列出全部"},
                   {lastQueryButton, u"换成上次查询的条件和排序，可以接着改"},
                   {Label3[0], u"按所选项目从小到大；可以加几项"},
                   {Label3[1], u"按所选项目从大到小；可以加几项"}});
    widgets::enterActsAsTab(cSql);
    widgets::enterActsAsTab(cFuhao);
}

void QueryDialog::layOut() {
    const auto heading = [this](const QString &text, QWidget *control) {
        return widgets::naming(new QLabel(text, this), control);
    };
    auto *condition = new QGridLayout;
    condition->addWidget(heading(u"查找项目"_s, cSql), 0, 0);
    condition->addWidget(heading(u"查找关系"_s, cFuhao), 0, 1);
    condition->addWidget(heading(u"查找条件"_s, lSql), 0, 2);
    condition->addWidget(cSql, 1, 0);
    condition->addWidget(cFuhao, 1, 1);
    condition->addWidget(lSql, 1, 2);
    condition->addWidget(Command3, 1, 3);
    condition->setColumnStretch(2, 1);
    QBoxLayout *sorting = row({heading(u"排序项目"_s, cOrderby), cOrderby, Label3[0], Label3[1], stretch()});
    QBoxLayout *right = column({condition,
                                heading(u"当前条件（并且）"_s, signSql),
                                signSql,
                                row({heading(u"已合并（或者）"_s, totalSql), stretch(), Command1[0], Command2}),
                                {totalSql, 1},
                                sorting,
                                row({heading(u"次序"_s, lOrderby), {lOrderby, 1}})});
    setLayout(column({queriedTable,
                      {row({{LFields, 1}, {right, 3}}), 1},
                      row({lastQueryButton, stretch(), Command1[1], Command1[2]})}));
    lastQueryButton->hide();
    // The tab order follows the layout: the buttons that merge and clear conditions precede the merged conditions.
    QWidget *const down[] = {signSql, Command1[0], Command2, totalSql};
    for (size_t i = 1; i < std::size(down); ++i)
        setTabOrder(down[i - 1], down[i]);
    for (QComboBox *combo : {cSql, cOrderby})
        combo->setMinimumContentsLength(8);
    cFuhao->setMinimumContentsLength(6);
    lSql->setMinimumWidth(fontMetrics().horizontalAdvance(u"____-__-______"_s));
    LFields->setMinimumWidth(fontMetrics().horizontalAdvance(u"入库日期入库日期"_s));
}

void QueryDialog::connectControls() {
    // Also handles a click on the current entry, since the combo box may show another field by then.
    connect(LFields, &QListWidget::itemClicked, this, [this] { cSql->setCurrentIndex(LFields->currentRow()); });
    connect(LFields, &QListWidget::currentRowChanged, cSql, &QComboBox::setCurrentIndex);
    connect(LFields, &QListWidget::itemDoubleClicked, this, [this] { cFuhao->setFocus(); });
    connect(cSql, &QComboBox::currentIndexChanged, this, &QueryDialog::fieldClicked);
    connect(lSql, &widgets::MaskedEdit::left, this, &QueryDialog::addCondition);
    connect(Command3, &Button::clicked, this, &QueryDialog::addCondition);
    connect(Command2, &Button::clicked, this, &QueryDialog::clearAll);
    for (int index = 0; index < 2; ++index)
        connect(Label3[size_t(index)], &ClickLabel::clicked, this, [this, index] { addSortTerm(index); });
    connect(Command1[0], &Button::clicked, this, [this] {
        m_builder.merge();
        showConditions();
    });
    connect(Command1[1], &Button::clicked, this, &QueryDialog::findData);
    connect(Command1[2], &Button::clicked, this, &QueryDialog::unload);
    connect(lastQueryButton, &Button::clicked, this, &QueryDialog::enterLast);
    connect(this, &Window::unloaded, this, [this] { m_builder.unload(); });
}

bool QueryDialog::eventFilter(QObject *watched, QEvent *event) {
    // Only the dialog changes the readable texts: they swallow all keys that do not move the focus out.
    if ((watched == signSql || watched == lOrderby) && event->type() == QEvent::KeyPress)
        return !leavesTheBox(static_cast<QKeyEvent *>(event)->key());
    return Window::eventFilter(watched, event);
}

void QueryDialog::LoadCombo(const QString &fieldNames, const QString &fieldLabels, const QString &fieldTypes) {
    const platform::Status loaded = m_builder.load(fieldNames, fieldLabels, fieldTypes);
    if (!loaded) {
        m_host.tell(loaded.failure().description, {}, platform::Icon::Critical);
        return;
    }
    const QStringList labels = m_builder.labels();
    cSql->addItems(labels);
    LFields->addItems(labels);
    fillOrderby();
    LFields->setCurrentRow(0);
}

void QueryDialog::fieldClicked(int field) {
    if (m_builder.chooseField(field))
        loadFuhao();
}

void QueryDialog::loadFuhao() {
    const FieldType type = *m_builder.curType();
    cFuhao->clear();
    cFuhao->addItems(operatorsOf(type));
    lSql->setText({});
    lSql->setMask(maskOf(type));
    cFuhao->setCurrentIndex(0);
}

void QueryDialog::addCondition() {
    if (!m_builder.addCondition(cSql->currentIndex(), cFuhao->currentText(), lSql->text()))
        return;
    signSql->setPlainText(m_builder.signSql());
    lSql->setText(emptyValue(lSql->mask()));
}

void QueryDialog::addSortTerm(int index) {
    if (!m_builder.addSortTerm(cOrderby->currentText(), index == 0)) {
        m_host.tell(u"请选择排序项目，取消该操作。"_s, platform::hintTitle, platform::Icon::Critical);
        cOrderby->setFocus();
        return;
    }
    lOrderby->setPlainText(m_builder.lOrderby());
    fillOrderby();
}

void QueryDialog::clearAll() {
    m_builder.clear();
    lSql->setText(emptyValue(lSql->mask()));
    lOrderby->clear();
    fillOrderby();
    showConditions();
}

void QueryDialog::showConditions() {
    signSql->setPlainText(m_builder.signSql());
    totalSql->clear();
    totalSql->addItems(m_builder.totalSql());
}

// Lists the fields not yet used for sorting, with none selected.
void QueryDialog::fillOrderby() {
    cOrderby->clear();
    cOrderby->addItems(m_builder.sortLabels());
    cOrderby->setCurrentIndex(-1);
}

void QueryDialog::offerLast(EnteredQuery &last) {
    m_last = &last;
    lastQueryButton->setVisible(!last.isEmpty());
}

void QueryDialog::enterLast() {
    m_builder.enter(*m_last);
    lSql->setText(emptyValue(lSql->mask()));
    lOrderby->setPlainText(m_builder.lOrderby());
    fillOrderby();
    showConditions();
}

void QueryDialog::findData() {
    Query query = m_builder.findData();
    if (m_last && !m_builder.entered().isEmpty())
        *m_last = m_builder.entered();
    unload();
    if (!resultForm)
        return;
    const widgets::WaitCursor waiting;
    resultForm->loadData(query.condition, query.order);
}

QueryFrm::QueryFrm(platform::Host &host, QWidget *parent)
    : QueryDialog(u"QueryFrm"_s, catalogueRules, host, parent) {}

QueryFrmdel::QueryFrmdel(platform::Host &host, QWidget *parent)
    : QueryDialog(u"QueryFrmdel"_s, storeRules, host, parent) {}

} // namespace catalogue
