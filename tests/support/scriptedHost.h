// A scripted host: it records every box, dialog and shell call, answers questions from a prepared list, and fails the
// test on an unexpected question and on an unused answer. It never waits.
#pragma once

#include "platform/host.h"
#include "support/showActive.h"
#include "support/testFolder.h"
#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <functional>

class ScriptedHost final : public platform::Host {
public:
    ScriptedHost();
    ~ScriptedHost() override; // fails if prepared answers or files are left

    // Prepare the answer to the next question and the result of the next file dialog ("" cancels).
    void willAnswer(platform::Answer answer) { m_answers.append(answer); }
    void willChoose(const QString &path) { m_files.append(path); }

    QList<platform::Box> boxes;          // all boxes, in order
    QList<platform::FileDialog> dialogs; // all file dialogs, in order
    QStringList opened;                  // what was passed to the shell
    bool checksTick = false;             // closes a box with a check box with it checked
    bool shellWorks = true;
    int endings = 0;               // how often the process was asked to end
    QDateTime clock;               // the result of now()
    QString folder;                // the result of programFolder(): a temporary folder
    std::function<void()> onYield; // called while the program yields
    std::function<void()> onShow;  // called while a box is shown

    QStringList texts() const; // the texts of the boxes, in order
    platform::Box lastBox() const;

    platform::Answer show(const platform::Box &box) override;
    bool showWithTick(const platform::Box &box, const QString &tick) override;
    QString chooseFile(const platform::FileDialog &dialog) override;
    bool openInShell(const QString &target) override;
    const platform::Settings &settings() const override { return m_settings; }
    const platform::DeskState &remembered() const override { return m_state; }
    QDateTime now() const override { return clock; }
    QString programFolder() const override { return folder; }
    void yield() override;
    void endProcess() override { ++endings; }

private:
    QTemporaryDir m_directory;
    platform::Settings m_settings;
    platform::DeskState m_state;
    QList<platform::Answer> m_answers;
    QStringList m_files;
};
