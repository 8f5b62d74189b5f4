// The query: six fields, of which a record must match all that are filled in.
#pragma once

#include "targets/query.h"
#include "widgets/selectingEdit.h"
#include <QWidget>
#include <array>

namespace targets {

class QueryPane final : public QWidget {
    Q_OBJECT
public:
    explicit QueryPane(QWidget *parent = nullptr);

    Query query() const;
    void show(const Query &query);
    void goToFirst(); // moves the focus to the first field

    std::array<widgets::SelectingEdit *, useCount> edits; // in the order of Use

Q_SIGNALS:
    void entered(); // Enter in a field
};

} // namespace targets
