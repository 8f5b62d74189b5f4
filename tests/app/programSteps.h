// The whole program, played by steps: each waits until a window is in front, then acts in it.
#pragma once

#include "app/windows/program.h"
#include "support/scriptedHost.h"
#include <QAction>
#include <QDeadlineTimer>
#include <QTimer>

// Plays steps from within the event loops of the program.
class Steps {
public:
    using Act = std::function<void(QWidget *front)>;
    using Ready = std::function<bool(QWidget *front)>;

    void in(const QString &window, const Act &act, const Ready &ready = {}) { m_steps.append({window, act, ready}); }
    void play() { look(); }
    bool allPlayed() const { return m_steps.isEmpty(); }

private:
    void look() {
        if (m_steps.isEmpty())
            return;
        QTimer::singleShot(1, &m_context, [this] { look(); });
        const QString wanted = m_steps.first().window;
        QWidget *front = QApplication::activeModalWidget();
        for (QWidget *window : QApplication::topLevelWidgets())
            if (!QApplication::activeModalWidget() && window->isVisible() && window->objectName() == wanted)
                front = window;
        if (front && front->isVisible() && front->objectName() == wanted &&
            (!m_steps.first().ready || m_steps.first().ready(front))) {
            m_patience.setRemainingTime(20'000);
            m_steps.takeFirst().act(front);
        } else if (m_patience.hasExpired()) {
            ADD_FAILURE() << "waits for " << wanted.toStdString() << ", in front is "
                          << (front ? front->objectName() : u"nothing"_s).toStdString();
            m_steps.clear();
            std::_Exit(1); // nothing else ends the loops of the windows
        }
    }

    QObject m_context;
    struct Step {
        QString window;
        Act act;
        Ready ready;
    };
    QList<Step> m_steps;
    QDeadlineTimer m_patience{20'000};
};

template <class Window>
Window &as(QWidget *front) {
    return *qobject_cast<Window *>(front);
}
inline const auto closes = [](QWidget *front) { front->close(); };
inline Steps::Act triggers(const QString &action) {
    return [action](QWidget *front) { front->window()->findChild<QAction *>(action)->trigger(); };
}

struct ProgramTest : testing::Test {
    const TestFolder claims;
    ScriptedHost host;
    database::LinkPool links{{u"zsk"_s}};
    Steps steps;

    int run() {
        steps.play();
        const int code = app::runProgram(host, links, claims.path());
        EXPECT_TRUE(steps.allPlayed());
        return code;
    }
};
