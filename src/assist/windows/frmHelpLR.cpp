#include "assist/windows/frmHelpLR.h"
#include "assist/field100Table.h"
#include "assist/leaderTable.h"

using namespace Qt::StringLiterals;

namespace assist {

frmHelpLR000::frmHelpLR000(platform::Host &host, QWidget *parent)
    : CodedBoxWindow(host, leaderTable(),
                     {u"frmHelpLR000"_s, u"头标区辅助录入"_s, u"头标区格式"_s, u"记录头标区"_s, true}, parent) {}

frmHelpLR100::frmHelpLR100(platform::Host &host, QWidget *parent)
    : CodedBoxWindow(host, field100Table(),
                     {u"frmHelpLR100"_s, u"100字段辅助录入"_s, u"通用处理数据格式"_s, u"通用处理数据"_s, false},
                     parent) {}

} // namespace assist
