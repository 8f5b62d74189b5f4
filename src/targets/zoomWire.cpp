// The connection by YAZ's ZOOM in its asynchronous mode. The time limits of YAZ are not used.
#include "targets/wire.h"
#include <libxml/xmlerror.h>
#include <yaz/log.h>
#include <yaz/zoom.h>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

using Connection = std::unique_ptr<ZOOM_connection_p, decltype(&ZOOM_connection_destroy)>;
using ResultSet = std::unique_ptr<ZOOM_resultset_p, decltype(&ZOOM_resultset_destroy)>;
using ZoomQuery = std::unique_ptr<ZOOM_query_p, decltype(&ZOOM_query_destroy)>;

constexpr const char *syntaxOptions[] = {"unimarc", "usmarc", "xml"};

// The relay listens on this port.
QByteArray hostOption(const Target &target, quint16 port) {
    const QByteArray place = "127.0.0.1:" + QByteArray::number(port);
    if (target.protocol == Protocol::Sru)
        return "http://" + place + '/' + target.database.toLatin1();
    return "tcp:" + place;
}

void ignore(void *, const char *, ...) {}

// YAZ and the XML parser that it uses also report faults of answers to the standard error output.
void silence() {
    yaz_log_init_level(0);
    xmlSetGenericErrorFunc(nullptr, ignore);
}

class ZoomWire final : public Wire {
public:
    ZoomWire(const Target &target, quint16 port);

    bool search(const QByteArray &query, int count) override;
    void fetch(qint64 from, int count) override;
    Wanted wanted() const override;
    void ready(bool read, bool write) override;
    void process() override;
    bool isIdle() const override { return ZOOM_connection_is_idle(m_connection.get()) != 0; }
    bool isConnected() const override { return m_connected; }
    int connections() const override { return m_connections; }
    Error error() const override;
    qint64 hits() const override { return m_result ? qint64(ZOOM_resultset_size(m_result.get())) : 0; }
    std::optional<QByteArrayView> record(qint64 at, QString &why) const override;
    QString serverName() const override;

private:
    void set(const char *option, const QByteArray &value) {
        ZOOM_connection_option_set(m_connection.get(), option, value.constData());
    }
    void setForSru(const Target &target);
    void serveEvents();
    bool hasOtherSyntax() const;

    Connection m_connection{nullptr, ZOOM_connection_destroy};
    ResultSet m_result{nullptr, ZOOM_resultset_destroy};
    QByteArray m_host;
    bool m_asksPqf;
    bool m_isSru;
    QByteArray m_syntax;
    int m_count = 0;              // records that the search requests
    bool m_looksAtSyntax = false; // when the answer to the search arrives
    bool m_begun = false;
    bool m_connected = false;
    int m_connections = 0;
};

ZoomWire::ZoomWire(const Target &target, quint16 port)
    : m_host(hostOption(target, port))
    , m_asksPqf(target.asksPqf())
    , m_isSru(target.protocol == Protocol::Sru)
    , m_syntax(syntaxOptions[size_t(target.syntax)]) {
    silence();
    m_connection.reset(ZOOM_connection_create(nullptr));
    set("async", "1");
    set("implementationName", "tarvex");
    set("preferredRecordSyntax", m_syntax);
    set("elementSetName", "F");
    set("presentChunk", QByteArray::number(portion));
    set("maximumRecordSize", QByteArray::number(1 << 20));
    set("preferredMessageSize", QByteArray::number(portion << 20));
    if (!target.user.isEmpty())
        set("user", target.user.toUtf8());
    if (!target.password.isEmpty())
        set("password", target.password.toUtf8());
    if (m_isSru)
        setForSru(target);
    else if (!target.database.isEmpty())
        set("databaseName", target.database.toLatin1());
}

void ZoomWire::setForSru(const Target &target) {
    set("sru", "get");
    set("sru_version", target.version.toLatin1());
    set("schema", target.schema.toLatin1());
    set("recordPacking", "xml");
    set("authenticationMode", "basic");
}

