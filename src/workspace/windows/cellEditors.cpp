#include "workspace/windows/cellEditors.h"
#include "platform/numbers.h"
#include "widgets/accentFrame.h"
#include "widgets/layout.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr QStringView smallHint = u"鼠标右击可大屏幕编辑,回车结束输入返回,按【Esc】取消";
constexpr QStringView largeHint = u"双击可结束输入返回,按【Esc】取消";
constexpr int lineLimit = 1 << 20; // characters; practically unlimited

} // namespace

CellEditors::CellEditors(FieldGrid &grid, EditedRecord &record, platform::Host &host, const WorkspaceWindows &windows)
    : richText(new CellText(u"richText"_s, grid.parentWidget()))
    , Text1(widgets::named(new QLineEdit(grid.parentWidget()), u"Text1"_s, u"字段说明或标识符"_s))
    , m_grid(grid)
    , m_record(record)
    , m_host(host)
    , m_windows(windows)
    , m_contentKeys(richText)
    , m_identityKeys(Text1) {
    Text1->setFrame(false);
    Text1->setTextMargins(CellText::margin, 0, CellText::margin, 0);
    Text1->hide();
    richText->setAccessibleName(u"字段内容"_s);
    richText->setFont(grid.font());
    Text1->setFont(grid.font());
    for (QWidget *editor : {static_cast<QWidget *>(richText), static_cast<QWidget *>(Text1)})
        new widgets::AccentFrame(editor);
    connectEditors();
}

void CellEditors::connectEditors() {
    connect(&m_contentKeys, &EditorKeys::entered, this, &CellEditors::commitContent);
    connect(&m_contentKeys, &EditorKeys::cancelled, this, &CellEditors::endContent);
    connect(richText, &CellText::assistantWanted, this, &CellEditors::openAssistant);
    connect(richText, &CellText::enlargeWanted, this, &CellEditors::enlarge);
    connect(richText, &CellText::reduceWanted, this, &CellEditors::reduce);
    connect(richText, &CellText::textChanged, this, &CellEditors::typed);
    connect(Text1, &QLineEdit::textEdited, this, &CellEditors::typed);
    connect(&m_record, &EditedRecord::shown, this, [this] { m_isElsewhere = m_isOpen; });
    connect(richText, &CellText::cursorPositionChanged, this, &CellEditors::moved);
    connect(&m_contentKeys, &EditorKeys::focused, this, [this] { hold(Hold::FieldsAndList); });
    connect(&m_identityKeys, &EditorKeys::entered, this, &CellEditors::commitIdentity);
    connect(&m_identityKeys, &EditorKeys::cancelled, this, &CellEditors::cancelIdentity);
    connect(&m_identityKeys, &EditorKeys::focused, this, [this] { hold(Hold::Fields); });
    connect(&m_grid, &FieldGrid::scrolled, this, &CellEditors::place);
    connect(&m_grid, &FieldGrid::rearranged, this, &CellEditors::keepInSight);
}

void CellEditors::openContent() {
    const int row = m_grid.row();
    if (row < 1)
        return;
    if (m_grid.rowSel() != row)
        return m_grid.setRowSel(row);
    if (m_record.row(row).identifier.isEmpty())
        return;
    editRow = row;
    editCol = ValueColumn;
    richText->setText(m_record.row(row).value);
    showBlanks(*richText, m_grid.isCoded(row));
    reduce();
    richText->setLimit(contentLimit(m_record.rows(), row));
    richText->show();
    richText->raise();
    richText->setFocus();
    hold(Hold::FieldsAndList);
}

void CellEditors::hold(Hold hold) {
    if (!m_isOpen)
        m_isElsewhere = false;
    m_isOpen = true;
    Q_EMIT opened(hold);
}

void CellEditors::release() {
    m_isOpen = false;
    Q_EMIT closed();
}

void CellEditors::enlarge() {
    m_enlarged = true;
    richText->setToolTip(largeHint.toString());
    richText->setEnlarged(true);
    place();
}

void CellEditors::openLarge() {
    if (Text1->isVisible())
        return; // only one editor at a time
    if (richText->isVisible())
        return m_enlarged ? reduce() : enlarge();
    openContent();
    if (richText->isVisible())
        enlarge();
}

std::optional<qsizetype> CellEditors::position() const {
    if (!richText->isVisible())
        return std::nullopt;
    return richText->textCursor().position() + 1;
}

std::optional<int> CellEditors::limit() const {
    return contentLimit(m_record.rows(), editRow);
}

bool CellEditors::hasAssistant() const {
    const QString own = m_record.row(editRow).identifier;
    return own == u"000" || (own == u"$a" && tagOf(m_record.rows(), editRow) == u"100");
}

