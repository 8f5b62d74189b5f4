// Actions on texts.
#include "tasks/preparedStep.h"

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr qsizetype longestText = 100'000; // characters; no field that can be written is longer

void appendReplacement(QString &text, const QString &with, const QRegularExpressionMatch &match) {
    for (qsizetype i = 0; i < with.size(); ++i) {
        if (with[i] != u'\\' || i + 1 >= with.size()) {
            text += with[i];
            continue;
        }
        const QChar next = with[++i];
        text += next == u'\\' ? QString(next) : match.captured(next.unicode() - u'0');
    }
}

// Returns the text with its matches replaced; std::nullopt if there are none, or if it failed.
std::optional<QString> replaced(RecordWork &work, const PreparedStep &step, QStringView text) {
    auto matches = step.expression.globalMatch(text);
    QString result;
    qsizetype kept = 0;
    bool found = false;
    bool endedEmpty = false; // the last match is the empty text at the end; the library then stops without a result
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (!match.hasMatch())
            break;
        found = true;
        result += text.sliced(kept, match.capturedStart() - kept);
        appendReplacement(result, step.with, match);
        kept = match.capturedEnd();
        endedEmpty = kept == text.size() && match.capturedLength() == 0;
        if (result.size() > longestText) {
            work.fail(u"结果太长"_s);
            return std::nullopt;
        }
    }
    if (!matches.isValid() && !endedEmpty) {
        work.fail(u"正则表达式算得太久"_s);
        return std::nullopt;
    }
    if (!found)
        return std::nullopt;
    return result + text.sliced(kept);
}

void changeTexts(RecordWork &work, const PreparedStep &step, const ChangeText &change) {
    for (const size_t index : chosenFields(work, step)) {
        if (auto content = withTexts(work.field(index), step.code, change))
            work.setContent(index, *std::move(content));
    }
}

} // namespace

void replaceText(RecordWork &work, const PreparedStep &step) {
    changeTexts(work, step, [&](QStringView text) -> std::optional<QString> {
        if (!text.contains(step.find))
            return std::nullopt;
        if (text.count(step.find) * step.with.size() > longestText) {
            work.fail(u"结果太长"_s);
            return std::nullopt;
        }
        return text.toString().replace(step.find, step.with);
    });
}

void replaceMatches(RecordWork &work, const PreparedStep &step) {
    changeTexts(work, step, [&](QStringView text) { return replaced(work, step, text); });
}

void tidyText(RecordWork &work, const PreparedStep &step) {
    changeTexts(work, step, step.tidying);
}

// The pinyin is written after its source: $a, $9, $a, $9.
void writePinyin(RecordWork &work, const PreparedStep &step) {
    const ReadAs as = step.what == u"name" ? ReadAs::Name : ReadAs::Title;
    for (const size_t index : chosenFields(work, step)) {
        const marc::Field &field = work.field(index);
        if (field.isControl() || step.code == step.toCode || (step.when == When::Absent && field.subfield(step.toCode)))
            continue;
        QString content = field.beforeSubfields().toString();
        QString doubt;
        for (const marc::Subfield part : field.subfields()) {
            if (part.code == step.toCode)
                continue;
            content += QChar(marc::subfieldDelimiter) + part.code + part.text;
            if (part.code != step.code)
                continue;
            const Pinyin pinyin = step.pinyin->read(part.text, as);
            if (!pinyin.text.isEmpty())
                content += QChar(marc::subfieldDelimiter) + QString(step.toCode) + pinyin.text;
            doubt += (doubt.isEmpty() || pinyin.doubt.isEmpty() ? u"" : u" ") + pinyin.doubt;
        }
        if (field.subfield(step.code))
            work.setContent(index, content, doubt);
    }
}

} // namespace tasks
