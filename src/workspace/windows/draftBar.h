// Offers the drafts that an earlier start left, in a bar at the top of the workspace. It is not a message box, so that
// the user can continue to work.
#pragma once

#include "widgets/button.h"
#include <QFrame>
#include <QLabel>

namespace workspace {

class DraftBar final : public QFrame {
    Q_OBJECT
public:
    explicit DraftBar(QWidget *parent);

    void offer(qsizetype records); // shows the bar

    QLabel *draftWords;
    widgets::Button *cmdRestore; // 恢复
    widgets::Button *cmdDiscard; // 丢弃

Q_SIGNALS:
    void restoreWanted();
    void givenUp();
};

} // namespace workspace
