// The assistants' engine. A fixed-length text stands as a row of boxes, one for each part; a table says what each box
// is for and which codes it knows. CodedBoxes holds the boxes' texts and does what happens on loading, on entering and
// leaving a box, on a key and on a choice from the list. It shows nothing; a window shows what it holds.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace assist {

// The list text begins with the code, as many characters as the box is wide.
struct Code {
    QStringView listText;
    QStringView explanation = {};
};

enum class BoxKind { Fixed, Coded, Year };

struct Box {
    QStringView label; // empty: under the label of the box before
    int width;         // in characters
    BoxKind kind;
    QStringView whenEmpty = {}; // what stands for an empty box or blanks; of a fixed box its only text
    std::span<const Code> codes = {};
    QStringView alsoAllowed = {}; // a code without an entry in the list
    bool fromList = false; // whether an entry can be taken over, and the box has a button that drops the list down
};

// For static_assert: `length` characters altogether, and in each box codes that are told apart.
constexpr bool isSound(std::span<const Box> table, int length) {
    auto code = [](const Box &box, const Code &c) { return std::u16string_view(c.listText.utf16(), box.width); };
    for (const Box &box : table) {
        length -= box.width;
        if (box.whenEmpty.size() != box.width || (box.kind == BoxKind::Coded) == box.codes.empty())
            return false;
        for (size_t i = 0; i < box.codes.size(); ++i) {
            if (box.codes[i].listText.size() <= box.width)
                return false;
            for (size_t j = 0; j < i; ++j) {
                if (code(box, box.codes[i]) == code(box, box.codes[j]))
                    return false;
            }
        }
    }
    return length == 0;
}

// What a key press in a box leads to.
enum class KeyEffect {
    LeftToBox,   // the box takes the key as any text box does
    Taken,       // the box's text is what it shall be; the key is used up
    MovesOn,     // the focus goes to the next box
    AsksAgain,   // the question is put whether to type again
    YearRefused, // the message on years is shown, the focus stays
};

class CodedBoxes {
public:
    static constexpr int noBox = -10;

    // The table must outlive the object.
    explicit CodedBoxes(std::span<const Box> table);

    // Each box that is not fixed gets its characters; what lies beyond the end of the text counts as empty.
    void load(const QString &incoming);

    int count() const { return int(m_table.size()); }
    const Box &box(int i) const { return m_table[size_t(i)]; }
    const QString &text(int i) const { return m_texts[size_t(i)]; }
    // The whole text as it stood at the last load, entering or leaving.
    const QString &whole() const { return m_whole; }
    // The box that the list and the choice work on, noBox when none was entered.
    int currentBox() const { return m_current; }
    // What OK hands back: the whole text in lower case.
    QString result() const;

    void focus(int i);
    void leave(int i);
    // The text was changed in the box itself: pasted, deleted, put in by an input method.
    void edit(int i, const QString &text) { m_texts[size_t(i)] = text; }
    // A key with a character of its own, 13 for Enter. A key that replaces a selection finds room in a full box.
    KeyEffect type(int i, char16_t key, bool replacesSelection = false);
    // The question that goes with AsksAgain.
    QStringView question(int i) const;

    // The list of the current box, and the entry in it that begins with the box's text; -1 when there is none.
    QStringList list() const;
    int listed() const;
    // Nothing for a code that the current box does not know, and in tables without explanations.
    std::optional<QString> explanation(QStringView listText) const;
    // Takes the entry's code into the current box; false where the list is only for reading.
    bool choose(const QString &listText);

private:
    void rebuild();
    bool allowed(int i) const;

    std::span<const Box> m_table;
    std::vector<QString> m_texts;
    QString m_whole;
    int m_current = noBox;
};

} // namespace assist
