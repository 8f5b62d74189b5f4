#include "app/windows/frmHelp.h"
#include "app/windows/helpText.h"
#include "app/windows/maker.h"
#include "widgets/layout.h"
#include "widgets/oneSize.h"

using namespace Qt::StringLiterals;

namespace app {

namespace {

QString helpHtml() {
    QString html = u"<h2 align=center>"_s + helpHeading + u"</h2>";
    for (const HelpSection &section : helpSections) {
        html += u"<h3>" + section.title + u"</h3>";
        for (const QStringView paragraph : section.text.split(u'\n', Qt::SkipEmptyParts))
            html += u"<p style=\"line-height:150%; white-space:pre-wrap\">　　" + paragraph + u"</p>";
    }
    html += u"<table cellpadding=3>"_s;
    for (const Standard &standard : helpStandards)
        html += u"<tr><td>" + standard.number + u"　</td><td>《" + standard.title + u"》</td></tr>";
    return html + u"</table>";
}

} // namespace

frmHelp::frmHelp(QWidget *parent)
    : Window(u"frmHelp"_s, makerName + u" 关于CNQuelt"_s, parent)
    , RichTextBox1(widgets::named(new QTextEdit, u"RichTextBox1"_s, windowTitle())) {
    widgets::keepOneSize(this);
    RichTextBox1->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    RichTextBox1->setCursorWidth(0); // the cursor is only for selecting by keyboard
    RichTextBox1->document()->setDocumentMargin(fontMetrics().height());
    RichTextBox1->setHtml(helpHtml());
    setLayout(widgets::row({RichTextBox1}));
    const int line = fontMetrics().height();
    resize(48 * line, 37 * line);
}

} // namespace app
