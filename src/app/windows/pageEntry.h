// An entry of the start page: a flat row with an icon, its caption, a detail in a fainter colour, and its key at the
// right. The text of the button has the access key in front ("&1 选择文件：预读"); the detail follows "：" unless it is
// set.
#pragma once

#include "widgets/button.h"

namespace app {

class PageEntry final : public widgets::Button {
    Q_OBJECT
public:
    PageEntry(const QString &objectName, const QString &caption, const QString &icon, QWidget *parent);

    void setDetail(const QString &detail); // below the caption
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Words {
        QString key;
        QString caption;
        QString detail;
    };
    Words words() const;
    int padding() const;

    QString m_detail;
};

} // namespace app
