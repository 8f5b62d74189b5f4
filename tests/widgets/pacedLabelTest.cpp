#include "widgets/pacedLabel.h"
#include "support/qtPrinters.h"
#include <QTest>

using namespace Qt::StringLiterals;

using widgets::PacedLabel;

namespace {

// Counts how often the label is painted.
class CountingLabel : public PacedLabel {
public:
    using PacedLabel::PacedLabel;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override {
        ++paints;
        PacedLabel::paintEvent(event);
    }
};

} // namespace

TEST(PacedLabel, HoldsEveryTextAtOnceAndPaintsFewOfThem) {
    CountingLabel label(u"labShuDo"_s);
    const QLabel &seen = label;
    label.resize(300, 20);
    label.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&label));
    label.paints = 0;
    int count = 0;
    const auto countOn = [&] {
        label.setPacedText(QString::number(++count));
        return label.pacedText() == QString::number(count);
    };
    while (count < 1000)
        ASSERT_TRUE(countOn());
    EXPECT_TRUE(seen.text().isEmpty()) << "no text is painted at once";
    // New texts do not postpone the next frame.
    EXPECT_TRUE(QTest::qWaitFor([&] { return countOn() && !seen.text().isEmpty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(label.paints, 1) << "painted once for " << count << " texts";

    QObject::connect(&label, &PacedLabel::aboutToShow, &label, [&label] { label.setPacedText(u"真"_s); });
    label.flush();
    EXPECT_EQ(seen.text(), u"真"_s);
    EXPECT_EQ(label.text(), u"真"_s);
}

TEST(PacedLabel, ALongPathNeverWidensItsWindow) {
    PacedLabel label(u"labJinDu"_s);
    label.setText(u"/资料/"_s.repeated(200));
    EXPECT_LT(label.minimumSizeHint().width(), 400);
    EXPECT_EQ(label.text().size(), 800);
}
