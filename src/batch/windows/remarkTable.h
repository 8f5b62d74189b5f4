// Shows remarks in a table, filtered by kind, with the whole text of the current one. All remarks can be copied and
// saved.
#pragma once

#include "batch/remarkList.h"
#include "platform/host.h"
#include "platform/result.h"
#include "widgets/button.h"
#include "widgets/flexGrid.h"
#include "widgets/pacedLabel.h"
#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>

namespace batch {

class RemarkTable final : public QWidget {
    Q_OBJECT
public:
    RemarkTable(const QString &objectName, platform::Host &host, QWidget *parent);

    // begin() shows the list, which is empty, take() adds remarks, and settle() sorts them when all are there. A row
    // chosen by the user in the meantime stays current; otherwise the first row becomes current.
    void begin(RemarkList list);
    void take(std::vector<Remark> remarks);
    void settle();

    const RemarkList &remarks() const { return *m_list; }
    // Add a control next to `words`, or next to the buttons at the bottom.
    void addAbove(QWidget *control) { m_above->addWidget(control); }
    void addBelow(QWidget *control) { m_below->addWidget(control); }
    // Asks for a file and lets `write` write it.
    struct Target {
        QString title;
        QString filter;
        QStringView suffix;
    };
    void save(const Target &target, const std::function<platform::Status(const QString &path)> &write);

    QComboBox *kindBox;
    widgets::PacedLabel *words; // progress and result of the run
    widgets::FlexGrid *grid;
    QLabel *remarkText; // of the current row
    widgets::Button *copyButton;
    widgets::Button *saveButton;

Q_SIGNALS:
    // By Enter or a double click, if the remark is about a record.
    void activated(const batch::Remark &remark);

protected:
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    void fitWidths();
    void showKinds();
    void filter();
    void showRow();
    void activateRow();
    std::optional<QString> chosenPath(const Target &target);

    platform::Host &m_host;
    QBoxLayout *m_above;
    QBoxLayout *m_below;
    std::shared_ptr<RemarkList> m_list = std::make_shared<RemarkList>();
    bool m_rowChosen = false; // by the user
};

} // namespace batch
