#include "assist/codedBoxes.h"
#include "assist/field100Table.h"
#include "assist/leaderTable.h"
#include "support/qtPrinters.h"

using assist::CodedBoxes;
using assist::KeyEffect;

namespace {

const auto leader = assist::leaderTable();
const auto field = assist::field100Table();

CodedBoxes loaded(std::span<const assist::Box> table, const QString &text) {
    CodedBoxes boxes(table);
    boxes.load(text);
    return boxes;
}

} // namespace

TEST(CodedBoxes, LoadsWhatHasCodesAndResetsTheRest) {
    const QString blankField = u"????????"_s + QString(14, u'#') + u"chi" + QString(11, u'#');
    const std::tuple<std::span<const assist::Box>, QString, QString> rows[] = {
        {leader, u"00960nam0 2200277   450 "_s, u"?????nam0#22?????###450#"_s},
        {leader, u"00960NAM0X9900277 IX999Z and more"_s, u"?????NAM0#22?????#I#450#"_s},
        {leader, u"00960na"_s, u"?????na###22?????###450#"_s},
        {leader, {}, u"?????#####22?????###450#"_s},
        {field, u"19980512D1998    KM Y0CHIY1001  50EA"_s, u"????????D1998####KM#Y0CHIY1001##50EA"_s},
        // Blanks among other characters do not make a box blank; a truncated box keeps its length.
        {field, u"19980512g19  20"_s, u"????????g19  20#####chi###########"_s},
        {field, QString(36, u' '), blankField},
        {field, {}, blankField},
    };
    for (const auto &[table, incoming, whole] : rows) {
        const CodedBoxes boxes = loaded(table, incoming);
        EXPECT_EQ(boxes.whole(), whole);
        EXPECT_EQ(boxes.result(), whole.toLower());
        EXPECT_EQ(boxes.currentBox(), CodedBoxes::noBox);
        EXPECT_TRUE(boxes.list().isEmpty());
        EXPECT_EQ(CodedBoxes(table).whole(), loaded(table, {}).whole());
        CodedBoxes again = boxes;
        again.focus(1);
        again.load(incoming);
        EXPECT_EQ(again.currentBox(), CodedBoxes::noBox);
    }
}

TEST(CodedBoxes, TextBecomesLowerCaseOnEnteringAndLeaving) {
    CodedBoxes boxes = loaded(leader, u"00960NAM0 2200277   450 "_s);
    boxes.focus(2);
    EXPECT_EQ(boxes.whole(), u"?????NaM0#22?????###450#");
    boxes.edit(2, u""_s);
    EXPECT_EQ(boxes.whole(), u"?????NaM0#22?????###450#");
    boxes.leave(2);
    EXPECT_EQ(boxes.whole(), u"?????N#M0#22?????###450#");
    boxes.edit(3, u"S"_s); // pasted, and confirmed from that box
    EXPECT_EQ(boxes.result(), u"?????n#s0#22?????###450#");
}

TEST(CodedBoxes, AKeyIsTakenTestedOrLeftToTheBox) {
    using enum KeyEffect;
    struct Row {
        std::span<const assist::Box> table;
        int box;
        QString before;
        char16_t key;
        KeyEffect effect;
        QString after;
        bool selection = false;
    };
    QList<Row> rows = {
        {leader, 1, u"c"_s, u'N', Taken, u"n"_s},
        {leader, 1, u"c"_s, u'#', Taken, u"#"_s}, // accepted although its list has no such entry
        {leader, 2, u"a"_s, u'x', AsksAgain, u"x"_s},
        {leader, 3, u"m"_s, u'C', Taken, u"c"_s}, // its entry has a full-width character after the code
        {leader, 4, u"0"_s, u'3', AsksAgain, u"3"_s},
        {leader, 10, u"#"_s, u'I', Taken, u"i"_s, true},
        {leader, 2, u"a"_s, u'\r', MovesOn, u"a"_s},
        {leader, 2, u"a"_s, u'~', AsksAgain, u"~"_s},
        {leader, 2, u"a"_s, u'!', AsksAgain, u"!"_s},
        {field, 5, u"#"_s, u'k', Taken, u"k"_s},
        {field, 5, u"#"_s, u'z', AsksAgain, u"z"_s},
        {field, 2, u"199"_s, u'x', LeftToBox, u"199"_s},
        {field, 2, u"1998"_s, u'x', MovesOn, u"1998"_s},
        {field, 2, u"1998"_s, u'2', LeftToBox, u"1998"_s, true},
        {field, 2, u"1998"_s, u' ', LeftToBox, u"1998"_s},
        {field, 2, u"####"_s, u'1', MovesOn, u"####"_s},
        {field, 9, u"ch"_s, u'X', LeftToBox, u"ch"_s},
        {field, 9, u"chi"_s, u'x', Taken, u"chi"_s},
        {field, 9, u"CHI"_s, u'x', AsksAgain, u"CHI"_s}, // letters become lower case only when the box is left
        {field, 9, u"xxx"_s, u'x', AsksAgain, u"xxx"_s},
        {field, 9, u"###"_s, u'x', AsksAgain, u"###"_s},
        {field, 11, u"##"_s, u'0', Taken, u"##"_s},
        {field, 14, u"13"_s, u'0', Taken, u"13"_s},
        {field, 12, u"07"_s, u'0', AsksAgain, u"07"_s},
        {field, 15, u"da"_s, u'x', Taken, u"da"_s}, // its entry has a blank after the code
        {field, 15, u"d "_s, u'x', AsksAgain, u"d "_s},
    };
    for (const char16_t key : {u' ', u'\b', u'\x7F', u'书'})
        rows.append({leader, 2, u"a"_s, key, LeftToBox, u"a"_s});
    for (const QString &year :
         {u"19a8"_s, u"19##"_s, u"199 "_s, u"-198"_s, u"+198"_s, u" 198"_s, u"１９９８"_s, u"0000"_s})
        rows.append({field, 3, year, u'1', YearRefused, year});
    for (const Row &row : std::as_const(rows)) {
        CodedBoxes boxes(row.table);
        boxes.edit(row.box, row.before);
        EXPECT_EQ(boxes.type(row.box, row.key, row.selection), row.effect) << row.box << row.before.toStdString();
        EXPECT_EQ(boxes.text(row.box), row.after);
    }
    EXPECT_EQ(CodedBoxes(field).question(5), u"输入字符不在规定范围内。是否重新输入？");
    EXPECT_EQ(CodedBoxes(field).question(9), u"输入代码不在规定范围内。是否重新输入？");
}

