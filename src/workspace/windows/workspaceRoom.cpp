#include "workspace/windows/workspaceRoom.h"
#include "platform/desktop/frontWindow.h"
#include "platform/desktop/screenSize.h"
#include "widgets/layout.h"
#include "workspace/windows/fieldGrid.h"
#include <QApplication>
#include <QShortcut>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace workspace {

namespace kept = platform::kept;

WorkspaceRoom::WorkspaceRoom(QWidget *list, QWidget *fields, QWidget *parent)
    : QSplitter(Qt::Horizontal, parent)
    , cmdWholeText(new Button(u"cmdWholeText"_s, u"&W 全文"_s, parent))
    , wholeText(named(new QPlainTextEdit, u"wholeText"_s, u"当前行全文"_s))
    , m_panes{{list, list->findChild<widgets::FlexGrid *>()},
              {fields, fields->findChild<widgets::FlexGrid *>()},
              {wholeText, wholeText}}
    , m_down(named(new QSplitter(Qt::Vertical), u"down"_s))
    , m_under(named(new QSplitter(Qt::Vertical), u"under"_s)) {
    setObjectName(u"across"_s);
    wholeText->setReadOnly(true);
    cmdWholeText->setCheckable(true);
    cmdWholeText->setToolTip(u"在表格下面显示当前行的全文"_s);
    addWidget(list);
    addWidget(m_under);
    m_under->addWidget(m_down);
    const int leastLines = platform::isScreenLow(this) ? 3 : 6; // minimum height of the fields in any window
    fields->setMinimumHeight(leastLines * fontMetrics().lineSpacing());
    m_down->addWidget(fields);
    m_down->addWidget(wholeText);
    setStretchFactor(1, 1);
    m_down->setStretchFactor(0, 1);
    for (QSplitter *splitter : {static_cast<QSplitter *>(this), m_down, m_under})
        splitter->setChildrenCollapsible(false);
    connect(cmdWholeText, &Button::toggled, wholeText, &QWidget::setVisible);
    connect(cmdWholeText, &Button::toggled, this, &WorkspaceRoom::textWanted);
    wholeText->hide();
    bindKeys();
}

void WorkspaceRoom::bindKeys() {
    for (const auto &[key, by] : {std::pair(u"Ctrl+Tab"_s, 1), std::pair(u"Ctrl+Shift+Tab"_s, -1)}) {
        auto *shortcut = new QShortcut(QKeySequence(key), parentWidget());
        connect(shortcut, &QShortcut::activated, this, [this, step = by] {
            if (!platform::isBlocked(this))
                goToPane(step);
        });
    }
}

// While an editor is open, its grid is disabled and the focus stays.
void WorkspaceRoom::goToPane(int by) {
    std::vector<QWidget *> shown;
    int here = -1;
    for (const Pane &pane : m_panes) {
        if (pane.room->isHidden())
            continue;
        if (pane.room->isAncestorOf(QApplication::focusWidget()) || pane.room->hasFocus()) {
            here = int(shown.size());
            if (!pane.target->isEnabled())
                return;
        }
        shown.push_back(pane.target);
    }
    const int count = int(shown.size());
    shown[size_t(here < 0 ? 0 : (here + by + count) % count)]->setFocus(Qt::ShortcutFocusReason);
}

void WorkspaceRoom::addRemarks(QWidget *remarks) {
    if (!remarks)
        return;
    remarks->hide();
    m_under->addWidget(remarks);
    m_panes.push_back({remarks, remarks});
    m_under->setStretchFactor(0, 1);
}

void WorkspaceRoom::share(int listWidth, int fieldsWidth) {
    constexpr int fieldLines = 30, textLines = 4, remarkLines = 18; // the remarks: some five rows
    widget(0)->setMinimumWidth(listWidth / 2);
    setSizes({listWidth, fieldsWidth});
    m_down->setSizes({fieldLines * fontMetrics().height(), textLines * fontMetrics().height()});
    m_under->setSizes({fieldLines * fontMetrics().height(), remarkLines * fontMetrics().height()});
}

void WorkspaceRoom::remember(const platform::DeskState &state) const {
    state.keep(kept::workspaceAcross, saveState());
    state.keep(kept::workspaceDown, m_down->saveState());
    state.keep(kept::workspaceUnder, m_under->saveState());
    state.keep(kept::wholeTextShown, cmdWholeText->isChecked());
}

void WorkspaceRoom::recall(const platform::DeskState &state) {
    restoreState(state.value(kept::workspaceAcross));
    m_down->restoreState(state.value(kept::workspaceDown));
    m_under->restoreState(state.value(kept::workspaceUnder));
    cmdWholeText->setChecked(state.value(kept::wholeTextShown));
}

void WorkspaceRoom::showText(const QString &text, bool coded) {
    if (!cmdWholeText->isChecked())
        return;
    wholeText->setFont(coded ? codedFont(font()) : font());
    wholeText->setPlainText(text);
    showBlanks(*wholeText, coded);
}

} // namespace workspace
