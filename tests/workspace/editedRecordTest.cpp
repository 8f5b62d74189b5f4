#include "support/recordText.h"
#include "workspace/windows/fieldGrid.h"
#include <random>

using namespace workspace;

namespace {

// Random edits of a record, inside its rows and outside; beside it a plain list of what it is to hold, and what a view
// knows that hears of nothing but the grid's model.
struct Edits {
    struct Expected {
        marc::FieldRow row;
        bool grey = true; // not added by the user
    };
    std::mt19937 dice; // the same on every machine
    std::shared_ptr<EditedRecord> record = std::make_shared<EditedRecord>();
    FieldGrid grid{u"Grid1"_s, nullptr};
    std::vector<Expected> expected{1};
    QStringList heard{QString()};

    explicit Edits(unsigned seed)
        : dice(seed) {
        grid.follow(record);
        QAbstractItemModel *model = grid.model();
        const auto hear = [this, model](int row) { heard[row] = model->index(row, ValueColumn).data().toString(); };
        QObject::connect(model, &QAbstractItemModel::rowsInserted, [=, this](const QModelIndex &, int first, int last) {
            for (int row = first; row <= last; ++row) {
                heard.insert(row, QString());
                hear(row);
            }
        });
        QObject::connect(model, &QAbstractItemModel::rowsRemoved,
                         [this](const QModelIndex &, int first, int last) { heard.remove(first, last - first + 1); });
        QObject::connect(model, &QAbstractItemModel::dataChanged, [=](const QModelIndex &cell) { hear(cell.row()); });
    }
    int below(size_t limit) { return int(dice() % limit); }
    QString text() { return QStringList{{}, u"题名"_s, u"𠮷 é"_s, u"a\x1E"_s, u"é"_s}[below(5)]; }

    void act() {
        const int place = below(expected.size() + 3);
        const auto at = expected.begin() + place - 1;
        const marc::FieldRow added{u"7"_s, {}, u"$a"_s, {}, text()};
        const int action = below(8);
        if (action == 0) {
            record->show(recordOf({{u"200"_s, u"1 $a"_s + text().remove(QChar(0x1E)) + u"$b书"_s.repeated(below(3))}}),
                         u"/nowhere/"_s, {});
            expected.clear();
            for (const marc::FieldRow &row : record->rows())
                expected.push_back({row});
        } else if (action < 4) {
            record->insert({place, added});
            if (place >= 1 && at <= expected.end())
                expected.insert(at, {added, false});
        } else if (action < 6) {
            record->remove(place);
            if (place >= 1 && at < expected.end())
                expected.erase(at);
        } else {
            const bool outside = action == 7;
            record->edit({.row = place, .column = outside ? ValueColumn + 1 : ValueColumn, .text = added.value});
            if (place >= 1 && at < expected.end() && !outside)
                at->row.value = added.value;
        }
    }
};

} // namespace

TEST(EditedRecord, AGridFollowsWhateverIsDone) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Edits edits(seed);
        for (int i = 0; i < 30; ++i) {
            edits.act();
            marc::FieldRows rows;
            QStringList values;
            QList<Losses> losses;
            for (const auto &[row, grey] : edits.expected) {
                rows.append(row);
                values.append(row.value);
                losses.append(lossesOf(row.value));
                const auto colour = edits.grid.cellBackground(int(rows.size()), IdentifierColumn);
                ASSERT_EQ(colour, grey ? std::optional(0xC0C0C0u) : std::nullopt) << seed << ' ' << i;
                ASSERT_EQ(edits.grid.text(int(rows.size()), IdentifierColumn), row.identifier);
            }
            ASSERT_EQ(edits.record->rows(), rows) << seed << ' ' << i;
            ASSERT_EQ(edits.heard, values) << seed << ' ' << i;
            ASSERT_EQ(edits.record->warning(), warningOf(rows, losses));
            const int typedAt = edits.below(size_t(rows.size()) + 1);
            if (typedAt > 0)
                losses[typedAt - 1] = lossesOf(u"喆é"_s);
            ASSERT_EQ(edits.record->warning(typedAt, u"喆é"_s), warningOf(rows, losses));
        }
    }
}

TEST(EditedRecord, WarningsOfWhatIsLost) {
    EditedRecord record;
    record.show(recordOf({{u"461"_s, u" 0$1200$a题$v3"_s}, {u"410"_s, u" 0$12001 $a题"_s}}), u"/nowhere/"_s, {});
    ASSERT_TRUE(record.row(3).value.contains(QChar(0x1F))); // the head is too short for indicators
    EXPECT_EQ(record.warning(), QString());                 // the record's own
    EXPECT_EQ(record.warning(5, u"𠮷野é家𠮷"_s), u"注意：GBK 没有字符“𠮷(U+20BB7)”，保存后将变成“?”。"_s);
    const QString torn = u"注意：字段内容含有分隔符(1D-1F)，保存后字段会被拆开。"_s;
    EXPECT_EQ(record.warning(3, record.row(3).value + QChar(0x1F)), torn);
    record.edit({.row = 2, .column = IdentifierColumn, .text = u"300"_s}); // no embedded field any more
    EXPECT_EQ(record.warning(), torn);
}
