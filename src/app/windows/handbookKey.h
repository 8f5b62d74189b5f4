// F1, wherever it is pressed: the handbook at the page of the window in front. One handbook, made at its first use; the
// key goes no further, so that what is being edited or is running knows nothing of it.
#pragma once

#include "handbook/windows/frmHandbook.h"
#include <memory>

namespace app {

class HandbookKey final : public QObject {
    Q_OBJECT
public:
    explicit HandbookKey(platform::Host &host);

    void open();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    platform::Host &m_host;
    std::unique_ptr<handbook::frmHandbook> m_handbook;
};

} // namespace app
