#include "app/connectionText.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace app {

QString composeConnectionString(const ConnectionFields &fields) {
    QString text = u"PROVIDER=MSDASQL;"_s;
    if (fields.dataSourceChosen)
        text += u"DSN=" + fields.dataSource + u';';
    else
        text += u"Driver=" + fields.driver + u";Server=" + fields.server + u';';
    text += u"UID=" + fields.user + u";PWD=" + fields.password + u';';
    if (!fields.database.isEmpty())
        text += u"Database=" + fields.database + u';';
    return text;
}

std::optional<QString> checkConnectionFields(const ConnectionFields &fields) {
    if (fields.dataSource != noDataSource) {
        if (fields.user.isEmpty())
            return u"用户名不能为空!请重新输入!"_s;
        return std::nullopt;
    }
    if (fields.user.isEmpty() || fields.driver.isEmpty() || fields.database.isEmpty() || fields.server.isEmpty())
        return u"填写的信息不完整!请重新输入!"_s;
    return std::nullopt;
}

QString dataSourceHint(const QStringList &names) {
    constexpr qsizetype named = 3;
    if (names.isEmpty())
        return u"没有现成的数据源，请见使用手册（F1）"_s;
    const QString more = names.size() > named ? u" 等 %1 个"_s.arg(names.size()) : QString();
    return u"本机已有数据源：" + names.first(std::min(named, names.size())).join(u'、') + more +
           u"。选一个，填用户名，先测试，再保存（F1 使用手册）";
}

TestMessage messageForFault(const QString &description) {
    if (description.contains(u"Login failed", Qt::CaseInsensitive))
        return {u"操作提示"_s, u"无效的参数，请再试一次！"_s};
    const bool timeout = description.contains(u"QueryTimeout property", Qt::CaseInsensitive);
    const QString reason = timeout ? u"连接数据源超时"_s : description;
    return {u"管理系统操作提示"_s, reason + u"\r\n请重试！！"};
}

} // namespace app
