// What is laid over the field grid to edit in place: the keys of both editors, and the editor of contents. They know
// keys and focus and nothing of records. An input method's composition is left alone: Enter and Esc that belong to it
// end no edit.
#pragma once

#include "widgets/textBox.h"
#include <QInputMethodEvent>
#include <optional>

namespace workspace {

// What both do with keys and focus: Enter and Esc end the edit, and an editor that is left while it is open takes the
// focus back.
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
    // Whether the key is used up by the composition. One that the input method did not take, perhaps because it is no
    // longer there, ends the composition: Esc drops what was composed, Enter and typing keep it.
    bool endsComposition(QKeyEvent *event);

    QWidget *m_editor;
    QString m_preedit; // what an input method has under way
};

// Edits the content of a cell, in one line or, enlarged, in many.
class CellText final : public widgets::TextBox {
    Q_OBJECT
public:
    static constexpr int margin = 2; // pixels around the text, about those of a grid cell

    CellText(const QString &objectName, QWidget *parent);

    // What is typed, pasted or composed beyond so many characters is left out; what is loaded is not cut.
    void setLimit(std::optional<int> characters) { m_limit = characters; }
    void setEnlarged(bool enlarged);

Q_SIGNALS:
    void assistantWanted(); // Ctrl+E
    void enlargeWanted();   // right button down
    void reduceWanted();    // double click

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    qsizetype room() const; // characters that may still come in, in place of the selection

    std::optional<int> m_limit;
    bool m_enlarged = false;
};

} // namespace workspace
