// The printed list of the catalogue: title, author, classification, publisher and number of copies, page by page.
#pragma once

#include "platform/database/resultTable.h"
#include <memory>

namespace catalogue {

struct DataReportJs {
    std::shared_ptr<const platform::ResultTable> dataSource;
    QString title; // of the report's window; empty: its own caption
};

} // namespace catalogue
