// Proof and look-up of a whole list in the real window, and the report about it.
#pragma once

#include "batch/windows/remarksPane.h"
#include "benchStage.h"
#include "database/linkPool.h"
#include "proof/proofChain.h"
#include <optional>

namespace bench {

// The pane of remarks over a list, with the configuration files and the schema of the build.
class ProofPane {
public:
    ProofPane(const QString &database, std::shared_ptr<const marc::PreReadStore> records);

    // Checks the whole list. Returns whether the pane then shows that every record was checked.
    bool proofAll();

    BenchHost host;

private:
    std::shared_ptr<const marc::PreReadStore> m_records;
    database::LinkPool m_links;
    database::SessionState m_state;
    QString m_folder;
    proof::RecordProofs m_proofs;

public:
    batch::RemarksPane pane;
};

// Runs one round. Returns the seconds from the window being visible to its last remark.
std::optional<double> proofAllInWindow(const QString &database, std::shared_ptr<const marc::PreReadStore> records);
// Returns a command for the SQLite shell that lists the columns of the database that the look-up needs.
QString identitiesCommand(const QString &database);

} // namespace bench
