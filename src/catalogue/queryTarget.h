// The interface of a list window to the query and sort dialogs, which pass a condition and an order to it.
#pragma once

#include "catalogue/condition.h"

namespace catalogue {

class QueryTarget {
public:
    virtual ~QueryTarget() = default;
    // `order` is the text after " order by "; empty arguments add nothing. A target may fill in its own order if
    // `order` is empty.
    virtual void loadData(Condition &condition, QString &order) = 0;
};

// A list window that can be sorted.
class SortableList : public QueryTarget {
public:
    virtual const Condition &queryCondition() const = 0; // as last passed to loadData()
};

// The order of the catalogue list. It outlives the list window and lasts until the program ends. Only the sort dialog
// changes it; it is empty at start.
struct CatalogueOrder {
    QString sortOrder;
};

} // namespace catalogue
