#include "targets/windows/frmCompare.h"
#include "widgets/layout.h"
#include "widgets/remembered.h"
#include <QSplitter>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace targets {

frmCompare::frmCompare(platform::Host &host, const CurrentRecord &current, marc::FieldRows fetched, QWidget *parent)
    : Window(u"frmCompare"_s, u"对照：当前记录和取来的记录"_s, parent)
    , grid(new widgets::FlexGrid(u"compareGrid"_s, ComparisonRows::ColumnCount, 1, this))
    , currentText(named(new widgets::TextBox(u"currentText"_s), u"currentText"_s, u"当前记录的字段"_s))
    , fetchedText(named(new widgets::TextBox(u"fetchedText"_s), u"fetchedText"_s, u"取来的字段"_s))
    , countLabel(named(new QLabel(this), u"countLabel"_s))
    , takeButton(new Button(u"takeButton"_s, u"&E 取用这个字段"_s, this))
    , takeAllButton(new Button(u"takeAllButton"_s, u"&A 全部取用"_s, this))
    , quitButton(new Button(u"quitButton"_s, u"&Q 返回"_s, this))
    , m_host(host)
    , m_current(current)
    , m_fetched(std::move(fetched)) {
    layOut();
    connect(grid, &widgets::FlexGrid::enterCell, this, &frmCompare::showField);
    connect(grid, &widgets::FlexGrid::gridActivated, this, [this] {
        if (takeButton->isEnabled())
            takeField();
    });
    connect(takeButton, &Button::clicked, this, &frmCompare::takeField);
    connect(takeAllButton, &Button::clicked, this, &frmCompare::takeAll);
    connect(quitButton, &Button::clicked, this, &frmCompare::unload);
    widgets::rememberPlace(this, host.remembered());
    compare();
    grid->setRow(1);
    showField();
    grid->setFocus();
}

void frmCompare::layOut() {
    grid->setAccessibleName(u"字段的比较"_s);
    grid->setFormat(ComparisonRows::headings.toString());
    grid->setStretchColumn(ComparisonRows::FetchedColumn);
    const int character = fontMetrics().horizontalAdvance(u'书'), line = fontMetrics().lineSpacing();
    constexpr auto characters = std::to_array<int>({3, 8, 20, 20});
    for (size_t column = 0; column < characters.size(); ++column)
        grid->setColumnTwips(int(column), grid->toTwips(character * characters[column]));
    auto *texts = named(new QSplitter(Qt::Horizontal, this), u"compareTexts"_s);
    for (widgets::TextBox *text : {currentText, fetchedText}) {
        text->lock();
        text->setMinimumHeight(3 * line);
        texts->addWidget(text);
    }
    auto *down = named(new QSplitter(Qt::Vertical, this), u"compareDown"_s);
    down->addWidget(grid);
    down->addWidget(texts);
    down->setStretchFactor(0, 1);
    down->setChildrenCollapsible(false);
    grid->setMinimumHeight(5 * line);
    down->setSizes({18 * line, 5 * line});
    widgets::hint({{grid, u"回车或双击：取用这个字段"},
                   {takeButton, u"换掉当前记录的这个字段，没有的就添上；Ctrl+Z 撤销"},
                   {takeAllButton, u"留下当前记录的头标区、001 和 005，其余换成取来的；Ctrl+Z 撤销"}});
    setLayout(widgets::column({{down, 1}, widgets::row({{countLabel, 1}, takeButton, takeAllButton, quitButton})}));
    resize(fontMetrics().averageCharWidth() * 90, line * 32);
    widgets::tabInReadingOrder(this);
}

void frmCompare::compare() {
    m_rows = std::make_shared<ComparisonRows>(compareFields(m_current.rows(), m_fetched));
    const int row = grid->row();
    grid->bind(m_rows);
    grid->setRow(std::clamp(row, 1, std::max(1, m_rows->rowCount())));
    const int different = m_rows->different();
    countLabel->setText(different == 0 ? u"没有可以取用的：取来的字段当前记录都有"_s
                                       : u"%1 个字段可以取用"_s.arg(different));
    takeAllButton->setEnabled(different > 0);
    showField();
}

const ComparedField *frmCompare::field() const {
    const int row = grid->row() - 1;
    return row >= 0 && row < m_rows->rowCount() ? &m_rows->field(row) : nullptr;
}

void frmCompare::showField() {
    const ComparedField *at = field();
    currentText->setText(at ? at->currentText : QString());
    fetchedText->setText(at ? at->fetchedText : QString());
    takeButton->setEnabled(at && at->fetched && at->state() != ComparedField::State::Same);
}

void frmCompare::takeField() {
    m_current.put(withField(m_current.rows(), m_fetched, *field()));
    compare();
    grid->setFocus();
}

void frmCompare::takeAll() {
    m_current.put(withAllFields(m_current.rows(), m_fetched));
    compare();
    grid->setFocus();
}

} // namespace targets
