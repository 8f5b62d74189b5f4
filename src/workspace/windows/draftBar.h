// Offers what an earlier start has left of the batch: a bar at the top of the workspace, no box, so that nobody is
// held.
#pragma once

#include "widgets/window.h"
#include <QFrame>
#include <QLabel>

namespace workspace {

class DraftBar final : public QFrame {
    Q_OBJECT
public:
    explicit DraftBar(QWidget *parent);

    void offer(qsizetype records); // comes up

    QLabel *draftWords;
    widgets::Button *cmdHuiFu; // 恢复
    widgets::Button *cmdDiuQi; // 丢弃

Q_SIGNALS:
    void restoreWanted();
    void givenUp();
};

} // namespace workspace
