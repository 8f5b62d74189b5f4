#include "marc/directory.h"
#include "marc/isoWriter.h"
#include "marc/recordMaking.h"
#include "support/dice.h"
#include <algorithm>
#include <array>

using namespace marc;

namespace {

QList<TestField> randomFields(Dice &dice) {
    const std::array pieces{u"a"_s, u"$"_s, u"$a"_s, u"题"_s, u"名"_s, u" "_s, u"€"_s, u"$1200 1$a"_s, u"\x4E02"_s};
    const std::array tags{u"001"_s, u"005"_s, u"200"_s, u"461"_s, u"CAT"_s};
    QList<TestField> fields;
    for (int i = dice.below(8); i > 0; --i)
        fields.append({dice.oneOf(tags), dice.text<QString>(pieces, dice.oneOf(std::array{0, 3, 40}))});
    return fields;
}

// Returns "tag=content" for each field.
QString brief(const FieldedRecord &record) {
    QStringList parts;
    for (const Field &field : record.fields)
        parts.append(visible(field.tag + u'=' + field.content));
    return parts.join(u' ');
}

} // namespace

TEST(FieldedRecord, ASoundRecordIsCutAndWrittenWithoutAnyChange) {
    FieldedRecord record;
    IsoWriter writer;
    for (unsigned seed = 0; seed < 300; ++seed) {
        Dice dice(seed);
        const QList<TestField> fields = randomFields(dice);
        const RawRecord text = recordOf(fields);
        ASSERT_EQ(record.take(text), Cut::Exact) << seed;
        ASSERT_EQ(record.fields.size(), size_t(fields.size())) << seed;
        for (qsizetype i = 0; i < fields.size(); ++i)
            ASSERT_EQ(record.fields[size_t(i)],
                      (Field{fields[i].first, QString(fields[i].second).replace(u'$', QChar(subfieldDelimiter))}));
        ASSERT_EQ(writer.make(record), QString());
        ASSERT_EQ(writer.text(), text) << seed;
        ASSERT_EQ(writer.make(record, IsoEncoding::Utf8), QString());
        ASSERT_TRUE(directoryFits(writer.bytes())) << seed;
        ASSERT_EQ(QString::fromUtf8(writer.bytes()).sliced(24 + 12 * fields.size()),
                  text.sliced(24 + 12 * fields.size()));
    }
}

TEST(FieldedRecord, IsCutByItsDirectory) {
    const QString leader = u"00000nam0 22%1   450 "_s, sound = leader.arg(u"00049"_s);
    const struct {
        QString leader, directory, data;
        Cut cut;
        QString fields;
    } rows[] = {
        {sound, u"200000700000210000400007"_s, u"10<a题|  x|>"_s, Cut::Exact, u"200=10<a题 210=  x"_s},
        {sound, u"210000400007200000700000"_s, u"10<a题|  x|>"_s, Cut::Exact, u"210=  x 200=10<a题"_s}, // another order
        {sound, u"200 7  0    210   4    7"_s, u"10<a题|  x|>"_s, Cut::Exact, u"200=10<a题 210=  x"_s},
        {sound, u"200000700000210000400007"_s, u"10<a题|  x|!>"_s, Cut::Inexact, u"200=10<a题 210=  x"_s},
        {sound, u"200000700000210000400007"_s, u"10<a题|  x|"_s, Cut::Inexact, u"200=10<a题 210=  x"_s},
        {sound, u"200000700000210000700000"_s, u"10<a题|  x|>"_s, Cut::Inexact, u"200=10<a题 210=10<a题"_s},
        {sound, u"200000600000210000500006"_s, u"10<a题|  x|>"_s, Cut::Inexact, u"200=10<a题 210=|  x"_s},
        {sound, u"200001100000210000900007"_s, u"10<a题|  x|>"_s, Cut::Inexact, u"200=10<a题|  x 210=  x|>"_s},
        {sound, u"200abcd00000210000400007"_s, u"10<a题|  x|>"_s, Cut::Inexact, u"210=  x"_s},
        {sound, u"200000799999210000400007"_s, u"10<a题|  x|>"_s, Cut::Inexact, u"210=  x"_s},
        {leader.arg(u"00048"_s), u"200000700000210000400007"_s, u"10<a题|  x|>"_s, Cut::Inexact,
         u"200=|10<a题 210=|  x"_s},
        {sound, u"20000070000021000040000"_s, u"10<a题|  x|>"_s, Cut::None, u""_s},
    };
    for (const auto &[head, directory, data, cut, fields] : rows) {
        FieldedRecord record;
        EXPECT_EQ(record.take(real(head + directory + u'|' + data)), cut)
            << directory.toStdString() << visible(data).toStdString();
        EXPECT_EQ(brief(record), fields);
        EXPECT_EQ(record.leader, head);
    }
    FieldedRecord record{{}, {{u"200"_s, u"x"_s}}};
    for (const auto &[data, fits] : {std::pair(u"x|y|"_s, true), {u"x|"_s, false}, {u"x|y|z"_s, false}})
        EXPECT_EQ(record.take("leader", "001200", real(data)), fits) << data.toStdString();
    EXPECT_EQ(record.take(u"short"_s), Cut::None);
    EXPECT_EQ(record, (FieldedRecord{u"short"_s, {}}));
    // Entries that refer to the same long field again and again would fill the memory.
    EXPECT_EQ(record.take(recordWithDirectory(u"200900000000"_s.repeated(1000), real(QString(9000, u'x') + u'|'))),
              Cut::Inexact);
    EXPECT_LT(record.fields.size(), 50U);
}

