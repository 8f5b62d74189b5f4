// The report as a table for spreadsheets.
#pragma once

#include "batch/batchReport.h"
#include "batch/recordDraw.h"
#include <QByteArray>

namespace batch {

// Returns comma-separated UTF-8 text with a byte order mark, with all record numbers. A text that a spreadsheet would
// read as a formula begins with an apostrophe. Record numbers that do not fit into one cell continue in further rows.
QByteArray reportCsv(const BatchReport &report, const RecordDraw &draw);

} // namespace batch