void CellEditors::reduce() {
    m_enlarged = false;
    showEditedCell(); // another cell may have become current
    richText->setToolTip(smallHint.toString());
    richText->setEnlarged(false);
    place();
}

void CellEditors::place() {
    QWidget *editor = editCol == ValueColumn ? static_cast<QWidget *>(richText) : Text1;
    if (m_enlarged && editor == richText)
        return editor->setGeometry(m_grid.rightHalf());
    const QRect cell = m_grid.cellRect(editRow, editCol);
    if (cell.isValid())
        return editor->setGeometry(cell);
    // The new record does not have that row: the editor stays where it was, but inside the grid.
    const QRect grid = m_grid.geometry();
    editor->move(std::min(editor->x(), grid.right() - editor->width()),
                 std::min(editor->y(), grid.bottom() - editor->height()));
}

// Scrolls to the edited row, even if another row has become current.
void CellEditors::keepInSight() {
    if (!richText->isVisible() && !Text1->isVisible())
        return;
    m_grid.scrollToCell(editRow, editCol);
    place();
}

void CellEditors::showEditedCell() {
    m_grid.setRow(editRow);
    m_grid.setColumn(editCol);
}

// Does nothing if another record without that row was chosen in the meantime.
void CellEditors::enter(const QString &text, bool marks, const std::optional<QString> &leader) {
    m_record.edit({.row = editRow, .column = editCol, .text = text, .marks = marks, .leader = leader});
}

std::optional<CellChange> CellEditors::typing() const {
    if (richText->isVisible())
        return CellChange{.row = editRow, .column = editCol, .text = richText->text().remove(u"\r\n"_s)};
    const QString identity = platform::trimBlanks(Text1->text());
    if (Text1->isVisible() && !m_isElsewhere &&
        checkIdentity(m_record.row(editRow), IdentityColumn(editCol), identity).isEmpty())
        return CellChange{.row = editRow, .column = editCol, .text = identity};
    return std::nullopt;
}

bool CellEditors::isOpen() const {
    return m_isOpen;
}

void CellEditors::commitContent() {
    QString typed = richText->text();
    const bool changed = platform::trimBlanks(typed) != m_record.row(editRow).value;
    enter(typed.remove(u"\r\n"_s), changed); // leading and trailing blanks are kept
    endContent();
}

void CellEditors::endContent() {
    release();
    richText->setText({});
    richText->hide();
    showEditedCell();
    m_grid.setFocus();
    Q_EMIT typed();
}

void CellEditors::openIdentity(IdentityColumn column) {
    const int row = m_grid.row();
    editRow = row;
    editCol = int(column);
    showEditedCell();
    const auto limit = identityLimit(m_record.row(row), column);
    Text1->setMaxLength(limit.value_or(lineLimit));
    place();
    Text1->setToolTip(u"回车结束输入返回，按【Esc】取消"_s);
    Text1->setText(m_record.cell(row, editCol));
    Text1->show();
    Text1->raise();
    Text1->setFocus();
    hold(Hold::Fields);
}

void CellEditors::commitIdentity() {
    const QString typed = platform::trimBlanks(Text1->text());
    const QString refusal = checkIdentity(m_record.row(editRow), IdentityColumn(editCol), typed);
    if (!refusal.isEmpty()) {
        m_host.tell(refusal);
        return Text1->setFocus();
    }
    enter(typed, typed != m_record.cell(editRow, editCol));
    endIdentity();
}

void CellEditors::cancelIdentity() {
    endIdentity();
    showEditedCell();
}

void CellEditors::endIdentity() {
    release();
    Text1->clear();
    Text1->hide();
    m_grid.setFocus();
}

void CellEditors::openAssistant() {
    if (m_record.row(editRow).identifier == u"000") {
        const QString leader = runAssistant(m_windows.leaderAssistant);
        enter(leader, leader != m_record.row(editRow).value, leader);
        return endContent();
    }
    // For each further field 100 above, the assistant opens again; the box is empty by then.
    for (int left = field100Assistants(m_record.rows(), editRow); left > 0; --left) {
        public100ZD = runAssistant(m_windows.field100Assistant);
        enter(public100ZD, public100ZD != m_record.row(editRow).value);
        endContent();
    }
}

// Returns the text from the assistant, or the text in the box if the user cancelled.
QString CellEditors::runAssistant(const Assistant &assistant) {
    richText->hide();
    const QString text = richText->text();
    return assistant(text, m_grid.window()).value_or(text);
}

QString CellEditors::warning() const {
    return richText->isVisible() ? m_record.warning(editRow, richText->text()) : m_record.warning();
}

} // namespace workspace
