// Rewrites a record file of any encoding and line ends for this program or others. Before anything is written, it shows
// a record as it will be read.
#pragma once

#include "platform/host.h"
#include "tidy/tidyRun.h"
#include "tidy/windows/encodingBox.h"
#include "tidy/windows/factsLabel.h"
#include "widgets/runControls.h"
#include "widgets/window.h"
#include <array>
#include <optional>

class QComboBox;
class QGroupBox;
class QLabel;
class QStackedWidget;
namespace widgets {
class Button;
class SelectingEdit;
class TextBox;
} // namespace widgets

namespace tidy {

class frmTidy final : public widgets::Window {
    Q_OBJECT
public:
    explicit frmTidy(platform::Host &host, const QString &source = {}, ChangeOffer changes = {},
                     QWidget *parent = nullptr);

    QGroupBox *Frame1;
    std::array<QLabel *, 3> LabShuoMing;
    std::array<widgets::SelectingEdit *, 2> Text1; // source, target
    std::array<widgets::Button *, 2> cmdSelect;
    FactsLabel *LabFacts;
    QComboBox *cboForm;
    QLabel *encodingLabel;
    EncodingBox *sourceEncoding;
    QLabel *changeLabel;
    QComboBox *changeBox; // the first entry is no change
    QLabel *sampleLabel;
    widgets::TextBox *sampleText;
    QLabel *warningLabel; // about losses of the run
    widgets::TextBox *txtResult;
    widgets::PacedLabel *labJinDu;
    widgets::PacedLabel *labShuDo;
    std::array<widgets::Button *, 3> cmdClick; // start, stop, close

protected:
    bool queryUnload() override; // asks only during a run
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    void connectControls();
    void dressWarning();
    void fillBoxes();
    void takeSource(const QString &text);
    void showSample();
    void showResult(const QString &told, const QString &warning);
    void chooseInto(widgets::SelectingEdit *box, platform::FileDialogKind kind);
    TargetForm form() const;
    platform::Result<FileChange> change(const QString &source) const;
    // Suggests a name in the folder of the source, unless the user has entered another one.
    void suggestTarget();
    bool mayTidy(const QString &source, const QString &target);
    void tidy();
    platform::Result<bool> run(); // false if stopped
    void begin();
    void end();
    void showCount(qint64 records);

    platform::Host &m_host;
    ChangeOffer m_changes;
    widgets::RunControls m_controls;
    QStackedWidget *m_boxes; // the sample or the result
    std::optional<TidyRun> m_run;
    QString m_suggested;
    marc::FileEncoding m_guessed = marc::FileEncoding::Unknown;
    bool m_stopped = false;
    bool m_leaving = false; // close after the run
};

} // namespace tidy
