// XML as it comes in, by the expat library, which bounds what entities may grow to. Names come without their prefix.
// Memory: the element at hand and what of the last bytes was not parsed yet.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <memory>

namespace platform {

// Views are valid during the call only; texts are UTF-8.
class XmlElement {
public:
    XmlElement(const char *name, const char **attributes);

    QByteArrayView space() const { return m_space; } // the namespace
    QByteArrayView name() const { return m_name; }
    // Of an attribute without a namespace; empty where there is none.
    QByteArrayView attribute(QByteArrayView name) const;
    QByteArray startTag() const; // with those attributes, but without namespaces

private:
    QByteArrayView m_space;
    QByteArrayView m_name;
    const char **m_attributes;
};

class XmlHandler {
public:
    virtual ~XmlHandler() = default;
    virtual void startElement(const XmlElement &element) = 0;
    virtual void endElement(QByteArrayView name) = 0;
    virtual void text(QByteArrayView text) = 0; // in pieces as they come
};

class XmlParser {
public:
    // Bytes that a single comment, instruction or start tag may have.
    static constexpr qsizetype longestToken = 4 << 20;

    explicit XmlParser(XmlHandler &handler);
    ~XmlParser();
    XmlParser(const XmlParser &) = delete;
    XmlParser &operator=(const XmlParser &) = delete;

    enum class State { WantsMore, Paused, Ended, Failed };
    // The next bytes, in UTF-8 whatever the XML declares. None: the end. Not while paused.
    State feed(QByteArrayView utf8);
    void pause(); // called by the handler: what follows comes after resume()
    State resume();

    QString fault() const; // after Failed: line, column and reason

private:
    struct Parser;
    State stateOf(int status);
    std::unique_ptr<Parser> m_parser;
};

// "&", "<", ">" and the quotation mark as XML spells them.
void appendEscaped(QByteArray &xml, QByteArrayView text);

} // namespace platform
