// The reason why a target did not answer, in words for the user. The words never contain the password.
#pragma once

#include "targets/wire.h"
#include <chrono>

namespace targets {

struct LinkFault {
    enum class Kind {
        NotBuilt,    // the program was built without YAZ
        BadQuery,    // the query cannot be composed for the target
        Unreachable, // no connection
        ConnectLimit,
        AnswerLimit,
        Lost,        // the connection ended before the answer
        NotAdmitted, // the server refused the session: user or password
        Moved,       // the server is at another address
        Unreadable,  // the answer is not what the protocol allows, or too long
        Refused      // the server refused the request with a reason
    };
    Kind kind;
    QString words;

    // Returns whether the connection may be used for the next request.
    bool leavesConnection() const { return kind == Kind::Refused || kind == Kind::BadQuery; }
};

LinkFault faultOf(const Wire::Error &error, const Target &target);
LinkFault notBuilt();
LinkFault overLimit(LinkFault::Kind kind, std::chrono::milliseconds limit, const Target &target);

} // namespace targets
