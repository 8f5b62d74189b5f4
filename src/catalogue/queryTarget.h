// What the query dialogs and the sort dialog know of a list window: that it can be handed a condition and an order.
#pragma once

#include "catalogue/condition.h"

namespace catalogue {

class QueryTarget {
public:
    virtual ~QueryTarget() = default;
    // The order as it goes after " order by "; empty ones add nothing. A target may fill in an order of its own where
    // there is none.
    virtual void loadData(Condition &condition, QString &order) = 0;
};

// A list window that can be sorted anew.
class SortableList : public QueryTarget {
public:
    virtual const Condition &queryCondition() const = 0; // the condition last handed to loadData()
};

// The order of the catalogue list: it outlives the list window, and lasts as long as the program runs. Written by the
// sort dialog alone; empty at the start.
struct CatalogueOrder {
    QString sortOrder;
};

} // namespace catalogue
