#include "targets/windows/queryPane.h"
#include "widgets/layout.h"
#include <QGridLayout>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

struct FieldRow {
    QString Query::*part;
    QStringView objectName;
    QStringView caption;
    QStringView hint;
};
constexpr auto fieldRows = std::to_array<FieldRow>({
    {&Query::isbn, u"isbnEdit", u"&ISBN:", u"10 位或 13 位，有没有连字符都可以"},
    {&Query::title, u"titleEdit", u"题名(&1):", u"查不到时少写几个字"},
    {&Query::author, u"authorEdit", u"责任者(&2):", u""},
    {&Query::publisher, u"publisherEdit", u"出版社(&3):", u""},
    {&Query::year, u"yearEdit", u"出版年(&4):", u"四位数字"},
    {&Query::words, u"wordsEdit", u"任意词(&5):", u"记录里任何地方的词"},
});
static_assert(fieldRows.size() == useCount);
constexpr int columns = 3; // fields side by side

} // namespace

QueryPane::QueryPane(QWidget *parent)
    : QWidget(parent) {
    setObjectName(u"queryPane"_s);
    auto *grid = new QGridLayout;
    for (size_t i = 0; i < fieldRows.size(); ++i) {
        const FieldRow &row = fieldRows[i];
        edits[i] = new widgets::SelectingEdit(row.objectName.toString(), this);
        auto *label = widgets::named(new QLabel(row.caption.toString(), this), row.objectName.toString() + u"Label"_s);
        widgets::naming(label, edits[i]);
        if (!row.hint.isEmpty())
            widgets::hint({{edits[i], row.hint}});
        const int line = int(i) / columns, place = int(i) % columns * 2;
        grid->addWidget(label, line, place);
        grid->addWidget(edits[i], line, place + 1);
        connect(edits[i], &QLineEdit::returnPressed, this, &QueryPane::entered);
    }
    for (int column = 0; column < columns; ++column)
        grid->setColumnStretch(column * 2 + 1, 1);
    grid->setContentsMargins(0, 0, 0, 0);
    setLayout(grid);
    setFocusProxy(edits[0]);
}

Query QueryPane::query() const {
    Query query;
    for (size_t i = 0; i < fieldRows.size(); ++i)
        query.*fieldRows[i].part = edits[i]->text().trimmed();
    return query;
}

void QueryPane::show(const Query &query) {
    for (size_t i = 0; i < fieldRows.size(); ++i)
        edits[i]->setText(query.*fieldRows[i].part);
}

void QueryPane::goToFirst() {
    edits[0]->setFocus();
}

} // namespace targets
