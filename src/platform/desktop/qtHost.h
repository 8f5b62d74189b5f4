// The real machine behind Host: message boxes, file dialogs, the desktop's shell, the event loop.
#pragma once

#include "platform/host.h"
#include <functional>
#include <optional>

namespace platform {

class QtHost : public Host {
public:
    // `beforeEnd` runs when the process is ended at once: no object of the program sees that end.
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

private:
    Settings m_settings;
    DeskState m_state;
    std::function<void()> m_beforeEnd;
    QString m_programFolder;
    std::optional<qint64> m_lastEvents; // when events were last let in, by the rough clock
};

// Loads the toolkit's own words in Chinese and the font fall-backs, and tells the desktop which of its entries the
// windows belong to; call once, before any window.
void prepareToolkit();

} // namespace platform
