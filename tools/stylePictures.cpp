// Takes the pictures of docs/style.md: every control in its states, light and dark. Usage:
//   stylePictures FOLDER
#include "platform/desktop/qtHost.h"
#include "widgets/deskStyle.h"
#include "widgets/styleTokens.h"
#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStyleOptionProgressBar>
#include <QStyleOptionSlider>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct State {
    QStringView name;
    QStyle::State flags;
};
const auto states = std::to_array<State>({{u"普通", QStyle::State_Enabled},
                                          {u"指针在上", QStyle::State_Enabled | QStyle::State_MouseOver},
                                          {u"按下", QStyle::State_Enabled | QStyle::State_Sunken},
                                          {u"焦点", QStyle::State_Enabled | QStyle::State_HasFocus},
                                          {u"不可用", QStyle::State_None}});

struct Sample {
    QPainter &painter;
    QPalette palette;
    QRect place;
    QStyle::State state;

    template <class Option>
    Option option() const {
        Option made;
        made.palette = palette;
        made.palette.setCurrentColorGroup(state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled);
        made.rect = place;
        made.state = state;
        made.fontMetrics = QFontMetrics(QApplication::font());
        return made;
    }
};

void paintButton(const Sample &sample) {
    auto button = sample.option<QStyleOptionButton>();
    button.text = u"导入"_s;
    QApplication::style()->drawControl(QStyle::CE_PushButton, &button, &sample.painter);
}
void paintPrimary(const Sample &sample) {
    auto button = sample.option<QStyleOptionButton>();
    button.text = u"导入"_s;
    button.features = QStyleOptionButton::DefaultButton;
    QApplication::style()->drawControl(QStyle::CE_PushButton, &button, &sample.painter);
}
void paintEdit(const Sample &sample) {
    auto edit = sample.option<QStyleOptionFrame>();
    edit.lineWidth = 1;
    QApplication::style()->drawPrimitive(QStyle::PE_PanelLineEdit, &edit, &sample.painter);
    sample.painter.setPen(edit.palette.color(QPalette::Text));
    sample.painter.drawText(sample.place.adjusted(8, 0, 0, 0), Qt::AlignVCenter, u"红楼梦"_s);
}
void paintCombo(const Sample &sample) {
    auto box = sample.option<QStyleOptionComboBox>();
    box.currentText = u"书名"_s;
    QApplication::style()->drawComplexControl(QStyle::CC_ComboBox, &box, &sample.painter);
    QApplication::style()->drawControl(QStyle::CE_ComboBoxLabel, &box, &sample.painter);
}
void paintBoxes(const Sample &sample, QStyle::PrimitiveElement element) {
    const int side = QApplication::style()->pixelMetric(QStyle::PM_IndicatorWidth);
    auto box = sample.option<QStyleOptionButton>();
    box.rect = QRect(sample.place.left(), sample.place.center().y() - side / 2, side, side);
    QApplication::style()->drawPrimitive(element, &box, &sample.painter);
    box.rect.translate(2 * side, 0);
    box.state |= QStyle::State_On;
    QApplication::style()->drawPrimitive(element, &box, &sample.painter);
}
void paintTicks(const Sample &sample) {
    paintBoxes(sample, QStyle::PE_IndicatorCheckBox);
}
void paintRadios(const Sample &sample) {
    paintBoxes(sample, QStyle::PE_IndicatorRadioButton);
}
void paintProgress(const Sample &sample) {
    auto bar = sample.option<QStyleOptionProgressBar>();
    bar.maximum = 100;
    bar.progress = 60;
    QApplication::style()->drawControl(QStyle::CE_ProgressBarGroove, &bar, &sample.painter);
    QApplication::style()->drawControl(QStyle::CE_ProgressBarContents, &bar, &sample.painter);
}
void paintScrollBar(const Sample &sample) {
    auto bar = sample.option<QStyleOptionSlider>();
    bar.orientation = Qt::Horizontal;
    bar.maximum = 100;
    bar.pageStep = 40;
    bar.sliderPosition = 30;
    bar.activeSubControls = QStyle::SC_ScrollBarSlider;
    bar.rect.setHeight(QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    QApplication::style()->drawComplexControl(QStyle::CC_ScrollBar, &bar, &sample.painter);
}
void paintMenuItem(const Sample &sample) {
    auto item = sample.option<QStyleOptionMenuItem>();
    item.text = u"添加字段\tIns"_s;
    item.font = QApplication::font();
    if (sample.state & QStyle::State_MouseOver)
        item.state |= QStyle::State_Selected;
    QApplication::style()->drawControl(QStyle::CE_MenuItem, &item, &sample.painter);
}

struct Control {
    QStringView name;
    void (*paint)(const Sample &sample);
};
constexpr auto controls = std::to_array<Control>({{u"按钮", paintButton},
                                                  {u"主要操作", paintPrimary},
                                                  {u"输入框", paintEdit},
                                                  {u"下拉框", paintCombo},
                                                  {u"复选框", paintTicks},
                                                  {u"单选钮", paintRadios},
                                                  {u"菜单项", paintMenuItem},
                                                  {u"进度条", paintProgress},
                                                  {u"滚动条", paintScrollBar}});

QPixmap gallery(widgets::Scheme scheme) {
    constexpr int column = 150, row = 44, names = 90;
    const QPalette palette = widgets::schemePalette(scheme);
    QPixmap picture(names + column * int(states.size()), row * (int(controls.size()) + 1));
    picture.fill(palette.color(QPalette::Window));
    QPainter painter(&picture);
    painter.setFont(QApplication::font());
    const auto write = [&](int x, int y, QStringView text) {
        painter.setPen(widgets::colour(widgets::Colour::SecondInk, palette));
        painter.drawText(QRect(x + 8, y, column, row), Qt::AlignVCenter, text.toString());
    };
    for (int across = 0; across < int(states.size()); ++across) {
        const State &state = states[size_t(across)];
        write(names + across * column, 0, state.name);
        for (int down = 0; down < int(controls.size()); ++down) {
            const QRect place(names + across * column + 8, (down + 1) * row + 7, column - 24, row - 14);
            controls[size_t(down)].paint({painter, palette, place, state.flags});
        }
    }
    for (int down = 0; down < int(controls.size()); ++down)
        write(0, (down + 1) * row, controls[size_t(down)].name);
    return picture;
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    platform::prepareToolkit();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2)
        return 2;
    QApplication::setStyle(new widgets::DeskStyle);
    const QString folder = arguments[1];
    const bool saved = gallery(widgets::Scheme::Light).save(folder + u"/light.png") &&
                       gallery(widgets::Scheme::Dark).save(folder + u"/dark.png");
    return saved ? 0 : 1;
}
