// The buttons next to the list of remarks that open the report about the last proof and the window of the schema. Both
// are disabled during a run; the tool tip of the first gives the reason if there is no report.
#pragma once

#include "batch/proofFacts.h"
#include "batch/remarkList.h"
#include "platform/host.h"
#include "schema/schemaChoice.h"
#include "widgets/button.h"
#include <functional>
#include <optional>

namespace batch {

class ReportButtons final : public QWidget {
    Q_OBJECT
public:
    struct Source {
        std::shared_ptr<const marc::PreReadStore> records;
        std::function<const RemarkList &()> remarks;   // of the last proof
        std::shared_ptr<schema::SchemaInForce> schema; // null: none can be chosen
    };
    ReportButtons(platform::Host &host, Source source, QWidget *parent = nullptr);

    void beginRun();
    void endRun(ProofFacts facts);

    widgets::Button *reportButton;
    widgets::Button *schemaButton; // hidden if no schema can be chosen

Q_SIGNALS:
    void recordWanted(int record); // chosen in the report
    void schemaChanged();

private:
    void offer(bool isRunning);
    void showReport();
    void showSchema();

    platform::Host &m_host;
    Source m_source;
    std::optional<ProofFacts> m_facts; // of the last run
};

} // namespace batch
