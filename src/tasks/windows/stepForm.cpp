#include "tasks/windows/stepForm.h"
#include "tasks/stepTables.h"
#include "widgets/layout.h"
#include "widgets/selectingEdit.h"
#include "widgets/styleTokens.h"
#include <QLineEdit>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using widgets::named;

namespace tasks {

namespace {

struct KindRow {
    Kind kind;
    QStringView example; // in an empty box
    QStringView hint;
};
constexpr auto kindRows = std::to_array<KindRow>({
    {Kind::Tags, u"200、6XX 或 701,702", u"X 代表任何数字，几个字段用逗号隔开；可以空着时，空着是所有数据字段"},
    {Kind::OwnTags, u"200、6XX 或 LDR", u"空着是动作所改的那个字段，逐个看；LDR 是头标区"},
    {Kind::Tag, u"801", u"三位字段号"},
    {Kind::FixedTag, u"100 或 LDR", u"三位字段号；LDR 是头标区"},
    {Kind::Code, u"a", u"一个字母或数字，不写 $"},
    {Kind::Codes, u"abf", u"子字段代码连着写，不写 $"},
    {Kind::Positions, u"8 或 9-12", u"从 0 数起"},
    {Kind::Text, u"", u"照原样的文字"},
    {Kind::PositionText, u"", u"和位数一样多；# 代表空格"},
    {Kind::Template, u"", u"可以有 {010$a}、{年}、{日期}、{序号:6}、{文件名}"},
    {Kind::FieldTemplate, u"#0$aCN$b…", u"两位指示符（# 是空格）和子字段；可以有 {010$a}、{年}、{序号:6}"},
    {Kind::Expression, u"", u"正则表达式"},
    {Kind::Replacement, u"", u"\\1 是第一组，\\\\ 是一个 \\"},
    {Kind::Indicators, u"1#", u"两个字符：# 是空格，. 不改"},
    {Kind::Rules, u"缺 010|ISBN", u"“校对全部”结果里的规则名，几个用 | 隔开"},
    {Kind::Choice, u"", u""},
});
constexpr bool inOrder() {
    for (size_t i = 0; i < kindRows.size(); ++i)
        if (size_t(kindRows[i].kind) != i)
            return false;
    return true;
}
static_assert(inOrder());

// A text of several lines. A form layout would not give it the height that its width requires.
class FaultLabel final : public QLabel {
public:
    explicit FaultLabel(const QString &objectName) {
        setObjectName(objectName);
        setWordWrap(true);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
        QPalette inked = palette();
        inked.setColor(QPalette::WindowText, widgets::colour(widgets::Colour::ErrorInk, inked));
        setPalette(inked);
    }

protected:
    void resizeEvent(QResizeEvent *event) override {
        QLabel::resizeEvent(event);
        setMinimumHeight(std::max(heightForWidth(width()), 0)); // -1 for an empty text
    }
};

// Removes all rows except the first, with their controls.
void clear(QFormLayout *layout) {
    while (layout->rowCount() > 1)
        layout->removeRow(1);
}

} // namespace

StepForm::StepForm(QWidget *parent)
    : QScrollArea(parent)
    , testBox(named(new QComboBox, u"testBox"_s))
    , actionBox(named(new QComboBox, u"actionBox"_s))
    , m_testLayout(new QFormLayout)
    , m_actionLayout(new QFormLayout) {
    setObjectName(u"stepForm"_s);
    for (const TestRow &row : testRows())
        testBox->addItem(row.caption.toString());
    for (const ActionRow &row : actionRows())
        actionBox->addItem(row.caption.toString());
    auto *testLabel = widgets::naming(named(new QLabel(u"条件(&J):"_s), u"testLabel"_s), testBox);
    auto *actionLabel = widgets::naming(named(new QLabel(u"动作(&K):"_s), u"actionLabel"_s), actionBox);
    m_testLayout->addRow(testLabel, testBox);
    m_actionLayout->addRow(actionLabel, actionBox);
    for (QFormLayout *layout : {m_testLayout, m_actionLayout}) {
        layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
        layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    }
    auto *inner = named(new QWidget, u"stepFormContent"_s);
    inner->setLayout(widgets::column({m_testLayout, widgets::hairline(inner), m_actionLayout, widgets::stretch()}));
    setWidget(inner);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusProxy(actionBox);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(testBox, &QComboBox::activated, this, [this](int index) {
        m_step.test = Test(index);
        build();
        take();
    });
    connect(actionBox, &QComboBox::activated, this, [this](int index) {
        m_step.action = Action(index);
        build();
        take();
    });
}

void StepForm::show(const std::optional<Step> &step, bool mayChange) {
    m_mayChange = mayChange;
    widget()->setVisible(step.has_value());
    if (!step)
        return;
    m_step = *step;
    testBox->setCurrentIndex(int(m_step.test));
    actionBox->setCurrentIndex(int(m_step.action));
    testBox->setEnabled(mayChange);
    actionBox->setEnabled(mayChange);
    build();
    m_fault = checkStep(m_step);
    showFault();
}

void StepForm::build() {
    fill(m_testLayout, m_testRows, true);
    fill(m_actionLayout, m_actionRows, false);
    widgets::tabInReadingOrder(window());
}

void StepForm::fill(QFormLayout *layout, Rows &rows, bool ofTest) {
    clear(layout);
    rows.clear();
    const auto uses = ofTest ? rowOf(m_step.test).uses : rowOf(m_step.action).uses;
    for (const Use &use : uses) {
        QWidget *box = makeBox(use, (ofTest ? m_step.testValues : m_step.values)[use.parameter]);
        box->setObjectName((ofTest ? u"test-"_s : u"value-"_s) + keyOf(use.parameter));
        auto *fault = new FaultLabel(box->objectName() + u"-fault");
        auto *label = new QLabel(use.caption + (use.required ? u" *:"_s : u":"_s));
        widgets::nameForReader(box, use.caption.toString());
        layout->addRow(label, box);
        layout->addRow(QString(), fault);
        rows[use.parameter] = {box, fault};
    }
}

QWidget *StepForm::makeBox(const Use &use, QString &value) {
    if (use.kind == Kind::Choice) {
        auto *box = new QComboBox;
        for (const Choice &choice : use.choices)
            box->addItem(choice.caption.toString(), choice.key.toString());
        box->setCurrentIndex(int(&choiceOf(use, value) - use.choices.data()));
        box->setEnabled(m_mayChange);
        if (use.required && value.isEmpty())
            value = box->currentData().toString();
        connect(box, &QComboBox::activated, this, [this, box, &value] {
            value = box->currentData().toString();
            take();
        });
        return box;
    }
    const KindRow &row = kindRows[size_t(use.kind)];
    auto *box = new widgets::SelectingEdit({});
    box->setText(value);
    box->setPlaceholderText(m_mayChange ? row.example.toString() : QString()); // it would look like a value
    box->setReadOnly(!m_mayChange);
    widgets::hint({{box, row.hint}});
    connect(box, &QLineEdit::textEdited, this, [this, &value](const QString &text) {
        value = text;
        take();
    });
    return box;
}

void StepForm::take() {
    m_fault = checkStep(m_step);
    showFault();
    Q_EMIT edited();
}

void StepForm::showFault() {
    for (const bool ofTest : {true, false})
        for (const auto &[parameter, row] : ofTest ? m_testRows : m_actionRows) {
            const bool isHere = m_fault && m_fault->inTest == ofTest && m_fault->parameter == parameter;
            row.fault->setText(isHere ? u"✕ "_s + m_fault->reason : QString());
            row.fault->setVisible(isHere);
            widgets::describeForReader(row.box, isHere ? m_fault->reason : row.box->toolTip());
        }
}

QWidget *StepForm::box(bool ofTest, Parameter parameter) const {
    const Rows &rows = ofTest ? m_testRows : m_actionRows;
    const auto found = rows.find(parameter);
    return found == rows.end() ? nullptr : found->second.box;
}

QString StepForm::faultText() const {
    return m_fault ? m_fault->reason : QString();
}

} // namespace tasks
