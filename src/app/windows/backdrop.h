// The background picture of the notices: a bookshelf under a dusk sky, drawn to any size.
#pragma once

#include <QWidget>

namespace app {

class Backdrop final : public QWidget {
    Q_OBJECT
public:
    explicit Backdrop(const QString &objectName, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace app
