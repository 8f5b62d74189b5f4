// The masked edit with arbitrary keys and texts.
#include "widgets/maskedEdit.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <array>

using namespace Qt::StringLiterals;
using widgets::MaskedEdit;

namespace fuzz {

namespace {

void checkShape(const MaskedEdit &edit) {
    const QString mask = edit.mask();
    const QString text = edit.text();
    if (mask.isEmpty())
        return;
    require(text.size() == mask.size(), "the text keeps the length of the mask");
    for (qsizetype i = 0; i < mask.size(); ++i) {
        const bool digit = text[i] >= u'0' && text[i] <= u'9';
        require(mask[i] == u'#' ? digit || text[i] == u'_' : text[i] == mask[i],
                "each position has a digit or prompt, or the character of the mask");
    }
}

void setText(MaskedEdit &edit, const QString &text) {
    edit.setText(text);
    if (edit.mask().isEmpty())
        return;
    for (qsizetype i = 0; i < edit.mask().size(); ++i) {
        const QChar given = i < text.size() ? text[i] : u'_';
        const QChar wanted = given >= u'0' && given <= u'9' ? given : QChar(u'_');
        require(edit.mask()[i] != u'#' || edit.text()[i] == wanted, "a text is entered position by position");
    }
}

void press(MaskedEdit &edit, Input &input) {
    constexpr auto masks = std::to_array<QStringView>({u"####-##-##", u"", u"##", u"a0-#9\\#X_"});
    constexpr auto keys = std::to_array<Qt::Key>(
        {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End});
    switch (input.below(7)) {
    case 0:
        edit.setMask(input.oneOf(masks).toString());
        require(edit.text() == QString(edit.mask()).replace(u'#', u'_'), "a new mask shows no digits");
        break;
    case 1:
        setText(edit, input.text());
        break;
    case 2: {
        QInputMethodEvent composed;
        composed.setCommitString(input.text(), -input.below(3), input.below(3));
        QApplication::sendEvent(&edit, &composed);
        break;
    }
    case 3:
        edit.setSelection(input.below(12), input.below(12));
        edit.insert(input.number());
        break;
    case 4:
        edit.setCursorPosition(input.below(16));
        edit.insert(input.text());
        break;
    default: {
        const int key = input.below(18);
        const QString typed = key < 10 ? QString(QChar(u'0' + key)) : key < 12 ? input.text() : QString();
        QKeyEvent event(QEvent::KeyPress, key < 12 ? Qt::Key_unknown : keys[size_t(key - 12)],
                        input.flag() ? Qt::ShiftModifier : Qt::NoModifier, typed);
        QApplication::sendEvent(&edit, &event);
    }
    }
    checkShape(edit);
}

} // namespace

void maskedEdit(QByteArrayView bytes) {
    static int count = 1;
    static char name[] = "fuzz";
    static char *names[] = {name, nullptr};
    static const auto *const application =
        qApp ? qApp : new QApplication(count, names); // never destroyed: a violated property ends the process
    std::ignore = application;
    Input input(bytes);
    MaskedEdit edit(u"edit"_s);
    edit.setMask(u"####-##-##"_s);
    for (int presses = 0; presses < 30 && !input.atEnd(); ++presses)
        press(edit, input);
}

} // namespace fuzz
