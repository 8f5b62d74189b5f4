// The implementation of Host for real use: message boxes, file dialogs, the desktop's shell, the event loop.
#pragma once

#include "platform/host.h"
#include <chrono>
#include <functional>
#include <optional>

namespace platform {

class QtHost : public Host {
public:
    // endProcess() calls `beforeEnd` before it ends the process, since it runs no destructors.
    explicit QtHost(Settings settings, DeskState state = DeskState(), std::function<void()> beforeEnd = {});

    Answer show(const Box &box) override;
    bool showWithTick(const Box &box, const QString &tick) override;
    QString chooseFile(const FileDialog &dialog) override;
    bool openInShell(const QString &target) override;
    const Settings &settings() const override { return m_settings; }
    const DeskState &remembered() const override { return m_state; }
    QDateTime now() const override;
    QString programFolder() const override { return m_programFolder; }
    void yield() override;
    void endProcess() override;

    // How long openInShell() waits for the result of the desktop's helper.
    std::chrono::milliseconds helperPatience = std::chrono::seconds(3);

private:
    Settings m_settings;
    DeskState m_state;
    std::function<void()> m_beforeEnd;
    QString m_programFolder;
    std::optional<qint64> m_lastEvents; // when events were last processed, by roughMilliseconds()
};

// Loads Qt's Chinese translations, sets the fallback fonts, and names the desktop entry that the windows belong to.
// Must be called once, before any window is made.
void prepareToolkit();

} // namespace platform
