// Parses XML incrementally, by the expat library, which limits the expansion of entities. Names are passed without
// their prefix. Holds only the current element and the last bytes that are not parsed yet.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <memory>

namespace platform {

// Views are valid only during the call; texts are UTF-8.
class XmlElement {
public:
    XmlElement(const char *name, const char **attributes);

    QByteArrayView space() const { return m_space; } // the namespace
    QByteArrayView name() const { return m_name; }
    // Returns the value of an attribute without a namespace; an empty view if there is none.
    QByteArrayView attribute(QByteArrayView name) const;
    // Appends the start tag with the attributes that have no namespace, and without namespace declarations.
    void appendStartTag(QByteArray &xml) const;

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
    virtual void text(QByteArrayView text) = 0; // may be called several times for one text
};

class XmlParser {
public:
    // The most bytes of a single comment, processing instruction or start tag.
    static constexpr qsizetype longestToken = 4 << 20;

    explicit XmlParser(XmlHandler &handler);
    ~XmlParser();
    XmlParser(const XmlParser &) = delete;
    XmlParser &operator=(const XmlParser &) = delete;

    enum class State { WantsMore, Paused, Ended, Failed };
    // Parses the next bytes, in UTF-8 even if the XML declares another encoding. No bytes: the end. Must not be called
    // while paused.
    State feed(QByteArrayView utf8);
    void pause(); // called by the handler; resume() continues
    State resume();

    QString fault() const; // after Failed: line, column and reason

private:
    struct Parser;
    State stateOf(int status);
    std::unique_ptr<Parser> m_parser;
};

// Appends the text with "&", "<", ">" and the quotation mark escaped for XML.
void appendEscaped(QByteArray &xml, QByteArrayView text);

} // namespace platform
