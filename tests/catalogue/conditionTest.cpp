// Compares the condition in words with the rows listed, through the query dialogs and both list windows.
#include "catalogue/windows/queryFrm.h"
#include "catalogue/windows/tlkListFrm.h"
#include "catalogue/windows/zskListFrm.h"
#include "support/databaseServers.h"
#include "support/dice.h"
#include "support/scriptedHost.h"
#include "widgets/button.h"
#include "widgets/clickLabel.h"
#include "widgets/maskedEdit.h"
#include <ranges>

using namespace catalogue;

namespace {

constexpr std::array<QStringView, 2> labels{u"书名", u"著者"};
constexpr std::array<QStringView, 3> operators{u"等于", u"不等于", u"包含"};
const QStringList values{u"a"_s, u"b"_s, u"ab"_s, u"<b>"_s, u"a;b"_s, u"或者"_s, u")("_s, u"&amp;"_s};

struct Asked {
    int field;
    int fuhao;
    QString value;
    bool operator==(const Asked &) const = default;
};
using Groups = QList<QList<Asked>>; // all conditions of at least one group must hold; no group: every row

using Book = std::array<QString, 2>; // title and author

bool meets(const Book &book, const Asked &asked) {
    const QString &text = book[size_t(asked.field)];
    return asked.fuhao == 0 ? text == asked.value : asked.fuhao == 1 ? text != asked.value : text.contains(asked.value);
}

bool meets(const Book &book, const Groups &groups) {
    const auto all = [&](const QList<Asked> &group) {
        return std::ranges::all_of(group, [&](const Asked &asked) { return meets(book, asked); });
    };
    return groups.isEmpty() || std::ranges::any_of(groups, all);
}

// Parses the words as a user would read them.
Groups readFrom(QString words) {
    Groups groups;
    if (words.startsWith(u'(') && words.endsWith(u')'))
        words = words.sliced(1).chopped(1);
    for (const QString &group : words.split(u") 或者 ("_s, Qt::SkipEmptyParts)) {
        groups.append(QList<Asked>());
        for (const QString &term : group.split(u" 并且 "_s)) {
            const QStringList parts = term.split(u'\'');
            EXPECT_EQ(parts.size(), 3) << words.toStdString();
            groups.last().append({int(std::ranges::find(labels, parts.value(0)) - labels.begin()),
                                  int(std::ranges::find(operators, parts.value(1)) - operators.begin()),
                                  parts.value(2)});
        }
    }
    return groups;
}

// A user of a query dialog who remembers the conditions entered.
class Asking {
public:
    Asking(QueryDialog &dialog, Dice &dice)
        : m_dialog(dialog)
        , m_dice(dice) {
        dialog.LoadCombo(u"bookname,author"_s, u"书名,著者"_s, u"字符,字符"_s);
    }
    Groups asked() const { return m_current.isEmpty() ? m_merged : m_merged + Groups{m_current}; }
    void act() {
        switch (m_dice.below(12)) {
        case 0:
            return clear();
        case 1:
        case 2:
            m_dialog.cOrderby->setCurrentIndex(0); // if one is left
            if (m_dialog.cOrderby->currentIndex() >= 0)
                QTest::keyClick(m_dialog.Label3[size_t(m_dice.below(2))], Qt::Key_Space);
            return;
        case 3:
        case 4:
        case 5:
            m_dialog.Command1[0]->click();
            if (!m_current.isEmpty())
                m_merged.append(std::exchange(m_current, {}));
            return;
        default:
            add();
        }
    }

private:
    void clear() {
        m_dialog.Command2->click();
        m_merged.clear();
        m_current.clear();
    }
    void add() {
        const Asked asked{m_dice.below(2), m_dice.below(3), m_dice.oneOf(values)};
        m_dialog.LFields->setCurrentRow(asked.field);
        m_dialog.cFuhao->setCurrentIndex(asked.fuhao);
        m_dialog.lSql->setText(asked.value);
        m_dialog.Command3->click();
        m_current.append(asked);
    }

