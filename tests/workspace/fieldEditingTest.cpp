#include "workspace/fieldEditing.h"
#include "marc/fieldText.h"
#include "support/rowsOf.h"
#include "workspace/fieldPaste.h"

using namespace workspace;

namespace {

marc::FieldRow row(const QString &identifier) {
    return rowsOf(identifier)[0];
}

} // namespace

TEST(FieldEditing, PlaceOfANewField) {
    const std::tuple<QString, int, QString, int, QString> cases[] = {
        {u"000 001 200 $a"_s, 2, u"300 附注"_s, 3, u"指示符"_s},  // after the current field
        {u"000 200 $a $f 210 $a"_s, 2, u"300"_s, 5, u"指示符"_s}, // after its subfields
        {u"000 200 $a ??? $a"_s, 2, u"005"_s, 4, u"指示符"_s},    // a user-defined field begins a field too
        {u"000 200 CAT $a"_s, 2, u"300"_s, 5, u"指示符"_s},       // any other text does not
        {u"000 200 $a $f"_s, 2, u"005 标识"_s, 5, QString()},     // at the end of the search, a tag below 010
        {u"000 200 $a $f"_s, 2, u"???自定"_s, 5, u"指示符"_s},    // at the end of the search, no value
        {u"000 200 $a $f"_s, 4, u"005 标识"_s, 5, u"指示符"_s},   // the last row is current
        {u"000 200 $a 210"_s, 3, u"005"_s, 4, u"指示符"_s},       // the last row begins a field
    };
    for (const auto &[rows, current, line, place, third] : cases) {
        const NewRow added = newField(rowsOf(rows), current, line);
        EXPECT_EQ(added.place, place) << rows.toStdString() << ' ' << current;
        EXPECT_EQ(added.content.subfieldLabel, third) << line.toStdString();
        EXPECT_EQ(added.content.identifier + added.content.fieldLabel, line);
    }
    const NewRow subfield = newSubfield(rowsOf(u"000 200 $a"_s), 2, u"$f 第一责任者"_s);
    EXPECT_EQ(subfield.place, 3);
    EXPECT_EQ(subfield.content, (marc::FieldRow{u"5"_s, {}, u"$f"_s, u" 第一责任者"_s.mid(1), {}}));
}

TEST(FieldEditing, DeletionCountsAgainstTheShrinkingGrid) {
    const std::tuple<QString, int, int> cases[] = {
        {u"000 200 $a $f 210 $a"_s, 2, 3},
        {u"000 200"_s, 2, 1},
        {u"000 200 $a"_s, 2, 2},
        {u"000 200 $a $f"_s, 2, 2}, // an even number of rows: half of them
        {u"000 200 $a $f $g"_s, 2, 4},
        {u"000 200 $a $f $g $e"_s, 2, 3},
        {u"000 200 $a $f ??? $a $b"_s, 2, 6},
        {u"000 CAT $a 200 $a"_s, 1, 3},
        {u"000 200 $a $f $g $e 210 $a"_s, 2, 4},
    };
    for (const auto &[rows, field, gone] : cases)
        EXPECT_EQ(rowsOfField(rowsOf(rows), field), gone) << rows.toStdString();
    EXPECT_EQ(fieldOf(rowsOf(u"000 ??? $a CAT"_s), 4), 2);
    EXPECT_EQ(fieldOf(rowsOf(u"CAT $a"_s), 2), std::nullopt);
    EXPECT_EQ(tagOf(rowsOf(u"000"_s), 1), u"000"_s);
}

TEST(FieldEditing, RefusalsOfIdentitiesInTheirOrder) {
    using enum IdentityColumn;
    const std::tuple<QString, IdentityColumn, QString, QString> cases[] = {
        {u"200"_s, FieldLabel, {}, u"字段说明不允许为空"_s},
        {u"$a"_s, FieldLabel, {}, {}},
        {u"???"_s, FieldLabel, {}, {}},
        {u"200"_s, Identifier, {}, u"字段标识符不允许为空"_s},
        {u"200"_s, Identifier, u"a00"_s, u"只允许输入数值"_s},
        {u"???"_s, Identifier, u"20"_s, u"只允许输入3位数值"_s},
        {u"???"_s, Identifier, u"905"_s, {}},
        {u"$a"_s, Identifier, u"$"_s, u"只允许输入2位字符"_s},
        {u"$a"_s, Identifier, u"a$"_s, u"格式错误，请重新输入或按【Esc】取消操作"_s},
        {u"$a"_s, Identifier, u"$1"_s, u"格式错误，请重新输入或按【Esc】取消操作"_s},
        {u"$a"_s, Identifier, u"$ſ"_s, u"格式错误，请重新输入或按【Esc】取消操作"_s},
        {u"$a"_s, Identifier, u"$A"_s, {}},
        {u"$a"_s, Identifier, u"$Z"_s, {}},
        {u"$a"_s, Identifier, u"$z"_s, {}},
        {u"$a"_s, SubfieldLabel, {}, u"子字段说明不允许为空"_s},
    };
    for (const auto &[identifier, column, typed, refusal] : cases)
        EXPECT_EQ(checkIdentity(row(identifier), column, typed), refusal) << typed.toStdString();
}

TEST(FieldEditing, LimitsAndAssistants) {
    const auto rows = rowsOf(u"000 001 100 $a 200 $a ??? CAT 100 $b $a 009 010"_s);
    const std::optional<int> limits[] = {24, {}, 2, {}, 2, {}, {}, {}, 2, {}, {}, {}, 2};
    for (int i = 0; i < rows.size(); ++i)
        EXPECT_EQ(contentLimit(rows, i + 1), limits[i]) << i;
    EXPECT_EQ(contentLimit({row(u"x"_s.repeated(100)), row(u"$a"_s)}, 2), 36); // cannot come from a file
    EXPECT_EQ(identityLimit(row(u"???"_s), IdentityColumn::Identifier), 3);
    EXPECT_EQ(identityLimit(row(u"$a"_s), IdentityColumn::Identifier), 2);

    EXPECT_EQ(field100Assistants(rows, 4), 1);
    EXPECT_EQ(field100Assistants(rows, 6), 1); // any subfield $a below it
    EXPECT_EQ(field100Assistants(rows, 10), 0);
    EXPECT_EQ(field100Assistants(rows, 11), 2);
    EXPECT_EQ(field100Assistants(rows, 3), 0);
}

TEST(FieldEditing, AFieldIsCopiedToItsEnd) {
    for (const auto &[identifiers, from, count] : {std::tuple(u"000 200 $a $f"_s, 1, 3), {u"000 200 $a 300"_s, 1, 2}}) {
        const marc::FieldRows rows = rowsOf(identifiers);
        for (int row = from + 1; row <= from + count; ++row)
            EXPECT_EQ(copiedFields(rows, row, row), marc::fieldText(rows.mid(from, count))) << row;
    }
}
