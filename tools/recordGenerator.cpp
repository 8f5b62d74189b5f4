#include "tools/recordGenerator.h"
#include "platform/codepage936.h"
#include "tools/encodedWords.h"

using namespace Qt::StringLiterals;

namespace tools {

namespace {

constexpr quint32 numbersOfWidth[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};

// Fixed Chinese words of a record.
const QByteArray pagesWord = platform::encode(u"页");
const QByteArray authorWord = platform::encode(u"著");
const QByteArray compilerWord = platform::encode(u"编");
const QByteArray translatorWord = platform::encode(u"译");
const QByteArray revisedWord = platform::encode(u"修订版");
const QByteArray illustratedWord = platform::encode(u"图");
const QByteArray volumeWord = platform::encode(u"册");

} // namespace

RandomNumbers::RandomNumbers(quint64 seed)
    : m_state(seed * 0x9E3779B97F4A7C15u + 0xD1B54A32D192ED03u) {
    if (!m_state)
        m_state = 1;
}

quint32 RandomNumbers::below(quint32 limit) {
    m_state ^= m_state >> 12;
    m_state ^= m_state << 25;
    m_state ^= m_state >> 27;
    const quint64 high = (m_state * 0x2545F4914F6CDD1Du) >> 32;
    return quint32(high * limit >> 32);
}

char isbnCheckCharacter(QByteArrayView nineDigits) {
    int sum = 0;
    for (int i = 0; i < 9; ++i)
        sum += (10 - i) * (nineDigits[i] - '0');
    const int rest = (11 - sum % 11) % 11;
    return rest == 10 ? 'X' : char('0' + rest);
}

struct RecordGenerator::Book {
    int topic = 0;
    int form = 0;
    int publisher = 0;
    int year = 0;
    int month = 0;
    int day = 0;
    int authors[3] = {};
    int authorCount = 1;
    bool translated = false;
    bool inSeries = false;
    int series = 0;
    int volume = 0;
};

RecordGenerator::RecordGenerator(quint64 seed)
    : m_random(seed) {}

const QByteArray &RecordGenerator::next() {
    ++m_serial;
    const Book book = drawBook();
    m_assembler.begin("nam0    ");
    addControlFields(book);
    addCodedFields(book);
    addTitle(book);
    addPublication(book);
    addNotes(book);
    addSubjects(book);
    addNames(book);
    addOrigin(book);
    return m_assembler.finish();
}

RecordGenerator::Book RecordGenerator::drawBook() {
    Book book;
    book.topic = int(m_random.below(quint32(words().topics.size())));
    book.form = int(m_random.below(quint32(words().forms.size())));
    book.publisher = int(m_random.below(quint32(words().publishers.size())));
    book.year = 1981 + int(m_random.below(26));
    book.month = 1 + int(m_random.below(12));
    book.day = 1 + int(m_random.below(28));
    book.authorCount = 1 + int(m_random.below(3));
    for (int &author : book.authors)
        author = drawPerson();
    book.translated = m_random.oneIn(6);
    book.inSeries = m_random.oneIn(3);
    book.series = int(m_random.below(quint32(words().series.size())));
    book.volume = 1 + int(m_random.below(40));
    return book;
}

int RecordGenerator::drawPerson() {
    return int(m_random.below(quint32(words().people.size())));
}

void RecordGenerator::open(QByteArrayView tag, QByteArrayView indicators) {
    m_assembler.openField(tag);
    m_assembler.data().append(indicators);
}

void RecordGenerator::subfield(char code, QByteArrayView value) {
    m_assembler.data().append(subfieldDelimiter).append(code).append(value);
}

void RecordGenerator::subfield(char code, QByteArrayView value, QByteArrayView more) {
    subfield(code, value);
    m_assembler.data().append(more);
}

void RecordGenerator::number(qsizetype value, int width) {
    appendNumber(m_assembler.data(), value, width);
}

void RecordGenerator::addControlFields(const Book &book) {
    m_assembler.openField("001");
    m_assembler.data().append("01");
    number(book.year, 4);
    number(m_serial, 8);
    close();
    m_assembler.openField("005");
    number(book.year, 4);
    number(book.month * 100 + book.day, 4);
    number(m_random.below(24) * 10000 + m_random.below(60) * 100 + m_random.below(60), 6);
    m_assembler.data().append(".0");
    close();
}

void RecordGenerator::addCodedFields(const Book &book) {
    const PublisherBytes &publisher = words().publishers[size_t(book.publisher)];
    QByteArray digits = '7' + publisher.prefix;
    const int width = int(9 - digits.size());
    appendNumber(digits, m_random.below(numbersOfWidth[size_t(width)]), width);
    open("010", "  ");
    subfield('a', "7-", publisher.prefix);
    m_assembler.data().append('-').append(QByteArrayView(digits).sliced(1 + publisher.prefix.size()));
    m_assembler.data().append('-').append(isbnCheckCharacter(digits));
    subfield('d', "CNY");
    m_assembler.data().append(QByteArray::number(3 + m_random.below(90))).append(m_random.oneIn(2) ? ".00" : ".80");
    close();
    open("100", "  ");
    subfield('a', {});
    number(book.year, 4);
    number(book.month * 100 + book.day, 4);
    m_assembler.data().append('d');
    number(book.year, 4);
    m_assembler.data().append(m_random.oneIn(3) ? "    km y0chiy0110    ea" : "    em y0chiy0110    ea");
    close();
    open("101", book.translated ? "1 " : "0 ");
    subfield('a', "chi");
    if (book.translated)
        subfield('c', m_random.oneIn(4) ? "jpn" : "eng");
    close();
    open("102", "  ");
    subfield('a', "CN");
    subfield('b', publisher.region);
    close();
    open("105", "  ");
    subfield('a', m_random.oneIn(2) ? "ak  z   000yy" : "y   j   001yy");
    close();
    open("106", "  ");
    subfield('a', "r");
    close();
}

void RecordGenerator::addTitle(const Book &book) {
    const TopicBytes &topic = words().topics[size_t(book.topic)];
    const FormBytes &form = words().forms[size_t(book.form)];
    open("200", "1 ");
    subfield('a', topic.name, form.name);
    subfield('9', topic.pinyin, " ");
    m_assembler.data().append(form.pinyin);
    for (int i = 0; i < book.authorCount; ++i) {
        const QByteArray &name = words().people[size_t(book.authors[i])].name;
        if (i == 0)
            subfield('f', name);
        else
            m_assembler.data().append(',').append(name);
    }
    m_assembler.data().append(book.authorCount > 1 ? compilerWord : authorWord);
    if (book.translated)
        subfield('g', words().people[size_t(book.authors[2])].name, translatorWord);
    close();
}

void RecordGenerator::addPublication(const Book &book) {
    if (m_random.oneIn(4)) {
        open("205", "  ");
        subfield('a', revisedWord);
        close();
    }
    const PublisherBytes &publisher = words().publishers[size_t(book.publisher)];
    open("210", "  ");
    subfield('a', publisher.place);
    subfield('c', publisher.name);
    subfield('d', {});
    number(book.year, 4);
    m_assembler.data().append('.').append(QByteArray::number(book.month));
    close();
    open("215", "  ");
    subfield('a', QByteArray::number(96 + m_random.below(700)), pagesWord);
    subfield('c', illustratedWord);
    subfield('d', m_random.oneIn(3) ? "26cm" : "20cm");
    close();
    if (book.inSeries) {
        open("225", "2 ");
        subfield('a', words().series[size_t(book.series)]);
        subfield('v', QByteArray::number(book.volume), volumeWord);
        close();
    }
}

void RecordGenerator::addNotes(const Book &book) {
    const Words &all = words();
    if (m_random.oneIn(2)) {
        open("300", "  ");
        subfield('a', all.notes[m_random.below(quint32(all.notes.size()))]);
        close();
    }
    const auto &sentences = all.topics[size_t(book.topic)].sentences;
    const quint32 count = 2 + m_random.below(3);
    quint32 at = m_random.below(quint32(sentences.size()));
    open("330", "  ");
    subfield('a', {});
    for (quint32 i = 0; i < count; ++i, at = (at + 5) % quint32(sentences.size()))
        m_assembler.data().append(sentences[at]);
    close();
    if (book.inSeries) {
        open("461", " 0");
        subfield('1', "2001 ");
        subfield('a', all.series[size_t(book.series)]);
        subfield('v', QByteArray::number(book.volume));
        close();
    }
}

void RecordGenerator::addSubjects(const Book &book) {
    const TopicBytes &topic = words().topics[size_t(book.topic)];
    const FormBytes &form = words().forms[size_t(book.form)];
    open("606", "0 ");
    subfield('a', topic.heading);
    subfield('j', form.division);
    close();
    if (m_random.oneIn(2)) {
        open("610", "0 ");
        subfield('a', topic.name);
        subfield('a', form.name);
        close();
    }
    open("690", "  ");
    subfield('a', topic.classNumber);
    subfield('v', "4");
    close();
    if (m_random.oneIn(2)) {
        open("692", "  ");
        subfield('a', topic.scienceNumber);
        subfield('v', "3");
        close();
    }
}

void RecordGenerator::addNames(const Book &book) {
    const auto add = [this](QByteArrayView tag, int person, const QByteArray &role) {
        const Bytes &name = words().people[size_t(person)];
        open(tag, " 0");
        subfield('a', name.name);
        subfield('9', name.pinyin);
        subfield('4', role);
        close();
    };
    for (int i = 0; i < book.authorCount; ++i)
        add("701", book.authors[i], book.authorCount > 1 ? compilerWord : authorWord);
    if (book.translated)
        add("702", book.authors[2], translatorWord);
}

void RecordGenerator::addOrigin(const Book &book) {
    open("801", " 0");
    subfield('a', "CN");
    subfield('b', "DHTSG");
    subfield('c', {});
    number(book.year, 4);
    number(book.month * 100 + book.day, 4);
    close();
    open("905", "  ");
    subfield('a', "DHTSG");
    subfield('b', {});
    number(m_serial, 9);
    subfield('d', words().topics[size_t(book.topic)].classNumber);
    subfield('e', QByteArray::number(1 + m_random.below(900)));
    subfield('f', QByteArray::number(1 + m_random.below(5)));
    close();
}

} // namespace tools
