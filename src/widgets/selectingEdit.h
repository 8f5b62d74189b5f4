// A line edit that selects its whole text when it gets the focus. A selection made by dragging with the mouse press
// that focused it is kept.
#pragma once

#include <QLineEdit>

namespace widgets {

class SelectingEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit SelectingEdit(const QString &objectName, QWidget *parent = nullptr);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    bool m_selectOnRelease = false; // the mouse click that focused the edit would clear the selection
};

} // namespace widgets
