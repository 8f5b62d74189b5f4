#include "batch/windows/frmSilenced.h"
#include "widgets/layout.h"
#include <QHeaderView>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace batch {

namespace {
enum Column { RuleColumn, TagColumn };
constexpr auto widths = std::to_array<int>({16, 6}); // in characters
constexpr int shownLines = 8;
} // namespace

frmSilenced::frmSilenced(Reminders &reminders, RuleBook book, QWidget *parent)
    : Window(u"frmSilenced"_s, u"不再提示的类"_s, parent)
    , emptyWords(named(new QLabel(u"没有不再提示的类。"_s, this), u"emptyWords"_s))
    , grid(new widgets::FlexGrid(u"grid"_s, int(widths.size()), 1, this))
    , takeBackButton(new Button(u"takeBackButton"_s, u"&H 恢复提示"_s, this))
    , quitButton(new Button(u"quitButton"_s, u"&Q 关闭"_s, this))
    , m_reminders(reminders)
    , m_book(std::move(book)) {
    grid->setAccessibleName(u"不再提示的类"_s);
    grid->setFormat(u"规则|字段"_s);
    grid->horizontalHeader()->setStretchLastSection(true);
    const int character = fontMetrics().horizontalAdvance(u'书');
    int width = character; // and the edges
    for (size_t column = 0; column < widths.size(); ++column) {
        grid->setColumnTwips(int(column), grid->toTwips(character * widths[column]));
        width += character * widths[column];
    }
    emptyWords->setAlignment(Qt::AlignTop);
    grid->setMinimumWidth(width);
    grid->setMinimumHeight(shownLines * fontMetrics().height() * 3 / 2);
    widgets::hint({{takeBackButton, u"重新列出这一类；回车、双击也可以"}});
    setLayout(widgets::column({emptyWords, {grid, 1}, widgets::row({widgets::stretch(), takeBackButton, quitButton})}));
    connect(takeBackButton, &Button::clicked, this, &frmSilenced::takeBack);
    connect(grid, &widgets::FlexGrid::gridActivated, this, &frmSilenced::takeBack);
    connect(quitButton, &Button::clicked, this, &frmSilenced::unload);
    list();
    widgets::tabInReadingOrder(this);
}

void frmSilenced::list() {
    const std::vector<SilencedRule> &rules = m_reminders.silenced().all();
    grid->clear();
    grid->setRows(int(rules.size()) + 1);
    for (size_t i = 0; i < rules.size(); ++i) {
        grid->setText(int(i) + 1, RuleColumn, m_book.labelOfKey(rules[i].key));
        grid->setText(int(i) + 1, TagColumn, rules[i].tag.isEmpty() ? u"全部字段"_s : rules[i].tag);
    }
    emptyWords->setVisible(rules.empty());
    grid->setVisible(!rules.empty());
    takeBackButton->setEnabled(!rules.empty());
    if (rules.empty())
        quitButton->setFocus();
}

void frmSilenced::takeBack() {
    const int row = grid->row();
    if (row < 1 || row > int(m_reminders.silenced().all().size()))
        return;
    m_reminders.takeBack(SilencedRule(m_reminders.silenced().all()[size_t(row) - 1]));
    list();
    grid->setRow(std::min(row, grid->rows() - 1));
}

} // namespace batch
