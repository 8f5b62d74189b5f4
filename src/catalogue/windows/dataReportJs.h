// The printed list of the catalogue: title, author, classification, publisher and number of copies.
#pragma once

#include "widgets/bandedReport.h"
#include <memory>

namespace catalogue {

struct DataReportJs : widgets::BandedReport {
    // The rows must have the columns of the report statement. An empty `title` keeps the default title.
    DataReportJs(std::shared_ptr<const platform::TableSource> dataSource, const QString &title, QDate date);
};

} // namespace catalogue
