// Remarks as a table, with what is done with all of them: one kind alone is shown, the whole text of one, all are
// copied and saved.
#pragma once

#include "batch/remark.h"
#include "platform/host.h"
#include "platform/result.h"
#include "widgets/flexGrid.h"
#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>

namespace batch {

class RemarkTable final : public QWidget {
    Q_OBJECT
public:
    RemarkTable(const QString &objectName, platform::Host &host, QWidget *parent);

    // The table becomes empty. The remarks then come in parts and are sorted once all are there: the row that the user
    // chose meanwhile stays current, else the first one is.
    void begin();
    void take(std::vector<Remark> remarks);
    void settle();

    const RemarkList &remarks() const { return *m_list; }
    // Another button, next to the words or next to those at the bottom.
    void addAbove(widgets::Button *button) { m_above->addWidget(button); }
    void addBelow(widgets::Button *button) { m_below->addWidget(button); }
    // Asks for a file and has it written.
    struct Target {
        QString title;
        QString filter;
        QStringView suffix;
    };
    void save(const Target &target, const std::function<platform::Status(const QString &path)> &write);

    QComboBox *kindBox;
    widgets::PacedLabel *words; // how far the run has got, and what came of it
    widgets::FlexGrid *grid;
    QLabel *remarkText; // of the current row
    widgets::Button *copyButton;
    widgets::Button *saveButton;

Q_SIGNALS:
    // By Enter or a double click; of a remark that concerns a record.
    void activated(const batch::Remark &remark);

protected:
    void changeEvent(QEvent *event) override;

private:
    void lay();
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
