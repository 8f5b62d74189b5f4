#include "workspace/fieldTrail.h"
#include "marc/recordWriter.h"
#include "support/dice.h"
#include "support/rowsOf.h"

using namespace workspace;
using marc::FieldRow;
using marc::FieldRows;

namespace {

QString ledTo(const FieldRows &before, const FieldRows &after, qsizetype element) {
    const auto trail = followField(before, after, element);
    return !trail ? u"lost"_s : QString::number(trail->element) + (trail->subfieldLost ? u" field" : u"");
}

// A record under random edits that tracks the identity of each row: rows of the first state have their row number as
// identity, later rows have greater numbers.
class KnownRecord {
public:
    explicit KnownRecord(unsigned seed)
        : m_dice(seed) {
        const QStringList tags{u"010"_s, u"200"_s, u"215"_s, u"606"_s, u"606"_s, u"606"_s, u"801"_s};
        m_rows = rowsOf(u"000=x 001=1"_s);
        for (const QString &tag : tags) {
            m_rows.append({.identifier = tag, .value = u"##"_s});
            const QString repeated = text();
            for (int subfields = below(3); subfields >= 0; --subfields)
                m_rows.append({.identifier = u"$"_s + QChar(u'a' + below(2)), .value = below(5) ? text() : repeated});
        }
        m_held = {rebuilt(m_rows)};
        m_rows = marc::showRecord(m_held[0]).rows;
        for (int row = 0; row < m_rows.size(); ++row)
            m_known.append(row);
        m_next = int(m_rows.size());
    }

    void act() {
        const int row = 2 + below(int(m_rows.size()) - 2);
        const int kind = below(12);
        if (kind < 4 && !marc::isFieldRow(m_rows[row]))
            m_rows[row].value = kind < 2 ? text() : m_rows[row].value + text().left(2);
        else if (kind < 6)
            insert(row, {.identifier = u"$"_s + QChar(u'a' + below(2)), .value = text()});
        else if (kind < 8)
            insertField(row);
        else if (kind < 10 && m_rows.size() > 8)
            remove(row);
        else if (kind == 10)
            take();
    }

    const FieldRows &rows() const { return m_rows; }
    const std::vector<marc::RawRecord> &held() const { return m_held; }
    const QList<int> &known() const { return m_known; }

private:
    int below(int end) { return m_dice.below(end); }
    QString text() {
        QString made;
        while (made.size() < 8)
            made += QChar(char16_t(0x4E00 + below(5000)));
        return made;
    }
    static marc::RawRecord rebuilt(const FieldRows &rows) { return marc::madeMyMarc(rows, QString(24, u'0'), {}); }
    void insert(int row, const FieldRow &content) {
        m_rows.insert(row, content);
        m_known.insert(row, m_next++);
    }
    void insertField(int row) {
        while (row < m_rows.size() && !marc::isFieldRow(m_rows[row]))
            ++row;
        const QStringList tags{u"010"_s, u"300"_s, u"606"_s};
        insert(row, {.identifier = tags[below(3)]});
        insert(row + 1, {.identifier = u"$a"_s, .value = text()});
    }
    void remove(int row) {
        const bool field = marc::isFieldRow(m_rows[row]);
        do {
            m_rows.removeAt(row);
            m_known.removeAt(row);
        } while (field && row < m_rows.size() && !marc::isFieldRow(m_rows[row]));
    }
    // Writes the record into the list and reads it back; a copy with row numbers as values shows where each row goes.
    void take() {
        FieldRows numbered = m_rows;
        for (int row = 1; row < numbered.size(); ++row)
            if (!marc::isFieldRow(numbered[row]))
                numbered[row].value = QString::number(row);
        m_held.push_back(rebuilt(m_rows));
        const FieldRows shown = marc::showRecord(rebuilt(numbered)).rows;
        m_rows = marc::showRecord(m_held.back()).rows;
        ASSERT_EQ(m_rows.size(), shown.size());
        QList<int> known{m_known[0], m_known[1]};
        for (int row = 2; row < shown.size(); ++row) {
            int from = shown[marc::isFieldRow(shown[row]) ? row + 1 : row].value.toInt();
            if (marc::isFieldRow(shown[row]))
                while (!marc::isFieldRow(numbered[from]))
                    --from;
            known.append(m_known[from]);
        }
        m_known = known;
    }

    Dice m_dice;
    FieldRows m_rows;
    QList<int> m_known;
    int m_next = 0;
    std::vector<marc::RawRecord> m_held;
};

} // namespace

