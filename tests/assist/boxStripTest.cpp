#include "assist/windows/frmHelpLR.h"
#include "support/scriptedHost.h"

namespace {

// Returns whether something is painted in the upper and in the lower half of a control.
std::pair<bool, bool> paintedHalves(QWidget *control) {
    const QImage picture = control->grab().toImage();
    bool halves[2] = {};
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            halves[2 * y / picture.height()] |= picture.pixel(x, y) != picture.pixel(0, 0);
    return {halves[0], halves[1]};
}

} // namespace

// A caption of more than four characters takes two lines and is broken between two words.
TEST(BoxStrip, CaptionsTakeTwoLines) {
    const QHash<QString, int> charactersOfALine{
        {u"记录长度"_s, 4},       {u"未定义"_s, 3},       {u"指示符长度"_s, 3},
        {u"地址目次区结构"_s, 4}, {u"数据起始地址"_s, 3}, {u"出版时间类型"_s, 4},
        {u"政府出版物代码"_s, 5}, {u"编目语种代码"_s, 4}, {u"补充字符集"_s, 3}};
    ScriptedHost host;
    assist::frmHelpLR000 leader(host);
    assist::frmHelpLR100 field(host);
    QSet<QString> seen;
    for (assist::CodedBoxWindow *window :
         {static_cast<assist::CodedBoxWindow *>(&leader), static_cast<assist::CodedBoxWindow *>(&field)}) {
        window->show();
        for (QWidget *label : window->LabShuoMing) {
            const QString caption = label->accessibleName();
            const auto [upper, lower] = paintedHalves(label);
            EXPECT_TRUE(lower && upper == (caption.size() > 4)) << caption.toStdString();
            EXPECT_GE(label->height(), 2 * label->fontMetrics().lineSpacing());
            if (!charactersOfALine.contains(caption))
                continue;
            seen.insert(caption);
            const int line = label->fontMetrics().horizontalAdvance(QString(charactersOfALine[caption], u'字'));
            EXPECT_TRUE(label->width() >= line && label->width() < line + label->fontMetrics().horizontalAdvance(u'字'))
                << caption.toStdString();
        }
    }
    EXPECT_EQ(seen.size(), charactersOfALine.size());
}

TEST(BoxStrip, TheButtonOfAListIsNextToItsBox) {
    ScriptedHost host;
    assist::frmHelpLR000 window(host);
    window.show();
    for (size_t number = 0; const size_t box : {1, 2, 3, 4, 9, 10}) {
        const QToolButton *button = window.picClick[number++];
        const QRect edit = window.Text1[box]->geometry();
        EXPECT_TRUE(button->arrowType() == Qt::DownArrow && button->toolTip() == button->accessibleName());
        EXPECT_TRUE(button->x() > edit.right() && button->x() < edit.right() + edit.width()) << box;
    }
}

TEST(CodeBox, AFixedBoxIsGreyInAnyPalette) {
    QPalette colours;
    colours.setColor(QPalette::Disabled, QPalette::Base, Qt::red);
    QWidget parent;
    parent.setPalette(colours);
    assist::CodeBox box(u"box"_s, 1, &parent);
    box.makeFixed();
    EXPECT_EQ(box.palette().color(QPalette::Base), box.palette().color(QPalette::Active, QPalette::Button));
}
