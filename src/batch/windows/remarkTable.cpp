#include "batch/windows/remarkTable.h"
#include "platform/fileFilters.h"
#include "platform/paths.h"
#include "widgets/layout.h"
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace batch {

namespace {

constexpr int allRules = -1;
constexpr int shownLines = 4; // minimum height of the table

QString withCount(QStringView name, int count) {
    return name + u" (" + QString::number(count) + u')';
}

} // namespace

RemarkTable::RemarkTable(const QString &objectName, platform::Host &host, QWidget *parent)
    : QWidget(parent)
    , kindBox(named(new QComboBox(this), u"kindBox"_s))
    , words(new widgets::PacedLabel(u"words"_s, {}, this))
    , grid(new widgets::FlexGrid(u"grid"_s, RemarkList().columnCount(), 1, this))
    , remarkText(named(new QLabel(this), u"remarkText"_s))
    , copyButton(new Button(u"copyButton"_s, u"&C 复制"_s, this))
    , saveButton(new Button(u"saveButton"_s, u"&O 另存为…"_s, this))
    , m_host(host)
    , m_above(widgets::row({}))
    , m_below(widgets::row({})) {
    setObjectName(objectName);
    setFocusProxy(grid);
    layOut();
    widgets::hint({{grid, u"回车或双击：到这条记录、这个字段"},
                   {copyButton, u"复制列出的全部结果"},
                   {saveButton, u"把列出的结果存为文本表格"}});
    connect(words, &widgets::PacedLabel::aboutToShow, this, [this] {
        showKinds();
        showRow();
    });
    connect(kindBox, &QComboBox::activated, this, &RemarkTable::filter);
    connect(grid, &widgets::FlexGrid::enterCell, this, [this] {
        m_rowChosen = true;
        showRow();
    });
    connect(grid, &widgets::FlexGrid::gridActivated, this, &RemarkTable::activateRow);
    connect(copyButton, &Button::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(m_list->tabSeparated(u"\n")); });
    connect(saveButton, &Button::clicked, this, [this] {
        save({u"另存为"_s, platform::filters::remarks.toString(), u".tsv"},
             [this](const QString &path) { return saveRemarks(path, *m_list); });
    });
    begin(RemarkList());
}

void RemarkTable::layOut() {
    kindBox->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    grid->setFormat(RemarkList::headings.toString());
    grid->horizontalHeader()->setStretchLastSection(true);
    remarkText->setTextFormat(Qt::PlainText);
    remarkText->setWordWrap(true);
    remarkText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    remarkText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *kindLabel = named(new QLabel(u"规则(&F)："_s, this), u"kindLabel"_s);
    m_above->addLayout(widgets::labelled(kindLabel, kindBox));
    m_above->addWidget(words, 1);
    m_below->addWidget(remarkText, 1);
    for (Button *button : {copyButton, saveButton})
        m_below->addWidget(button);
    setLayout(widgets::column({m_above, {grid, 1}, m_below}));
    layout()->setContentsMargins(0, 0, 0, 0);
    fitWidths();
}

// Sets the widths in characters of the current font.
void RemarkTable::fitWidths() {
    const int character = fontMetrics().horizontalAdvance(u'书');
    constexpr auto characters = std::to_array<int>({3, 7, 3, 4, 10, 12});
    for (size_t column = 0; column < characters.size(); ++column)
        grid->setColumnTwips(int(column), grid->toTwips(character * characters[column]));
    // A line of Chinese may be higher than the font's own, if another font supplies the characters.
    const QRect twoLines = fontMetrics().boundingRect(QRect(0, 0, character * 9, character * 9), 0, u"书\n书"_s);
    remarkText->setFixedHeight(std::max(2 * fontMetrics().lineSpacing(), twoLines.height()));
    grid->setMinimumHeight(shownLines * (fontMetrics().height() + 2 * grid->frameWidth()));
}

void RemarkTable::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitWidths();
}

void RemarkTable::begin(RemarkList list) {
    m_list = std::make_shared<RemarkList>(std::move(list));
    m_rowChosen = false;
    grid->bind(m_list);
    kindBox->clear();
    showKinds();
    showRow();
}

void RemarkTable::take(std::vector<Remark> remarks) {
    if (remarks.empty())
        return;
    for (Remark &remark : remarks)
        m_list->add(std::move(remark));
    grid->sourceHasGrown();
}

void RemarkTable::settle() {
    const int current = m_rowChosen && grid->row() > 0 ? m_list->idOf(grid->row() - 1) : -1;
    m_list->sort();
    grid->bind(m_list);
    if (current >= 0)
        grid->setRow(m_list->rowOf(current) + 1);
    showKinds();
    showRow();
}

// Rules are only added, so that the chosen one stays.
void RemarkTable::showKinds() {
    if (kindBox->count() == 0)
        kindBox->addItem({}, allRules);
    const RemarkList::Choices<int> &rules = m_list->byRule();
    kindBox->setItemText(0, withCount(u"全部", rules.all));
    int place = 1;
    for (const auto &[rule, count] : rules.of) {
        const QString text = withCount(m_list->rules().labelOf(rule), count);
        if (place >= kindBox->count() || kindBox->itemData(place).toInt() != rule)
            kindBox->insertItem(place, text, rule);
        else if (kindBox->itemText(place) != text)
            kindBox->setItemText(place, text);
        ++place;
    }
}

void RemarkTable::filter() {
    const int rule = kindBox->currentData().toInt();
    m_list->setFilter({.level = {}, .rule = rule == allRules ? std::nullopt : std::optional(rule), .tag = {}});
    grid->bind(m_list);
    showRow();
}

void RemarkTable::showRow() {
    const int row = grid->row() - 1;
    remarkText->setText(row < 0 || row >= m_list->rowCount() ? QString()
                                                             : m_list->rules().wordsOf(m_list->remark(row)));
}

void RemarkTable::activateRow() {
    const int row = grid->row() - 1;
    if (row >= 0 && row < m_list->rowCount() && m_list->remark(row).record >= 0)
        Q_EMIT activated(m_list->remark(row));
}

// Returns std::nullopt if no file was chosen or an existing one must not be replaced.
std::optional<QString> RemarkTable::chosenPath(const Target &target) {
    QString path =
        m_host.chooseFile({.title = target.title, .filter = target.filter, .kind = platform::FileDialogKind::Save});
    if (path.isEmpty())
        return std::nullopt;
    if (!path.sliced(platform::folderOf(path).size()).contains(u'.'))
        path += target.suffix;
    const bool mayWrite = !platform::fileExists(path) || m_host.ask(u"文件【"_s + path + u"】已经存在，是否替换？",
                                                                    platform::hintTitle, platform::Answer::No);
    return mayWrite ? std::optional(path) : std::nullopt;
}

void RemarkTable::save(const Target &target, const std::function<platform::Status(const QString &path)> &write) {
    const std::optional<QString> path = chosenPath(target);
    if (!path)
        return;
    if (const platform::Status saved = write(*path))
        words->setText(u"已保存到 "_s + *path);
    else
        m_host.tell(u"保存失败：【"_s + saved.failure().description + u"】");
}

} // namespace batch
