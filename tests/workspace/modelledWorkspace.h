// A workspace whose list, grid, marks and drafts are compared with the model after each action. The fixture writes the
// record files, opens one of them at random and changes it while it is closed.
#pragma once

#include "support/dice.h"
#include "workspaceFixture.h"
#include "workspaceModel.h"
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

struct ModelledWorkspace : Workspace {
    static constexpr int firstBatch = 200;
    WorkspaceModel model;
    Dice dice{1};

    void SetUp() override {
        Workspace::SetUp();
        write("cnmarc_default.Qvs", u"300 附注\r\n005 时间\r\n606 主题\r\n???自定\r\n"_s);
        write("cnmarc_zzdtshi.Qvs",
              u"[200]\r\n$e 副题名\r\n$h 分册号\r\n[606]\r\n$a 主题\r\n[300]\r\n$a 附注\r\n[999]\r\n"_s);
        model.folder = host.folder + u'/';
        model.now = host.clock;
        model.damaged = [this](const QString &) { host.willAnswer(platform::Answer::No); };
        QDir(host.folder).mkpath(u"other"_s);
        for (const auto &[name, count] : {std::pair{u"a.iso"_s, 5}, {u"b.iso"_s, 30}, {u"c.iso"_s, 206}})
            for (const QString &folder : {QString(), u"other/"_s})
                fill(QDir::toNativeSeparators(host.folder + u'/' + folder + name), count);
    }
    // Writes records of equal length, so that files differ only in their text.
    void fill(const QString &path, int count) {
        QStringList records;
        for (int i = 0; i < count; ++i)
            records.append(
                recordOf({{u"001"_s, u"0 1"_s},
                          {u"200"_s, QString(u"1 $a題" + QString::number(1000 + dice.below(9000)) + u"$f著者")},
                          {u"300"_s, u"  $a一"_s}}));
        model.files[path].records = records;
        EXPECT_TRUE(platform::writeTextFile(path, records.join(u"\r\n"_s) + u"\r\n"));
    }

