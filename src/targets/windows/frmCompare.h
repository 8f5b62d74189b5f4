// Shows a fetched record next to the current one, field by field. Fields that are taken change the current record at
// once.
#pragma once

#include "platform/host.h"
#include "targets/fieldComparison.h"
#include "targets/windows/surroundings.h"
#include "widgets/button.h"
#include "widgets/flexGrid.h"
#include "widgets/textBox.h"
#include "widgets/window.h"
#include <QLabel>

namespace targets {

class frmCompare final : public widgets::Window {
    Q_OBJECT
public:
    // `fetched` has the rows of the field grid.
    frmCompare(platform::Host &host, const CurrentRecord &current, marc::FieldRows fetched, QWidget *parent = nullptr);

    widgets::FlexGrid *grid;
    widgets::TextBox *currentText; // of the field in the current row
    widgets::TextBox *fetchedText;
    QLabel *countLabel;
    widgets::Button *takeButton;
    widgets::Button *takeAllButton;
    widgets::Button *quitButton;

private:
    void layOut();
    void compare();
    void showField();
    void takeField();
    void takeAll();
    const ComparedField *field() const; // in the current row; null if there is none

    platform::Host &m_host;
    const CurrentRecord &m_current;
    const marc::FieldRows m_fetched;
    std::shared_ptr<ComparisonRows> m_rows;
};

} // namespace targets
