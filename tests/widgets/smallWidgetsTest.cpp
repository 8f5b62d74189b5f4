// Labels, icons and the helpers of layouts.
#include "support/qtPrinters.h"
#include "widgets/button.h"
#include "widgets/choiceList.h"
#include "widgets/clickLabel.h"
#include "widgets/deskStyle.h"
#include "widgets/fileDrop.h"
#include "widgets/flexGrid.h"
#include "widgets/heading.h"
#include "widgets/layout.h"
#include "widgets/lineIcon.h"
#include "widgets/oneSize.h"
#include "widgets/pacedLabel.h"
#include "widgets/textBox.h"
#include <QTest>

using namespace widgets;

// Within a block that is wrapped, and between blocks; a click finds the place below it.
TEST(TextBox, LinesAreAsFarApartAsSet) {
    TextBox box(u"box"_s);
    box.setLineHeight(1.5);
    box.resize(200, 300);
    box.setText(u"甲"_s.repeated(20) + u"\r\n乙\r\n丙"_s);
    box.show();
    std::vector<int> tops;
    QTextCursor cursor(box.document());
    for (int at = 0; at <= box.toPlainText().size(); ++at) {
        cursor.setPosition(at);
        const QRect place = box.cursorRect(cursor);
        EXPECT_EQ(box.cursorForPosition(place.center()).position(), at);
        if (tops.empty() || tops.back() != place.top())
            tops.push_back(place.top());
    }
    ASSERT_GE(tops.size(), 4U); // the first block is wrapped
    const double step = 1.5 * box.cursorRect(cursor).height();
    for (size_t line = 1; line < tops.size(); ++line)
        EXPECT_NEAR(tops[line] - tops[line - 1], step, 1.01) << line;
}

TEST(ClickLabel, LooksAsItsStateAndIsClickedByKeys) {
    for (const auto look : {ClickLabel::Look::Raised, ClickLabel::Look::Underlined}) {
        const bool raised = look == ClickLabel::Look::Raised;
        ClickLabel label(u"label"_s, u"名"_s, look);
        label.resize(60, 40);
        const auto picture = [&] { return label.grab().toImage(); };
        const QImage plain = picture();
        EXPECT_EQ(plain.pixelColor(59, 20) != plain.pixelColor(55, 20), raised) << "the edge";
        label.setDown(true);
        EXPECT_EQ(picture() != plain, raised);
        label.setDown(false);
        label.setPaintedText(u"甲"_s);
        EXPECT_NE(picture(), plain);
        label.setPaintedText({});
        label.setTextFlags(Qt::AlignRight);
        EXPECT_NE(picture(), plain);
        const QSize words(label.fontMetrics().horizontalAdvance(u"名"_s), label.fontMetrics().height());
        const QSize around = label.sizeHint() - words;
        EXPECT_TRUE(raised ? around.height() > 6 && around.width() == 2 * around.height() : around == QSize(0, 0));

        QStringList lines;
        const auto after = [&](QEvent &&event) {
            QCoreApplication::sendEvent(&label, &event);
            lines.append(label.font().underline() ? u"under"_s : u"none"_s);
        };
        after(QEnterEvent({}, {}, {}));
        after(QEvent(QEvent::Leave));
        after(QFocusEvent(QEvent::FocusIn));
        after(QFocusEvent(QEvent::FocusOut));
        EXPECT_EQ(lines.join(u' '), raised ? u"none none none none"_s : u"under none under none"_s);
        int clicks = 0;
        QObject::connect(&label, &ClickLabel::clicked, [&] { ++clicks; });
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_A, Qt::Key_B, Qt::Key_C})
            QTest::keyClick(&label, key);
        EXPECT_EQ(clicks, 3);
        EXPECT_EQ(label.focusPolicy(), Qt::StrongFocus);
    }
}

