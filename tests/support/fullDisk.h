// Simulates a full disk: during the lifetime of this object, the process cannot write any file beyond `bytes`. On
// Windows, which has no such limit, the test fails.
#pragma once

#include <QtGlobal>

class FullDisk {
public:
    explicit FullDisk(qint64 bytes);
    ~FullDisk();
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    quint64 m_before = 0;
};