TEST(CodedBoxes, ListAndChoiceBelongToTheCurrentBox) {
    struct Row {
        std::span<const assist::Box> table;
        int box;
        QString text;
        int entries;
        QString listed;    // the entry that matches the text
        QString choice;    // an entry of the list
        QString chosen;    // the text after the choice
        QString explained; // the beginning of the explanation for the choice
    };
    const Row rows[] = {
        {leader, 1, u"O"_s, 5, u"o=曾发行较高层次记录"_s, u"p=曾发行不完整的记录或出版前记录"_s, u"p"_s, u"用于替代"_s},
        {leader, 9, u" "_s, 4, u"#=完全级"_s, u"2=次级2"_s, u"2"_s, u"该记录为出版前记录"_s},
        {leader, 3, u"c"_s, 4, u"c＝合集"_s, u"c＝合集"_s, u"c"_s, u"汇集型书目实体"_s},
        {field, 15, u"FA"_s, 17, u"fa =阿拉伯文"_s, u"da =日文—文字类型未指定"_s, u"da"_s, {}},
        {field, 9, u"jp"_s, 17, u"jpn=日语"_s, u"eng=英语"_s, u"eng"_s, {}},
        {field, 5, u"m"_s, 8, u"m=成人（一般）"_s, u"u=不详"_s, u"m"_s, {}}, // read-only
        {field, 11, u"10"_s, 10, u"10=GB/IEC 2312-80"_s, u"50=ISO/IEC 10646 通用多八位编码字符集"_s, u"10"_s, {}},
        {field, 1, u"z"_s, 10, {}, u"j=具有详细出版时间专著"_s, u"j"_s, {}},
        {field, 2, u"1998"_s, 0, {}, u"x"_s, u"1998"_s, {}},
    };
    for (const Row &row : rows) {
        CodedBoxes boxes(row.table);
        EXPECT_FALSE(boxes.choose(row.choice) || boxes.explanation(row.choice));
        boxes.edit(row.box, row.text);
        boxes.focus(row.box);
        EXPECT_EQ(boxes.list().size(), row.entries);
        EXPECT_TRUE(boxes.list().value(boxes.listed()).startsWith(row.listed)) << row.text.toStdString();
        EXPECT_EQ(boxes.listed() < 0, row.listed.isEmpty());
        EXPECT_TRUE(boxes.explanation(row.choice).value_or(QString()).startsWith(row.explained));
        EXPECT_FALSE(boxes.explanation(u"~"));
        EXPECT_EQ(boxes.choose(row.choice), boxes.box(row.box).fromList);
        EXPECT_EQ(boxes.text(row.box), row.chosen);
    }
}

// The first box of both tables is fixed; in another table it may have a list.
TEST(CodedBoxes, TheFirstBoxIsLikeTheOthers) {
    static constexpr assist::Code codes[] = {{u"a=甲", u"说明"}, {u"b=乙"}};
    static constexpr assist::Box table[] = {{u"甲", 1, assist::BoxKind::Coded, u"a", codes, {}, true}};
    CodedBoxes boxes(table);
    boxes.focus(0);
    EXPECT_EQ(boxes.list(), (QStringList{u"a=甲"_s, u"b=乙"_s}));
    EXPECT_EQ(boxes.explanation(u"a"), u"说明"_s);
    EXPECT_TRUE(boxes.choose(u"b=乙"_s));
    EXPECT_TRUE(boxes.text(0) == u"b" && boxes.listed() == 1);
}
