// The window of an assistant: the boxes of a table with their labels and list buttons, the list of the current box, and
// the whole text. It loads the text when it is opened. OK stores the result in `confirmed`; Cancel leaves `confirmed`
// empty.
#pragma once

#include "assist/codedBoxes.h"
#include "assist/windows/codeBox.h"
#include "platform/host.h"
#include "widgets/choiceList.h"
#include "widgets/window.h"
#include <QScrollArea>
#include <QTextEdit>
#include <QToolButton>
#include <array>
#include <optional>
#include <span>
#include <vector>

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

    // In tab order.
    const std::vector<CodeBox *> Text1;
    widgets::ChoiceList *const listLx;
    QTextEdit *const richTextTS;
    QLineEdit *const textMarc;
    const std::array<widgets::Button *, 2> cmdclick;

    std::vector<QWidget *> LabShuoMing;  // a label is clickable if its box takes codes from the list
    std::vector<QToolButton *> picClick; // of the boxes that take codes from the list
    widgets::ChoiceList *const listMenu;

protected:
    CodedBoxWindow(platform::Host &host, std::span<const Box> table, const WindowTexts &texts, QWidget *parent);

    virtual QString &incoming() = 0;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QLayout *boxRow();
    QScrollArea *boxArea();
    QWidget *makeLabel(int i);
    QToolButton *makeButton(int i);
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
    QScrollArea *m_boxArea = nullptr;
    CodedBoxes m_boxes;
    int m_inside = CodedBoxes::noBox; // the box entered and not yet left
};

} // namespace assist
