#include "workspace/windows/findLine.h"
#include "platform/desktop/screenSize.h"
#include "widgets/layout.h"
#include <QApplication>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace workspace {

FindLine::FindLine(RecordList &list, QWidget *parent)
    : QWidget(parent)
    , findText(widgets::named(new QLineEdit(this), u"findText"_s, u"查找"_s))
    , findPlace(widgets::named(new QComboBox(this), u"findPlace"_s, u"查找范围"_s))
    , findCount(widgets::named(new QLabel(this), u"findCount"_s))
    , m_find(list.records(), [&list] { return list.row(); }) {
    setObjectName(u"findLine"_s);
    findText->setPlaceholderText(u"查找：F3 下一条，Shift+F3 上一条"_s);
    findText->setMinimumWidth(fontMetrics().averageCharWidth() * (platform::isScreenLow(this) ? 12 : 24));
    findPlace->addItems({u"题名"_s, u"全部"_s, u"记录号"_s});
    setLayout(widgets::row({{findText, 1}, findPlace, findCount}));
    layout()->setContentsMargins(0, 0, 0, 0);
    connect(findText, &QLineEdit::textChanged, this, &FindLine::look);
    connect(findText, &QLineEdit::returnPressed, this, &FindLine::next);
    connect(findPlace, &QComboBox::currentIndexChanged, this, &FindLine::look);
    connect(&m_find, &RecordFind::changed, this, &FindLine::say);
    connect(&m_find, &RecordFind::noSuchNumber, this, [this] { findCount->setText(u"没有这条记录"_s); });
    connect(&m_find, &RecordFind::wanted, this, &FindLine::wanted);
    hide();
}

void FindLine::open(Place place, const QString &text) {
    if (QWidget *focused = QApplication::focusWidget(); focused && !isAncestorOf(focused))
        m_cameFrom = focused;
    if (place == Place::Number && this->place() != Place::Number)
        m_words = findText->text();
    const bool otherKind = (place == Place::Number) != (this->place() == Place::Number);
    findPlace->setCurrentIndex(int(place));
    if (!text.isEmpty())
        findText->setText(text);
    else if (otherKind)
        findText->setText(place == Place::Number ? QString() : m_words);
    findText->selectAll();
    if (!text.isEmpty())
        findText->deselect();
    show();
    findText->setFocus();
    say();
}

void FindLine::forget() {
    m_find.forget();
}

void FindLine::look() {
    m_find.look(place(), findText->text());
}

void FindLine::next() {
    m_find.walk(RecordFind::Direction::Next);
}

void FindLine::previous() {
    m_find.walk(RecordFind::Direction::Previous);
}

void FindLine::say() {
    findCount->setText(m_find.words());
}

void FindLine::keyPressEvent(QKeyEvent *event) {
    if (event->key() != Qt::Key_Escape)
        return QWidget::keyPressEvent(event);
    event->accept(); // so that the window is not closed
    hide();
    if (m_cameFrom && m_cameFrom->isVisible() && m_cameFrom->isEnabled())
        m_cameFrom->setFocus();
    else
        Q_EMIT closed();
}

QString FindLine::wholeRecordWords() const {
    return place() == Place::WholeRecord ? findText->text() : QString();
}

} // namespace workspace
