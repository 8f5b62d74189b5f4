// Shows what a change removes and adds, in the cells of a table and in a text. Removed text is struck out and added
// text is underlined, so that nothing depends on the colours alone.
#pragma once

#include "widgets/flexGridColours.h"
#include <QTextEdit>

namespace tasks {

// Paints the texts of two columns; all others as usual.
class DifferenceDelegate final : public widgets::FlexGridDelegate {
    Q_OBJECT
public:
    DifferenceDelegate(int beforeColumn, int afterColumn, QObject *parent)
        : FlexGridDelegate(parent)
        , m_before(beforeColumn)
        , m_after(afterColumn) {}

protected:
    void paintText(QPainter *painter, const QRect &place, const QStyleOptionViewItem &option, const QModelIndex &index,
                   const QString &text) const override;

private:
    int m_before;
    int m_after;
};

// Both texts, one below the other, and a note; any of them may be empty.
class DifferenceText final : public QTextEdit {
    Q_OBJECT
public:
    explicit DifferenceText(const QString &objectName, QWidget *parent = nullptr);
    void show(const QString &before, const QString &after, const QString &note);

protected:
    void changeEvent(QEvent *event) override;

private:
    QString m_before;
    QString m_after;
    QString m_note;
};

} // namespace tasks
