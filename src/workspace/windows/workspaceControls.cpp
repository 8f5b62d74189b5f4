#include "workspace/windows/workspaceControls.h"
#include "widgets/layout.h"
#include "widgets/styleTokens.h"

using namespace Qt::StringLiterals;
using widgets::Button;

namespace workspace {

namespace {

struct CommandCaption {
    QStringView caption;
    QStringView hint;
};
constexpr auto commandCaptions = std::to_array<CommandCaption>({
    {u"&B 标准式", u"按标准式查看marc数据"},
    {u"&K 卡片式", u"按卡片式查看marc数据"},
    {u"&J 校对", u"校对marc数据"},
    {u"&A 全部", u"读取机读目录全部数据"},
    {u"&M 生成拼音", u"生成拼音"},
    {u"&S 导入", u"将预读出的机读数据保存为新文件"},
    {u"&Q 退出", u"退出"},
});

constexpr size_t importCommand = 5;

} // namespace

std::array<Button *, 7> commandButtons(QWidget *parent) {
    std::array<Button *, 7> made{};
    for (size_t i = 0; i < made.size(); ++i) {
        made[i] = new Button(u"cmdclick"_s + QString::number(i), commandCaptions[i].caption.toString(), parent);
        made[i]->setToolTip(commandCaptions[i].hint.toString());
    }
    made[importCommand]->markPrimary();
    return made;
}

QWidget *listSide(QComboBox *filterBox, QWidget *list) {
    filterBox->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    filterBox->setToolTip(u"只影响列出哪些；导入和“校对全部”仍是读出的全部记录"_s);
    auto *side = widgets::named(new QWidget, u"listSide"_s);
    side->setLayout(widgets::column({filterBox, {list, 1}}));
    side->layout()->setContentsMargins(0, 0, 0, 0);
    return side;
}

QBoxLayout *ofOneWidth(const std::array<Button *, 7> &buttons) {
    QBoxLayout *commands = widgets::row({});
    const QFontMetrics metrics = buttons[0]->fontMetrics();
    commands->setSpacing(widgets::space(widgets::Space::Tight, metrics)); // the row is the widest of the window
    for (Button *button : buttons)
        commands->addWidget(button, 1);
    return commands;
}

// Creates a box for a number next to its label, wide enough for 99,999,999 records.
widgets::PacedLabel *numberBox(const QString &name, const QString &meaning, QWidget *parent) {
    auto *box = new widgets::PacedLabel(name, {}, parent);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(u"99999999"_s));
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->setMeaning(meaning);
    return box;
}

} // namespace workspace
