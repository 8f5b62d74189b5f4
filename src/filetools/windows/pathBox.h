// A box for a path or a number: its whole text is selected whenever the focus comes to it, by key or by mouse.
#pragma once

#include <QLineEdit>

namespace filetools {

class PathBox final : public QLineEdit {
    Q_OBJECT
public:
    explicit PathBox(const QString &objectName, QWidget *parent = nullptr);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    bool m_selectAfterPress = false;
};

} // namespace filetools
