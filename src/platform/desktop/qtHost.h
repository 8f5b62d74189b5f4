// The real machine behind Host: message boxes, file dialogs, the desktop's shell, the event loop.
#pragma once

#include "platform/host.h"
#include <QElapsedTimer>

namespace platform {

class QtHost : public Host {
public:
    explicit QtHost(Settings settings);

    Answer show(const Box &box) override;
    QString chooseFile(const FileDialog &dialog) override;
    bool openInShell(const QString &target) override;
    const Settings &settings() const override { return m_settings; }
    QDateTime now() const override;
    QString programFolder() const override;
    void yield() override;
    void endProcess() override;

private:
    Settings m_settings;
    QElapsedTimer m_sinceEvents; // since events were last let in
};

// Loads the toolkit's own words in Chinese and the font fall-backs; call once, before any window.
void prepareToolkit();

} // namespace platform
