#include "assist/codedBoxes.h"
#include "platform/numbers.h"
#include <QDate>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace assist {

namespace {

// Converts character by character, so that the length never changes.
QString lowered(QString text) {
    for (QChar &c : text)
        c = c.toLower();
    return text;
}

// "####" is the usual entry if there is no second year.
bool isYear(const QString &text) {
    return text == u"####" || QDate::fromString(text + u"/01/01", u"yyyy/MM/dd"_s).isValid();
}

} // namespace

CodedBoxes::CodedBoxes(std::span<const Box> table)
    : m_table(table)
    , m_texts(table.size()) {
    load({});
}

void CodedBoxes::load(const QString &incoming) {
    qsizetype position = 0;
    for (size_t i = 0; i < m_table.size(); ++i) {
        const Box &box = m_table[i];
        m_texts[i] = box.kind == BoxKind::Fixed ? box.whenEmpty.toString() : incoming.mid(position, box.width);
        position += box.width;
    }
    rebuild();
    m_current = noBox;
}

void CodedBoxes::rebuild() {
    m_whole.clear();
    for (size_t i = 0; i < m_table.size(); ++i) {
        if (platform::trimBlanks(m_texts[i]).isEmpty())
            m_texts[i] = m_table[i].whenEmpty.toString();
        m_whole += m_texts[i];
    }
}

QString CodedBoxes::result() const {
    CodedBoxes last = *this;
    last.rebuild();
    return lowered(last.m_whole);
}

void CodedBoxes::focus(int i) {
    leave(i);
    m_current = i;
}

void CodedBoxes::leave(int i) {
    m_texts[size_t(i)] = lowered(m_texts[size_t(i)]);
    rebuild();
}

KeyEffect CodedBoxes::type(int i, char16_t key, bool replacesSelection) {
    if (key == u'\r')
        return KeyEffect::MovesOn;
    if (key < 33 || key > 126)
        return KeyEffect::LeftToBox;
    const Box &row = box(i);
    if (row.width == 1)
        m_texts[size_t(i)] = QChar(key).toLower();
    else if (text(i).size() < row.width || replacesSelection)
        return KeyEffect::LeftToBox;
    if (row.kind == BoxKind::Year)
        return isYear(text(i)) ? KeyEffect::MovesOn : KeyEffect::YearRefused;
    return allowed(i) ? KeyEffect::Taken : KeyEffect::AsksAgain;
}

// In a box of one character typed letters are lower case already. Other capitals match no code until the box is left.
bool CodedBoxes::allowed(int i) const {
    const QString &code = text(i);
    const Box &row = box(i);
    return code == row.alsoAllowed ||
           std::ranges::any_of(row.codes, [&](const Code &c) { return c.listText.first(row.width) == code; });
}

QStringView CodedBoxes::question(int i) const {
    return box(i).width == 1 ? QStringView(u"输入字符不在规定范围内。是否重新输入？")
                             : QStringView(u"输入代码不在规定范围内。是否重新输入？");
}

QStringList CodedBoxes::list() const {
    QStringList result;
    if (m_current >= 0) {
        for (const Code &code : box(m_current).codes)
            result.append(code.listText.toString());
    }
    return result;
}

int CodedBoxes::listed() const {
    if (m_current < 0)
        return -1;
    const auto codes = box(m_current).codes;
    const auto found =
        std::ranges::find_if(codes, [&](const Code &c) { return c.listText.startsWith(text(m_current)); });
    return found == codes.end() ? -1 : int(found - codes.begin());
}

std::optional<QString> CodedBoxes::explanation(QStringView listText) const {
    if (m_current < 0)
        return std::nullopt;
    const Box &row = box(m_current);
    for (const Code &code : row.codes) {
        if (!code.explanation.isEmpty() && code.listText.first(row.width) == listText.left(row.width))
            return code.explanation.toString();
    }
    return std::nullopt;
}

bool CodedBoxes::choose(const QString &listText) {
    if (m_current < 0 || !box(m_current).fromList)
        return false;
    edit(m_current, listText.left(box(m_current).width));
    return true;
}

} // namespace assist
