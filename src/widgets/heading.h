// A label in a larger size of type, which stays in proportion to the font of the program.
#pragma once

#include <QLabel>

namespace widgets {

class Heading final : public QLabel {
    Q_OBJECT
public:
    // `size`: sectionSize or titleSize (styleTokens.h).
    Heading(const QString &objectName, const QString &text, double size, QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;

private:
    void scale();

    double m_size;
};

} // namespace widgets
