// The data of one target as a form. A box that the protocol does not use is hidden.
#pragma once

#include "targets/target.h"
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <map>

namespace targets {

class TargetForm final : public QScrollArea {
    Q_OBJECT
public:
    explicit TargetForm(QWidget *parent = nullptr);

    // Shows a target; std::nullopt: an empty form that cannot be edited.
    void show(const std::optional<Target> &target);
    // Returns the contents of the form. Its `tested` is that of the shown target.
    Target target() const;
    bool isChanged() const { return !(target() == m_shown); }
    void lock(bool locked) { widget()->setEnabled(!locked && m_hasTarget); }
    // Shows a fault below the box of its part and moves the focus there; std::nullopt hides the message.
    void showFault(const std::optional<TargetFault> &fault);

    // Returns the box of a part, by its key in the file.
    QWidget *box(const QString &key) const;

Q_SIGNALS:
    void edited();

private:
    struct Row {
        QLabel *label;
        QWidget *box;
        QLabel *fault;
    };
    void addRows();
    void addRow(QStringView key, QStringView caption, QWidget *box, QStringView hint);
    QLineEdit *addEdit(QStringView key, QStringView caption, QStringView hint = {});
    template <class Names>
    QComboBox *addChoice(QStringView key, QStringView caption, const Names &names, QStringView hint = {});
    void showParts();
    void offerAttributes();
    void setAttributes(const Attributes &attributes);

    QFormLayout *m_layout;
    std::map<QString, Row> m_rows;
    std::map<QString, QLineEdit *> m_edits;
    QComboBox *m_protocol, *m_syntax, *m_records, *m_queries, *m_language;
    QCheckBox *m_encrypted;
    Target m_shown;
    bool m_hasTarget = false;
};

} // namespace targets
