#include "batch/windows/silenceMenu.h"
#include "batch/windows/frmSilenced.h"

using namespace Qt::StringLiterals;

namespace batch {

QMenu *silenceMenu(Reminders &reminders, const RuleBook &book, const Remark *remark, QWidget *parent) {
    auto *menu = new QMenu(parent);
    menu->setObjectName(u"silenceMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (remark && SilencedRules::mayBeSilenced(remark->kind)) {
        const int rule = ruleOf(*remark);
        const QString label = book.labelOf(rule).replace(u'&', u"&&"_s), tag = remark->tag.text();
        const auto offer = [&](const QString &caption, const QString &about) {
            const SilencedRule silenced{book.keyOf(rule), about};
            QObject::connect(menu->addAction(caption), &QAction::triggered, &reminders,
                             [&reminders, silenced] { reminders.silence(silenced); });
        };
        offer(u"“%1”不再提示(&1)"_s.arg(label), {});
        if (!tag.isEmpty())
            offer(u"只是 %2 的“%1”不再提示(&2)"_s.arg(label, tag), tag);
        menu->addSeparator();
    }
    const qsizetype count = qsizetype(reminders.silenced().all().size());
    QObject::connect(menu->addAction(u"不再提示的类（%1）…(&3)"_s.arg(count)), &QAction::triggered, parent,
                     [&reminders, book, parent] { frmSilenced(reminders, book, parent).exec(); });
    QAction *marks = menu->addAction(u"在字段表格里标出问题(&4)"_s);
    marks->setCheckable(true);
    marks->setChecked(reminders.marksRows());
    QObject::connect(marks, &QAction::triggered, &reminders, &Reminders::markRows);
    return menu;
}

} // namespace batch
