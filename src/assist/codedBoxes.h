// The engine of the assistants. A fixed-length text is edited in a row of boxes, one for each part. A table defines
// each box and its codes. CodedBoxes holds the texts of the boxes and implements loading, entering and leaving
// a box, keys, and choices from the list. A window displays it.
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

// `listText` begins with the code, which has as many characters as the box is wide.
struct Code {
    QStringView listText;
    QStringView explanation = {};
};

enum class BoxKind { Fixed, Coded, Year };

struct Box {
    QStringView label; // empty: the box shares the label of the previous box
    int width;         // in characters
    BoxKind kind;
    QStringView whenEmpty = {}; // replaces an empty or blank text; the only text of a fixed box
    std::span<const Code> codes = {};
    QStringView alsoAllowed = {}; // a valid code that is not in the list
    bool fromList = false;        // an entry can be chosen, and the box has a button that opens the list
};

// For static_assert: the boxes have `length` characters in total, and the codes of each box differ.
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

// The effect of a key press in a box.
enum class KeyEffect {
    LeftToBox,   // the box handles the key like any text box
    Taken,       // the text of the box is already set; the key is consumed
    MovesOn,     // the focus moves to the next box
    AsksAgain,   // the user is asked whether to type again
    YearRefused, // the message about years is shown and the focus stays
};

class CodedBoxes {
public:
    static constexpr int noBox = -10;

    // `table` must outlive the object.
    explicit CodedBoxes(std::span<const Box> table);

    // Sets the text of each box that is not fixed. Characters beyond the end of `incoming` count as empty.
    void load(const QString &incoming);

    int count() const { return int(m_table.size()); }
    const Box &box(int i) const { return m_table[size_t(i)]; }
    const QString &text(int i) const { return m_texts[size_t(i)]; }
    // The whole text at the last load, entering or leaving.
    const QString &whole() const { return m_whole; }
    // The box that the list and choose() refer to; noBox if none was entered.
    int currentBox() const { return m_current; }
    // Returns the text for OK: the whole text in lower case.
    QString result() const;

    void focus(int i);
    void leave(int i);
    // Call when the text was changed in the box itself: pasted, deleted or entered by an input method.
    void edit(int i, const QString &text) { m_texts[size_t(i)] = text; }
    // Handles a printable character, or 13 for Enter. A full box accepts a key only if it replaces a selection.
    KeyEffect type(int i, char16_t key, bool replacesSelection = false);
    // The question for KeyEffect::AsksAgain.
    QStringView question(int i) const;

    // The list of the current box, and the index of the entry that begins with the text of the box, or -1 if there is
    // none.
    QStringList list() const;
    int listed() const;
    // Returns std::nullopt if the current box does not know the code, or if the code has no explanation.
    std::optional<QString> explanation(QStringView listText) const;
    // Sets the current box to the code of the entry. Returns false if the list is only for reading.
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
