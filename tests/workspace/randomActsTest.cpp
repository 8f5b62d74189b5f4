// Random actions on the workspace window, compared with a small model of its state. TARVEX_ACTS and TARVEX_SEED set the
// number of actions and the seed.
#include "modelledWorkspace.h"

using namespace workspace;
using platform::Answer;

namespace {

struct RandomActsTest : ModelledWorkspace {
    QStringList acts; // the last ones, for failure messages

    void step(int by) {
        const QList<int> shown = model.shownRows();
        const qsizetype next = shown.indexOf(model.row) + by;
        if (next < 0 || next >= shown.size())
            return;
        model.leave(answerIfAsked(), false);
        model.enter(shown[next]);
        if (dice.below(2))
            form->cmdTiMing[by > 0 ? 1 : 0]->click();
        else
            key(form->Grid1, by > 0 ? Qt::Key_PageDown : Qt::Key_PageUp, Qt::ControlModifier);
    }
    void goTo() {
        const int row = dice.below(std::min<qsizetype>(model.list.size(), dice.below(4) ? 12 : 1000));
        if (row == model.row)
            return;
        model.leave(answerIfAsked(), true);
        model.enter(row);
        if (dice.below(2))
            return form->Grid2->clickRow(row);
        key(form->Grid1, Qt::Key_G, Qt::ControlModifier);
        form->findLine->findText->setText(QString::number(row + 1));
        key(form->findLine->findText, Qt::Key_Return);
        key(form->findLine->findText, Qt::Key_Escape);
    }

