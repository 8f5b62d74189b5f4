// Searches the catalogues of other libraries: the query, the targets, the records found, and the actions on them.
#pragma once

#include "platform/slicedWork.h"
#include "targets/windows/queryPane.h"
#include "targets/windows/resultsPane.h"
#include "targets/windows/taking.h"
#include "targets/windows/targetPicker.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"
#include "widgets/window.h"

namespace targets {

class Search;

class frmSearch final : public widgets::Window {
    Q_OBJECT
public:
    // `current`: the workspace from which the window is opened; without functions if there is none.
    frmSearch(platform::Host &host, Surroundings surroundings, CurrentRecord current = {}, QWidget *parent = nullptr);
    ~frmSearch() override;

    // Fills in the fields; the search does not begin.
    void ask(const Query &query) { queryPane->show(query); }
    const FoundRecords &found() const { return *m_found; }
    bool isSearching() const;

    QueryPane *queryPane;
    TargetPicker *targetPicker;
    ResultsPane *resultsPane;
    widgets::PacedLabel *labJinDu;
    QLabel *adviceLabel;
    widgets::Button *searchButton;
    widgets::Button *stopButton;
    widgets::Button *moreButton;
    widgets::Button *allButton;
    widgets::Button *compareButton;
    widgets::Button *takeButton;
    widgets::Button *openButton;
    widgets::Button *targetsButton;
    widgets::Button *batchButton;
    widgets::Button *quitButton;

protected:
    bool queryUnload() override;

private:
    void layOut();
    void connectControls();
    void allow();
    void search();
    void fetchMore();
    void listen();
    void finish();
    void say(const QString &words, const QString &advice = {});
    bool lookForHoldings();
    void take();
    void compare();
    void editTargets();
    bool hasDesk() const { return bool(m_current.rows); }

    platform::Host &m_host;
    const Surroundings m_surroundings;
    const CurrentRecord m_current;
    TargetShelf m_shelf;
    std::shared_ptr<FoundRecords> m_found;
    std::unique_ptr<Search> m_search;
    HoldingSearch m_holdingSearch;
    platform::SlicedWork m_holdings; // runs it
    Taking m_taking;
    bool m_untaken = false; // ticks have changed since the last file was written
};

} // namespace targets
