// Chooses which remarks of a list are shown, by level, rule and tag. Each choice shows the number of remarks that it
// would list together with the other two.
#pragma once

#include "batch/remarkList.h"
#include <QComboBox>

namespace batch {

class RemarkFilterBar final : public QWidget {
    Q_OBJECT
public:
    explicit RemarkFilterBar(QWidget *parent);

    // Shows the choices for the list. The chosen ones stay, with a count of 0 if the list has none.
    void offer(const RemarkList &list);
    RemarkFilter filter() const;
    void clear(); // chooses everything

    QComboBox *levelBox;
    QComboBox *ruleBox;
    QComboBox *tagBox;

Q_SIGNALS:
    void chosen(); // by the user
};

} // namespace batch
