#include "app/windows/deskWindows.h"
#include "app/databaseNote.h"
#include "app/taskOffer.h"
#include "app/windows/AboutFrm.h"
#include "app/windows/frmHelp.h"
#include "app/windows/frmLook.h"
#include "app/windows/marcMain.h"
#include "assist/windows/frmHelpLR.h"
#include "batch/windows/remarkDelegate.h"
#include "batch/windows/remarksPane.h"
#include "card/windows/frmMarcKaPian.h"
#include "filetools/windows/frmCutFile.h"
#include "filetools/windows/frmUnionFile.h"
#include "import/windows/frmDaoRuJindu.h"
#include "platform/paths.h"
#include "proof/proofChain.h"
#include "proof/windows/frmMessage.h"
#include "tasks/windows/frmTasks.h"
#include "tidy/windows/frmTidy.h"
#include "workspace/windows/frmDaoru.h"
#include "workspace/windows/frmSelectMFile.h"
#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace app {

DeskWindows::DeskWindows(platform::Host &host, const database::SessionState &state)
    : m_host(host)
    , m_state(state)
    , m_catalogue(host, state,
                  {.lastImport = [this] { return m_lastImport; },
                   .showCard = [this](const QString &marc, const marc::RecordStep &step,
                                      QWidget *owner) { showCard(marc, u"卡片"_s, step, owner); }})
    , m_targets(host, state, [this](const QString &file, QWidget *owner) { showWorkspace(file, owner); }) {}

void DeskWindows::setFrame(marcMain *frame) {
    m_frame = frame;
    m_catalogue.setArea(frame->area());
}

void DeskWindows::selectMarcFile(const QString &file) {
    workspace::frmSelectMFile *opener = nullptr;
    workspace::frmSelectMFile dialog(m_host,
                                     {.showWorkspace = [&](const QString &file) { showWorkspace(file, opener); },
                                      .tidy = [&](const QString &file) { showTidy(file, opener); }},
                                     m_frame);
    opener = &dialog;
    if (!file.isEmpty())
        dialog.choose(file);
    dialog.exec();
}

void DeskWindows::tidyFile(const QString &source) {
    showTidy(source, m_frame);
}

void DeskWindows::showTidy(const QString &source, QWidget *owner) {
    tidy::frmTidy(m_host, source, taskOffer(m_host), owner).exec();
}

void DeskWindows::showWorkspace(const QString &file, QWidget *owner) {
    workspace::frmDaoru window(m_host, workspaceWindows(), owner);
    window.publicMarcFile = file;
    window.load();
    window.exec();
}

workspace::WorkspaceWindows DeskWindows::workspaceWindows() {
    return {
        .showCard = [this](const marc::RawRecord &record, const QString &mode, const marc::RecordStep &step,
                           QWidget *owner) { showCard(record, mode, step, owner); },
        .showReport = [this](const QString &text, QWidget *owner) { showReport(text, owner); },
        .runImport = [this](std::shared_ptr<const marc::PreReadStore> records, const QString &count,
                            const std::vector<marc::RefusedRecord> &leaveOut,
                            QWidget *owner) { return runImport(std::move(records), count, leaveOut, owner); },
        .makeRemarks = [this](const workspace::RemarksNeeds &needs) { return makeRemarks(needs); },
        .makeBatch = [this](const workspace::BatchNeeds &needs, QWidget *owner) { return makeBatch(needs, owner); },
        .fetchRecord =
            [this](const workspace::FetchNeeds &needs, QWidget *owner) {
                m_targets.search(owner, {.isbn = needs.isbn, .title = needs.title},
                                 {.rows = needs.rows, .put = needs.put, .isbns = needs.isbns});
            },
        .databaseTrouble =
            [this] {
                const DatabaseNote note = databaseNote(m_state.connectionString);
                return note.missing ? note.words : QString();
            },
        .leaderAssistant = [this](const QString &leader,
                                  QWidget *owner) { return assist::frmHelpLR000(m_host, owner).edit(leader); },
        .field100Assistant = [this](const QString &field100,
                                    QWidget *owner) { return assist::frmHelpLR100(m_host, owner).edit(field100); },
    };
}

void DeskWindows::showCard(const marc::RawRecord &record, const QString &mode, const marc::RecordStep &step,
                           QWidget *owner) {
    card::frmMarcKaPian window(m_host, owner);
    window.marcRecord = record;
    window.showMode = mode;
    window.step = step;
    window.exec();
}

