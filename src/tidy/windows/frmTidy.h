// Writes a record file again so that this program, or others, can read it, whatever encoding and line ends it came
// with. A record is shown as it will be read before anything is written.
#pragma once

#include "platform/host.h"
#include "tidy/tidyRun.h"
#include "tidy/windows/factsLabel.h"
#include "widgets/runControls.h"
#include "widgets/selectingEdit.h"
#include "widgets/textBox.h"
#include <QComboBox>
#include <QGroupBox>
#include <QStackedWidget>
#include <array>
#include <optional>

namespace tidy {

class frmTidy final : public widgets::Window {
    Q_OBJECT
public:
    explicit frmTidy(platform::Host &host, const QString &source = {}, QWidget *parent = nullptr);

    QGroupBox *Frame1;
    std::array<QLabel *, 3> LabShuoMing;
    std::array<widgets::SelectingEdit *, 2> Text1; // source, target
    std::array<widgets::Button *, 2> cmdSelect;
    FactsLabel *LabFacts;
    QComboBox *cboForm;
    QLabel *encodingLabel;
    QComboBox *sourceEncoding;
    QLabel *sampleLabel;
    widgets::TextBox *sampleText;
    QLabel *warningLabel; // what the run lost
    widgets::TextBox *txtResult;
    widgets::PacedLabel *labJinDu;
    widgets::PacedLabel *labShuDo;
    std::array<widgets::Button *, 3> cmdClick; // begin, stop, leave

protected:
    bool queryUnload() override; // asks only while a run is on
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    void connectControls();
    void dressWarning();
    void offerEncodings();
    void takeSource(const QString &text);
    void showSample();
    void showResult(const QString &told, const QString &warning);
    void chooseInto(widgets::SelectingEdit *box, platform::FileDialogKind kind);
    TargetForm form() const;
    SourceEncoding encoding() const;
    // A name beside the source's, as long as the box holds none that the user gave.
    void suggestTarget();
    bool mayTidy(const QString &source, const QString &target);
    void tidy();
    platform::Result<bool> run(); // false where it was stopped
    void begin();
    void end();
    void showCount(qint64 records);

    platform::Host &m_host;
    widgets::RunControls m_controls;
    QStackedWidget *m_boxes; // the sample, or the result
    std::optional<TidyRun> m_run;
    QString m_suggested;
    marc::FileEncoding m_guessed = marc::FileEncoding::Unknown;
    bool m_stopped = false;
    bool m_leaving = false; // after the run
};

} // namespace tidy
