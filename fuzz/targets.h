// The fuzz targets. Each has a corpus of its name.
#pragma once

#include <QByteArrayView>

namespace fuzz {

void record(QByteArrayView bytes); // a record file: reader, title, rows, writer, card

} // namespace fuzz
