// The words of generated records, encoded once in code page 936, so that a record is assembled by copying bytes.
#pragma once

#include <QByteArray>
#include <vector>

namespace tools {

struct Bytes {
    QByteArray name;
    QByteArray pinyin;
};

struct TopicBytes {
    QByteArray name, pinyin, heading, classNumber, scienceNumber;
    std::vector<QByteArray> sentences; // the topic filled in
};

struct FormBytes {
    QByteArray name, pinyin, division;
};

struct PublisherBytes {
    QByteArray place, name, prefix, region;
};

struct Words {
    std::vector<TopicBytes> topics;
    std::vector<FormBytes> forms;
    std::vector<Bytes> people; // every surname combined with every given name
    std::vector<PublisherBytes> publishers;
    std::vector<QByteArray> series;
    std::vector<QByteArray> notes;
};

const Words &words();

} // namespace tools
