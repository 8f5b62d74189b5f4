#include "platform/xmlParser.h"
#include <QStringView>
#include <algorithm>
#include <array>
#include <cstring>
#include <expat.h>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

constexpr char separator = '\n'; // between a namespace and a name

struct Reason {
    XML_Error error;
    QStringView words;
};
constexpr auto reasons = std::to_array<Reason>({
    {XML_ERROR_SYNTAX, u"语法不对"},
    {XML_ERROR_INVALID_TOKEN, u"有 XML 不许有的字符，或标记不对"},
    {XML_ERROR_UNCLOSED_TOKEN, u"标记没有写完"},
    {XML_ERROR_PARTIAL_CHAR, u"字符不完整"},
    {XML_ERROR_TAG_MISMATCH, u"结束标记和开始标记不是一对"},
    {XML_ERROR_DUPLICATE_ATTRIBUTE, u"属性重复"},
    {XML_ERROR_JUNK_AFTER_DOC_ELEMENT, u"最外层的元素之后还有内容"},
    {XML_ERROR_UNDEFINED_ENTITY, u"用了没有定义的实体"},
    {XML_ERROR_RECURSIVE_ENTITY_REF, u"实体引用它自己"},
    {XML_ERROR_BAD_CHAR_REF, u"字符引用不对"},
    {XML_ERROR_UNCLOSED_CDATA_SECTION, u"CDATA 没有写完"},
    {XML_ERROR_UNBOUND_PREFIX, u"前缀没有声明"},
    {XML_ERROR_MISPLACED_XML_PI, u"XML 声明不在开头"},
    {XML_ERROR_NO_MEMORY, u"内存不够"},
    {XML_ERROR_AMPLIFICATION_LIMIT_BREACH, u"实体展开得太大"},
});

QString words(XML_Error error) {
    const auto *row = std::ranges::find(reasons, error, &Reason::error);
    return row != reasons.end() ? row->words.toString() : u"XML 有错（%1）"_s.arg(int(error));
}

} // namespace

XmlElement::XmlElement(const char *name, const char **attributes)
    : m_name(name)
    , m_attributes(attributes) {
    if (const char *at = std::strchr(name, separator)) {
        m_space = QByteArrayView(name, at);
        m_name = QByteArrayView(at + 1);
    }
}

QByteArrayView XmlElement::attribute(QByteArrayView name) const {
    for (const char **at = m_attributes; *at; at += 2) {
        if (name == *at)
            return QByteArrayView(at[1]);
    }
    return {};
}

void XmlElement::appendStartTag(QByteArray &xml) const {
    xml.append('<').append(m_name);
    for (const char **at = m_attributes; *at; at += 2) {
        if (std::strchr(*at, separator))
            continue;
        xml.append(' ').append(*at).append("=\"");
        appendEscaped(xml, at[1]);
        xml.append('"');
    }
    xml.append('>');
}

struct XmlParser::Parser {
    std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> expat{XML_ParserCreateNS("UTF-8", separator),
                                                                  XML_ParserFree};
    XmlHandler &handler;
    qsizetype fedForToken = 0;
    bool atEnd = false;
    QString fault;

    // The library calls these functions with the pointer set in setUp().
    static Parser &of(void *self) {
        Parser &parser = *static_cast<Parser *>(self);
        parser.fedForToken = 0;
        return parser;
    }
    static void start(void *self, const char *name, const char **attributes) {
        of(self).handler.startElement(XmlElement(name, attributes));
    }
    static void end(void *self, const char *name) {
        const char *at = std::strchr(name, separator);
        of(self).handler.endElement(at ? at + 1 : name);
    }
    static void text(void *self, const char *text, int size) { of(self).handler.text(QByteArrayView(text, size)); }
    static void comment(void *self, const char *) { of(self); }
    static void instruction(void *self, const char *, const char *) { of(self); }

    void setUp() {
        XML_SetUserData(expat.get(), this);
        XML_SetElementHandler(expat.get(), start, end);
        XML_SetCharacterDataHandler(expat.get(), text);
        XML_SetCommentHandler(expat.get(), comment);
        XML_SetProcessingInstructionHandler(expat.get(), instruction);
    }
    void fail(const QString &why) {
        fault = u"第 %1 行第 %2 列：%3"_s.arg(XML_GetCurrentLineNumber(expat.get()))
                    .arg(XML_GetCurrentColumnNumber(expat.get()) + 1)
                    .arg(why);
    }
};

XmlParser::XmlParser(XmlHandler &handler)
    : m_parser(new Parser{.handler = handler}) {
    m_parser->setUp();
}

XmlParser::~XmlParser() = default;

XmlParser::State XmlParser::feed(QByteArrayView utf8) {
    m_parser->atEnd = utf8.isEmpty();
    m_parser->fedForToken += utf8.size();
    if (m_parser->fedForToken > longestToken) {
        m_parser->fail(u"一处太长"_s);
        return State::Failed;
    }
    return stateOf(XML_Parse(m_parser->expat.get(), utf8.data(), int(utf8.size()), m_parser->atEnd));
}

void XmlParser::pause() {
    XML_StopParser(m_parser->expat.get(), XML_TRUE);
}

XmlParser::State XmlParser::resume() {
    return stateOf(XML_ResumeParser(m_parser->expat.get()));
}

XmlParser::State XmlParser::stateOf(int status) {
    if (status == XML_STATUS_SUSPENDED)
        return State::Paused;
    if (status == XML_STATUS_OK)
        return m_parser->atEnd ? State::Ended : State::WantsMore;
    m_parser->fail(m_parser->atEnd ? u"文件没有完"_s : words(XML_GetErrorCode(m_parser->expat.get())));
    return State::Failed;
}

QString XmlParser::fault() const {
    return m_parser->fault;
}

void appendEscaped(QByteArray &xml, QByteArrayView text) {
    const auto isPlain = [](char byte) { return byte != '&' && byte != '<' && byte != '>' && byte != '"'; };
    const char *at = text.begin();
    while (at != text.end()) {
        const char *const special = std::ranges::find_if_not(at, text.end(), isPlain);
        xml.append(at, special - at);
        if (special == text.end())
            break;
        xml.append(*special == '&' ? "&amp;" : *special == '<' ? "&lt;" : *special == '>' ? "&gt;" : "&quot;");
        at = special + 1;
    }
}

} // namespace platform