TEST(DirectoryFits, OnlyIfEachEntryIsAWholeField) {
    const std::tuple<QString, QString, QString, bool> rows[] = {
        {u"00037"_s, u"200000600000"_s, u"1 <ax|>"_s, true},   {u"0003x"_s, u"200000600000"_s, u"1 <ax|>"_s, false},
        {u"00036"_s, u"200000600000"_s, u"1 <ax|>"_s, false},  {u"00037"_s, u"200000500000"_s, u"1 <ax|>"_s, false},
        {u"00037"_s, u"200000500001"_s, u"1 <ax|>"_s, false},  {u"00037"_s, u"200000700000"_s, u"1 <ax|>"_s, false},
        {u"00037"_s, u"200000600000"_s, u"1 <ax||>"_s, false}, {u"00037"_s, u"20000060000"_s, u"1 <ax|>"_s, false},
    };
    for (const auto &[base, directory, data, fits] : rows) {
        const QString record = u"00000nam0 22"_s + base + u"   450 " + directory + u'|' + data;
        EXPECT_EQ(directoryFits(platform::encode(real(record))), fits) << record.toStdString();
    }
}

TEST(FieldedRecord, SubfieldsKeepEveryCharacter) {
    const std::array<QString, 3> rows[] = {
        {u"10<a题<f张"_s, u"10"_s, u"a:题 f:张"_s},
        {u"no subfields"_s, u"no subfields"_s, u""_s},
        {u"<<a<"_s, u""_s, u": a: :"_s},
        {u"1 x<1200 1<a题"_s, u"1 x"_s, u"1:200 1 a:题"_s},
        {u"  <\U00020BB7x"_s, u"  "_s, u"\U00020BB7:x"_s},
    };
    for (const auto &[content, before, parts] : rows) {
        const Field field{u"200"_s, real(content)};
        QStringList found;
        for (const Subfield part : field.subfields())
            found.append(part.code + u':' + part.text);
        EXPECT_EQ(found.join(u' '), parts) << content.toStdString();
        EXPECT_EQ(field.beforeSubfields(), before);
    }
    const Field field{u"200"_s, real(u"10<b1<a2<a3<x"_s)};
    EXPECT_EQ(field.subfield(u'a'), QStringView(u"2"));
    EXPECT_EQ(field.subfield(u'x'), QStringView(u""));
    EXPECT_EQ(field.subfield(u'c'), std::nullopt);
}

