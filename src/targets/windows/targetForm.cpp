#include "targets/windows/targetForm.h"
#include "widgets/layout.h"
#include "widgets/selectingEdit.h"
#include "widgets/styleTokens.h"
#include <algorithm>

using namespace Qt::StringLiterals;
using widgets::named;

namespace targets {

namespace {

struct TextRow {
    QStringView key;
    QStringView caption;
    QString Target::*part;
    QStringView hint;
};
constexpr auto textRows = std::to_array<TextRow>({
    {u"name", u"名称", &Target::name, u"您自己起的，不能重复"},
    {u"host", u"主机", &Target::host, u"主机名或地址，不带“http://”"},
    {u"database", u"数据库", &Target::database, u"SRU 的是网址里主机后面的那一段，不带开头的“/”"},
    {u"user", u"用户名", &Target::user, u"不要的空着"},
    {u"password", u"密码", &Target::password, u"只存在本机、只有您的账号能读的文件里"},
    {u"version", u"SRU 版本", &Target::version, u"1.1、1.2 或 2.0"},
    {u"schema", u"记录模式", &Target::schema, u"多是 marcxml"},
});
constexpr auto sruKeys = std::to_array<QStringView>({u"version", u"schema", u"language"});
constexpr QStringView attributeHint =
    u"检索属性：Z39.50 的写成“1=4”，几个属性“1=4 4=1”；CQL 的写成“dc.title”；空着不能按它检索";

} // namespace

TargetForm::TargetForm(QWidget *parent)
    : QScrollArea(parent)
    , m_layout(new QFormLayout) {
    setObjectName(u"targetForm"_s);
    auto *inner = named(new QWidget, u"targetFormContent"_s);
    setWidget(inner);
    inner->setLayout(m_layout);
    m_layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
    m_layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    addRows();
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusProxy(m_edits[u"name"_s]);
    inner->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    connect(m_encrypted, &QCheckBox::clicked, this, &TargetForm::edited);
    show(std::nullopt);
}

void TargetForm::addRows() {
    const auto addText = [this](QStringView key) {
        const auto row = std::ranges::find(textRows, key, &TextRow::key);
        addEdit(row->key, row->caption, row->hint);
    };
    addText(u"name");
    m_protocol = addChoice(u"protocol", u"协议", protocolNames);
    connect(m_protocol, &QComboBox::activated, this, &TargetForm::offerAttributes);
    addText(u"host");
    addEdit(u"port", u"端口", u"Z39.50 多是 210，SRU 多是 80 或 443");
    addText(u"database");
    m_encrypted = named(new QCheckBox(u"https"_s), u"encryptedBox"_s);
    addRow(u"encrypted", u"加密", m_encrypted, u"SRU 的网址是 https 的要选；证书不对的，不连");
    addText(u"user");
    addText(u"password");
    m_edits[u"password"_s]->setEchoMode(QLineEdit::Password);
    m_syntax = addChoice(u"syntax", u"记录格式", syntaxNames, u"CNMARC 选 UNIMARC，MARC 21 选 USMARC；SRU 只有 XML");
    m_records = addChoice(u"records", u"记录的编码", recordCharsetNames, u"取来的字不对，再改");
    m_queries = addChoice(u"queries", u"检索词的编码", queryCharsetNames, u"选错了，服务器多半什么也查不到，也不说错");
    m_language = addChoice(u"language", u"检索语言", languageNames);
    addText(u"version");
    addText(u"schema");
    for (size_t use = 0; use < useCount; ++use)
        addEdit(attributeKeys[use], QString(u"按"_s + useNames[use]), attributeHint);
}

void TargetForm::addRow(QStringView key, QStringView caption, QWidget *box, QStringView hint) {
    auto *label = named(new QLabel(caption + u":"_s), key + u"Label"_s);
    auto *fault = named(new QLabel, key + u"Fault"_s);
    fault->setWordWrap(true);
    QPalette inked = fault->palette();
    inked.setColor(QPalette::WindowText, widgets::colour(widgets::Colour::ErrorInk, inked));
    fault->setPalette(inked);
    fault->hide();
    widgets::nameForReader(box, caption.toString());
    if (!hint.isEmpty())
        widgets::hint({{box, hint}});
    auto *both = widgets::column({box, fault});
    both->setContentsMargins(0, 0, 0, 0);
    both->setSpacing(0);
    m_layout->addRow(label, both);
    m_rows[key.toString()] = {label, box, fault};
}

QLineEdit *TargetForm::addEdit(QStringView key, QStringView caption, QStringView hint) {
    auto *edit = new widgets::SelectingEdit(key + u"Edit"_s);
    addRow(key, caption, edit, hint);
    connect(edit, &QLineEdit::textEdited, this, &TargetForm::edited);
    m_edits[key.toString()] = edit;
    return edit;
}

template <class Names>
QComboBox *TargetForm::addChoice(QStringView key, QStringView caption, const Names &names, QStringView hint) {
    auto *box = named(new QComboBox, key + u"Box"_s);
    for (const QStringView name : names)
        box->addItem(name.toString());
    addRow(key, caption, box, hint);
    connect(box, &QComboBox::activated, this, [this] {
        showParts();
        Q_EMIT edited();
    });
    return box;
}

// Replaces the default attributes of the other protocol; attributes that the user has changed stay.
void TargetForm::offerAttributes() {
    const Attributes all = target().attributes;
    const bool isPqf = target().asksPqf();
    if (all == (isPqf ? cqlAttributes() : bib1Attributes()))
        setAttributes(isPqf ? bib1Attributes() : cqlAttributes());
}

void TargetForm::setAttributes(const Attributes &attributes) {
    for (size_t use = 0; use < useCount; ++use)
        m_edits[attributeKeys[use].toString()]->setText(attributes[use]);
}

QWidget *TargetForm::box(const QString &key) const {
    const auto row = m_rows.find(key);
    return row == m_rows.end() ? nullptr : row->second.box;
}

void TargetForm::show(const std::optional<Target> &target) {
    m_hasTarget = target.has_value();
    m_shown = target.value_or(Target());
    for (const TextRow &row : textRows)
        m_edits[row.key.toString()]->setText(m_shown.*row.part);
    m_edits[u"port"_s]->setText(QString::number(m_shown.port));
    setAttributes(m_shown.attributes);
    m_protocol->setCurrentIndex(int(m_shown.protocol));
    m_syntax->setCurrentIndex(int(m_shown.syntax));
    m_records->setCurrentIndex(int(m_shown.recordCharset));
    m_queries->setCurrentIndex(int(m_shown.queryCharset));
    m_language->setCurrentIndex(int(m_shown.language));
    m_encrypted->setChecked(m_shown.encrypted);
    showFault(std::nullopt);
    showParts();
    lock(false);
}

void TargetForm::showParts() {
    const bool isSru = Protocol(m_protocol->currentIndex()) == Protocol::Sru;
    for (const QStringView key : sruKeys)
        m_layout->setRowVisible(m_rows[key.toString()].label, isSru);
    m_syntax->setEnabled(!isSru);
    if (isSru)
        m_syntax->setCurrentIndex(int(Syntax::Xml));
}

Target TargetForm::target() const {
    Target target = m_shown;
    for (const TextRow &row : textRows)
        target.*row.part = m_edits.at(row.key.toString())->text().trimmed();
    target.password = m_edits.at(u"password"_s)->text();
    target.port = m_edits.at(u"port"_s)->text().trimmed().toInt(); // not a number: 0, which is a fault
    for (size_t use = 0; use < useCount; ++use)
        target.attributes[use] = m_edits.at(attributeKeys[use].toString())->text().trimmed();
    target.protocol = Protocol(m_protocol->currentIndex());
    target.syntax = Syntax(m_syntax->currentIndex());
    target.recordCharset = RecordCharset(m_records->currentIndex());
    target.queryCharset = QueryCharset(m_queries->currentIndex());
    target.language = QueryLanguage(m_language->currentIndex());
    target.encrypted = m_encrypted->isChecked();
    return target;
}

void TargetForm::showFault(const std::optional<TargetFault> &fault) {
    // A fault of all attributes together is shown below the first one.
    const QStringView where = fault && fault->key == u"attributes" ? attributeKeys[0]
                              : fault                              ? fault->key
                                                                   : QStringView();
    for (auto &[key, row] : m_rows) {
        const bool isHere = fault && where == key;
        row.fault->setText(isHere ? u"✕ "_s + fault->reason : QString());
        row.fault->setVisible(isHere);
        widgets::describeForReader(row.box, isHere ? fault->reason : row.box->toolTip());
        if (isHere) {
            row.box->setFocus();
            ensureWidgetVisible(row.box);
        }
    }
}

} // namespace targets
