// The main window with windows that only note which command opened them.
#pragma once

#include "app/windows/marcMain.h"
#include "support/scriptedHost.h"
#include <QAction>

struct RecordedWindows final : app::CommandWindows {
    const ScriptedHost &host;
    QStringList calls;
    explicit RecordedWindows(const ScriptedHost &host)
        : host(host) {}
    void selectMarcFile(const QString &file) override { note(u"select" + file); }
    void tidyFile(const QString &) override { note(u"tidy"_s); }
    void fetchRecords() override { note(u"fetch"_s); }
    void showTasks() override { calls.append(u"tasks"_s); }
    QString connectionText() const override {
        return text.isEmpty() ? u"Driver=SQLite3;Database=" + host.folder + u"/no.db" : text;
    }
    QString text;
    std::function<void()> onCall = [] {};
    void note(const QString &call) {
        calls.append(call);
        onCall();
    }
    static QString count(const app::QueryLists &lists) { return QString::number(lists.columns.count(u',') + 1); }
    void queryCatalogue(const app::QueryLists &lists) override { calls.append(u"catalogue " + count(lists)); }
    void queryStore(const app::QueryLists &lists) override { calls.append(u"store " + count(lists)); }
    void splitFile() override { calls.append(u"split"_s); }
    void mergeFiles() override { calls.append(u"merge"_s); }
    void showHelp() override { calls.append(u"help"_s); }
    void showAbout() override { calls.append(u"about"_s); }
    void endRuns() override { calls.append(u"end "_s + QString::number(host.endings)); }
    void showNotice() override { calls.append(u"notice"_s); }
};

struct MainWindowTest : testing::Test {
    ScriptedHost host;
    RecordedWindows windows{host};
    app::marcMain frame{host, windows};

    QString callOf(const QString &name) {
        windows.calls.clear();
        frame.findChild<QAction *>(name)->trigger();
        return windows.calls.join(u'|');
    }
};
