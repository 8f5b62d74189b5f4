// Lists the encodings in which a source can be read. An encoding that needs a library which is missing is disabled.
#pragma once

#include "tidy/sourceEncoding.h"
#include <QComboBox>

namespace tidy {

class EncodingBox final : public QComboBox {
    Q_OBJECT
public:
    explicit EncodingBox(const QString &objectName, QWidget *parent = nullptr);

    SourceEncoding encoding() const; // the chosen one
};

} // namespace tidy
