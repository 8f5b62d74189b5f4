// The window of an assistant: the boxes of a table with their labels and list buttons, the list of the current box, and
// the whole text. It loads the text when it is opened. OK stores the result in `confirmed`; Cancel leaves `confirmed`
// empty.
#pragma once

#include "assist/codedBoxes.h"
#include "assist/windows/boxStrip.h"
#include "widgets/window.h"
#include <array>
#include <optional>
#include <span>
#include <vector>

class QTextEdit;
namespace platform {
class Host;
}
namespace widgets {
class Button;
class ChoiceList;
} // namespace widgets

namespace assist {

struct WindowTexts {
    QString name;
    QString caption;
    QString formatLabel; // next to the whole text
    QString formatTip;
    bool explains; // whether the table has explanations
};

class CodedBoxWindow : public widgets::Window {
    Q_OBJECT
public:
    std::optional<QString> edit(const QString &text);

    std::optional<QString> confirmed;

    BoxStrip *const boxArea; // makes the controls of the next three members
    const std::vector<CodeBox *> Text1;
    const std::vector<QWidget *> LabShuoMing;
    const std::vector<QToolButton *> picClick;
    widgets::ChoiceList *const listLx;
    QTextEdit *const richTextTS;
    QLineEdit *const textMarc;
    const std::array<widgets::Button *, 2> cmdclick;

    widgets::ChoiceList *const listMenu;

protected:
    CodedBoxWindow(platform::Host &host, std::span<const Box> table, const WindowTexts &texts, QWidget *parent);

    virtual QString &incoming() = 0;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void wireBox(int i);
    void wireLists();

    void enterBox(int i);
    void leaveBox();
    bool typed(int i, char16_t key);
    void moveOn(int i);
    void openMenu(int i);
    void placeMenu();
    void closeMenu();
    void choose(const QString &entry);
    void explain(const QString &listText);
    void showBoxes();
    void confirm();

    platform::Host &m_host;
    CodedBoxes m_boxes;
    int m_inside = CodedBoxes::noBox; // the box entered and not yet left
};

} // namespace assist
