// The state of a window as its user sees it, and what an action changes in it, as text: for tables of actions with
// their effects.
#pragma once

#include "qtPrinters.h"
#include <QApplication>
#include <QMap>
#include <QWidget>
#include <functional>

class WindowState {
public:
    explicit WindowState(QWidget &window)
        : m_window(window)
        , m_before(seen()) {}

    // Returns what has changed since the last call: "NAME=TEXT; NAME focus; NAMES gone; NAMES off; NAMES on; …",
    // where TEXT is the first line of what a control shows.
    QString changes() {
        QApplication::processEvents();
        const auto before = std::exchange(m_before, seen());
        QMap<QString, QStringList> said;
        for (auto fact = m_before.cbegin(); fact != m_before.cend(); ++fact)
            if (before.value(fact.key()) != *fact)
                said[*fact].append(fact.key().section(u'.', 0, 0));
        QStringList changes;
        for (auto fact = said.cbegin(); fact != said.cend(); ++fact)
            changes.append(fact->join(u' ') + (fact.key().startsWith(u'=') ? u""_s : u" "_s) + fact.key());
        return changes.join(u"; "_s);
    }

    // Makes the window larger and returns which controls grew, and in which direction: "NAME w; NAME wh; …". Controls
    // that overlap fail the test.
    QString grown(const QSize &by) {
        QMap<QString, QSize> before;
        const auto sizes = [this](const std::function<void(const QString &, QSize)> &take) {
            QApplication::processEvents();
            for (const QWidget *widget : m_window.findChildren<QWidget *>())
                if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(u"qt_"))
                    take(widget->objectName(), widget->size());
        };
        sizes([&](const QString &name, QSize size) { before.insert(name, size); });
        m_window.resize(m_window.size() + by);
        QStringList grown;
        sizes([&](const QString &name, QSize size) {
            const QSize more = size - before.value(name);
            if (more.width() > 1 || more.height() > 1)
                grown.append(name + u' ' + (more.width() > 1 ? u"w" : u"") + (more.height() > 1 ? u"h" : u""));
        });
        expectNoOverlaps();
        grown.sort();
        return grown.join(u"; "_s);
    }

private:
    void expectNoOverlaps() const {
        for (const QWidget *one : m_window.findChildren<QWidget *>())
            for (const QWidget *other : m_window.findChildren<QWidget *>()) {
                const bool laidOut = one < other && one->parentWidget() == other->parentWidget() &&
                                     one->parentWidget()->layout() && one->isVisible() && other->isVisible();
                EXPECT_FALSE(laidOut && one->geometry().intersects(other->geometry()))
                    << one->objectName().toStdString() << " and " << other->objectName().toStdString();
            }
    }
    static QString textOf(const QWidget *widget) {
        for (const char *property : {"displayText", "text", "plainText", "currentText", "title", "value"})
            if (const QVariant text = widget->property(property); text.isValid())
                return u'=' + text.toString().section(u'\n', 0, 0);
        return {};
    }
    QMap<QString, QString> seen() const {
        QMap<QString, QString> facts;
        for (const QWidget *widget : m_window.findChildren<QWidget *>()) {
            const QString name = widget->objectName();
            if (name.isEmpty() || name.startsWith(u"qt_"))
                continue;
            const bool shown = widget->isVisibleTo(&m_window);
            facts[name] = !shown ? u"gone"_s : widget->isEnabled() ? u"on"_s : u"off"_s;
            if (const QString text = textOf(widget); shown && !text.isEmpty())
                facts[name + u".text"] = text;
            if (shown && widget->property("checkable").toBool())
                facts[name + u".tick"] = widget->property("checked").toBool() ? u"ticked"_s : u"not ticked"_s;
        }
        if (const QWidget *focus = QApplication::focusWidget(); focus && m_window.isAncestorOf(focus))
            facts[focus->objectName() + u".focus"] = u"focus"_s;
        return facts;
    }

    QWidget &m_window;
    QMap<QString, QString> m_before;
};

// Records the texts that a control had when it was painted.
class PaintedTexts final : public QObject {
public:
    explicit PaintedTexts(QWidget *control) { control->installEventFilter(this); }
    QStringList texts;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() == QEvent::Paint && texts.value(texts.size() - 1) != watched->property("text").toString())
            texts.append(watched->property("text").toString());
        return false;
    }
};
