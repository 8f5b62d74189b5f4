// Says in words which database is in use, and whether it can be reached: a file that stands there, a server that takes
// a call on its port. Nothing waits for the answer, and the database itself is not opened.
#pragma once

#include "database/whereabouts.h"
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

namespace app {

class DatabaseProbe final : public QObject {
    Q_OBJECT
public:
    explicit DatabaseProbe(QObject *parent = nullptr);

    // Asks; `told` follows, at once and again when the server has answered or has not.
    void ask(const QString &connectionString);

Q_SIGNALS:
    void told(const QString &words, bool unreachable);

private:
    void tellOf(QStringView state, bool unreachable = false);

    database::Whereabouts m_where;
    QTcpSocket m_call;
    QTimer m_patience;
};

} // namespace app
