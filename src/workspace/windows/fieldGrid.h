// The field grid: the record as it stands, with grey descriptions; the rows that the user adds stay white.
#pragma once

#include "widgets/flexGrid.h"
#include "workspace/editedRecord.h"
#include <QElapsedTimer>
#include <memory>

namespace workspace {

// The face of coded data: all characters equally wide.
QFont codedFont(const QFont &plain);

class FieldGrid final : public widgets::FlexGrid {
    Q_OBJECT
public:
    static constexpr int allTwips = 9050; // the width of all columns

    FieldGrid(const QString &objectName, QWidget *parent);

    // From now on the grid shows the record and follows it.
    void follow(std::shared_ptr<const EditedRecord> record);
    // The half of the grid for what is laid over it, in the coordinates of its parent, as cellRect().
    QRect rightHalf() const;
    // Whether the row belongs to the leader, a control field or a field 1XX, where positions are counted.
    bool isCoded(int row) const;

Q_SIGNALS:
    void scrolled();
    void tagTyped(const QString &digits); // up to three, typed one soon after the other
    void rearranged();                    // other rows, or another size; told once the grid has laid itself out anew

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showAnew();
    void shade(int row);

    std::shared_ptr<const EditedRecord> m_record;
    QString m_digits;
    QElapsedTimer m_sinceDigit;
};

} // namespace workspace
