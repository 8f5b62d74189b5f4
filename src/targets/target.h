// A catalogue of another library that answers searches by Z39.50 or SRU, as the user describes it.
#pragma once

#include "platform/result.h"
#include <QString>
#include <array>
#include <vector>

namespace targets {

enum class Protocol { Z3950, Sru };

// The form in which records are requested.
enum class Syntax { Unimarc, Usmarc, Xml };

// The encoding of records in exchange format.
enum class RecordCharset { Automatic, Utf8, Gbk, Marc8 }; // Gbk: including GB18030

enum class QueryCharset { Utf8, Gbk };

// The query language of an SRU server; a Z39.50 server always gets the query of PQF.
enum class QueryLanguage { Cql, Pqf };

// The index in which a term is searched.
enum class Use { Isbn, Title, Author, Publisher, Year, Any };
inline constexpr size_t useCount = 6;

// For PQF each attribute text is a list such as "1=4" or "1=4 4=1"; for CQL an index such as "dc.title" with an
// optional relation after a blank. Empty: the catalogue has no such index.
using Attributes = std::array<QString, useCount>;
inline const QString &attributeOf(const Attributes &attributes, Use use) {
    return attributes[size_t(use)];
}
Attributes bib1Attributes(); // of most Z39.50 servers
Attributes cqlAttributes();  // of most SRU servers
// The keys of the attributes in the file, in the order of Use.
inline constexpr auto attributeKeys =
    std::to_array<QStringView>({u"attributes.isbn", u"attributes.title", u"attributes.author", u"attributes.publisher",
                                u"attributes.year", u"attributes.any"});

struct Target {
    QString name;
    Protocol protocol = Protocol::Z3950;
    QString host; // a name or an address, without a scheme
    int port = 210;
    QString database; // of SRU: the path, without a slash in front
    QString user;
    QString password;
    bool encrypted = false; // TLS; the certificate of the server is checked
    Syntax syntax = Syntax::Unimarc;
    RecordCharset recordCharset = RecordCharset::Automatic;
    QueryCharset queryCharset = QueryCharset::Utf8;
    QueryLanguage language = QueryLanguage::Cql; // SRU only
    QString version = QStringLiteral("1.1");     // SRU only
    QString schema = QStringLiteral("marcxml");  // SRU only: the record schema
    Attributes attributes = bib1Attributes();
    bool tested = false; // whether it has answered a test with these data

    bool asksPqf() const { return protocol == Protocol::Z3950 || language == QueryLanguage::Pqf; }
    friend bool operator==(const Target &, const Target &) = default;
};

using TargetList = std::vector<Target>;

// Names of the values, as the file has them and as a window shows them, in the order of the enumerators.
inline constexpr auto protocolNames = std::to_array<QStringView>({u"Z39.50", u"SRU"});
inline constexpr auto syntaxNames = std::to_array<QStringView>({u"UNIMARC", u"USMARC", u"XML"});
inline constexpr auto recordCharsetNames =
    std::to_array<QStringView>({u"自动识别", u"UTF-8", u"GBK、GB18030", u"MARC-8"});
inline constexpr auto queryCharsetNames = std::to_array<QStringView>({u"UTF-8", u"GBK"});
inline constexpr auto languageNames = std::to_array<QStringView>({u"CQL", u"PQF"});
inline constexpr auto useNames =
    std::to_array<QStringView>({u"ISBN", u"题名", u"责任者", u"出版者", u"出版年", u"任意词"});
inline constexpr QStringView untested = u"未验证";

// A part of a target that the user can change, and what is wrong with it.
struct TargetFault {
    QStringView key; // as in the file: "host", "attributes.isbn"
    QString reason;
};

// Returns the first fault of a target, or std::nullopt if it can be used.
std::optional<TargetFault> faultOf(const Target &target);

// Returns "host:port/database", without user and password.
QString addressOf(const Target &target);

} // namespace targets
