// A workspace on temporary files, whose other windows only record that they were opened.
#pragma once

#include "platform/codepage936.h"
#include "platform/textFile.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"
#include "widgets/button.h"
#include "workspace/windows/draftBar.h"
#include "workspace/windows/frmDaoru.h"
#include "workspace/windows/workspaceParts.h"
#include "workspace/windows/workspaceRoom.h"
#include <QPointer>

// Replaces the pane of remarks: records the requests and keeps what the workspace passes to it.
struct PaneDouble {
    QPointer<QLineEdit> widget;
    workspace::RemarksNeeds needs;
    QStringList asked;
    bool empty = true;
    std::vector<int> remarked;
    workspace::RemarksPane::Step next; // of the next step

    // Finds each row that contains 错, and the record as a whole if then no row contains 题.
    static std::vector<workspace::RowRemark> check(const marc::FieldRows &rows) {
        std::vector<workspace::RowRemark> remarks;
        bool hasTitle = false;
        for (qsizetype i = 0; i < rows.size(); ++i) {
            hasTitle = hasTitle || rows[i].value.contains(u'题');
            if (rows[i].value.contains(u'错'))
                remarks.push_back({int(i) + 1, widgets::Mark::Hint, QStringLiteral("提示：有错字")});
        }
        if (!remarks.empty() && !hasTitle)
            remarks.push_back({0, widgets::Mark::Error, QStringLiteral("错误：没有题名")});
        return remarks;
    }
    workspace::RemarksPane make(const workspace::RemarksNeeds &given) {
        needs = given;
        widget = new QLineEdit;
        return {.widget = widget,
                .proofAll =
                    [this] {
                        empty = false;
                        asked.append(u"proof of "_s + QString::number(needs.recordsInFile()));
                    },
                .listRefused =
                    [this](const workspace::ImportOutcome &outcome) {
                        empty = empty && outcome.refused.empty();
                        asked.append(u"refused "_s + QString::number(outcome.refused.size()));
                    },
                .leftOut =
                    [] {
                        return std::vector<marc::RefusedRecord>{{7, u"重复"_s}};
                    },
                .isEmpty = [this] { return empty; },
                .rowsWithRemarks = [this] { return remarked; },
                .step =
                    [this](int by) {
                        asked.append(QStringLiteral("step ") + QString::number(by));
                        return next;
                    },
                .check = &PaneDouble::check,
                .end = [this] { asked.append(u"end"_s); }};
    }
};

struct Workspace : testing::Test {
    ScriptedHost host;
    QStringList opened; // the arguments of the other windows, in order
    std::optional<QString> assistantGives;
    workspace::ImportOutcome outcome;                         // of the next import
    marc::RecordStep stepInCard;                              // of the last card
    std::function<void(const workspace::BatchNeeds &)> batch; // the windows of tasks and of other catalogues
    std::function<void(const workspace::FetchNeeds &)> fetch;
    PaneDouble pane;
    QString databaseTrouble;
    std::unique_ptr<workspace::frmDaoru> form;

    void SetUp() override {
        write("marcBJshuoming.Qvs", QStringLiteral("[200] 题名与责任者\r\n$a 正题名\r\n$f 第一责任者\r\n[999]\r\n"));
    }
    QString write(const char *name, const QString &text) {
        const QString path = host.folder + u'/' + QString::fromUtf8(name);
        EXPECT_TRUE(platform::writeTextFile(path, text));
        return path;
    }
    QString path() const { return host.folder + QStringLiteral("/records.iso"); }

    static QString titled(const QString &title) {
        return recordOf({{QStringLiteral("001"), QStringLiteral("0 1")},
                         {QStringLiteral("200"), QStringLiteral("1 $a") + title + QStringLiteral("$f著者")}});
    }
    // Writes records with the titles 题1, 题2, …
    void writeRecords(int count) {
        QString text;
        for (int i = 1; i <= count; ++i)
            text += titled(u"题" + QString::number(i)) + QStringLiteral("\r\n");
        write("records.iso", text);
    }
    std::unique_ptr<workspace::frmDaoru> make() {
        const auto note = [this](const QString &what) { opened.append(what); };
        const auto assistant = [this, note](const QString &name) {
            return [this, note, name](const QString &text, QWidget *) {
                note(name + text);
                EXPECT_FALSE(form->richText->isVisible());
                return assistantGives;
            };
        };
        return std::make_unique<workspace::frmDaoru>(
            host,
            workspace::WorkspaceWindows{
                .showCard =
                    [this, note](const QString &record, const QString &mode, const marc::RecordStep &step, QWidget *) {
                        note(mode + u' ' + record);
                        stepInCard = step;
                    },
                .showReport = [note](const QString &text, QWidget *) { note(text); },
                .runImport =
                    [this, note](std::shared_ptr<const marc::PreReadStore> records, const QString &count,
                                 const std::vector<marc::RefusedRecord> &leaveOut, QWidget *) {
                        note(count + u' ' + records->record(0));
                        EXPECT_TRUE(leaveOut.size() == 1 && leaveOut[0].record == 7);
                        return outcome;
                    },
                .makeRemarks = [this](const workspace::RemarksNeeds &needs) { return pane.make(needs); },
                .makeBatch = [this](const workspace::BatchNeeds &needs, QWidget *) { return std::bind(batch, needs); },
                .fetchRecord = [this](const workspace::FetchNeeds &needs, QWidget *) { fetch(needs); },
                .databaseTrouble = [this] { return databaseTrouble; },
                .leaderAssistant = assistant(QStringLiteral("LR000 ")),
                .field100Assistant = assistant(QStringLiteral("LR100 ")),
            });
    }
    workspace::frmDaoru &load() {
        form = make();
        form->publicMarcFile = path();
        form->load();
        return *form;
    }
    workspace::frmDaoru &load(int records) {
        writeRecords(records);
        return load();
    }
    // Loads this many records and waits until the window has the keyboard.
    workspace::frmDaoru &open(int records) {
        load(records);
        return show();
    }
    workspace::frmDaoru &show() {
        showActive(*form);
        return *form;
    }
    QStringList titles(int from, int to) const {
        QStringList found;
        for (int row = from; row < to; ++row)
            found.append(form->records().number(row) + u' ' + form->records().title(row));
        return found;
    }
    bool says(const QString &part) const { return form->labStatus->text().contains(part); }
    bool said(const QString &part) const {
        return QTest::qWaitFor([&] { return says(part); });
    }
    // Changes a value as an editor does when it is left.
    void change(int row, const QString &text) { form->record().edit({.row = row, .text = text}); }
    QString value(int row) const { return form->record().row(row).value; }
    QString cell(int row, int column) const { return form->Grid1->text(row, column); }
};
