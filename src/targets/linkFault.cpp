#include "targets/linkFault.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

using Kind = LinkFault::Kind;

// The library's own errors.
struct LibraryError {
    int number;
    Kind kind;
    QStringView words; // "%1": the address
};
constexpr auto libraryErrors = std::to_array<LibraryError>({
    {10000, Kind::Unreachable, u"连不上 %1"},
    {10003, Kind::Unreadable, u"应答读不懂：不是 Z39.50、SRU，或者受了损，或者太长"},
    {10004, Kind::Lost, u"还没有答完，连接就断了"},
    {10005, Kind::NotAdmitted, u"服务器不接受连接：用户名或密码不对，或者不许使用"},
    {10007, Kind::AnswerLimit, u"服务器没有应答"},
});

// Common diagnostics of Z39.50 and SRU servers.
struct Diagnostic {
    QStringView set;
    int number;
    QStringView words;
};
constexpr auto diagnostics = std::to_array<Diagnostic>({
    {u"Bib-1", 1, u"系统故障"},
    {u"Bib-1", 2, u"系统暂时不能用"},
    {u"Bib-1", 3, u"不支持这样的检索"},
    {u"Bib-1", 13, u"没有这么多记录"},
    {u"Bib-1", 14, u"不能送出记录"},
    {u"Bib-1", 100, u"不许使用"},
    {u"Bib-1", 101, u"不许使用"},
    {u"Bib-1", 108, u"检索式不对"},
    {u"Bib-1", 109, u"没有这个数据库，或者暂时不能用"},
    {u"Bib-1", 114, u"不支持这个检索属性"},
    {u"Bib-1", 125, u"检索词不对"},
    {u"Bib-1", 235, u"没有这个数据库"},
    {u"Bib-1", 236, u"不许使用这个数据库"},
    {u"Bib-1", 238, u"没有这种格式的记录"},
    {u"Bib-1", 239, u"不支持这种记录格式"},
    {u"Bib-1", 1010, u"密码不对"},
    {u"Bib-1", 1011, u"用户名或密码不对"},
    {u"Bib-1", 1014, u"用户名或密码不对"},
    {u"info:srw/diagnostic/1", 1, u"系统故障"},
    {u"info:srw/diagnostic/1", 2, u"系统暂时不能用"},
    {u"info:srw/diagnostic/1", 3, u"用户名或密码不对"},
    {u"info:srw/diagnostic/1", 5, u"不支持这个 SRU 版本"},
    {u"info:srw/diagnostic/1", 10, u"检索式不对"},
    {u"info:srw/diagnostic/1", 15, u"不支持这个检索项"},
    {u"info:srw/diagnostic/1", 16, u"不支持这个检索项"},
    {u"info:srw/diagnostic/1", 61, u"没有这么多记录"},
    {u"info:srw/diagnostic/1", 66, u"没有这种格式的记录"},
    {u"HTTP", 401, u"用户名或密码不对"},
    {u"HTTP", 403, u"不许使用"},
    {u"HTTP", 404, u"没有这个地址"},
    {u"HTTP", 503, u"系统暂时不能用"},
});

QString knownWords(const Wire::Error &error) {
    const auto found = std::ranges::find_if(diagnostics, [&](const Diagnostic &diagnostic) {
        return diagnostic.number == error.number && error.set.compare(diagnostic.set, Qt::CaseInsensitive) == 0;
    });
    return found == diagnostics.end() ? QString() : found->words.toString();
}

// Returns the text of a server in one line of limited length, without the password, which the server may repeat.
QString harmless(QString text, const Target &target) {
    constexpr qsizetype longest = 200;
    if (!target.password.isEmpty())
        text.replace(target.password, u"***"_s);
    return text.simplified().left(longest);
}

} // namespace

LinkFault faultOf(const Wire::Error &error, const Target &target) {
    const auto own = std::ranges::find(libraryErrors, error.number, &LibraryError::number);
    if (error.set == u"ZOOM" && own != libraryErrors.end()) {
        const QString words = own->words.toString();
        return {own->kind, words.contains(u"%1"_s) ? words.arg(addressOf(target)) : words};
    }
    const QString known = knownWords(error);
    QString words = u"服务器答："_s + (known.isEmpty() ? harmless(error.words, target) : known) +
                    u"（%1 %2）"_s.arg(harmless(error.set, target)).arg(error.number);
    if (const QString addition = harmless(error.addition, target); !addition.isEmpty())
        words += u"：" + addition;
    return {Kind::Refused, words};
}

LinkFault notBuilt() {
    return {Kind::NotBuilt, u"这个程序编译时没有 YAZ 库，不能检索其他图书馆"_s};
}

LinkFault overLimit(Kind kind, std::chrono::milliseconds limit, const Target &target) {
    const QString seconds = QString::number(double(limit.count()) / 1000);
    if (kind == Kind::ConnectLimit)
        return {kind, u"%1 秒内没有连上 %2"_s.arg(seconds, addressOf(target))};
    return {kind, u"%1 秒内没有答完"_s.arg(seconds)};
}

} // namespace targets
