// A one-line box that selects its whole text whenever it gets the focus; a selection made with the press that brought
// the focus stays.
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
    bool m_selectOnRelease = false; // the click that brought the focus would undo the selection
};

} // namespace widgets
