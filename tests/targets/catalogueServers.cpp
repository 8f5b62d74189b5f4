#include "catalogueServers.h"

using namespace Qt::StringLiterals;
using namespace targets;

int portOf(const QString &server) {
    QFile file(QStringLiteral(CATALOGUES_FILE));
    const QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    for (const QString &line : text.split(u'\n'))
        if (line.startsWith(server + u'='))
            return line.section(u'=', 1).toInt();
    ADD_FAILURE() << "the server is not running: " << server.toStdString();
    return 1;
}

namespace {

Target local(const QString &server, Syntax syntax) {
    return {.name = server, .host = u"127.0.0.1"_s, .port = portOf(server), .database = u"Default"_s, .syntax = syntax};
}

} // namespace

Target openCatalogue(Syntax syntax) {
    return local(u"open"_s, syntax);
}

Target openBySru(QueryLanguage language) {
    Target target = local(u"open"_s, Syntax::Xml);
    target.protocol = Protocol::Sru;
    target.language = language;
    if (language == QueryLanguage::Cql)
        target.attributes = {u"bath.isbn"_s, u"dc.title"_s, u"dc.creator"_s};
    return target;
}

Target gbkCatalogue() {
    Target target = local(u"gbk"_s, Syntax::Unimarc);
    target.queryCharset = QueryCharset::Gbk;
    return target;
}

Target privateCatalogue() {
    Target target = local(u"private"_s, Syntax::Xml);
    target.user = u"tester"_s;
    target.password = u"Tarvex-1"_s;
    return target;
}

Target madeUpRecords() {
    return local(u"made"_s, Syntax::Usmarc);
}
