#include "schema/windows/frmSchema.h"
#include "platform/fileFilters.h"
#include "widgets/layout.h"
#include "widgets/selectingEdit.h"
#include "widgets/styleTokens.h"
#include "widgets/textBox.h"
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace schema {

namespace {

constexpr int leastChecks = 3, shownChecks = 9; // lines of the list
constexpr int shownIgnored = 3;
constexpr QStringView timeForm = u"yyyy-MM-dd HH:mm:ss";

// Returns for example "undefinedField　未定义的字段".
QString captionOf(Check check) {
    return labelOf(check) + u"　"_s + nameOf(check);
}

Check checkOf(const QListWidgetItem &item) {
    return Check(item.data(Qt::UserRole).toInt());
}

QLabel *wrapped(QLabel *label) {
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

frmSchema::frmSchema(platform::Host &host, SchemaInForce &inForce, QWidget *parent)
    : Window(u"frmSchema"_s, u"校验规则"_s, parent)
    , fileText(new widgets::SelectingEdit(u"fileText"_s))
    , chooseButton(new Button(u"chooseButton"_s, u"&L 另选文件…"_s))
    , shippedButton(new Button(u"shippedButton"_s, u"&M 用程序自带的"_s))
    , facts(wrapped(named(new QLabel, u"facts"_s)))
    , complaint(wrapped(named(new QLabel, u"complaint"_s)))
    , checks(named(new QListWidget, u"checks"_s))
    , allButton(new Button(u"allButton"_s, u"&A 全部勾上"_s))
    , ignoredLabel(named(new QLabel, u"ignoredLabel"_s))
    , ignoredText(new widgets::TextBox(u"ignoredText"_s))
    , closeButton(new Button(u"closeButton"_s, u"&Q 退出"_s))
    , m_host(host)
    , m_inForce(inForce) {
    layOut();
    listChecks();
    widgets::hint({{chooseButton, u"用别的机读格式模式（Avram，JSON 文件）来校验；不能用的会说明原因，原来的继续有效"},
                   {shippedButton, u"回到程序文件夹里的 cnmarc-schema.json"},
                   {checks, u"去掉勾的一项不再检查；空格键可以改"},
                   {ignoredText, u"模式里写着、本程序不会检查的地方"}});
    connect(chooseButton, &Button::clicked, this, &frmSchema::choose);
    connect(shippedButton, &Button::clicked, this, [this] { take({}); });
    connect(allButton, &Button::clicked, this, &frmSchema::tickAll);
    connect(closeButton, &Button::clicked, this, &frmSchema::unload);
    connect(checks, &QListWidget::itemChanged, this, &frmSchema::takeTicks);
    showSchema();
    checks->setFocus();
}

void frmSchema::layOut() {
    using namespace widgets;
    fileText->setReadOnly(true);
    fileText->setMinimumWidth(24 * fontMetrics().height()); // fits a usual path
    QPalette inked = complaint->palette();
    inked.setColor(QPalette::WindowText, colour(Colour::ErrorInk, inked));
    complaint->setPalette(inked);
    checks->setMinimumHeight(leastChecks * fontMetrics().lineSpacing());
    ignoredText->lock();
    ignoredText->setRoom(24, shownIgnored);
    ignoredText->setFixedHeight((shownIgnored + 1) * ignoredText->fontMetrics().lineSpacing());
    setLayout(column({
        {framed(new QGroupBox(u"现在用的模式"_s),
                column({
                    row({naming(new QLabel(u"文件(&F)："_s), fileText), {fileText, 1}}),
                    facts,
                    complaint,
                    row({stretch(), chooseButton, shippedButton}),
                }))},
        {framed(new QGroupBox(u"检查哪些项目"_s),
                column({naming(new QLabel(u"勾上的才检查(&C)："_s), checks), {checks, 1}})),
         1},
        naming(ignoredLabel, ignoredText),
        ignoredText,
        row({stretch(), allButton, closeButton}),
    }));
    const QSize least = minimumSizeHint(); // a small screen limits the size
    resize(least + QSize(0, (shownChecks - leastChecks) * int(widgets::rowFactor * fontMetrics().lineSpacing())));
}

void frmSchema::listChecks() {
    const Checks enabled = m_inForce.checks();
    for (size_t i = 0; i < checkCount; ++i) {
        if (!maySwitchOff(Check(i)))
            continue;
        auto *item = new QListWidgetItem(captionOf(Check(i)), checks);
        item->setData(Qt::UserRole, int(i));
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(enabled[i] ? Qt::Checked : Qt::Unchecked);
    }
    checks->setCurrentRow(0);
    allButton->setEnabled(enabled != allChecks);
}

void frmSchema::showSchema() {
    const std::shared_ptr<const Schema> schema = m_inForce.schema();
    fileText->setText(m_inForce.path());
    fileText->setCursorPosition(0);
    shippedButton->setEnabled(!m_inForce.isShipped());
    facts->setText(schema ? u"%1\n字段 %2 个，规则 %3 条；%4 读入"_s.arg(
                                schema->title.isEmpty() ? u"（没有题名）"_s : schema->title,
                                QString::number(schema->fields.size()), QString::number(schema->rules.size()),
                                m_inForce.readAt().toString(timeForm))
                          : u"还没有能用的模式，不按格式校验。"_s);
    complaint->setText(m_inForce.complaint() + (schema ? u"\n现在用的是原先读到的。"_s : QString()));
    complaint->setVisible(!m_inForce.complaint().isEmpty());
    const QStringList ignored = schema ? schema->ignored : QStringList();
    ignoredLabel->setText(u"没有用上的，共 %1 处(&G)："_s.arg(ignored.size()));
    ignoredText->setText(ignored.join(u"\r\n"));
    ignoredLabel->setVisible(!ignored.isEmpty());
    ignoredText->setVisible(!ignored.isEmpty());
}

void frmSchema::choose() {
    const QString path = m_host.chooseFile(
        {.title = u"选择机读格式的模式"_s, .filter = platform::filters::schemas.toString(), .start = m_inForce.path()});
    if (!path.isEmpty())
        take(path);
}

void frmSchema::take(const QString &path) {
    const platform::Status taken = m_inForce.choose(path);
    showSchema();
    if (!taken)
        return m_host.tell(taken.failure().description + u"\r\n\r\n原来的模式继续有效。");
    Q_EMIT changed();
}

void frmSchema::tickAll() {
    {
        const QSignalBlocker blocker(checks);
        for (int row = 0; row < checks->count(); ++row)
            checks->item(row)->setCheckState(Qt::Checked);
    }
    takeTicks();
}

void frmSchema::takeTicks() {
    Checks enabled = allChecks;
    for (int row = 0; row < checks->count(); ++row)
        enabled[size_t(checkOf(*checks->item(row)))] = checks->item(row)->checkState() == Qt::Checked;
    allButton->setEnabled(enabled != allChecks);
    m_inForce.setChecks(enabled);
    chooseChecks(m_host.remembered(), enabled);
    Q_EMIT changed();
}

} // namespace schema
