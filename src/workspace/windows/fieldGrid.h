// The field grid: shows the current record, with grey descriptions. Rows added by the user stay white.
#pragma once

#include "widgets/flexGrid.h"
#include "workspace/editedRecord.h"
#include "workspace/windows/rowRemark.h"
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <memory>

namespace workspace {

// Returns the font for coded data, in which all characters have the same width.
QFont codedFont(const QFont &plain);
// Shows blanks as dots, as the grid does in coded data.
void showBlanks(QPlainTextEdit &box, bool shown);

class FieldGrid final : public widgets::FlexGrid {
    Q_OBJECT
public:
    static constexpr int allTwips = 9050; // the width of all columns

    FieldGrid(const QString &objectName, QWidget *parent);

    // Shows the record and follows its changes.
    void follow(std::shared_ptr<const EditedRecord> record);
    // Returns the right half of the grid, for widgets laid over it, in the same coordinates as cellRect().
    QRect rightHalf() const;
    // Returns whether the row belongs to the leader, a control field or a field 1XX, where positions are counted.
    bool isCoded(int row) const;
    // Marks the rows with remarks; the words are shown as tool tips.
    void markRows(std::vector<RowRemark> remarks);
    std::vector<RowRemark> remarksOn(int row) const; // the worst first

Q_SIGNALS:
    void scrolled();
    void tagTyped(const QString &digits); // up to three digits typed in quick succession
    void rearranged();                    // other rows or another size; emitted after the grid has been laid out

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showAnew();
    void shade(int row);

    std::shared_ptr<const EditedRecord> m_record;
    std::vector<RowRemark> m_remarks; // by row, the worst of a row first
    QString m_digits;
    QElapsedTimer m_sinceDigit;
};

} // namespace workspace
