// The look-up of a batch in the tables of any server.
#pragma once

#include "batch/duplicates.h"
#include "support/databaseServers.h"

class DuplicatesOnServersTest : public testing::TestWithParam<TestServer> {};

// Returns the books of these records.
batch::SoughtBooks sought(const QStringList &records);
// Returns the remarks of a whole search as "RECORD TAG TEXT".
QStringList found(const database::SessionState &state, const QStringList &records);
