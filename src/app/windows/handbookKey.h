// Opens the handbook on F1, at the page of the active window. There is one handbook, created when first used. The key
// is not passed on, so that editors and runs are not affected.
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
