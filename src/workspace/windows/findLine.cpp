#include "workspace/windows/findLine.h"
#include "platform/desktop/screenSize.h"
#include "platform/numbers.h"
#include "widgets/layout.h"
#include <QApplication>
#include <QKeyEvent>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {
constexpr std::chrono::milliseconds slice(8);
}

FindLine::FindLine(RecordList &list, QWidget *parent)
    : QWidget(parent)
    , findText(widgets::named(new QLineEdit(this), u"findText"_s, u"查找"_s))
    , findPlace(widgets::named(new QComboBox(this), u"findPlace"_s, u"查找范围"_s))
    , findCount(widgets::named(new QLabel(this), u"findCount"_s))
    , m_list(list)
    , m_slices(
          slice, [this] { return m_search->step(); },
          [this](bool more) {
              say();
              if (!more && m_owed)
                  walk(*std::exchange(m_owed, std::nullopt));
          }) {
    setObjectName(u"findLine"_s);
    findText->setPlaceholderText(u"查找：F3 下一条，Shift+F3 上一条"_s);
    findText->setMinimumWidth(fontMetrics().averageCharWidth() * (platform::isScreenLow(this) ? 12 : 24));
    findPlace->addItems({u"题名"_s, u"全部"_s, u"记录号"_s});
    setLayout(widgets::row({{findText, 1}, findPlace, findCount}));
    layout()->setContentsMargins(0, 0, 0, 0);
    connect(findText, &QLineEdit::textChanged, this, &FindLine::look);
    connect(findText, &QLineEdit::returnPressed, this, &FindLine::next);
    connect(findPlace, &QComboBox::currentIndexChanged, this, &FindLine::look);
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
    m_slices.stop();
    m_search.reset();
    m_owed.reset();
    say();
}

void FindLine::look() {
    forget();
    if (place() == Place::Number || findText->text().isEmpty())
        return;
    m_search = std::make_unique<marc::RecordSearch>(m_list.records(), findText->text(),
                                                    place() == Place::Title ? marc::SearchPlace::Title
                                                                            : marc::SearchPlace::WholeRecord);
    m_slices.start();
}

void FindLine::next() {
    walk(Direction::Next);
}

void FindLine::previous() {
    walk(Direction::Previous);
}

void FindLine::walk(Direction direction) {
    if (place() == Place::Number) {
        if (const auto number = platform::toInt32(findText->text());
            number && *number >= 1 && *number <= m_list.records().rowCount())
            Q_EMIT wanted(*number - 1);
        else
            findCount->setText(u"没有这条记录"_s);
        return;
    }
    if (!m_search)
        look();
    else if (!m_slices.isActive())
        m_slices.start(); // more records may have been listed
    if (m_slices.isActive() && m_slices.advance()) {
        m_owed = direction;
        return;
    }
    if (const int row = !m_search                      ? -1
                        : direction == Direction::Next ? m_search->after(m_list.row())
                                                       : m_search->before(m_list.row());
        row >= 0)
        Q_EMIT wanted(row);
    say();
}

void FindLine::say() {
    if (!m_search)
        return findCount->clear();
    const qsizetype hits = qsizetype(m_search->hits().size());
    const int number = m_search->number(m_list.row());
    const QString all = QString::number(hits) + (m_slices.isActive() ? u"…" : u"");
    findCount->setText(hits == 0 ? (m_slices.isActive() ? u"正在查找…"_s : u"没有找到"_s)
                       : number  ? u"第 %1 / %2 条"_s.arg(QString::number(number), all)
                                 : u"共 %1 条"_s.arg(all));
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