workspace::ImportOutcome DeskWindows::runImport(std::shared_ptr<const marc::PreReadStore> records, const QString &count,
                                                const std::vector<marc::RefusedRecord> &leaveOut, QWidget *owner) {
    importing::frmDaoRuJindu window(m_host, m_state, std::move(records), owner);
    window.Text1->setText(u"0"_s);
    window.Text2->setText(count);
    window.leaveOut(leaveOut);
    workspace::ImportOutcome outcome;
    QObject::connect(&window, &importing::frmDaoRuJindu::refusedWanted, &window, [&] {
        outcome.refusedWanted = true;
        window.close();
    });
    window.exec();
    if (!window.keys().isEmpty())
        m_lastImport = window.keys();
    outcome.taken = window.taken();
    outcome.wentIn = window.wentIn();
    outcome.refused = window.refused();
    std::ranges::copy_if(leaveOut, std::back_inserter(outcome.leftOut),
                         [&](const marc::RefusedRecord &record) { return record.record < outcome.taken; });
    return outcome;
}

workspace::RemarksPane DeskWindows::makeRemarks(const workspace::RemarksNeeds &needs) {
    const QString folder = platform::pathWithSlash(m_host.programFolder());
    const auto schema = std::make_shared<schema::SchemaInForce>(m_host.settings(), folder);
    schema->setChecks(schema::chosenChecks(m_host.remembered()));
    const auto proofs = std::make_shared<proof::RecordProofs>(folder, std::chrono::milliseconds(100));
    const auto proof = [proofs](const marc::FieldRows &rows) { return proofs->faultsOf(rows); };
    auto *pane =
        new batch::RemarksPane(m_host, {needs.records, needs.recordsInFile, proof, m_state, schema, needs.file});
    QObject::connect(pane, &batch::RemarksPane::jump, pane, needs.jump);
    QObject::connect(pane, &batch::RemarksPane::left, pane, needs.leave);
    QObject::connect(pane, &batch::RemarksPane::changed, pane, needs.changed);
    QObject::connect(pane, &batch::RemarksPane::remindersChanged, pane, needs.checkChanged);
    QObject::connect(pane, &batch::RemarksPane::ended, pane,
                     [tell = needs.tell](const QString &words) { tell(words + u"，F8 列出"); });
    return {.widget = pane,
            .proofAll = [pane] { pane->proofAll(); },
            .listRefused =
                [pane](const workspace::ImportOutcome &outcome) {
                    pane->listRefused({outcome.refused, outcome.leftOut});
                },
            .leftOut = [pane] { return pane->leftOut(); },
            .isEmpty = [pane] { return pane->isEmpty(); },
            .rowsWithRemarks = [pane] { return pane->rowsWithRemarks(); },
            .step =
                [pane](int by) {
                    batch::RemarksPane::Step step = pane->step(by);
                    return workspace::RemarksPane::Step{step.place, std::move(step.words)};
                },
            .check =
                [pane](const marc::FieldRows &rows) {
                    std::vector<workspace::RowRemark> remarks;
                    for (batch::RemarksPane::Current &current : pane->remarksOn(rows))
                        remarks.push_back(
                            {current.remark.fieldRow, batch::markOf(current.remark.level), std::move(current.words)});
                    return remarks;
                },
            .violatedRules = [pane] { return pane->violatedRules(); },
            .end = [pane] { pane->end(); }};
}

std::function<void()> DeskWindows::makeBatch(const workspace::BatchNeeds &needs, QWidget *owner) {
    const auto remarks = [rules = needs.rules]() -> std::function<QSet<QString>(int)> {
        const auto found = rules();
        if (!found)
            return nullptr;
        return [found](int row) { return found->value(row); };
    };
    auto *window = new tasks::frmTasks(m_host,
                                       {.records = needs.records,
                                        .file = needs.file,
                                        .put = needs.put,
                                        .busyRow = needs.busyRow,
                                        .shown = needs.shown,
                                        .remarked = needs.remarked,
                                        .remarks = remarks,
                                        .jump = needs.jump},
                                       owner);
    return [window] {
        window->prepare();
        window->exec();
    };
}

void DeskWindows::showTasks() {
    tasks::frmTasks(m_host, {}, m_frame).exec();
}

void DeskWindows::showReport(const QString &text, QWidget *owner) {
    proof::frmMessage window(m_host, owner);
    window.setText(text);
    window.exec();
}

void DeskWindows::splitFile() {
    QWidget *owner = m_frame;
    filetools::frmCutFile window(
        m_host, [&](const QString &report) { showReport(report, owner); }, m_frame);
    owner = &window;
    window.exec();
}

void DeskWindows::mergeFiles() {
    QWidget *owner = m_frame;
    filetools::frmUnionFile window(
        m_host, [&](const QString &report) { showReport(report, owner); }, m_frame);
    owner = &window;
    window.exec();
}

void DeskWindows::showHelp() {
    frmHelp(m_frame).exec();
}

void DeskWindows::showAbout() {
    AboutFrm(m_host, m_frame).exec();
}

void DeskWindows::showNotice() {
    auto *notice = new frmLook(m_host, m_frame);
    notice->setAttribute(Qt::WA_DeleteOnClose);
    notice->show();
}

} // namespace app
