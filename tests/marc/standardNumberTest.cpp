#include "marc/standardNumber.h"
#include "marc/isbnForms.h"
#include "support/qtPrinters.h"

using namespace marc;

TEST(StandardNumber, IsRecognizedInAllItsSpellings) {
    struct Row {
        QStringView text;
        IsbnKey key;
        QStringView isbnFault, issnFault;
    };
    constexpr QStringView none, notEight = u"ISSN应为8位";
    for (const Row &row : {
             Row{u"7-02-001259-0", 9787020012596, none, notEight},
             Row{u"7020012590(精装)", 9787020012596, none, notEight},
             Row{u"978 7 02 001259 6", 9787020012596, none, notEight},
             Row{u"978-7-02-001259-5", 9787020012595, u"ISBN校验位错误，应为6", notEight},
             Row{u"9771000000007", 9771000000007, u"13位ISBN应以978或979开头", notEight},
             Row{u"979-10-90636-07-1", 9791090636071, none, notEight},
             Row{u"0-8044-2957-x", 9780804429573, none, notEight},
             Row{u"7-02-001259-X", 10000000000000 + 702001259ULL * 11 + 10, none, notEight}, // equal only to itself
             Row{u"1000-0004", 0, none, u"ISSN校验位错误，应为3"},
             Row{u"2434-561X", 0, none, none},
             Row{u"978-7-02-001259", 0, none, notEight},
             Row{u"精装", 0, none, notEight},
             Row{u"", 0, none, notEight},
         }) {
        SCOPED_TRACE(row.text.toString().toStdString());
        EXPECT_EQ(isbnKey(row.text), row.key);
        EXPECT_EQ(isbn13Fault(row.text).value_or(QString()), row.isbnFault.toString());
        EXPECT_EQ(issnFault(row.text).value_or(QString()), row.issnFault.toString());
    }
    EXPECT_EQ(cutIsbn13(u"978-7-02-0012"), u"9787020012"_s);
    for (const QStringView whole : {u"9787020012596", u"7-02-001259-0", u"978-7-02-00", u"978-7-02-001X"})
        EXPECT_EQ(cutIsbn13(whole), QString()) << whole.toString().toStdString();
    EXPECT_TRUE(beginsWith(9787020012596, u"9787020012"_s));
    EXPECT_FALSE(beginsWith(9787020012596, u"9787020013"_s) || beginsWith(9787020012596, {}) ||
                 beginsWith(isbnKey(u"7-02-001259-X"), u"1"_s));
}

TEST(IsbnForms, AreReadFromATextAndWritten) {
    // The digits, what follows them, and the other forms.
    const std::pair<QStringView, QStringView> rows[] = {
        {u"ISBN 978-7-02-000220-7（精装）", u"9787020002207 （精装） 978-7-02-000220-7 702000220X - -"},
        {u"isbn：702000220x", u"702000220X  7-02-000220-X - 9787020002207"},
        {u"7 02 000220 X 平装", u"702000220X  平装 7-02-000220-X - 9787020002207"},
        {u"979-10-90636-07-1", u"9791090636071  979-10-90636-07-1 - - -"},
        {u"7000000007", u"7000000007  7-00-000000-7 - 9787000000001"},
        {u"9789990100006", u"9789990100006  978-99901-00-00-6 9990100004 -"},
        {u"ISBN号7-02-000220-X", u""},
        {u"702000220Xa", u""},
        {u"7-02-000220-1", u""},
        {u"97870200022071", u""},
    };
    for (const auto &[text, forms] : rows) {
        const auto isbn = isbnIn(text);
        EXPECT_EQ(!isbn ? u""_s
                        : isbn->digits + u' ' + isbn->rest + u' ' + isbnWithHyphens(isbn->digits).value_or(u"-"_s) +
                              u' ' + isbnOf10(isbn->digits).value_or(u"-"_s) + u' ' +
                              isbnOf13(isbn->digits).value_or(u"-"_s) + (isbn->hasHyphens ? u" -" : u""),
                  forms.toString());
    }
}