TEST(FieldTrail, FollowsAFieldByItsContent) {
    const QString record = u"000 010=## $a=7-5366-1234-6 606=## $a=中国 $x=历史 606=## $a=中国 $x=经济"_s;
    struct Row {
        int element;
        QStringView after;
        QStringView led;
    };
    for (const Row &row : {
             Row{4, u"000 010=## $a=7-5366-1234-6 606 $a=新 606=## $a=中国 $x=历史 606=## $a=中国 $x=经济", u"6"},
             Row{4, u"606=## $a=中国 $x=经济 606=## $a=中国 $x=历史 000",
                 u"lost"}, // fields of the same tag keep their order
             Row{7, u"000 606=## $a=中国 $x=历史 606=## $a=中国 $x=经济", u"5"},
             Row{2, u"000 010=## $a=7-5366-1234-5 606=## $a=中国 $x=历史", u"2"}, // a corrected digit
             Row{2, u"000 010=## $a=9787020012596 606=## $a=中国 $x=历史", u"2"}, // replaced as a whole
             Row{2, u"000 010=## $b=精装 606=## $a=中国 $x=历史", u"1 field"},
             Row{2, u"000 606=## $a=中国 $x=历史", u"lost"},
             Row{4, u"000 606=## $a=中国 $x=经济", u"lost"},
             Row{6, u"000 606=## $a=中国 $x=经济", u"1"},
             Row{3, u"000 606=## $a=中国 $x=文化",
                 u"lost"}, // either field may have been edited, the other one is deleted
             Row{9, u"000", u"lost"},
         })
        EXPECT_EQ(ledTo(rowsOf(record), rowsOf(row.after.toString()), row.element), row.led.toString())
            << row.element << ": " << row.after.toString().toStdString();
    for (const auto &[edited, led] :
         {std::pair(u"乙x"_s, u"1"_s), {u"乙xy"_s, u"lost"_s}, {u"甲"_s, u"1"_s}}) // half of it
        EXPECT_EQ(ledTo(rowsOf(u"000 606 $a=甲x 606 $a=丁z"_s), rowsOf(u"000 606 $a="_s + edited), 1), led);
    EXPECT_EQ(ledTo(rowsOf(u"000 606 $a=甲甲甲 606 $a=丁z"_s), rowsOf(u"000 606 $a=甲"_s), 1), u"lost"_s);
    EXPECT_EQ(ledTo(rowsOf(u"000 606 $a=甲 606 $a=丙 606 $a=乙"_s), rowsOf(u"000 606 $a=甲 606 $a=x 606 $a=乙"_s), 3),
              u"3"_s);
    EXPECT_EQ(ledTo(rowsOf(u"$a=甲"_s), rowsOf(u"$a=甲"_s), 0), u"0"_s) << "a row before any field";
    EXPECT_EQ(ledTo(rowsOf(u"000 210=## $a=甲 210=## $a=甲"_s), rowsOf(u"000 210=## $a=甲"_s), 3), u"lost"_s);
    EXPECT_EQ(ledTo(rowsOf(u"000 606=## $a=甲"_s), rowsOf(u"000 606 $a=甲 606=## $a=甲"_s), 2), u"lost"_s);
    FieldRows hostile = rowsOf(u"000"_s);
    hostile.resize(20000, {.identifier = u"606"_s});
    EXPECT_EQ(ledTo(hostile, hostile, 9), u"lost"_s) << "the search is limited";
}

// A jump reaches its field or reports it as lost; it reaches another field only if that field took the place of a
// deleted one.
TEST(FieldTrail, NeverFindsAnotherField) {
    int there = 0, found = 0;
    for (unsigned seed = 17; seed < 57; ++seed) {
        KnownRecord record(seed);
        const FieldRows first = record.rows();
        for (int acts = 0; acts < 12; ++acts) {
            record.act();
            for (int element = 2; element < first.size(); ++element) {
                const bool stands = record.known().contains(element);
                there += stands;
                const auto trail = followField(record.held(), record.rows(), element);
                if (!trail || trail->subfieldLost)
                    continue;
                const int reached = record.known()[trail->element];
                found += reached == element;
                const bool tookItsPlace = !stands && reached >= first.size();
                ASSERT_TRUE(reached == element || tookItsPlace)
                    << "seed " << seed << ", act " << acts << ", element " << element << ", reached " << reached;
            }
        }
    }
    EXPECT_GT(found, there * 9 / 10);
}
