#include "database/script.h"
#include "database/sqlTokens.h"

namespace database {

QStringList statementsOf(const QString &script) {
    QStringList statements;
    QString statement;
    const auto end = [&] {
        if (const QString whole = statement.trimmed(); !whole.isEmpty())
            statements.append(whole);
        statement.clear();
    };
    for (const Token &token : tokensOf(script)) {
        if (token.kind == TokenKind::Comment)
            statement += u' ';
        else if (token.kind == TokenKind::Sign && token.text == u";")
            end();
        else
            statement += token.text;
    }
    end();
    return statements;
}

platform::Status runScript(Connection &connection, const QString &script) {
    for (const QString &statement : statementsOf(script))
        if (platform::Status ran = connection.execute(statement); !ran)
            return ran;
    return platform::success();
}

} // namespace database
