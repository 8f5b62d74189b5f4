#include "targets/windows/targetPicker.h"
#include "targets/searchWords.h"
#include "widgets/layout.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace targets {

TargetPicker::TargetPicker(platform::Host &host, QWidget *parent)
    : QListWidget(parent)
    , m_host(host) {
    widgets::named(this, u"targetPicker"_s, u"要检索的目标"_s);
    setWordWrap(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    widgets::hint({{this, u"空格：检索不检索这个目标；名称下面是它答的话"}});
    connect(this, &QListWidget::itemChanged, this, [this] {
        if (!m_filling)
            keep();
    });
}

void TargetPicker::show(const TargetShelf &shelf) {
    const QStringList ticked = m_host.remembered().value(platform::kept::chosenTargets);
    const int current = currentRow();
    m_filling = true;
    clear();
    m_asked.clear();
    m_targets = shelf.list();
    for (const Target &target : m_targets) {
        auto *item = new QListWidgetItem(captionOf(target), this);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(ticked.contains(target.name) ? Qt::Checked : Qt::Unchecked);
        item->setToolTip(widgets::plainTip(addressOf(target)));
    }
    m_filling = false;
    setCurrentRow(std::clamp(current, 0, std::max(0, count() - 1)));
}

QStringList TargetPicker::chosenNames() const {
    QStringList names;
    for (int row = 0; row < count(); ++row) {
        if (item(row)->checkState() == Qt::Checked)
            names.append(m_targets[size_t(row)].name);
    }
    return names;
}

void TargetPicker::keep() {
    m_host.remembered().keep(platform::kept::chosenTargets, chosenNames());
}

TargetList TargetPicker::chosen() const {
    TargetList list;
    for (int row = 0; row < count(); ++row) {
        if (item(row)->checkState() == Qt::Checked)
            list.push_back(m_targets[size_t(row)]);
    }
    return list;
}

void TargetPicker::tick(int row, bool ticked) {
    item(row)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

void TargetPicker::lock(bool locked) {
    const QSignalBlocker quiet(this);
    for (int row = 0; row < count(); ++row)
        item(row)->setFlags(locked ? Qt::ItemIsEnabled | Qt::ItemIsSelectable
                                   : Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
}

void TargetPicker::beginStates() {
    const QSignalBlocker quiet(this);
    m_asked.clear();
    for (int row = 0; row < count(); ++row) {
        item(row)->setText(captionOf(m_targets[size_t(row)]));
        if (item(row)->checkState() == Qt::Checked)
            m_asked.push_back(row);
    }
}

void TargetPicker::setState(int index, const QString &words) {
    if (index >= int(m_asked.size()))
        return;
    const QSignalBlocker quiet(this);
    const int row = m_asked[size_t(index)];
    item(row)->setText(captionOf(m_targets[size_t(row)]) + u'\n' + words);
    item(row)->setToolTip(widgets::plainTip(words));
}

} // namespace targets
