// Runs one target under libFuzzer; the build defines which.
#include "fuzz/targets.h"
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    fuzz::FUZZ_TARGET(QByteArrayView(data, qsizetype(size)));
    return 0;
}
