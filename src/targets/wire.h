// A connection to one server as a state machine: the owner waits for its socket, calls ready() and process(), and reads
// the result when it is idle. No call blocks. See TargetLink, which serves it from the event loop.
#pragma once

#include "targets/target.h"
#include <QByteArray>
#include <QByteArrayView>
#include <memory>
#include <optional>

namespace targets {

// Returns whether the program was built with YAZ, the library of Z39.50 and SRU.
bool isAvailable();

class Wire {
public:
    static constexpr int portion = 20; // the most records of one request

    virtual ~Wire() = default; // closes the connection at once

    // Sends a search, connecting first if necessary, and requests the first `count` records. Returns false if the query
    // cannot be parsed.
    virtual bool search(const QByteArray &query, int count) = 0;
    // Requests records, counted from 0.
    virtual void fetch(qint64 from, int count) = 0;

    struct Wanted {
        qintptr socket = -1; // below 0: none
        bool read = false;
        bool write = false;
    };
    virtual Wanted wanted() const = 0;
    virtual void ready(bool read, bool write) = 0; // what the socket is ready for
    // Handles what has happened until there is nothing left to do but to wait.
    virtual void process() = 0;
    virtual bool isIdle() const = 0;      // the request has an answer or an error
    virtual bool isConnected() const = 0; // the server has accepted the connection
    virtual int connections() const = 0;  // increases with each new socket

    struct Error {
        int number = 0;   // 0: none
        QString set;      // "Bib-1", "ZOOM", "HTTP", …
        QString words;    // of the library or the server, in English
        QString addition; // of the server
    };
    virtual Error error() const = 0;
    virtual qint64 hits() const = 0;
    // Returns the bytes of a record as they arrived, or std::nullopt if it did not arrive; `why` is the reason of the
    // server, if it gave one. Valid until the next request.
    virtual std::optional<QByteArrayView> record(qint64 at, QString &why) const = 0;
    virtual QString serverName() const = 0; // the name that a Z39.50 server reports; else empty
};

// Connects to the target through a relay at this port of the loopback interface. Returns a null pointer if
// isAvailable() is false.
std::unique_ptr<Wire> openWire(const Target &target, quint16 port);

} // namespace targets