TEST(Layout, TabFollowsTheLayoutAndHiddenControlsKeepTheirPlace) {
    QWidget window;
    auto *last = named(new QLineEdit(&window), u"last"_s);
    auto *title = new QLineEdit(&window);
    auto *split = new QSplitter(&window);
    auto *right = named(new QLineEdit(split), u"right"_s);
    named(new QLineEdit(split), u"left"_s);
    auto *first = named(new QLineEdit(&window), u"first"_s);
    split->addWidget(right); // moves it after the other
    auto *label = new QLabel(u"书名(&N)"_s);
    auto *line = hairline(&window);
    EXPECT_EQ(line->frameStyle(), int(QFrame::HLine) | int(QFrame::Plain));
    window.setLayout(column({first, framed(new QGroupBox, row({split})), labelled(label, title), line, {last, 1}}));
    tabInReadingOrder(&window);
    QStringList names;
    for (QWidget *at = first; names.size() < 5; at = at->nextInFocusChain())
        if (at->focusPolicy() & Qt::TabFocus)
            names.append(at->objectName() + at->accessibleName());
    EXPECT_EQ(names.join(u' '), u"first left right 书名 last"_s);
    EXPECT_EQ(label->buddy(), title);
    EXPECT_EQ(line->foregroundRole(), QPalette::Mid);
    window.show();
    const QSize size = window.sizeHint();
    keepPlace(title);
    title->hide();
    label->hide();
    QCoreApplication::sendPostedEvents();
    window.layout()->activate();
    EXPECT_EQ(window.sizeHint(), size);
    hint({{title, u"F3"}});
    EXPECT_EQ(title->toolTip(), u"F3"_s);
    EXPECT_EQ(plainTip({}), QString());
    EXPECT_TRUE(plainTip(u"<b>"_s).contains(u"&lt;b&gt;"));
    keepOneSize(&window);
    EXPECT_FALSE(window.windowFlags() & (Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint));
}

// A screen reader reads the names, and the documents use them.
TEST(Controls, HaveTheirNames) {
    const FlexGrid grid(u"name"_s, 1, 1);
    const ClickLabel label(u"name"_s, u"题名"_s, ClickLabel::Look::Raised);
    QWidget window;
    const ChoiceList list(u"name"_s, u"列表"_s, &window);
    const Button button(u"name"_s, u"&Q 退出"_s);
    const TextBox box(u"name"_s);
    const PacedLabel counter(u"name"_s);
    const Heading heading(u"name"_s, u"标题"_s, titleSize);
    for (const auto &[control, spoken] : {std::pair<const QWidget *, QString>{&grid, u"name"_s},
                                          {&label, u"题名"_s},
                                          {&box, u""_s},
                                          {&counter, u""_s},
                                          {&list, u"列表"_s},
                                          {&heading, u""_s},
                                          {&button, u"Q 退出"_s}}) {
        EXPECT_EQ(control->objectName(), u"name"_s);
        EXPECT_EQ(control->accessibleName(), spoken);
    }
}

TEST(FileDrop, TakesOneFileOfTheMachineThatMayBeCopied) {
    const QUrl file = QUrl::fromLocalFile(u"/资料/a.iso"_s), web(u"https://example.org/a.iso"_s);
    const std::tuple<QList<QUrl>, Qt::DropActions, QString> rows[] = {
        {{file}, Qt::CopyAction | Qt::MoveAction, u"/资料/a.iso"_s},
        {{file}, Qt::MoveAction, {}},
        {{file, file}, Qt::CopyAction, {}},
        {{web}, Qt::CopyAction, {}},
        {QList<QUrl>(), Qt::CopyAction, {}},
    };
    for (const auto &[urls, actions, path] : rows) {
        QMimeData data;
        data.setUrls(urls);
        QDropEvent drop({}, actions, &data, Qt::NoButton, Qt::NoModifier);
        drop.ignore();
        EXPECT_EQ(acceptFile(&drop).value_or(QString()), path);
        EXPECT_EQ(drop.isAccepted() && drop.dropAction() == Qt::CopyAction, !path.isEmpty());
    }
}

TEST(LineIcon, HasTheColoursOfTheSchemeAndIsMadeOnce) {
    const QPalette before = QApplication::palette();
    std::vector<QImage> pictures;
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        QApplication::setPalette(schemePalette(scheme));
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
            const QPixmap made = lineIcon(u"critical"_s).pixmap(16, mode);
            EXPECT_EQ(lineIcon(u"critical"_s).pixmap(16, mode).cacheKey(), made.cacheKey());
            for (const QImage &other : pictures)
                EXPECT_NE(made.toImage(), other);
            pictures.push_back(made.toImage());
            EXPECT_EQ(made.toImage().pixelColor(0, 0).alpha(), 0);
        }
    }
    QApplication::setPalette(before);
    const DeskStyle style;
    EXPECT_EQ(style.standardPixmap(QStyle::SP_MessageBoxCritical, nullptr, nullptr).toImage(),
              lineIcon(u"critical"_s).pixmap(style.pixelMetric(QStyle::PM_SmallIconSize, nullptr, nullptr)).toImage());
    EXPECT_FALSE(style.standardPixmap(QStyle::SP_TrashIcon, nullptr, nullptr).isNull());
}