    void edit() {
        const int row = anyRow();
        const marc::FieldRow before = model.grid.rows[row - 1];
        if (before.identifier.isEmpty())
            return;
        toRow(row);
        key(form->Grid1, Qt::Key_Return);
        if (const int how = dice.below(4); how > 0) {
            const QStringList texts{u"1#"_s, u" "_s, u"題"_s, u"é"_s, before.value, u' ' + before.value, QString()};
            form->richText->setText(dice.oneOf(texts));
        }
        model.typing = {row, form->richText->text()};
        while (dice.below(3) == 0)
            whileOpen();
        if (!form)
            return;
        const int end = dice.below(8);
        if (end == 0)
            return kill();
        if (end == 1)
            return close();
        const QString text = model.typing->second;
        model.typing.reset();
        if (end == 2)
            return key(form->richText, Qt::Key_Escape);
        if (end == 3 && before.identifier == u"000") {
            const std::optional<QString> given =
                dice.below(2) ? std::optional(u"00000cam0 2200000   450 "_s) : std::nullopt;
            assistantGives = given;
            model.change(row, given.value_or(text), given.value_or(text) != before.value, given.value_or(text));
            return key(form->richText, Qt::Key_E, Qt::ControlModifier);
        }
        model.change(row, text, platform::trimBlanks(text) != before.value);
        key(form->richText, Qt::Key_Return);
    }
    // Actions that an open editor blocks.
    void whileOpen() {
        QWidget *editor = form->richText;
        switch (dice.below(9)) {
        case 0:
            return key(editor, Qt::Key_PageDown, Qt::ControlModifier);
        case 1:
            return form->draftBar->cmdRestore->click();
        case 2:
            return form->draftBar->cmdDiscard->click();
        case 3:
            return key(editor, Qt::Key_F3);
        case 4:
            return key(editor, Qt::Key_G, Qt::ControlModifier);
        case 5:
            form->cmdProofAll->click();
            return form->room->cmdWholeText->click();
        case 6:
            return key(editor, Qt::Key_Y, Qt::ControlModifier);
        case 7:
            return key(editor, Qt::Key_H, Qt::AltModifier);
        default:
            tick();
            compare();
        }
    }
    void tag() {
        const int row = anyRow();
        const marc::FieldRow before = model.grid.rows[row - 1];
        if (platform::trimBlanks(before.identifier).isEmpty())
            return;
        toRow(row);
        key(form->Grid1, Qt::Key_F2);
        const QString text = beginsField(before) ? QString(u"31" + QString::number(dice.below(10)))
                                                 : QString(u'$' + QString(QChar(u'a' + dice.below(5))));
        form->Text1->setText(text);
        model.grid.rows[row - 1].identifier = text;
        model.grid.edited = model.grid.edited || text != before.identifier;
        model.note();
        key(form->Text1, Qt::Key_Return);
    }
    void add(bool field) {
        if (model.grid.rows[0].identifier.isEmpty())
            return;
        const int current = anyRow();
        toRow(current);
        ScriptedHost &said = host;
        const qsizetype boxes = said.boxes.size();
        key(form->Grid1, Qt::Key_Insert, field ? Qt::ControlModifier : Qt::NoModifier);
        widgets::ChoiceList *list = field ? form->zdList : form->Zzdlist;
        if (said.boxes.size() > boxes || !list->isVisible())
            return; // the section is missing
        const int how = dice.below(6);
        if (how == 0)
            return key(list, Qt::Key_Escape);
        if (how == 1 && model.shownRows().last() != model.row) { // moves to the next record with the list open
            const QList<int> shown = model.shownRows();
            model.leave(answerIfAsked(), false);
            model.enter(shown[shown.indexOf(model.row) + 1]);
            return key(form->Grid1, Qt::Key_PageDown, Qt::ControlModifier);
        }
        list->setCurrentRow(dice.below(list->count()));
        const QString line = list->currentItem()->text();
        model.insert(field ? newField(model.grid.rows, current, line) : newSubfield(model.grid.rows, current, line));
        key(list, Qt::Key_Return);
    }
    void copyAndPaste() {
        if (model.grid.rows[0].identifier.isEmpty())
            return;
        const int from = anyRow(), to = anyRow();
        const QString text = copiedFields(model.grid.rows, from, from);
        toRow(from);
        key(form->Grid1, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        if (text.isEmpty())
            return; // the leader, or a field without a tag
        EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
        toRow(to);
        const auto pasted = pastedFields(model.grid.rows, to, text, model.folder);
        if (pasted) {
            for (qsizetype at = pasted.value().content.size(); at-- > 0;)
                model.grid.rows.insert(pasted.value().place - 1, pasted.value().content[at]);
            model.grid.edited = model.grid.cameOrWent = true;
            model.note();
        }
        key(form->Grid1, Qt::Key_V, Qt::ControlModifier);
    }
    void remove(bool field) {
        if (model.grid.rows[0].identifier.isEmpty())
            return;
        const int current = anyRow();
        const bool yes = dice.below(4);
        toRow(current);
        const marc::FieldRow row = model.grid.rows[current - 1];
        const auto head = fieldOf(model.grid.rows, current);
        const bool asked = field ? current != 1 && head : !beginsField(row);
        if (asked)
            host.willAnswer(yes ? Answer::Yes : Answer::No);
        if (asked && yes && field)
            model.remove(*head, rowsOfField(model.grid.rows, *head));
        else if (asked && yes)
            model.remove(current, 1);
        key(form->Grid1, Qt::Key_Delete, field ? Qt::ControlModifier : Qt::NoModifier);
    }
    void go(int by) {
        const marc::FieldRows before = model.grid.rows;
        const bool went = model.go(by);
        key(form->Grid1, by < 0 ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
        if (!went || before == model.grid.rows)
            return;
        const int first = int(std::ranges::mismatch(before, model.grid.rows).in1 - before.begin()) + 1;
        EXPECT_EQ(form->Grid1->row(), std::min<int>(first, int(model.grid.rows.size())))
            << "the row of the undone change is visible";
    }
    // Reads the rest of the file or a part of it; meanwhile the draft bar may be answered.
    void readOn() {
        if (!form->cmdclick[3]->isEnabled())
            return;
        const int stopAt = model.listed + dice.below(12);
        const bool stops = dice.below(3);
        host.onYield = [&] {
            const int read = form->Text3->pacedText().toInt();
            model.readTo(read);
            if (dice.below(20) == 0)
                answerBar(true);
            if (stops && read >= stopAt)
                form->cmdJieShu->click();
        };
        model.atEnd = false;
        form->cmdclick[3]->click();
        host.onYield = {};
        model.readTo(form->Text3->pacedText().toInt());
    }
    void import() {
        const bool keep = answerIfAsked();
        outcome = {};
        outcome.taken = dice.below(3) ? dice.below(model.listed + 1) : model.listed;
        QSet<int> refused;
        for (int i = dice.below(4); i > 0 && outcome.taken > 0; --i)
            refused.insert(dice.below(outcome.taken));
        for (const int row : model.taken.keys()) // those whose drafts must stay
            if (row < outcome.taken && dice.below(3) == 0)
                refused.insert(row);
        for (const int row : std::as_const(refused))
            (dice.below(2) ? outcome.refused : outcome.leftOut).push_back({row, u"not imported"_s});
        model.import(keep, outcome.taken, refused);
        form->cmdclick[5]->click();
    }
    void answerBar(bool restore) {
        if (!model.offered)
            return;
        if (restore)
            model.restore();
        else
            model.giveUp();
        (restore ? form->draftBar->cmdRestore : form->draftBar->cmdDiscard)->click();
    }

    void act() {
        static const QList<std::pair<const char *, std::function<void()>>> all{
            {"next", [this] { step(1); }},
            {"previous", [this] { step(-1); }},
            {"go to", [this] { goTo(); }},
            {"edit", [this] { edit(); }},
            {"edit", [this] { edit(); }},
            {"edit", [this] { edit(); }},
            {"tag", [this] { tag(); }},
            {"add field", [this] { add(true); }},
            {"add subfield", [this] { add(false); }},
            {"delete field", [this] { remove(true); }},
            {"delete subfield", [this] { remove(false); }},
            {"copy and paste", [this] { copyAndPaste(); }},
            {"undo", [this] { go(-1); }},
            {"undo", [this] { go(-1); }},
            {"redo", [this] { go(1); }},
            {"tick", [this] { tick(); }},
            {"filter", [this] { filter(); }},
        };
        static const QList<std::pair<const char *, std::function<void()>>> rare{
            {"read on", [this] { readOn(); }},
            {"import", [this] { import(); }},
            {"restore", [this] { answerBar(true); }},
            {"give up", [this] { answerBar(false); }},
            {"restore", [this] { answerBar(true); }},
            {"close", [this] { close(); }},
            {"kill", [this] { kill(); }},
        };
        const auto &[name, what] = dice.oneOf(dice.below(6) ? all : rare);
        acts.append(QString::fromLatin1(name));
        if (acts.size() > 12)
            acts.removeFirst();
        what();
    }
};

} // namespace

TEST_F(RandomActsTest, MatchTheModel) {
    const int many = qEnvironmentVariable("TARVEX_ACTS", u"1500"_s).toInt();
    const int seed = qEnvironmentVariable("TARVEX_SEED", u"1"_s).toInt();
    dice = Dice(unsigned(seed));
    open();
    for (int number = 0; number < many; ++number) {
        act();
        if (!HasFailure())
            compare();
        ASSERT_FALSE(HasFailure()) << "seed " << seed << ", act " << number << ": " << acts.join(u", "_s).toStdString();
    }
    host.willAnswer(Answer::Yes);
    form->close();
    model.write();
    compareDisk();
}
