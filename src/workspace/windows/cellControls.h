// The two in-place editors that are laid over the field grid. They know keys and focus and nothing of records. An input
// method's composition is left alone: Enter and Esc that belong to it end no edit.
#pragma once

#include "widgets/textBox.h"
#include <QInputMethodEvent>
#include <QLineEdit>
#include <optional>

namespace workspace {

// What an input method has under way in an editor.
class Composition {
public:
    void note(const QInputMethodEvent *event) { m_preedit = event->preeditString(); }
    void forget() { m_preedit.clear(); }
    // Whether the key is used up by the composition. One that the input method did not take, perhaps because it is no
    // longer there, ends the composition: Esc drops what was composed, Enter and typing keep it.
    bool uses(QKeyEvent *event, QWidget *editor);

private:
    QString m_preedit;
};

// Edits the content of a cell, in one line or, enlarged, in many.
class CellText final : public widgets::TextBox {
    Q_OBJECT
public:
    CellText(const QString &objectName, QWidget *parent);

    // What is typed, pasted or composed beyond so many characters is left out; what is loaded is not cut.
    void setLimit(std::optional<int> characters) { m_limit = characters; }
    void setEnlarged(bool enlarged);

Q_SIGNALS:
    void entered();
    void cancelled();
    void assistantWanted(); // Ctrl+E
    void enlargeWanted();   // right button down
    void reduceWanted();    // double click
    void focused();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    qsizetype room() const; // characters that may still come in, in place of the selection

    std::optional<int> m_limit;
    Composition m_composition;
    bool m_enlarged = false;
};

// Edits a description or an identifier.
class CellLine final : public QLineEdit {
    Q_OBJECT
public:
    CellLine(const QString &objectName, QWidget *parent);

Q_SIGNALS:
    void entered();
    void cancelled();
    void focused();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    Composition m_composition;
};

} // namespace workspace