TEST(FieldedRecord, ChangesOfSubfieldsAreThoseOfAList) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        Dice dice(seed);
        Field field{u"200"_s, {}};
        QString before;
        std::vector<std::pair<QString, QString>> model;
        for (int step = 0; step < 30; ++step) {
            const int at = dice.below(qsizetype(model.size()) + 2);
            const bool exists = size_t(at) < model.size();
            const QString text = dice.text<QString>(std::array{u"题"_s, u"x"_s, u" "_s}, 4);
            switch (dice.below(5)) {
            case 0:
                field.setBeforeSubfields(text);
                before = text;
                break;
            case 1:
            case 2: { // the code may be a view of the field itself
                const QString code = before.isEmpty() ? u"a"_s : before.left(1);
                const QStringView own = QStringView(field.content).left(1);
                field.insertSubfield(at, before.isEmpty() ? QStringView(code) : own, text);
                model.insert(exists ? model.begin() + at : model.end(), {code, text});
                break;
            }
            case 3:
                field.removeSubfield(at);
                if (exists)
                    model.erase(model.begin() + at);
                break;
            default:
                if (const std::optional<QStringView> own = field.subfield(u'a')) {
                    const QString value = own->toString();
                    field.setSubfield(at, *own);
                    if (exists)
                        model[size_t(at)].second = value;
                }
            }
            QString expected = before;
            for (const auto &[code, value] : model)
                expected += QChar(subfieldDelimiter) + code + value;
            ASSERT_EQ(field.content, expected) << seed << ' ' << step;
        }
    }
}

TEST(FieldedRecord, ANewFieldHasItsPlaceAfterTheLastTagNotGreater) {
    FieldedRecord record;
    for (const QString &tag : {u"200"_s, u"801"_s, u"300"_s, u"606"_s})
        record.fields.push_back({tag, {}});
    const std::pair<QString, size_t> rows[] = {
        {u"001"_s, 0}, {u"200"_s, 1}, {u"300"_s, 3}, {u"700"_s, 4}, {u"999"_s, 4}};
    for (const auto &[tag, place] : rows)
        EXPECT_EQ(record.placeFor(tag), place) << tag.toStdString();
}

TEST(IsoWriter, WritesLengthsAndAddressesAnew) {
    const QString right = recordOf(u"001=x|200=1 $a甲$f乙"_s);
    FieldedRecord record;
    record.take(right);
    record.leader.replace(0, 5, u"99999"_s).replace(12, 5, u"99999"_s);
    IsoWriter writer;
    EXPECT_EQ(writer.make(record, IsoEncoding::Utf8), QString());
    EXPECT_EQ(writer.bytes().first(5).toInt(), writer.bytes().size());
    EXPECT_EQ(writer.make(record), QString());
    EXPECT_EQ(writer.text(), right);
}

TEST(IsoWriter, RefusesWhatTheFormatCannotHold) {
    const QString leader(24, u' ');
    const auto filled = [](qsizetype bytes) -> QString {
        return QString((bytes - 1) / 2, u'题') + QString((bytes - 1) % 2, u'x');
    };
    const auto ten = [&](qsizetype last) { // ten fields; everything else of the record has 24 + 10 * 12 + 1 + 1 bytes
        std::vector<Field> fields(9, {u"300"_s, filled(9'999)});
        fields.push_back({u"300"_s, filled(last)});
        return fields;
    };
    const std::pair<FieldedRecord, QString> rows[] = {
        {{leader, {{u"~ ~"_s, filled(9'999)}}}, u""_s},
        {{leader, {{u"300"_s, filled(10'000)}, {u"330"_s, filled(20'000)}}},
         u"字段 300 有 10000 字节，长过 9999 字节"_s},
        {{leader, ten(9'862)}, u""_s},
        {{leader, ten(9'863)}, u"100000 字节，长过 99999 字节"_s},
        {{leader, {{u"300"_s, filled(100'000)}}}, u"100038 字节，长过 99999 字节"_s},
        {{leader.chopped(1), {}}, u"头标区不是 24 个 ASCII 字符"_s},
        {{leader.chopped(1) + u'题', {}}, u"头标区不是 24 个 ASCII 字符"_s},
        {{leader, {{u"2000"_s, {}}}}, u"字段标识符“2000”不对"_s},
        {{leader, {{u"20题"_s, {}}}}, u"字段标识符“20题”不对"_s},
        {{leader, {{u"200"_s, real(u"10<a|"_s)}}}, u"字段 200 里有记录或字段的结束符"_s},
        {{leader, {{u"200"_s, real(u"10<a>b"_s)}}}, u"字段 200 里有记录或字段的结束符"_s},
    };
    IsoWriter writer;
    for (const auto &[record, why] : rows) {
        EXPECT_EQ(writer.make(record), why);
        if (why.isEmpty()) {
            FieldedRecord again;
            EXPECT_EQ(again.take(writer.text()), Cut::Exact);
            EXPECT_EQ(again.fields, record.fields);
        }
    }
    EXPECT_NE(writer.make({leader, {{u"300"_s, filled(9'999)}}}, IsoEncoding::Utf8), u""_s); // three bytes a character
}
