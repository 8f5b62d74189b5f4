// Looks up a list of ISBNs in the ticked targets, in their order. The outcomes are kept in a journal, so that the batch
// can continue after a stop, or when the window is opened again after the program has ended.
#pragma once

#include "platform/host.h"
#include "targets/batchRows.h"
#include "targets/windows/taking.h"
#include "targets/windows/targetPicker.h"
#include "widgets/button.h"
#include "widgets/flexGrid.h"
#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include <QPlainTextEdit>
#include <QSpinBox>

namespace targets {

class frmIsbnBatch final : public widgets::Window {
    Q_OBJECT
public:
    frmIsbnBatch(platform::Host &host, const Surroundings &surroundings, const CurrentRecord &current,
                 const TargetShelf &shelf, QWidget *parent = nullptr);

    const IsbnBatch &batch() const { return *m_batch; }

    TargetPicker *targetPicker;
    QPlainTextEdit *isbnText;
    widgets::FlexGrid *grid;
    QSpinBox *pauseBox; // milliseconds
    QSpinBox *atOnceBox;
    widgets::PacedLabel *labJinDu;
    QLabel *adviceLabel;
    widgets::Button *readButton;
    widgets::Button *listButton;
    widgets::Button *startButton;
    widgets::Button *stopButton;
    widgets::Button *goOnButton;
    widgets::Button *saveButton;
    widgets::Button *takeButton;
    widgets::Button *openButton;
    widgets::Button *quitButton;

protected:
    bool queryUnload() override;

private:
    void prepareControls();
    void layOut();
    void connectControls();
    void allow();
    void advise(const QString &words);
    void readFile();
    void makeBatch();
    platform::Result<QString> journal() const; // its path
    void recall();
    void start();
    void goOn();
    void run();
    void finish();
    void save();
    void take();

    platform::Host &m_host;
    const Surroundings &m_surroundings;
    const CurrentRecord &m_current;
    std::shared_ptr<IsbnBatch> m_batch;
    Taking m_taking;
};

} // namespace targets
