#include "catalogue/windows/dataReportJs.h"
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace catalogue {

DataReportJs::DataReportJs(std::shared_ptr<const platform::TableSource> dataSource, const QString &title, QDate date) {
    caption = u"打印图书检索一览表"_s;
    this->title = title.isEmpty() ? u"图书检索一览表"_s : title;
    columns = {{.heading = u"书      名"_s, .source = 0, .share = 4},
               {.heading = u"著    者"_s, .source = 1, .share = 2.5},
               {.heading = u"分 类 号"_s, .source = 2, .share = 1.5},
               {.heading = u"出 版 社"_s, .source = 3, .share = 2.5},
               {.heading = u"馆藏册数"_s, .source = 4, .share = 1.2, .alignment = Qt::AlignRight}};
    rows = std::move(dataSource);
    this->date = date;
}

} // namespace catalogue
