// Prints the report black on white, as pages or as a PDF file, and makes the web page, with the chart.
#pragma once

#include "batch/batchReport.h"
#include "batch/recordDraw.h"
#include "platform/result.h"

class QDialog;
class QWidget;

namespace batch {

// Returns Qt's print preview of the report, not shown yet; it deletes itself when it is closed.
QDialog *newBatchReportPreview(const BatchReport &report, const RecordDraw &draw, QWidget *parent);

// Write a file; on failure an existing one is unchanged.
platform::Status saveReportPdf(const QString &path, const BatchReport &report, const RecordDraw &draw);
platform::Status saveReportPage(const QString &path, const BatchReport &report, const RecordDraw &draw);

} // namespace batch
