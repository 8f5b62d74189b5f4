#include "schema/windows/frmSchema.h"
#include "support/scriptedHost.h"
#include "widgets/selectingEdit.h"
#include "widgets/textBox.h"
#include <QSignalSpy>

using namespace schema;

namespace {

struct SchemaWindowTest : testing::Test {
    ScriptedHost host;
    TestFolder folder;
    QString shipped = folder.file(u"cnmarc-schema.json"_s, R"({"title": "own", "fields": {"200": {}}})");
    SchemaInForce inForce{host.settings(), folder.path()};
    frmSchema window{host, inForce};
    QSignalSpy changed{&window, &frmSchema::changed};

    void choose(const QByteArray &json) {
        host.willChoose(folder.file(u"other.json"_s, json));
        window.chooseButton->click();
    }
    QString shown() { return window.fileText->text() + u'|' + window.facts->text().section(u'；', 0, 0); }
};

} // namespace

TEST_F(SchemaWindowTest, TakesAnotherSchemaAndReturnsToTheShippedOne) {
    EXPECT_EQ(shown(), shipped + u"|own\n字段 1 个，规则 0 条");
    EXPECT_FALSE(window.shippedButton->isEnabled() || window.complaint->isVisibleTo(&window));
    choose(R"({"title": "other", "fields": {"200": {"rules": ["?"]}}, "rules": [{"class": "a", "then": "200$a"}]})");
    EXPECT_EQ(shown(), folder.path(u"other.json"_s) + u"|other\n字段 1 个，规则 1 条");
    EXPECT_EQ(window.ignoredText->text(), u"fields.200.rules"_s);
    window.shippedButton->click();
    EXPECT_EQ(shown(), shipped + u"|own\n字段 1 个，规则 0 条");
    EXPECT_FALSE(window.shippedButton->isEnabled() || window.ignoredText->isVisibleTo(&window));
    EXPECT_EQ(changed.size(), 2);
    host.willChoose({});
    window.chooseButton->click();
    EXPECT_EQ(changed.size() + host.boxes.size(), 2);
}

TEST_F(SchemaWindowTest, RefusesABrokenSchemaWithFileKeyAndReason) {
    const QString refusal = u"机读格式的模式【"_s + folder.path(u"other.json"_s) + u"】不能用：";
    const QString kept = u"\r\n\r\n原来的模式继续有效。"_s;
    choose(R"({"fields": {"200": {"repeatabel": true}}})");
    EXPECT_EQ(host.lastBox().text, refusal + u"fields.200.repeatabel：这里没有这个键" + kept);
    choose(R"({"fields": {}, "rules": [{"class": "a", "then": "200$a ~ /[/"}]})");
    EXPECT_TRUE(host.lastBox().text.startsWith(refusal + u"rules[0]：then：第9个字符：正则表达式有误"));
    EXPECT_EQ(shown() + chosenSchema(host.settings()), shipped + u"|own\n字段 1 个，规则 0 条");
    EXPECT_TRUE(changed.isEmpty());

    // The window names a chosen file that is damaged later.
    choose(R"({"title": "other", "fields": {}})");
    folder.file(u"other.json"_s, "{");
    frmSchema later(host, inForce);
    EXPECT_TRUE(later.complaint->text().startsWith(refusal + u"不是JSON"));
    EXPECT_TRUE(later.facts->text().startsWith(u"other\n"));
    EXPECT_TRUE(later.shippedButton->isEnabled());
}

TEST_F(SchemaWindowTest, KeepsWhichChecksAreOff) {
    EXPECT_EQ(window.checks->count(), int(checkCount) - 1);
    QTest::keyClick(window.checks, Qt::Key_Down);
    QTest::keyClick(window.checks, Qt::Key_Space);
    Checks expected = allChecks;
    expected.reset(size_t(Check::DeprecatedField));
    EXPECT_EQ(inForce.checks(), expected);
    EXPECT_EQ(chosenChecks(host.remembered()), expected);
    EXPECT_EQ(host.remembered().value(platform::kept::checksOff), QStringList{u"deprecatedField"_s});
    window.allButton->click();
    EXPECT_EQ(chosenChecks(host.remembered()), allChecks);
    EXPECT_FALSE(window.allButton->isEnabled());
    EXPECT_EQ(changed.size(), 2);
}
