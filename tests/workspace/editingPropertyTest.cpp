// Random edits of random records: whatever is done by the rules, what is left can be built and reads back as the rows
// that the writer is to keep.
#include "marc/recordWriter.h"
#include "support/qtPrinters.h"
#include "support/recordText.h"
#include "workspace/fieldEditing.h"
#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using namespace workspace;
using marc::FieldRow;
using marc::FieldRows;

namespace {

const QDateTime now(QDate(2026, 3, 9), QTime(8, 5, 7));

struct Editor {
    std::mt19937 random;
    FieldRows rows;

    template <class T>
    T any(std::initializer_list<T> from) {
        return from.begin()[random() % from.size()];
    }
    QString value() { return any({u""_s, u"题名"_s, u"𠮷 é"_s, u" a  b"_s, u"长"_s.repeated(300)}); }

    void act() {
        const int current = rows.isEmpty() ? 0 : 1 + int(random() % unsigned(rows.size()));
        switch (rows.isEmpty() ? 0 : random() % 6) {
        case 0:
            return insert(newField(rows, current,
                                   any({u"005 标识"_s, u"200 题名"_s, u"606 主题"_s, u"461 总集"_s, u"???自定"_s})));
        case 1:
        case 2:
            return insert(newSubfield(rows, current, any({u"$a 甲"_s, u"$b 乙"_s, u"$Z 丙"_s})));
        case 3:
            if (const auto field = fieldOf(rows, current); field && current > 1)
                rows.remove(*field - 1, rowsOfField(rows, *field));
            return;
        case 4:
            if (!beginsField(rows[current - 1]))
                rows.removeAt(current - 1);
            return;
        default:
            edit(rows[current - 1], current);
        }
    }
    void insert(const NewRow &row) { rows.insert(row.place - 1, row.content); }
    void edit(FieldRow &row, int number) {
        const QString identifier = any({u"300"_s, u"$c"_s, u"$1"_s, u"07"_s, u"905"_s});
        if (checkIdentity(row, IdentityColumn::Identifier, identifier).isEmpty() && random() % 4 == 0)
            row.identifier = identifier;
        const auto limit = contentLimit(rows, number);
        row.value = limit == 2 ? any({u"##"_s, u"1#"_s, u"0 "_s}) : value();
    }
};

bool isControl(const FieldRow &row) {
    return marc::isFieldRow(row) && row.identifier < u"010";
}

// Whether a control field has subfields, which makes the writer write it twice, or fewer than the two characters that
// the reader takes for indicators.
bool isOdd(const FieldRows &rows) {
    for (int i = 1; i < rows.size(); ++i) {
        const bool subfields = i + 1 < rows.size() && !marc::isFieldRow(rows[i + 1]);
        if (isControl(rows[i]) && (subfields || rows[i].value.size() < 2))
            return true;
    }
    return false;
}

QString lossy(const QString &text) {
    return platform::decode(platform::encode(text));
}

// Identifiers and values that are to come back: control fields in their order, then the fields with content by tag. The
// first field of a tag without subfields ends the tag.
QStringList kept(const FieldRows &rows) {
    QStringList control, data;
    for (int i = 1; i < rows.size(); ++i) {
        if (isControl(rows[i]) && rows[i].identifier != u"001")
            control.append(rows[i].identifier + u' ' + lossy(rows[i].value));
    }
    for (int tag = 10; tag < 1000; ++tag) {
        const QString name = platform::padZero(3, tag);
        for (int i = 0; i < rows.size(); ++i) {
            if (rows[i].identifier != name)
                continue;
            if (i + 1 == rows.size() || marc::isFieldRow(rows[i + 1]))
                break;
            QStringList subfields;
            for (int j = i + 1; j < rows.size() && !marc::isFieldRow(rows[j]); ++j) {
                if (!rows[j].value.isEmpty())
                    subfields.append(rows[j].identifier + u' ' + lossy(rows[j].value));
            }
            if (!subfields.isEmpty())
                data.append(QStringList(name) + subfields);
        }
    }
    return control + data;
}

// The same of a record that was read, whose field 001 is the writer's own.
QStringList read(const FieldRows &rows) {
    QStringList found;
    for (int i = 2; i < rows.size(); ++i) {
        if (marc::isFieldRow(rows[i]) && !isControl(rows[i]))
            found.append(rows[i].identifier);
        else
            found.append(rows[i].identifier + u' ' + rows[i].value);
    }
    return found;
}

} // namespace

TEST(EditingProperty, WhatIsLeftReadsBack) {
    const QString leader = u"00000nam0 2200000   450 "_s;
    int compared = 0;
    for (unsigned seed = 1; seed <= 600; ++seed) {
        Editor editor{std::mt19937(seed), {}};
        QList<TestField> fields = {{u"001"_s, u"0123"_s}, {u"010"_s, u"  $a7-5004"_s}, {u"200"_s, u"1 $a书名$f著者"_s}};
        if (seed % 4 == 0)
            fields.append({u"461"_s, u" 0$12001 $a总题名"_s});
        editor.rows = marc::showRecord(recordOf(fields)).rows;
        for (int i = 0; i < 12; ++i)
            editor.act();
        const QString record = marc::madeMyMarc(editor.rows, leader, now);
        const marc::ShownRecord shown = marc::showRecord(lossy(record));
        contentWarning(editor.rows);
        ASSERT_FALSE(shown.damaged) << seed;
        const QString again = marc::madeMyMarc(shown.rows, shown.leader, now);
        const bool plain = std::none_of(editor.rows.begin(), editor.rows.end(), [](const FieldRow &row) {
            return row.identifier == ownField || row.identifier == u"461" || row.value.startsWith(u' ');
        });
        if (!plain || isOdd(editor.rows))
            continue; // these come back changed, as they are to
        ++compared;
        EXPECT_EQ(read(shown.rows), kept(editor.rows)) << seed;
        EXPECT_EQ(again, lossy(record)) << seed;
    }
    EXPECT_GT(compared, 70);
}
