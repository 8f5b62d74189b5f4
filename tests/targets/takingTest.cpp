// Records that are taken: the file, and the comparison with the current record.
#include "marc/recordCutter.h"
#include "platform/codepage936.h"
#include "support/testFolder.h"
#include "targets/fieldComparison.h"
#include "targets/recordViews.h"
#include "targets/takenRecords.h"

using namespace targets;

namespace {

marc::FieldedRecord record(std::vector<std::pair<QString, QString>> fields) {
    marc::FieldedRecord made{u"00000nam a2200000   450 "_s, {}};
    for (auto &[tag, content] : fields)
        made.fields.push_back({tag, content.replace(u'$', u'\u001F')});
    return made;
}

QString shown(const marc::FieldRows &rows) {
    QString text;
    for (const marc::FieldRow &row : rows.sliced(1))
        text += (row.identifier.startsWith(u'$') ? u""_s : u"|"_s) + row.identifier + row.value;
    return text;
}

} // namespace

TEST(TakenRecords, TheFileHasOneRecordALineAndNamesWhatGbkLacks) {
    const TestFolder folder;
    const marc::FieldedRecord records[] = {
        record({{u"200"_s, u"1 $a红楼梦"_s}}),
        record({{u"200"_s, u"1 $a"_s + QString(10'000, u'x')}}),
        record({{u"200"_s, u"1 $a𠮷野u\u0308\u2003𠮷"_s}, {u"300"_s, u"  $a€☃"_s}}),
    };
    const QDate date(2026, 3, 5);
    const auto taken = writeTaken(folder.path(), date, records);
    ASSERT_TRUE(taken) << taken.failure().description.toStdString();
    EXPECT_EQ(taken.value().path, folder.path(u"套录-2026-03-05.iso"_s));
    EXPECT_EQ(taken.value().written, 2);
    EXPECT_EQ(taken.value().lacking, QStringList{u"第 2 条 𠮷野u\u0308\u2003𠮷：𠮷☃"_s});
    ASSERT_EQ(taken.value().refused.size(), 1);
    EXPECT_TRUE(taken.value().refused[0].startsWith(u"第 2 条 xxx"));
    auto cutter = marc::RecordCutter::open(taken.value().path);
    ASSERT_TRUE(cutter);
    QStringList titles;
    while (cutter.value().next()) {
        marc::FieldedRecord read;
        EXPECT_EQ(read.take(platform::decode(cutter.value().bytes())), marc::Cut::Exact);
        EXPECT_EQ(read.leader[9], u' ') << "not Unicode";
        titles.append(read.fields[0].subfield(u'a').value().toString());
    }
    EXPECT_EQ(titles, (QStringList{u"红楼梦"_s, u"?野ü ?"_s}));
    EXPECT_EQ(writeTaken(folder.path(), date, {records, 1}).value().path, folder.path(u"套录-2026-03-05-2.iso"_s));
    EXPECT_FALSE(writeTaken(folder.path(), date.addDays(1), {records + 1, 1}));
    EXPECT_FALSE(QFile::exists(folder.path(u"套录-2026-03-06.iso"_s)));
}

TEST(Comparison, FieldsAreComparedByTagAndTaken) {
    using State = ComparedField::State;
    auto current = rowsOf(record({{u"001"_s, u"own"_s},
                                  {u"200"_s, u"1 $a红楼"_s},
                                  {u"606"_s, u"0 $a乙"_s},
                                  {u"606"_s, u"0 $a甲$x丙"_s},
                                  {u"905"_s, u"  $a馆"_s}}))
                       .value();
    current.back().subfieldLabel = u"馆藏"_s;
    const auto fetched = rowsOf(record({{u"001"_s, u"other"_s},
                                        {u"010"_s, u"  $a7"_s},
                                        {u"200"_s, u"1 $a红楼梦$f曹雪芹"_s},
                                        {u"606"_s, u"0 $a甲$x丙"_s},
                                        {u"606"_s, u"0 $a丙"_s},
                                        {u"606"_s, u"0 $a丁"_s}}))
                             .value();
    const auto fields = compareFields(current, fetched);
    const std::tuple<QString, State, QString, QString> wanted[] = {
        {u"010"_s, State::OnlyFetched, {}, u"##$a7"_s},
        {u"200"_s, State::Different, u"1#$a红楼"_s, u"1#$a红楼梦$f曹雪芹"_s},
        {u"606"_s, State::Different, u"0#$a乙"_s, u"0#$a丙"_s},
        {u"606"_s, State::Same, u"0#$a甲$x丙"_s, u"0#$a甲$x丙"_s},
        {u"606"_s, State::OnlyFetched, {}, u"0#$a丁"_s},
        {u"905"_s, State::OnlyCurrent, u"##$a馆"_s, {}},
    };
    ASSERT_EQ(fields.size(), std::size(wanted));
    for (size_t i = 0; i < fields.size(); ++i)
        EXPECT_EQ(std::tuple(fields[i].tag, fields[i].state(), fields[i].currentText, fields[i].fetchedText),
                  wanted[i]);
    EXPECT_EQ(ComparisonRows(fields).different(), 4);
    EXPECT_EQ(shown(withField(current, fetched, fields[1])),
              u"|001own|2001#$a红楼梦$f曹雪芹|6060#$a乙|6060#$a甲$x丙|905##$a馆"_s);
    EXPECT_EQ(shown(withField(current, fetched, fields[0])),
              u"|001own|010##$a7|2001#$a红楼|6060#$a乙|6060#$a甲$x丙|905##$a馆"_s);
    EXPECT_EQ(withField(current, fetched, fields[4]).back().subfieldLabel, u"馆藏"_s) << "other rows stay";
    EXPECT_TRUE(withField(current, fetched, fields[5]) == current);
    EXPECT_EQ(shown(withAllFields(current, fetched)),
              u"|001own|010##$a7|2001#$a红楼梦$f曹雪芹|6060#$a甲$x丙|6060#$a丙|6060#$a丁"_s);
    EXPECT_EQ(withField({}, fetched, fields[0]).size(), 2) << "no record in the grid";
    EXPECT_FALSE(rowsOf(record({{u"200"_s, QString(10'000, u'x')}})));
}
