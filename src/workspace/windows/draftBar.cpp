#include "workspace/windows/draftBar.h"
#include "widgets/layout.h"
#include "widgets/styleTokens.h"

using namespace Qt::StringLiterals;
using widgets::Button;

namespace workspace {

DraftBar::DraftBar(QWidget *parent)
    : QFrame(parent)
    , draftWords(widgets::named(new QLabel(this), u"draftWords"_s))
    , cmdRestore(new Button(u"cmdRestore"_s, u"&H 恢复"_s, this))
    , cmdDiscard(new Button(u"cmdDiscard"_s, u"&I 丢弃"_s, this)) {
    setObjectName(u"draftBar"_s);
    setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Raised));
    setLayout(widgets::row({{draftWords, 1}, cmdRestore, cmdDiscard}));
    const int tight = widgets::space(widgets::Space::Tight, fontMetrics());
    layout()->setContentsMargins(2 * tight, tight, tight, tight);
    widgets::hint({{cmdRestore, u"把这些修改放回记录"}, {cmdDiscard, u"不要这些修改；它们另存为一个文件"}});
    for (Button *button : {cmdRestore, cmdDiscard})
        connect(button, &Button::clicked, this, &DraftBar::hide);
    connect(cmdRestore, &Button::clicked, this, &DraftBar::restoreWanted);
    connect(cmdDiscard, &Button::clicked, this, &DraftBar::givenUp);
    hide();
}

void DraftBar::offer(qsizetype records) {
    draftWords->setText(u"上次有 %1 条修改没有导入"_s.arg(records));
    show();
}

} // namespace workspace
