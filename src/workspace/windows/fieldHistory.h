// Undo and redo over the record in the field grid. A step is all that one command did: a typed content, a field with
// its subfields, an assistant. Another record begins anew.
#pragma once

#include "workspace/editedRecord.h"
#include <QUndoStack>

namespace workspace {

class FieldHistory final : public QObject {
    Q_OBJECT
public:
    explicit FieldHistory(EditedRecord &record);

    void undo();
    void redo();

Q_SIGNALS:
    void went(const QString &words); // what was undone or done again, to be said

private:
    struct Moment {
        marc::FieldRows rows;
        QString leader;
        bool changed = false;
        bool cameOrWent = false;
    };
    class Step;

    Moment moment() const;
    void beginAnew();
    void note();
    void put(const Moment &moment);

    EditedRecord &m_record;
    QUndoStack m_stack;
    Moment m_last;
    bool m_noting = false;  // the step in hand is not over
    bool m_putting = false; // what changes is our own doing
};

} // namespace workspace
