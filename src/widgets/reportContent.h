// The content of a banded report: title, columns and rows.
#pragma once

#include "platform/tableSource.h"
#include "widgets/reportFace.h"
#include <QDate>
#include <QString>
#include <memory>
#include <vector>

namespace widgets {

struct ReportColumn {
    QString heading;
    int source = 0;   // the column of `rows` to show
    double share = 1; // of the width of the page, relative to the other columns
    Qt::Alignment alignment = Qt::AlignLeft;
};

struct BandedReport {
    QString caption; // of the preview window and the print job
    QString title;
    std::vector<ReportColumn> columns;
    std::shared_ptr<const platform::TableSource> rows; // null: no rows
    QDate date;
    QFont titleFont = reportFont(16, QFont::Bold);
    QFont headFont = reportFont(10.5, QFont::Bold);
    QFont bodyFont = reportFont(10);
};

} // namespace widgets
