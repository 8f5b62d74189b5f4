// Starts of the main window as a database server counts them.
#include "database/connection.h"
#include "database/linkPool.h"
#include "recordedWindows.h"
#include <QTcpSocket>

using namespace app;

namespace {

// Connects to the strict server and disconnects at once, like a probe for a running server.
void knock() {
    QTcpSocket socket;
    socket.connectToHost(u"10.99.0.1"_s, 3306);
    EXPECT_TRUE(socket.waitForConnected());
    socket.abort();
}

} // namespace

// The test runs itself in a separate network namespace with a server that blocks a host after three failed connections.
TEST(MainWindowStarts, CountAsNoFailedConnection) {
    const QString text = qEnvironmentVariable("STRICT_SERVER");
    if (text.isEmpty()) {
        constexpr int notPermitted = 77;
        const int status = QProcess::execute(
            QStringLiteral(STRICT_SERVER_SCRIPT),
            {QCoreApplication::applicationFilePath(), u"--gtest_filter=MainWindowStarts.CountAsNoFailedConnection"_s});
        if (status == notPermitted)
            GTEST_SKIP() << "creating a network namespace requires root";
        ASSERT_EQ(status, 0);
        return;
    }
    const auto login = [&text] {
        database::LinkPool links;
        const auto opened = database::Connection::open(links, text);
        return opened ? QString() : opened.failure().description;
    };
    const ScriptedHost host;
    RecordedWindows windows(host);
    windows.text = text;
    for (int i = 0; i < 10; ++i) {
        ScriptedHost own;
        const marcMain frame(own, windows);
        EXPECT_TRUE(frame.databaseName->text().startsWith(u"数据库：library（10.99.0.1）"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !frame.databaseName->text().endsWith(u'…'); }));
    }
    EXPECT_EQ(login(), QString());
    // The server does block: failed connections count until a login succeeds.
    EXPECT_TRUE(QTest::qWaitFor([&] {
        for (int i = 0; i < 10; ++i)
            knock();
        return login().contains(u"blocked");
    }));
}
