// Owns the windows that the commands open, makes each at its first use and wires it to those it leads to.
#pragma once

#include "app/commands.h"
#include "platform/database/sublib.h"
#include "platform/host.h"

namespace app {

class marcMain;

class DeskWindows final : public CommandWindows {
public:
    DeskWindows(platform::Host &host, const platform::SessionState &state);

    // The frame that the list windows live in and that the dialogs belong to; outlives its use here.
    void setFrame(marcMain *frame) { m_frame = frame; }

    void selectMarcFile() override;
    void queryCatalogue(const QueryLists &lists) override;
    void queryStore(const QueryLists &lists) override;
    void splitFile() override;
    void mergeFiles() override;
    void showHelp() override;
    void showAbout() override;
    void showNotice() override;

private:
    void notProvided();

    platform::Host &m_host;
    const platform::SessionState &m_state;
    marcMain *m_frame = nullptr;
};

} // namespace app
