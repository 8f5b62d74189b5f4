#include "widgets/layout.h"
#include "platform/desktop/screenSize.h"
#include <QAbstractItemView>
#include <QComboBox>
#include <QSplitter>
#include <QTextDocument>
#include <algorithm>

namespace widgets {

QBoxLayout *fill(QBoxLayout *box, std::initializer_list<Item> items) {
    for (const Item &item : items) {
        if (const auto *widget = std::get_if<QWidget *>(&item.content))
            box->addWidget(*widget, item.share);
        else if (const auto *layout = std::get_if<QLayout *>(&item.content))
            box->addLayout(*layout, item.share);
        else
            box->addStretch(std::get<Stretch>(item.content).factor);
    }
    return box;
}

namespace {

void addControls(QList<QWidget *> &controls, const QLayout *layout);

void addControls(QList<QWidget *> &controls, QWidget *widget) {
    if (widget->focusPolicy() & Qt::TabFocus) {
        controls.append(widget);
    } else if (const auto *splitter = qobject_cast<QSplitter *>(widget)) {
        for (int at = 0; at < splitter->count(); ++at)
            addControls(controls, splitter->widget(at));
    } else if (const QLayout *layout = widget->layout()) {
        addControls(controls, layout);
    }
}

void addControls(QList<QWidget *> &controls, const QLayout *layout) {
    for (int at = 0; at < layout->count(); ++at) {
        QLayoutItem *item = layout->itemAt(at);
        if (item->widget())
            addControls(controls, item->widget());
        else if (item->layout())
            addControls(controls, item->layout());
    }
}

} // namespace

QBoxLayout *row(std::initializer_list<Item> items) {
    return fill(new QHBoxLayout, items);
}

QBoxLayout *column(std::initializer_list<Item> items) {
    return fill(new QVBoxLayout, items);
}

QGroupBox *framed(QGroupBox *frame, QLayout *content) {
    frame->setLayout(content);
    return frame;
}

QLabel *naming(QLabel *label, QWidget *control) {
    label->setBuddy(control);
    QString name = label->text().section(QStringLiteral("(&"), 0, 0).remove(u'&');
    if (name.endsWith(u':'))
        name.chop(1);
    nameForReader(control, name);
    return label;
}

QBoxLayout *labelled(QLabel *label, QWidget *control) {
    return row({naming(label, control), {control, 1}});
}

void hint(std::initializer_list<Hint> hints) {
    for (const Hint &each : hints)
        each.control->setToolTip(each.words.toString());
}

QString plainTip(const QString &text) {
    return text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

void tabInReadingOrder(QWidget *window) {
    QList<QWidget *> controls;
    addControls(controls, window);
    for (qsizetype at = 1; at < controls.size(); ++at)
        QWidget::setTabOrder(controls[at - 1], controls[at]);
}

void nameForReader(QWidget *control, const QString &name) {
    control->setAccessibleName(name);
    if (auto *combo = qobject_cast<QComboBox *>(control)) {
        combo->setAccessibleDescription(name);
        combo->view()->setAccessibleName(name);
    }
}

void describeForReader(QWidget *control, const QString &words) {
    const bool isChoice = qobject_cast<QComboBox *>(control) != nullptr; // its description begins with its name
    const QString name = isChoice ? control->accessibleName() : QString();
    const QStringView between = name.isEmpty() || words.isEmpty() ? u"" : u"：";
    control->setAccessibleDescription(name + between + words);
}

void giveWidth(QWidget *control, int pixels) {
    control->setMinimumWidth(std::min(pixels, platform::usableScreenSize(control).width() * 3 / 5));
}

QFrame *hairline(QWidget *parent) {
    auto *line = new QFrame(parent);
    line->setFrameStyle(int(QFrame::HLine) | int(QFrame::Plain));
    line->setForegroundRole(QPalette::Mid);
    return line;
}

void keepPlace(QWidget *control) {
    QSizePolicy policy = control->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control->setSizePolicy(policy);
}

} // namespace widgets
