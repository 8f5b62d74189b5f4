// The controls for editing in place over the field grid: the keys of both editors, and the editor of contents. They
// handle keys and focus only and know nothing about records. The composition of an input method is not disturbed: its
// Enter and Esc do not end the edit.
#pragma once

#include "widgets/keyLine.h"
#include "widgets/textBox.h"
#include <QInputMethodEvent>
#include <optional>

namespace workspace {

// Handles keys and focus of both editors: Enter and Esc end the edit, and an open editor that loses the focus takes it
// back.
class EditorKeys final : public QObject {
    Q_OBJECT
public:
    explicit EditorKeys(QWidget *editor);

Q_SIGNALS:
    void entered();
    void cancelled();
    void focused();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static bool meansAButton(const QKeyEvent *event);
    bool endsEdit(QKeyEvent *event);
    // Returns whether the composition consumes the key. A key that the input method did not handle, perhaps because it
    // is gone, ends the composition: Esc discards the composed text, Enter and typing keep it.
    bool endsComposition(QKeyEvent *event);

    QWidget *m_editor;
    QString m_preedit; // the text being composed by an input method
};

// Edits the content of a cell, in one line or, if enlarged, in several.
class CellText final : public widgets::TextBox {
    Q_OBJECT
public:
    static constexpr int margin = 2; // pixels around the text, about those of a grid cell

    CellText(const QString &objectName, QWidget *parent);

    // Drops text that is typed, pasted or composed beyond the limit, but does not shorten a text set by the program.
    void setLimit(std::optional<int> characters) { m_limit = characters; }
    void setEnlarged(bool enlarged);

Q_SIGNALS:
    void assistantWanted(); // Ctrl+E
    void enlargeWanted();   // right button pressed
    void reduceWanted();    // double click

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    qsizetype room() const; // characters that can still be entered, replacing the selection

    std::optional<int> m_limit;
    widgets::KeyLine *m_keys; // in the large form
    bool m_enlarged = false;
};

} // namespace workspace