    QueryDialog &m_dialog;
    Dice &m_dice;
    QList<Asked> m_current;
    Groups m_merged;
};

QString plain(const QString &tip) {
    QTextDocument document;
    document.setHtml(tip);
    return document.toPlainText();
}

struct ConditionTest : testing::Test {
    ConditionTest() {
        Dice dice(3);
        for (int key = 1; key <= 60; ++key) {
            const QString title = dice.oneOf(values) + (dice.below(2) ? QString() : dice.oneOf(values));
            books.append(Book{title, dice.oneOf(values)});
            for (const QStringView table : {u"zsk", u"taoluTable"})
                database.run(u"insert into %1 (zskid,bookname,author) values (%2,'%3','%4')"_s.arg(table).arg(key).arg(
                    title, books.last()[1]));
        }
    }
    // The same actions in either dialog: checks the rows of the list and the words of the condition.
    template <class Dialog, class List>
    void askAtRandom(List &list, const std::function<QString()> &line) {
        Dice dice(11);
        int several = 0;
        for (int round = 0; round < 150; ++round) {
            Dialog dialog(host);
            dialog.resultForm = &list;
            Asking person(dialog, dice);
            for (int acts = dice.below(14); acts > 0; --acts)
                person.act();
            const Groups asked = person.asked();
            several += asked.size() > 1;
            dialog.findData();
            QStringList expected;
            for (int key = 1; key <= books.size(); ++key)
                if (meets(books[key - 1], asked))
                    expected.append(QString::number(key));
            QStringList keys;
            for (int row = 1; row < list.Grid1->rows(); ++row)
                keys.append(list.Grid1->text(row, 0));
            keys.removeAll(QString());
            std::ranges::sort(keys, {}, [](const QString &key) { return key.toInt(); });
            ASSERT_EQ(keys, expected) << round;
            ASSERT_EQ(line().contains(u"全部记录，未加条件"_s), asked.isEmpty()) << line().toStdString();
            const QString words = asked.isEmpty() ? QString() : line().section(u"条件："_s, 1);
            ASSERT_EQ(readFrom(words), asked) << line().toStdString();
        }
        EXPECT_GT(several, 30);
    }

    TestDatabase database;
    ScriptedHost host;
    QList<Book> books;
};

TEST_F(ConditionTest, TheWordsOfTheCatalogueListMatchItsStatement) {
    const CatalogueOrder order;
    ZSKListFrm list(database.state, host, order, {});
    askAtRandom<QueryFrm>(list, [&] { return plain(list.lCounts->toolTip()); });
}

TEST_F(ConditionTest, TheWordsOfTheStoreListMatchItsStatement) {
    TLKListFrm list(database.state, host, {.hideWorking = [] {}, .lastImport = {}, .showCard = {}});
    askAtRandom<QueryFrmdel>(list, [&] { return list.conditionWords->text(); });
}

// A single apostrophe ends the value and changes the statement; a doubled one does not.
TEST(ConditionWords, WarnOfAQuoteThatEndsTheValue) {
    const std::pair<QString, bool> rows[] = {
        {u"O''Neill"_s, false}, {u"O'Neill"_s, true}, {u"x' or '1'='1"_s, true}, {u"'''"_s, true}, {u"''"_s, false}};
    for (const auto &[value, warns] : rows) {
        for (const bool merged : {false, true}) {
            QueryBuilder builder(storeRules);
            ASSERT_TRUE(builder.load(u"author"_s, u"著者"_s, u"字符"_s));
            builder.addCondition(0, u"等于"_s, value);
            if (merged)
                builder.merge();
            EXPECT_EQ(builder.findData().condition.words.contains(u"单引号"_s), warns) << value.toStdString();
        }
    }
}

} // namespace