bool ZoomWire::search(const QByteArray &query, int count) {
    const ZoomQuery parsed(ZOOM_query_create(), ZOOM_query_destroy);
    const int refused = m_asksPqf ? ZOOM_query_prefix(parsed.get(), query.constData())
                                  : ZOOM_query_cql(parsed.get(), query.constData());
    if (refused != 0)
        return false;
    if (!std::exchange(m_begun, true))
        ZOOM_connection_connect(m_connection.get(), m_host.constData(), 0);
    set("count", QByteArray::number(count));
    m_count = count;
    m_looksAtSyntax = !m_isSru;
    m_result.reset(ZOOM_connection_search(m_connection.get(), parsed.get()));
    return true;
}

void ZoomWire::fetch(qint64 from, int count) {
    ZOOM_resultset_records(m_result.get(), nullptr, size_t(from), size_t(count));
}

Wire::Wanted ZoomWire::wanted() const {
    const int mask = ZOOM_connection_get_mask(m_connection.get());
    return {ZOOM_connection_get_socket(m_connection.get()), (mask & ZOOM_SELECT_READ) != 0,
            (mask & ZOOM_SELECT_WRITE) != 0};
}

void ZoomWire::ready(bool read, bool write) {
    ZOOM_connection_fire_event_socket(m_connection.get(),
                                      (read ? ZOOM_SELECT_READ : 0) | (write ? ZOOM_SELECT_WRITE : 0));
}

// The answer to a search includes the first records, which saves a round trip. Some servers send these in another
// syntax than the requested one; from such a server the records are fetched separately, for this and later searches.
void ZoomWire::process() {
    serveEvents();
    if (!isIdle() || !std::exchange(m_looksAtSyntax, false) || !hasOtherSyntax())
        return;
    set("piggyback", "0");
    ZOOM_resultset_cache_reset(m_result.get());
    fetch(0, int(std::min<qint64>(m_count, hits())));
    serveEvents();
}

bool ZoomWire::hasOtherSyntax() const {
    const ZOOM_record first = ZOOM_resultset_record_immediate(m_result.get(), 0);
    if (!first || ZOOM_record_error(first, nullptr, nullptr, nullptr) != 0)
        return false;
    const char *const syntax = ZOOM_record_get(first, "syntax", nullptr);
    return syntax && qstricmp(syntax, m_syntax.constData()) != 0;
}

void ZoomWire::serveEvents() {
    while (ZOOM_connection_process(m_connection.get()) != 0) {
        switch (ZOOM_connection_last_event(m_connection.get())) {
        case ZOOM_EVENT_CONNECT:
            ++m_connections;
            break;
        case ZOOM_EVENT_SEND_DATA: // SRU sends its first data once it is connected
            m_connected = m_connected || m_isSru;
            break;
        case ZOOM_EVENT_RECV_DATA: // a Z39.50 server first accepts the session
            m_connected = true;
            break;
        default:
            break;
        }
    }
}

Wire::Error ZoomWire::error() const {
    const char *words = nullptr, *addition = nullptr, *set = nullptr;
    const int number = ZOOM_connection_error_x(m_connection.get(), &words, &addition, &set);
    return {number, QString::fromUtf8(set), QString::fromUtf8(words), QString::fromUtf8(addition)};
}

std::optional<QByteArrayView> ZoomWire::record(qint64 at, QString &why) const {
    const ZOOM_record found = ZOOM_resultset_record_immediate(m_result.get(), size_t(at));
    if (!found)
        return std::nullopt;
    const char *words = nullptr, *addition = nullptr, *set = nullptr;
    if (ZOOM_record_error(found, &words, &addition, &set) != 0) {
        why = QString::fromUtf8(words);
        return std::nullopt;
    }
    int size = 0;
    const char *const bytes = ZOOM_record_get(found, "raw", &size);
    if (!bytes || size < 0) // the structure is not a record
        return std::nullopt;
    return QByteArrayView(bytes, size);
}

QString ZoomWire::serverName() const {
    const auto option = [this](const char *name) {
        return QString::fromUtf8(ZOOM_connection_option_get(m_connection.get(), name));
    };
    return QString(option("serverImplementationName") + u' ' + option("serverImplementationVersion")).trimmed();
}

} // namespace

bool isAvailable() {
    return true;
}

std::unique_ptr<Wire> openWire(const Target &target, quint16 port) {
    return std::make_unique<ZoomWire>(target, port);
}

} // namespace targets