    // Closes the window and opens another one.
    void open() {
        if (form)
            form->close();
        form.reset();
        const QString path = model.files.keys()[dice.below(model.files.size())];
        change(path);
        form = make();
        form->publicMarcFile = path;
        form->load();
        model.open(path, firstBatch);
        show();
    }
    // Sometimes changes the contents of the file, keeping its size and, in half of the cases, its modification time.
    void change(const QString &path) {
        const int how = dice.below(12);
        if (how > 1)
            return;
        const QDateTime time = QFileInfo(path).lastModified();
        fill(path, int(model.files[path].records.size()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(time.addSecs(how), QFileDevice::FileModificationTime));
        model.files[path].version += how;
    }
    void close() {
        if (model.row < 0)
            return;
        model.write(); // written when the window closes
        host.willAnswer(platform::Answer::Yes);
        form->close();
        form.reset();
        open();
    }
    void kill() {
        form.reset();
        open();
    }

    // Keyboard input and answers.
    void key(QWidget *where, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(where, key, modifiers);
    }
    bool answerIfAsked() {
        const bool keep = dice.below(2);
        if (model.grid.edited)
            host.willAnswer(keep ? platform::Answer::Yes : platform::Answer::No);
        return keep;
    }
    int anyRow() { return 1 + dice.below(model.grid.rows.size()); }
    void toRow(int row) {
        form->Grid1->setFocus();
        form->Grid1->setRow(row);
    }
    void filter() {
        model.remarked.clear();
        for (int i = dice.below(9); i > 0; --i)
            model.remarked.insert(dice.below(model.listed));
        pane.remarked = {model.remarked.cbegin(), model.remarked.cend()};
        std::ranges::sort(pane.remarked);
        pane.needs.changed();
        if (dice.below(2))
            return; // with the same filter
        model.filter = dice.below(3);
        form->filterBox->setCurrentIndex(model.filter);
        Q_EMIT form->filterBox->activated(model.filter);
    }
    // The two-second timer expires.
    void tick() {
        model.write();
        form->parts().drafts.write();
        compareDisk();
    }

    // Compares grid, list, marks and drafts with the model.
    void compare() {
        const workspace::EditedRecord &record = form->record();
        ASSERT_EQ(record.rows(), model.grid.rows);
        ASSERT_EQ(record.state().leader, model.grid.leader);
        ASSERT_EQ(record.state().edited, model.grid.edited);
        ASSERT_EQ(record.state().rowsCameOrWent, model.grid.cameOrWent);
        QList<workspace::Losses> losses;
        for (const marc::FieldRow &row : std::as_const(model.grid.rows))
            losses.append(workspace::lossesOf(row.value));
        ASSERT_EQ(record.warning(), workspace::warningOf(model.grid.rows, losses));
        ASSERT_EQ(form->Grid1->rows(), model.grid.rows.size() + 1);
        for (int row = 1; row <= model.grid.rows.size(); ++row) {
            ASSERT_EQ(form->Grid1->text(row, workspace::ValueColumn), model.grid.rows[row - 1].value);
            ASSERT_EQ(form->Grid1->cellBackground(row, 1).has_value(), model.grid.rows[row - 1].number.isEmpty());
        }
        ASSERT_EQ(form->Grid2->row(), model.row);
        ASSERT_EQ(form->records().rowCount(), model.list.size());
        for (int row = 0; row < model.list.size(); ++row) {
            ASSERT_EQ(form->records().record(row), model.list[row]) << row;
            ASSERT_EQ(form->records().title(row), model.titles[row]) << row;
        }
        compareShown();
        ASSERT_EQ(form->draftBar->isVisible(), model.offered);
        ASSERT_FALSE(form->zdList->isVisible() || form->Zzdlist->isVisible());
        ASSERT_EQ(form->parts().drafts.changed(), model.changedCount());
        ASSERT_TRUE(form->parts().drafts.dueIn() >= 0 ||
                    model.drafts().means() == model.disk.value(model.path).means());
    }
    void compareDisk() {
        const QDir folder(host.remembered().folderFor(platform::kept::drafts).value());
        QMap<QString, WorkspaceModel::OnDisk> found;
        for (const QString &name : folder.entryList({u"*.json"_s})) {
            QFile file(folder.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            WorkspaceModel::OnDisk &drafts = found[QDir::toNativeSeparators(
                QJsonDocument::fromJson(file.readLine()).object()[u"path"_s].toString())];
            while (!file.atEnd()) {
                const QJsonObject draft = QJsonDocument::fromJson(file.readLine()).object();
                auto &part = draft[u"left"_s].toBool() ? drafts.left : drafts.changed;
                if (draft[u"gone"_s].toBool())
                    drafts.changed.remove(draft[u"row"_s].toInt());
                else
                    part.insert(draft[u"row"_s].toInt(), {draft[u"record"_s].toString(), {}});
            }
        }
        ASSERT_EQ(found.keys(), model.disk.keys());
        const auto records = [](const WorkspaceModel::Drafts &drafts) {
            QMap<int, QString> result;
            for (auto draft = drafts.begin(); draft != drafts.end(); ++draft)
                result.insert(draft.key(), draft->record);
            return result;
        };
        for (const QString &path : found.keys()) {
            const auto [newest, older] = found[path].means();
            const auto [wanted, wantedOlder] = model.disk[path].means();
            ASSERT_EQ(records(newest), records(wanted));
            ASSERT_EQ(records(older), records(wantedOlder));
        }
        ASSERT_EQ(folder.entryList({u"*.kept"_s}).size(), model.kept);
    }
    void compareShown() {
        form->parts().filter.update();
        const QList<int> shown = model.shownRows();
        int row = form->Grid2->shownRow(0, 0);
        for (int position = 0; position < shown.size(); ++position) {
            ASSERT_EQ(row, shown[position]);
            const QAbstractItemModel *view = form->Grid2->model();
            if (model.filter != 0) {
                ASSERT_EQ(view->index(position, 0).data().toString(), form->records().number(row));
            }
            row = form->Grid2->shownRow(row, 1);
        }
        ASSERT_EQ(row, -1);
        ASSERT_EQ(form->Grid2->currentIndex().row(), shown.indexOf(model.row));
    }
};
