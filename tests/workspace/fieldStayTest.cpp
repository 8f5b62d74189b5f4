#include "workspace/fieldStay.h"
#include "support/rowsOf.h"

// Steps through the records from a row of the first one.
TEST(FieldStay, OpensTheNextRecordAtTheSameFieldAndSubfield) {
    struct Case {
        int from;
        QStringList records;
        QList<int> rows;
        QString missing; // tag, in the last record
    };
    const QString full = u"000 001 200 $a $f 606 $a $x $x 606 $a $x"_s;
    for (const auto &[from, records, rows, missing] : {
             Case{5, {full, u"000 200 $a $e $f 606 $a"_s}, {5}, {}},
             Case{9, {full, u"000 606 $x $x $x"_s}, {4}, {}},
             Case{12, {full, u"000 606 $a 606 $a $x 606 $x"_s}, {6}, {}},
             Case{11, {full, u"000 606 $a"_s, full}, {3, 11}, {}},               // the only one, then the second again
             Case{8, {full, u"000 606 $a 701 $a"_s, full}, {2, 8}, {}},          // the field without that subfield
             Case{4, {full, u"000 101 $a 300 $a"_s, full, full}, {4, 4, 4}, {}}, // before which it would be
             Case{4, {full, u"000 101 $a 300 $a 606"_s}, {4}, u"200"_s},
             Case{10, {full, u"000 200 $a"_s}, {2}, u"606"_s},
             Case{1, {full, full}, {1}, {}},
             Case{4, {u"000 606 $x $x"_s, u"000 606 $x $x $x"_s}, {4}, {}},
             Case{4, {u"000 200 $a 606"_s, u"000 606"_s}, {2}, {}},
             Case{0, {u"$a"_s, full}, {1}, {}},
         }) {
        workspace::FieldStay stay;
        int row = from;
        for (qsizetype next = 1; next < records.size(); ++next) {
            stay.leave(rowsOf(records[next - 1]), row);
            row = stay.enter(rowsOf(records[next]));
            EXPECT_EQ(row, rows[next - 1]) << from << records[next].toStdString();
        }
        EXPECT_EQ(stay.missingTag(), missing);
    }
    workspace::FieldStay stay; // a row that the user chose replaces the wanted one
    stay.leave(rowsOf(full), 10);
    EXPECT_EQ(stay.enter(rowsOf(u"000 200 $a"_s)), 2);
    stay.leave(rowsOf(u"000 200 $a"_s), 3);
    EXPECT_EQ(stay.enter(rowsOf(full)), 4);
    stay.leave(rowsOf(full), 13);
    EXPECT_EQ(stay.enter(rowsOf(full)), 4) << "no such row";
    stay.leave(rowsOf(full), 1);
    EXPECT_EQ(stay.enter(rowsOf(full)), 1);
}
