#include "batch/windows/remarkFilterBar.h"
#include "widgets/layout.h"
#include <QAbstractItemView>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>

using namespace Qt::StringLiterals;
using widgets::named;

namespace batch {

namespace {

constexpr int everything = -1; // value of the first entry
constexpr int shownEntries = 20;

// A box that can be narrower than its entries; the opened list shows them completely.
class NarrowBox final : public QComboBox {
public:
    NarrowBox(const QString &objectName, const QString &accessibleName, QWidget *parent)
        : QComboBox(parent) {
        named(this, objectName, accessibleName);
        setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
        setMinimumContentsLength(4);
        setMaxVisibleItems(shownEntries);
    }
    void showPopup() override {
        const int beside = view()->verticalScrollBar()->sizeHint().width();
        view()->setMinimumWidth(view()->sizeHintForColumn(0) + beside);
        QComboBox::showPopup();
    }
};

struct Entry {
    QVariant value;
    QString text;
};

QString withCount(QStringView name, int count) {
    return name + u" (" + QString::number(count) + u')';
}

// An open list stays as it is until the user has chosen from it.
void fill(QComboBox &box, const QList<Entry> &entries) {
    if (box.view()->isVisible())
        return;
    bool same = box.count() == entries.size();
    for (int at = 0; same && at < box.count(); ++at)
        same = box.itemData(at) == entries[at].value;
    if (same) {
        for (int at = 0; at < box.count(); ++at)
            if (box.itemText(at) != entries[at].text)
                box.setItemText(at, entries[at].text);
        return;
    }
    const QVariant chosen = box.currentData();
    box.clear();
    for (const Entry &entry : entries)
        box.addItem(entry.text, entry.value);
    box.setCurrentIndex(std::max(box.findData(chosen), 0));
}

template <class Value, class Name>
void offerIn(QComboBox &box, QStringView all, RemarkList::Choices<Value> choices, const std::optional<Value> &chosen,
             const Name &entryOf) {
    if (chosen)
        choices.of.try_emplace(*chosen, 0);
    QList<Entry> entries{{everything, withCount(all, choices.all)}};
    for (const auto &[value, count] : choices.of) {
        const auto &[key, name] = entryOf(value);
        entries.append({key, withCount(name, count)});
    }
    fill(box, entries);
}

std::optional<int> numberIn(const QComboBox &box) {
    const QVariant value = box.currentData();
    return !value.isValid() || value == everything ? std::nullopt : std::optional(value.toInt());
}

} // namespace

RemarkFilterBar::RemarkFilterBar(QWidget *parent)
    : QWidget(parent)
    , levelBox(new NarrowBox(u"levelBox"_s, u"级别"_s, this))
    , ruleBox(new NarrowBox(u"ruleBox"_s, u"规则"_s, this))
    , tagBox(new NarrowBox(u"tagBox"_s, u"字段"_s, this)) {
    setObjectName(u"filterBar"_s);
    setLayout(widgets::row({{levelBox, 3}, {ruleBox, 5}, {tagBox, 3}}));
    layout()->setContentsMargins(0, 0, 0, 0);
    widgets::hint({{levelBox, u"Alt+F　只列一个级别"}, {ruleBox, u"只列一类"}, {tagBox, u"只列一个字段"}});
    for (QComboBox *box : {levelBox, ruleBox, tagBox})
        connect(box, &QComboBox::activated, this, &RemarkFilterBar::chosen);
    auto *key = new QShortcut(Qt::ALT | Qt::Key_F, this);
    connect(key, &QShortcut::activated, this, [this] { levelBox->setFocus(Qt::ShortcutFocusReason); });
}

void RemarkFilterBar::offer(const RemarkList &list) {
    const RemarkFilter chosen = filter();
    offerIn(*levelBox, u"全部级别", list.byLevel(), chosen.level,
            [](schema::Level level) { return std::pair(int(level), nameOf(level).toString()); });
    offerIn(*ruleBox, u"全部规则", list.byRule(), chosen.rule,
            [&](int rule) { return std::pair(rule, list.rules().labelOf(rule)); });
    offerIn(*tagBox, u"全部字段", list.byTag(), chosen.tag,
            [](const Tag &tag) { return std::pair(tag.text(), tag.isEmpty() ? u"无字段"_s : tag.text()); });
}

RemarkFilter RemarkFilterBar::filter() const {
    RemarkFilter filter;
    if (const auto level = numberIn(*levelBox))
        filter.level = schema::Level(*level);
    filter.rule = numberIn(*ruleBox);
    if (const QVariant tag = tagBox->currentData(); tag.isValid() && tag != everything)
        filter.tag = Tag(tag.toString());
    return filter;
}

void RemarkFilterBar::clear() {
    for (QComboBox *box : {levelBox, ruleBox, tagBox})
        box->setCurrentIndex(0);
}

} // namespace batch
