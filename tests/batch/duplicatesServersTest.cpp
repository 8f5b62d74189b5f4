// Looks up the records of a batch on real servers.
#include "duplicatesTest.h"

INSTANTIATE_TEST_SUITE_P(Servers, DuplicatesOnServersTest, testing::Values(TestServer::PostgreSql, TestServer::MariaDb),
                         [](const auto &info) { return TestDatabase::nameOf(info.param).toStdString(); });
