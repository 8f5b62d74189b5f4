#include "tools/encodedWords.h"
#include "platform/codepage936.h"
#include "tools/wordLists.h"

using namespace Qt::StringLiterals;

namespace tools {

namespace {

QByteArray gbk(QStringView text) {
    return platform::encode(text);
}

Words encodeWords() {
    Words words;
    for (const Topic &topic : topics) {
        TopicBytes bytes{gbk(topic.name),        gbk(topic.pinyin),        gbk(topic.heading),
                         gbk(topic.classNumber), gbk(topic.scienceNumber), {}};
        for (const QStringView sentence : sentences)
            bytes.sentences.push_back(gbk(sentence.toString().replace(u"%1"_s, topic.name.toString())));
        words.topics.push_back(bytes);
    }
    for (const Form &form : forms)
        words.forms.push_back({gbk(form.name), gbk(form.pinyin), gbk(form.division)});
    for (const Word &surname : surnames) {
        for (const Word &given : givenNames)
            words.people.push_back(
                {gbk(surname.name) + gbk(given.name), gbk(surname.pinyin) + ' ' + gbk(given.pinyin)});
    }
    for (const Publisher &publisher : publishers)
        words.publishers.push_back(
            {gbk(publisher.place), gbk(publisher.name), gbk(publisher.prefix), gbk(publisher.region)});
    for (const QStringView title : seriesTitles)
        words.series.push_back(gbk(title));
    for (const QStringView note : notes)
        words.notes.push_back(gbk(note));
    return words;
}

} // namespace

const Words &words() {
    static const Words encoded = encodeWords();
    return encoded;
}

} // namespace tools
